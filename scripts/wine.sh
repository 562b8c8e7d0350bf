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
exec "${command[@]}" "$@"
