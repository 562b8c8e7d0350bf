#!/usr/bin/env bash
# Whether one process that converts many times holds ever more memory, handles, GDI or USER objects:
# scripts/soak.sh [linux|win-x64|win-x86 ...], all without one named. 1,000,000 conversions natively and 200,000 under Wine, of
# all small drawings of the tests in all ways, a few minutes each.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

[ $# -gt 0 ] || set -- linux win-x64 win-x86
status=0
for preset in "$@"; do
  scripts/build.sh "$preset" hexlume_soak
  case "$preset" in
    linux) nice -n 19 build/linux/bin/hexlume_soak 1000000 tests/drawings examples || status=1 ;;
    *) nice -n 19 scripts/wine.sh "build/$preset/bin/hexlume_soak.exe" 200000 tests/drawings examples || status=1 ;;
  esac
done
exit "$status"
