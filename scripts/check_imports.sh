#!/usr/bin/env bash
# Checks that a build's libraries and tool run on Windows XP: scripts/check_imports.sh PRESET
#
# They may import only the functions in scripts/windows_xp_imports.txt, and the tool those of the libraries too.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
export LC_ALL=C

# Prints a DLL and a function in each line, <none> for a function that is imported by number.
imports_of() {
  x86_64-w64-mingw32-objdump -p "$1" |
    awk '/DLL Name:/ { dll = tolower($3) } /^\t[0-9a-f]+\t *[0-9]+  / { print dll, $NF }' | sort -u
}

allowed=$(grep -v '^#' scripts/windows_xp_imports.txt)
status=0
for file in Hexlume.dll HexlumeHost.dll hexlume.exe; do
  imports=$(imports_of "build/$1/bin/$file")
  [ -n "$imports" ] || { echo "$file: no imports found" >&2; status=1; }
  [ "$file" != hexlume.exe ] || imports=$(grep -vE '^hexlume(host)?\.dll ' <<<"$imports")
  others=$(comm -23 - <(sort -u <<<"$allowed") <<<"$imports")
  if [ -n "$others" ]; then
    printf '%s imports functions that scripts/windows_xp_imports.txt does not list:\n%s\n' "$file" "$others" >&2
    status=1
  fi
done
exit "$status"
