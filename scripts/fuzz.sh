#!/usr/bin/env bash
# Fuzzes the native library and the tool's reader of metafiles: scripts/fuzz.sh TARGET SECONDS [OPTION OF THE FUZZER ...]
#
#   conversion       whole conversions through the host library, in all ways
#   inspection       its reports
#   recent_format    its adapter for recent drawings
#   metafile         the tool's listing, player and pictures of metafiles
#   web              the entrance of web pages, compiled for this system
#
# The seeds are fuzz/corpus, the drawings of the tests and some random ones. The fuzzer keeps its corpus in
# build/linux-fuzz/corpus for the next run, and writes what it finds to build/linux-fuzz/findings. To run one finding again:
# build/linux-fuzz/bin/hexlume_TARGET_fuzz FINDING
#
#   scripts/fuzz.sh --merge      makes fuzz/corpus anew of the inputs of both corpora that reach the most
#   scripts/fuzz.sh --coverage   prints what the inputs of fuzz/corpus reach of the sources, and the functions that they don't
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
targets=(conversion inspection recent_format metafile web)
folder=build/linux-fuzz

# Seeds have a head that chooses the options: see fuzz/drawing_input.cpp, and fuzz/metafile_fuzz.cpp for that of metafiles.
heads=(
  '\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00'
  '\x42\x00\x00\x00\x00\x01\x0A\x01\x02\x0C\x0A\x00'
  '\x79\x00\x00\x02\x00\x00\x00\x00\x00\x00\x00\x00'
  '\x44\x0F\x12\x00\x00\x00\x00\x00\x00\x00\x00\x00'
  '\x10\x00\x00\x00\x05\xF3\x00\x00\x00\x00\x00\x00'
)
most_bytes=6000 # of a seed

find_drawings() {
  find tests/drawings examples "$folder/random" -name '*.dxf' -size "-${most_bytes}c" -print0 | sort -z
}

make_drawing_seeds() {
  local count=0 drawing
  while IFS= read -r -d '' drawing; do
    { printf '%b' "${heads[count % ${#heads[@]}]}"; cat "$drawing"; } >"$folder/seeds/drawings/$count"
    count=$((count + 1))
  done < <(find_drawings)
}

make_metafile_seeds() {
  local count=0 metafile
  find_drawings | tr '\0' '\n' >"$folder/seeds/list"
  mkdir -p "$folder/seeds/emf"
  build/linux/bin/hexlume --files-from "$folder/seeds/list" -d "$folder/seeds/emf" >/dev/null 2>&1 || true # some can't be drawn
  while IFS= read -r -d '' metafile; do
    { printf '%b' "\\x0$((count % 8))"; cat "$metafile"; } >"$folder/seeds/metafiles/$count"
    count=$((count + 1))
  done < <(find "$folder/seeds/emf" -name '*.emf' -size "-${most_bytes}c" -print0 | sort -z)
}

make_seeds() {
  rm -rf "$folder/seeds" "$folder/random"
  mkdir -p "$folder"/seeds/{drawings,metafiles} "$folder/random"
  build/linux/bin/hexlume_random_drawings "$folder/random" 300
  make_drawing_seeds
  [ "$1" != metafile ] || make_metafile_seeds
}

fuzz() {
  local target=$1 seconds=$2 seeds=drawings
  shift 2
  scripts/build.sh linux hexlume_random_drawings hexlume_tool
  scripts/build.sh linux-fuzz "hexlume_${target}_fuzz"
  make_seeds "$target"
  [ "$target" != metafile ] || seeds=metafiles
  mkdir -p "$folder/corpus/$target" "$folder/findings" "fuzz/corpus/$target"
  # Freed memory is kept as long as a run lasts, not for the thousand runs after it: new pages cost a fifth of the time.
  export ASAN_OPTIONS=quarantine_size_mb=2:thread_local_quarantine_size_kb=16:malloc_context_size=6${ASAN_OPTIONS:+:$ASAN_OPTIONS}
  # Without -entropic=0 a third of the time is spent on which input is changed next.
  exec "$folder/bin/hexlume_${target}_fuzz" "$folder/corpus/$target" "fuzz/corpus/$target" "$folder/seeds/$seeds" \
    -dict=fuzz/dxf.dict -artifact_prefix="$folder/findings/$target-" -max_total_time="$seconds" -max_len=900 -entropic=0 \
    -timeout=10 -rss_limit_mb=3000 "$@"
}

# The smallest inputs come first in a merge, and what they reach is kept with them.
merge() {
  local target seeds
  scripts/build.sh linux hexlume_random_drawings hexlume_tool
  scripts/build.sh linux-fuzz
  make_seeds metafile
  for target in "${targets[@]}"; do
    seeds=drawings
    [ "$target" != metafile ] || seeds=metafiles
    mkdir -p "$folder/corpus/$target" "$folder/merged/$target"
    rm -f "$folder/merged/$target"/*
    "$folder/bin/hexlume_${target}_fuzz" -merge=1 -use_counters=0 "$folder/merged/$target" "fuzz/corpus/$target" \
      "$folder/corpus/$target" "$folder/seeds/$seeds" 2>&1 | tail -n 1
    rm -rf "fuzz/corpus/$target"
    cp -r "$folder/merged/$target" "fuzz/corpus/$target"
  done
  du -sb fuzz/corpus/*
}

coverage() {
  local target objects=() build=build/linux-coverage
  command -v llvm-cov >/dev/null || { echo "llvm-cov is missing: scripts/setup.sh fuzz" >&2; exit 1; }
  scripts/build.sh linux-coverage
  rm -f "$build"/*.profraw
  for target in "${targets[@]}"; do
    LLVM_PROFILE_FILE=$build/$target.profraw "$build/bin/hexlume_${target}_fuzz" "fuzz/corpus/$target" >/dev/null 2>&1
    objects+=(-object "$build/bin/hexlume_${target}_fuzz")
  done
  llvm-profdata merge -o "$build/all.profdata" "$build"/*.profraw
  llvm-cov export -format=lcov "${objects[@]}" -instr-profile="$build/all.profdata" >"$build/lines.info"
  scripts/fuzz_coverage.py "$build/lines.info"
}

case "${1:-}" in
  --merge) merge ;;
  --coverage) coverage ;;
  *)
    [[ $# -ge 2 && " ${targets[*]} " == *" $1 "* ]] || { sed -n '2,16s/^# \{0,1\}//p' "$0" >&2; exit 64; }
    fuzz "$@"
    ;;
esac
