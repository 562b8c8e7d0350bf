#!/usr/bin/env bash
# Whether all sources stand as clang-format puts them. The public header is C and stands as a C reader expects it.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
find . -path ./build -prune -o \( -name '*.h' -o -name '*.cpp' \) ! -path './include/hexlume.h' -print0 |
  xargs -0 clang-format --dry-run --Werror
