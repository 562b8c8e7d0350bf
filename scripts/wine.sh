#!/usr/bin/env bash
# Runs a Windows program through Wine: scripts/wine.sh [--screen] PROGRAM [ARGUMENT ...]
#
# --screen gives the program a virtual screen.
set -euo pipefail
scripts=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
. "$scripts/wine_environment.sh"
prepare_wine

command=(wine)
if [ "${1:-}" = --screen ]; then
  command=("$scripts/with_screen.sh" wine)
  shift
fi
# Wine's own processes, which its first program starts, keep that program's output open as long as any program runs. The reader
# of a pipe, such as ctest, would wait for them.
if [ -p /dev/stdout ]; then
  output=$(mktemp)
  trap 'rm -f "$output"' EXIT
  status=0
  "${command[@]}" "$@" >"$output" 2>&1 || status=$?
  cat "$output"
  exit "$status"
fi
exec "${command[@]}" "$@"
