#!/usr/bin/env bash
# Runs clang-tidy with the checks of .clang-tidy over the native library and tool, which must have been configured.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
database=build/linux
[ -f "$database/compile_commands.json" ] || { echo "cmake --preset linux comes first" >&2; exit 1; }
# Only what this build compiles: the database has no entry for the other systems' sources.
python3 -c '
import json, os, sys
root = os.getcwd() + "/"
for entry in json.load(open(sys.argv[1])):
    path = os.path.relpath(entry["file"], root)
    if path.startswith(("src/", "tools/")):
        print(path)
' "$database/compile_commands.json" | sort -u | xargs -n 4 -P "$(nproc)" clang-tidy -p "$database" --quiet
