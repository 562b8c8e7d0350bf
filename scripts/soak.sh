#!/usr/bin/env bash
# Whether one process that converts many times holds ever more memory, handles, GDI or USER objects:
# scripts/soak.sh [linux|win-x64|win-x86 ...], all without one named. 1,000,000 conversions natively and 200,000 under Wine, of
# all small drawings of the tests in all ways, a quarter of an hour each. Wine has a prefix for this program alone: it numbers USER objects
# for all programs of a prefix, and another one's would be counted.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

[ $# -gt 0 ] || set -- linux win-x64 win-x86
scratch=$(mktemp -d)
end_wine() {
  if [ -e "$scratch/wine" ]; then WINEPREFIX=$scratch/wine wineserver --wait || true; fi
  rm -rf "$scratch"
}
trap end_wine EXIT
status=0
for preset in "$@"; do
  scripts/build.sh "$preset" hexlume_soak
  case "$preset" in
    linux) nice -n 19 build/linux/bin/hexlume_soak 1000000 tests/drawings examples || status=1 ;;
    *) HEXLUME_WINEPREFIX=$scratch/wine nice -n 19 \
         scripts/wine.sh "build/$preset/bin/hexlume_soak.exe" 200000 tests/drawings examples || status=1 ;;
  esac
done
exit "$status"
