#!/usr/bin/env bash
# Builds one preset: scripts/build.sh PRESET [TARGET ...]. Prints the compiler's output only if there are errors or
# warnings.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

preset=$1
shift
log=$(mktemp)
trap 'rm -f "$log"' EXIT
targets=()
[ $# -eq 0 ] || targets=(--target "$@")
echo "Building $preset ..."
if ! { cmake --preset "$preset" && cmake --build --preset "$preset" "${targets[@]}"; } >"$log" 2>&1; then
  cat "$log" >&2
  exit 1
fi
# A build of everything also prints which parts it leaves out because a package is missing.
[ "${#targets[@]}" -gt 0 ] || sed -n '/^CMake Warning/,/^$/p' "$log" >&2
if grep -q 'warning:' "$log"; then
  grep -A 8 'warning:' "$log" >&2
  echo "The build has warnings." >&2
  exit 1
fi
