#!/usr/bin/env bash
# Runs clang-tidy with the checks of .clang-tidy on the native library and tool: scripts/check_tidy.sh [SOURCE ...]
# checks only these sources. The preset linux must have been configured.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
database=build/linux
[ -f "$database/compile_commands.json" ] || { echo "Run cmake --preset linux first." >&2; exit 1; }
# Only the sources in the database of this build: it has no entry for those of other systems.
python3 -c '
import json, os, sys
root = os.getcwd() + "/"
wanted = [os.path.relpath(path) for path in sys.argv[2:]]
for entry in json.load(open(sys.argv[1])):
    path = os.path.relpath(entry["file"], root)
    if path in wanted or not wanted and path.startswith(("src/", "tools/")):
        print(path)
' "$database/compile_commands.json" "$@" | sort -u |
  # It counts the warnings of system headers, which it does not show.
  xargs -r -n 4 -P "$(nproc)" clang-tidy -p "$database" --quiet 2> >(sed '/ warnings\? generated\.$/d' >&2)
