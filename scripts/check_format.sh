#!/usr/bin/env bash
# Whether all sources stand as clang-format puts them. The public headers are C and stand as a C reader expects them.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
find . -path ./build -prune -o \( -name '*.h' -o -name '*.cpp' \) ! -path './include/*' -print0 |
  xargs -0 clang-format --dry-run --Werror
