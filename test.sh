#!/usr/bin/env bash
# Installs what is missing, builds everything and runs all tests in every build. The last line has the result.
#
#   ./test.sh               all tests but those of the packages; those of the viewer where 2 GB of disk are free
#   ./test.sh --native      those that need no Wine
#   ./test.sh --packages    makes and tests the packages too
#   ./test.sh --web         those of the viewer alone
set -uo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
cd "$root" || exit 1

usage="usage: ./test.sh [--native | --packages | --web]"
native_builds=(linux linux-asan)
windows_builds=(win-x64 win-x86)
packages="test"
with_packages=0
with_web=if-room
case "$*" in
  "") ;;
  --packages) with_packages=1 ;;
  --native)
    windows_builds=()
    packages=native-test
    with_web=no
    ;;
  --web)
    native_builds=()
    windows_builds=()
    packages=web-test
    with_web=alone
    ;;
  --help)
    echo "$usage"
    echo "Builds and tests everything; with --native only what needs no Wine, with --packages the packages too,"
    echo "with --web the viewer alone."
    echo "The last line counts the tests."
    exit 0
    ;;
  *)
    echo "$usage" >&2
    exit 64
    ;;
esac

passed=0
failed=0

# Adds up the closing lines of the GoogleTest programs in ctest's report. A program that ends without them, or badly
# without a failed test (a crash, nothing run), counts as a failed test. A trial is one test and has no such lines.
count_results() {
  local ok bad
  read -r ok bad < <(awk '
    function number_after(sign) { return substr($0, index($0, sign) + length(sign)) + 0 }
    /<testcase / { run = /status="run"/; trial = /name="[a-z_]*_trial"/; all = ok = skipped = 0 }
    /\[==========\] [0-9]+ tests? from .* ran\./ { all = number_after("[==========] ") }
    /\[  PASSED  \] [0-9]+ test/ { ok = number_after("[  PASSED  ] ") }
    /\[  SKIPPED \] [0-9]+ test/ { skipped = number_after("[  SKIPPED ] ") }
    /<\/testcase>/ {
      if (trial) ok = run
      bad = all > ok + skipped ? all - ok - skipped : 0
      passed += ok
      failed += bad || (run && ok) ? bad : 1
    }
    END { print passed + 0, failed + 0 }' "$1")
  passed=$((passed + ok))
  failed=$((failed + bad))
}

check() {
  local name=$1 start=$SECONDS
  shift
  echo "== $name"
  if "$@"; then
    passed=$((passed + 1))
    echo "$name: $((SECONDS - start)) s"
  else
    echo "$name failed" >&2
    failed=$((failed + 1))
  fi
}

test_build() {
  local preset=$1 report status=0 failed_before=$failed start=$SECONDS
  if ! scripts/build.sh "$preset"; then
    echo "$preset doesn't build" >&2
    failed=$((failed + 1))
    return
  fi
  echo "$preset is built: $((SECONDS - start)) s"
  report=$(mktemp)
  # The report has the end of a long output, with the closing lines.
  ctest --preset "$preset" --parallel "$(nproc)" --output-junit "$report" --test-output-truncation head </dev/null || status=$?
  count_results "$report"
  # ctest found no test, or couldn't run.
  [ "$status" -eq 0 ] || [ "$failed" -gt "$failed_before" ] || failed=$((failed + 1))
  rm -f "$report"
}

# Checks that our own GDI writes the same records as the system's.
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

# Builds and tests everything but the viewer.
test_builds() {
  local preset drawings
  check "formatting" scripts/check_format.sh
  for preset in "${native_builds[@]}" "${windows_builds[@]}"; do test_build "$preset"; done
  for preset in linux "${windows_builds[@]}"; do check "$preset is hardened" scripts/check_hardening.sh "$preset"; done
  for preset in "${windows_builds[@]}"; do
    check "$preset needs nothing but Windows" scripts/check_imports.sh "$preset"
  done
  if [ "${#windows_builds[@]}" -gt 0 ]; then
    drawings=(examples tests/drawings)
    [ ! -d ../shared/corpus ] || drawings+=(../shared/corpus)
    check "our GDI records what Windows' does" compare_gdi
    check "all builds draw the same" scripts/compare_builds.sh "${drawings[@]}"
  fi
  check "the benchmarks build" scripts/build.sh linux benches
  check "the benchmark runs" build/linux/bin/hexlume_speed --quick --runs 1 --rows lines,inserts,texts,memory,blocks
  for preset in linux "${windows_builds[@]}"; do check "the sample hosts, $preset" scripts/test_hosts.sh "$preset"; done
  check "the engines of archives" scripts/test_engines.sh
  check "the reference pages" scripts/reference.sh
  check "the installed package" scripts/test_install.sh
  if [ "$with_packages" -eq 1 ]; then
    check "making the packages" scripts/package.sh
    check "the packages" scripts/test_packages.sh
  fi
}

# Builds the viewer and tests it: its library, that it gives what the native one gives, and its page in a browser.
test_web() {
  local drawings=(examples tests/drawings)
  [ ! -d ../shared/corpus ] || drawings+=(../shared/corpus)
  if [ "$with_web" = alone ]; then
    check "the viewer's packages and libraries" scripts/setup.sh web-test
  elif ! scripts/setup.sh web-test; then
    echo "The viewer isn't tested, because what it needs can't be installed (npm's registry, Debian's sources)."
    return
  fi
  check "the viewer builds" scripts/build.sh web
  check "the native library builds" scripts/build.sh linux hexlume_host_digest hexlume_tool
  check "the viewer" ctest --preset web --parallel "$(nproc)"
  check "the web build gives what the native one gives" scripts/compare_web.sh "${drawings[@]}"
}

# Whether the viewer is tested too. Its compiler and its browser need 2 GB.
has_room_for_web() {
  [ "$(df --output=avail -BM . | tail -n 1 | tr -dc 0-9)" -ge 2048 ]
}

if [ "$with_web" = if-room ]; then
  with_web=yes
  has_room_for_web || with_web=no
  [ "$with_web" = yes ] && echo "2 GB of disk are free, so the viewer is tested too." ||
    echo "The viewer isn't tested, because fewer than 2 GB of disk are free."
fi

scripts/setup.sh "$packages" || { echo "setting up failed" >&2; exit 1; }
if [ "${#windows_builds[@]}" -gt 0 ]; then
  . scripts/wine_environment.sh
  prepare_wine || { echo "setting up Wine failed" >&2; exit 1; }
fi

[ "$with_web" = alone ] || test_builds
[ "$with_web" = no ] || test_web

echo
echo "All of it: $((SECONDS / 60)) min"
echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ] && [ "$passed" -gt 0 ]
