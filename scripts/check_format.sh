#!/usr/bin/env bash
# Whether all sources stand as clang-format puts them.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
find include src tools tests bench \( -name '*.h' -o -name '*.cpp' \) ! -path 'include/hexlume.h' -print0 |
  xargs -0 clang-format --dry-run --Werror
