#!/usr/bin/env bash
# Whether the packages in dist/ come out byte for byte again, from a fresh checkout of the last commit in another folder and without
# a compiler's cache: scripts/check_reproducible.sh [debian|win-x64|win-x86 ...], all without one named.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
git clone --quiet . "$scratch/another"
CCACHE_DISABLE=1 "$scratch/another/scripts/package.sh" "$@"
status=0
for package in "$scratch/another"/dist/*; do
  cmp "$package" "dist/$(basename "$package")" || status=1
done
exit "$status"
