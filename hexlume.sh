#!/usr/bin/env bash
# Converts a drawing and shows where the metafile and its picture are. Installs and builds what is missing first.
#
#   ./hexlume.sh [--wine x64|x86] DRAWING.dxf [options of the hexlume tool]
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)

architecture=x64
if [ "${1:-}" = --wine ]; then
  architecture=${2:-}
  shift 2 || true
fi
if [ $# -lt 1 ] || { [ "$architecture" != x64 ] && [ "$architecture" != x86 ]; }; then
  echo "usage: ./hexlume.sh [--wine x64|x86] DRAWING.dxf [options of the hexlume tool]" >&2
  exit 64
fi
drawing=$1
shift
if [ ! -f "$drawing" ]; then
  echo "hexlume.sh: $drawing: there is no such drawing" >&2
  exit 30
fi

"$root/scripts/setup.sh" convert
"$root/scripts/build.sh" "win-$architecture" hexlume_tool
. "$root/scripts/wine_environment.sh"
prepare_wine

name=$(basename -- "$drawing")
name=${name%.*}
status=0
wine "$root/build/win-$architecture/bin/hexlume.exe" "$@" --png "$(windows_path "$name.png")" \
  "$(windows_path "$drawing")" "$(windows_path "$name.emf")" || status=$?
[ "$status" = 0 ] || exit "$status"
echo "metafile: $PWD/$name.emf"
echo "picture:  $PWD/$name.png"
