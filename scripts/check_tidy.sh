#!/usr/bin/env bash
# Runs clang-tidy with the checks of .clang-tidy on the native library and tool. The preset linux must have been
# configured.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
database=build/linux
[ -f "$database/compile_commands.json" ] || { echo "Run cmake --preset linux first." >&2; exit 1; }
# Only the sources in the database of this build: it has no entry for those of other systems.
python3 -c '
import json, os, sys
root = os.getcwd() + "/"
for entry in json.load(open(sys.argv[1])):
    path = os.path.relpath(entry["file"], root)
    if path.startswith(("src/", "tools/")):
        print(path)
' "$database/compile_commands.json" | sort -u | xargs -n 4 -P "$(nproc)" clang-tidy -p "$database" --quiet
