#!/usr/bin/env bash
# Builds everything and runs all tests, in every build. Installs what is missing first. The last line tells the result.
# With --packages the packages are made and tested too.
set -uo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
cd "$root" || exit 1

passed=0
failed=0

drawings=(examples tests/drawings)
[ ! -d ../shared/corpus ] || drawings+=(../shared/corpus)

# Adds up the closing lines of a GoogleTest program; one that ends without them, or badly without a failed test (a crash,
# nothing run), counts as a failure.
count_results() {
  local log=$1 status=$2 name=$3 ok bad
  ok=$(grep -aoP '^\[  PASSED  \] \K[0-9]+(?= test)' "$log" | tail -n 1)
  bad=$(grep -aoP '^\[  FAILED  \] \K[0-9]+(?= tests?,)' "$log" | tail -n 1)
  passed=$((passed + ${ok:-0}))
  failed=$((failed + ${bad:-0}))
  if [ -z "$bad" ] && { [ "$status" -ne 0 ] || [ "${ok:-0}" -eq 0 ]; }; then
    echo "$name ended with status $status and no result" >&2
    failed=$((failed + 1))
  fi
}

run_tests() {
  local preset=$1 program=$2 log status=0
  local bin=build/$preset/bin
  local command=("$bin/$program")
  shift 2
  case "$preset $program" in
    win-*_drawing_tests) command=(scripts/with_screen.sh wine "$bin/hexlume_press_ok.exe" "$bin/$program.exe") ;;
    win-*_dialog_tests) command=(scripts/with_screen.sh wine "$bin/$program.exe") ;; # presses for itself
    win-*) command=(wine "$bin/$program.exe") ;;
  esac
  log=$(mktemp)
  echo "== $preset $program"
  timeout -k 60 900 "${command[@]}" "$@" --gtest_brief=1 </dev/null >"$log" 2>&1 || status=$?
  cat "$log"
  count_results "$log" "$status" "$preset $program"
  rm -f "$log"
}

check() {
  local name=$1
  shift
  echo "== $name"
  if "$@"; then
    passed=$((passed + 1))
  else
    echo "$name failed" >&2
    failed=$((failed + 1))
  fi
}

drawings_folder() {
  case "$1" in
    win-*) windows_path tests/drawings ;;
    *) echo tests/drawings ;;
  esac
}

test_build() {
  local preset=$1
  if ! scripts/build.sh "$preset"; then
    echo "$preset doesn't build" >&2
    failed=$((failed + 1))
    return
  fi
  run_tests "$preset" hexlume_unit_tests
  run_tests "$preset" hexlume_text_tests
  run_tests "$preset" hexlume_system_version_tests
  run_tests "$preset" hexlume_out_of_memory_tests
  run_tests "$preset" hexlume_conversion_tests
  run_tests "$preset" hexlume_drawing_tests "$(drawings_folder "$preset")"
  run_tests "$preset" hexlume_export_tests
  run_tests "$preset" hexlume_host_unit_tests
  run_tests "$preset" hexlume_host_tests
  run_tests "$preset" hexlume_host_comparison 500 "${drawings[@]}"
  run_tests "$preset" hexlume_tool_tests
  case "$preset" in
    linux*)
      run_tests "$preset" hexlume_player_tests
      run_tests "$preset" hexlume_foreign_reader_tests
      ;;
    *) run_tests "$preset" hexlume_dialog_tests ;;
  esac
}

scripts/setup.sh test || { echo "setting up failed" >&2; exit 1; }
. scripts/wine_environment.sh
prepare_wine || { echo "setting up Wine failed" >&2; exit 1; }

# Whether our own GDI records what the system's does.
compare_gdi() {
  local scratch status=0 preset
  scratch=$(mktemp -d)
  build/linux/bin/hexlume_gdi_probe >"$scratch/linux"
  [ -s "$scratch/linux" ] || status=1
  for preset in win-x64 win-x86; do
    wine "build/$preset/bin/hexlume_gdi_probe.exe" </dev/null | tr -d '\r' >"$scratch/$preset"
    diff "$scratch/linux" "$scratch/$preset" | cut -c 1-200 || status=1
  done
  rm -rf "$scratch"
  return "$status"
}

# Fontconfig keeps memory where the leak checker doesn't see it.
export LSAN_OPTIONS="suppressions=$root/scripts/leak_suppressions.txt:print_suppressions=0"

check "formatting" scripts/check_format.sh
for preset in linux linux-asan win-x64 win-x86; do test_build "$preset"; done
for preset in win-x64 win-x86; do
  check "$preset needs nothing but Windows" scripts/check_imports.sh "$preset"
done
check "our GDI records what Windows' does" compare_gdi
check "all builds draw the same" scripts/compare_builds.sh "${drawings[@]}"
for preset in linux win-x64 win-x86; do check "the sample hosts, $preset" scripts/test_hosts.sh "$preset"; done
check "the reference pages" scripts/reference.sh
check "the installed package" scripts/test_install.sh
if [ "${1:-}" = --packages ]; then
  check "making the packages" scripts/package.sh
  check "the packages" scripts/test_packages.sh
fi

echo
echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ] && [ "$passed" -gt 0 ]
