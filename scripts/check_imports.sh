#!/usr/bin/env bash
# Whether a build's library and tool import from the system's own DLLs alone: scripts/check_imports.sh PRESET
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

allowed='ADVAPI32|COMCTL32|COMDLG32|GDI32|KERNEL32|OLE32|USER32|WINDOWSCODECS|msvcrt'
status=0
for file in Hexlume.dll HexlumeHost.dll hexlume.exe; do
  others=$(x86_64-w64-mingw32-objdump -p "build/$1/bin/$file" | sed -n 's/.*DLL Name: //p' |
    grep -viE "^($allowed)\.dll$" || true)
  [ "$file" != hexlume.exe ] || others=$(grep -viE '^Hexlume(Host)?\.dll$' <<<"$others" || true)
  if [ -n "$others" ]; then
    echo "$file also needs: $others" >&2
    status=1
  fi
done
exit "$status"
