#!/usr/bin/env bash
# Fails, and shows where, if a C++ file of the project isn't formatted as .clang-format says. With
# --fix it formats the files instead. Tables (*.def) are laid out by hand.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

mode=(--dry-run -Werror)
if [ "${1-}" = --fix ]; then mode=(-i); fi
git ls-files -z -- '*.h' '*.cpp' | xargs -0 --no-run-if-empty clang-format "${mode[@]}"
