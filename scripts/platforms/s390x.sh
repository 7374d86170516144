#!/usr/bin/env bash
# Linux on IBM Z, which is big-endian, under qemu
. scripts/lib/emulated-linux.sh
describe_emulated_linux s390x s390x
