#!/usr/bin/env bash
# Converts a drawing and shows where the metafile and its picture are. Installs and builds what is missing first.
#
#   ./hexlume.sh [--wine x64|x86] DRAWING.dxf [options of the hexlume tool]
#
# --wine takes the Windows library, through Wine, in the place of the native one.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)

usage() {
  echo "usage: ./hexlume.sh [--wine x64|x86] DRAWING.dxf [options of the hexlume tool]" >&2
  exit 64
}

preset=linux
if [ "${1:-}" = --wine ]; then
  case "${2:-}" in
    x64 | x86) preset=win-$2 ;;
    *) usage ;;
  esac
  shift 2
fi
[ $# -ge 1 ] || usage
drawing=$1
shift
if [ ! -f "$drawing" ]; then
  echo "hexlume.sh: $drawing: there is no such drawing" >&2
  exit 30
fi

name=$(basename -- "$drawing")
name=${name%.*}
if [ "$preset" = linux ]; then
  "$root/scripts/setup.sh" native
  "$root/scripts/build.sh" linux hexlume_tool
  "$root/build/linux/bin/hexlume" "$@" --png "$name.png" "$drawing" "$name.emf"
else
  "$root/scripts/setup.sh" windows
  "$root/scripts/build.sh" "$preset" hexlume_tool
  . "$root/scripts/wine_environment.sh"
  prepare_wine
  wine "$root/build/$preset/bin/hexlume.exe" "$@" --png "$(windows_path "$name.png")" \
    "$(windows_path "$drawing")" "$(windows_path "$name.emf")"
fi
echo "metafile: $PWD/$name.emf"
echo "picture:  $PWD/$name.png"
