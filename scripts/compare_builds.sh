#!/usr/bin/env bash
# Checks that all builds draw the same, stroke for stroke: scripts/compare_builds.sh FOLDER...
#
# The drawings are those below the folders and 500 random ones. Each build converts each of them in several ways. The
# listings must be identical, including the messages about failed conversions. Dialogs are answered with OK.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
. "$root/scripts/wine_environment.sh"

random_drawings=500
ways=("" "--rotate" "--full-size --mono" "--view 1000,2000,15000,12000 --dialogs" "--half-width --dialogs=2")

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
mkdir "$scratch/random" "$scratch/out"
"$root/build/linux/bin/hexlume_random_drawings" "$scratch/random" "$random_drawings"
# Each drawing gets a unique name, because all metafiles are written to one folder.
count=0
mkdir "$scratch/drawings"
while IFS= read -r -d '' drawing; do
  count=$((count + 1))
  ln -s "$(realpath "$drawing")" "$scratch/drawings/$count-$(basename "${drawing%.*}").dxf"
done < <(find "$@" "$scratch/random" -iname '*.dxf' -print0 | sort -z)
[ "$count" -gt "$random_drawings" ] || { echo "no drawings found in $*" >&2; exit 1; }

# All through the nine exports, which read drawings as they are. The names are relative to the folder of the drawings, so that all
# builds print the same messages. A Windows command has at most 32767 characters, hence 400 drawings at a time.
list() {
  local build=$1 way=$2 screen=() tool
  local folder=$root/build/$build/bin
  case "$build $way" in
    linux*) tool=("$folder/hexlume" --format as-is) ;;
    *--dialogs*)
      screen=("$root/scripts/with_screen.sh")
      tool=(wine "$folder/hexlume_press_ok.exe" "$(windows_path "$folder/hexlume.exe")" --format as-is)
      ;;
    *) tool=(wine "$folder/hexlume.exe" --format as-is) ;;
  esac
  cd "$scratch/drawings"
  # shellcheck disable=SC2086 # a way has several words
  printf '%s\0' ./*.dxf | "${screen[@]}" xargs -0 -n 400 "${tool[@]}" $way --list -d ../out \
    2>&1 | tr -d '\r' >"$scratch/$build.txt" || true # standard error has the system's line ends
}

status=0
for way in "${ways[@]}"; do
  for build in linux win-x64 win-x86; do (list "$build" "$way"); done
  lines=$(wc -l <"$scratch/linux.txt")
  [ "$lines" -gt "$count" ] || { echo "hexlume $way lists nothing:" >&2; head "$scratch/linux.txt" >&2; status=1; }
  for build in win-x64 win-x86; do
    if cmp -s "$scratch/linux.txt" "$scratch/$build.txt"; then continue; fi
    echo "linux and $build differ in: hexlume $way" >&2
    diff "$scratch/linux.txt" "$scratch/$build.txt" | head -n 20 >&2 || true
    status=1
  done
  echo "hexlume $way: $count drawings, $lines lines"
done
exit "$status"
