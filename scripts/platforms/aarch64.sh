#!/usr/bin/env bash
# Linux on 64-bit ARM, under qemu
. scripts/lib/emulated-linux.sh
describe_emulated_linux aarch64 arm64
