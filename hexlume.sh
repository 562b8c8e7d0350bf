#!/usr/bin/env bash
# Converts a drawing and prints the paths of the metafile and its picture, or makes a page that shows it. First installs and
# builds what is missing.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)

usage="usage: ./hexlume.sh [--wine x64|x86] DRAWING.dxf [options of the hexlume tool]
       ./hexlume.sh --view DRAWING.dxf"

help="$usage

Installs what is missing, builds the hexlume tool, and converts the drawing to a metafile and a PNG picture, both in
the current folder and named after the drawing.

  --wine x64|x86  use the Windows library, through Wine, instead of the native one
  --view          make a copy of the viewer that opens with the drawing, instead: a page in the current folder, named
                  after the drawing

Of the tool's options -d DIR puts both files into DIR, and --png FILE names the picture. docs/command-line.md
has all of them."

fail() {
  echo "hexlume.sh: $2" >&2
  exit "$1"
}

# Makes a copy of the viewer with the drawing in it.
view_drawing() {
  local drawing=$1 page
  page=$(basename -- "${drawing%.*}").html
  "$root/scripts/setup.sh" web
  "$root/scripts/build.sh" web hexlume_viewer
  node "$root/web/with_drawing.mjs" "$root/build/web/hexlume-viewer.html" "$drawing" "$page"
  echo "viewer with the drawing: $(realpath -- "$page")"
  echo "viewer for any drawing:  $root/build/web/hexlume-viewer.html"
  echo "Open the first one in a browser: it shows the drawing. On the second one drop any drawings."
  echo "Both need no network, and the drawings stay on this computer."
}

preset=linux
case "${1:-}" in
  -h | --help)
    echo "$help"
    exit 0
    ;;
  --view)
    [ $# -eq 2 ] || fail 64 "$usage"
    [ -f "$2" ] || fail 30 "$2: there is no such drawing"
    view_drawing "$2"
    exit 0
    ;;
  --wine)
    case "${2:-}" in
      x64 | x86) preset=win-$2 ;;
      *) fail 64 "$usage" ;;
    esac
    shift 2
    ;;
esac
[ $# -ge 1 ] || fail 64 "$usage"
drawing=$1
shift
case "$drawing" in
  -*) fail 64 "the drawing comes before the options; $usage" ;;
esac
[ -f "$drawing" ] || fail 30 "$drawing: there is no such drawing"

# Reads the user's own -d and --png, because the tool accepts each of them only once.
name=$(basename -- "$drawing")
name=${name%.*}
folder= picture= option=
for argument in "$@"; do
  case "$option" in
    -d) folder=$argument ;;
    --png) picture=$argument ;;
  esac
  option=
  case "$argument" in
    -d | --png) option=$argument ;;
    --png=*) picture=${argument#--png=} ;;
    -d?*) folder=${argument#-d} ;;
    -h | --help | --version) fail 64 "$argument comes without a drawing: ./hexlume.sh --help" ;;
  esac
done

system_path() { realpath -m -- "$1"; }
if [ "$preset" = linux ]; then
  "$root/scripts/setup.sh" native
  "$root/scripts/build.sh" linux hexlume_tool
  tool=("$root/build/linux/bin/hexlume")
else
  "$root/scripts/setup.sh" windows
  "$root/scripts/build.sh" "$preset" hexlume_tool
  . "$root/scripts/wine_environment.sh"
  prepare_wine
  tool=(wine "$root/build/$preset/bin/hexlume.exe")
  system_path() { windows_path "$1"; }
fi

metafile=${folder:-.}/$name.emf
arguments=()
[ -n "$picture" ] || { picture=${folder:-.}/$name.png; arguments+=(--png "$(system_path "$picture")"); }
arguments+=("$(system_path "$drawing")")
[ -n "$folder" ] || arguments+=("$(system_path "$metafile")")
"${tool[@]}" "$@" "${arguments[@]}"
echo "metafile: $(realpath -m -- "$metafile")"
echo "picture:  $(realpath -m -- "$picture")"
