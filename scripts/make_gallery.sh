#!/usr/bin/env bash
# Makes the pictures of docs/gallery.md from the examples: scripts/make_gallery.sh, after a build of the preset linux.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

tool=build/linux/bin/hexlume
pictures=docs/pictures
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

picture() {
  local name=$1 drawing=$2
  shift 2
  "$tool" "$@" --png "$pictures/$name.png" "$drawing" "$scratch/$name.emf"
}

picture workshop examples/WORKSHOP.dxf --dpi 80
picture part examples/PART.dxf --dpi 65
picture curves examples/CURVES.dxf --dpi 65
picture shapes examples/SHAPES.dxf --dpi 65
picture tolerance examples/TOLERANCE.dxf --dpi 96
picture hatches examples/HATCHES.dxf --dpi 90
picture curves_turned examples/CURVES.dxf --dpi 65 --rotate
picture text examples/TEXT.dxf --dpi 90
picture text_half_width examples/TEXT.dxf --dpi 90 --half-width
picture text_turned examples/TEXT.dxf --dpi 90 --rotate
for frame in 0 32 64 96; do
  for figure in 0 1 2 3 4; do
    mode=$((frame + figure))
    # The value is two lines after the name of the variable.
    sed "/PDMODE/{n;n;s/[0-9]\+/$mode/}" examples/POINT.dxf >"$scratch/point.dxf"
    picture "point_$mode" "$scratch/point.dxf" --dpi 90
  done
done
