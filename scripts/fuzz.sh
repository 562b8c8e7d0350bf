#!/usr/bin/env bash
# Fuzzes the native library: scripts/fuzz.sh SECONDS [OPTION OF THE FUZZER ...]
#
# The seeds are the drawings of the tests and some random ones, each with a head that chooses the conversion. The fuzzer
# keeps its corpus in build/linux-fuzz/corpus for the next run, and writes what it finds to build/linux-fuzz/findings.
# To run one finding again: build/linux-fuzz/bin/hexlume_conversion_fuzz FINDING
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
[ $# -gt 0 ] || { echo "usage: scripts/fuzz.sh SECONDS [OPTION OF THE FUZZER ...]" >&2; exit 64; }
seconds=$1
shift

scripts/build.sh linux hexlume_random_drawings
scripts/build.sh linux-fuzz
folder=build/linux-fuzz
rm -rf "$folder/seeds" "$folder/random"
mkdir -p "$folder/seeds" "$folder/random" "$folder/corpus" "$folder/findings"
build/linux/bin/hexlume_random_drawings "$folder/random" 300

# The nine bytes that ReadHead in fuzz/conversion_fuzz.cpp reads: conversion and dialogs, switches, families, scale, the
# view's step and its four sides.
heads=(
  '\x00\x00\x00\x01\x00\x00\x00\x00\x00'
  '\x01\x02\x00\x01\x0A\x01\x02\x0C\x0A'
  '\x02\x01\x00\x01\x00\x00\x00\x00\x00'
  '\x07\x04\x00\x09\x00\x00\x00\x00\x00'
  '\x04\x30\x12\x01\x00\x00\x00\x00\x00'
)
count=0
while IFS= read -r -d '' drawing; do
  { printf '%b' "${heads[count % ${#heads[@]}]}"; cat "$drawing"; } >"$folder/seeds/$count"
  count=$((count + 1))
done < <(find tests/drawings "$folder/random" -name '*.dxf' -print0 | sort -z)

exec "$folder/bin/hexlume_conversion_fuzz" "$folder/corpus" "$folder/seeds" -dict=fuzz/dxf.dict \
  -artifact_prefix="$folder/findings/" -max_total_time="$seconds" -max_len=20000 -timeout=25 -rss_limit_mb=4096 "$@"
