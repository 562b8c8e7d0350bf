#!/usr/bin/env bash
# Checks that all sources are formatted as clang-format does it, except the public headers, which are in C style.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
find . -path ./build -prune -o \( -name '*.h' -o -name '*.cpp' \) ! -path './include/*' -print0 |
  xargs -0 clang-format --dry-run --Werror
