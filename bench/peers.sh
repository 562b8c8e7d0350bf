#!/usr/bin/env bash
# Converts the drawings of hexlume_speed with other programs, those that are installed, and prints how long they take
# beside hexlume: bench/peers.sh [--quick] [--limit SECONDS]
#
#   --quick          a tenth of the items
#   --limit SECONDS  ends a program that takes more processor time, or four times as long (180)
#
# scripts/build.sh linux hexlume_speed builds what it needs. No program gets a screen of the user, or his settings.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

limit=180
size=()
while [ $# -gt 0 ]; do
  case "$1" in
    --quick) size=(--quick); shift ;;
    --limit) limit=$2; shift 2 ;;
    *) sed -n '2,8s/^# \{0,1\}//p' "${BASH_SOURCE[0]}"; [ "$1" = --help ] && exit 0 || exit 64 ;;
  esac
done

bin=$PWD/build/linux/bin
for program in hexlume hexlume_speed; do
  [ -x "$bin/$program" ] || { echo "There is no $program yet: scripts/build.sh linux hexlume_speed" >&2; exit 1; }
done

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
mkdir -m 700 "$scratch/home" "$scratch/run" "$scratch/out"
export HOME=$scratch/home XDG_RUNTIME_DIR=$scratch/run
export PATH=/usr/bin:$PATH # so that Inkscape finds the Python that has its packages
unset DISPLAY WAYLAND_DISPLAY

# Each leaves its result in the folder out.
run_hexlume() { "${guard[@]}" "$bin/hexlume" "$1" "$scratch/out/result.emf"; }
run_libreoffice() {
  "${guard[@]}" soffice --headless "-env:UserInstallation=file://$scratch/libreoffice" --convert-to emf \
    --outdir "$scratch/out" "$1"
}
# It writes its file beside the drawing.
run_librecad() {
  QT_QPA_PLATFORM=offscreen "${guard[@]}" librecad dxf2pdf -a "$1" && mv "${1%.dxf}.pdf" "$scratch/out"
}
run_ezdxf_read() { "${guard[@]}" python3 -c 'import sys, ezdxf; ezdxf.readfile(sys.argv[1])' "$1" && touch "$scratch/out/read"; }
run_ezdxf_draw() { "${guard[@]}" ezdxf draw -o "$scratch/out/result.svg" "$1"; }
# Its import by itself, as Inkscape would first show a dialog with options.
run_inkscape() {
  "${guard[@]}" python3 "$dxf_import" "$1" >"$scratch/out/imported.svg" &&
    "${guard[@]}" inkscape --export-filename="$scratch/out/result.emf" "$scratch/out/imported.svg"
}
dxf_import=/usr/share/inkscape/extensions/dxf_input.py

have() { command -v "$1" >/dev/null; }
has_python_module() { /usr/bin/python3 -c "import $1" 2>/dev/null; }

# Which peers can run, and why the others can't.
peers=(hexlume)
absent=()
if have soffice; then peers+=(libreoffice); else absent+=("LibreOffice: package libreoffice-draw"); fi
if have librecad; then peers+=(librecad); else absent+=("LibreCAD: package librecad"); fi
if has_python_module ezdxf; then
  peers+=(ezdxf_read)
  if has_python_module matplotlib; then
    peers+=(ezdxf_draw)
  else
    absent+=("ezdxf's pictures: package python3-matplotlib")
  fi
else
  absent+=("ezdxf: package python3-ezdxf, for its pictures python3-matplotlib too")
fi
if have inkscape && [ -e "$dxf_import" ] && has_python_module cssselect,lxml,numpy; then
  peers+=(inkscape)
else
  absent+=("Inkscape with its import of DXF: packages inkscape, python3-cssselect, python3-lxml, python3-numpy")
fi

declare -A titles=(
  [hexlume]="hexlume, EMF" [libreoffice]="LibreOffice, EMF" [librecad]="LibreCAD, PDF" [ezdxf_read]="ezdxf, reading alone"
  [ezdxf_draw]="ezdxf, SVG" [inkscape]="Inkscape, EMF")

# Runs one peer on one drawing. Sets cell to its wall-clock and processor time in seconds.
time_peer() {
  local status=0 times
  rm -rf "$scratch/out"
  mkdir "$scratch/out"
  TIMEFORMAT='%R %U %S'
  times=$(ulimit -t "$limit"; { time "run_$1" "$2" </dev/null >"$scratch/log" 2>&1; } 2>&1) || status=$?
  case "$status" in 124 | 137 | 152) # timeout's own, SIGKILL, SIGXCPU
    cell="more than $limit s"
    return
    ;;
  esac
  if [ "$status" -ne 0 ]; then
    cell="failed: $(tail -n 1 "$scratch/log" | cut -c 1-60)"
  elif [ -z "$(ls -A "$scratch/out")" ]; then
    cell="no result"
  else
    cell=$(awk '{ printf "%.2f s (%.2f s)", $1, $2 + $3 }' <<<"$times")
  fi
}

guard=(timeout --kill-after=10 "$((4 * limit))")
"$bin/hexlume_speed" "${size[@]}" --drawings "$scratch"
# The first start of a program makes its settings.
for peer in "${peers[@]}"; do time_peer "$peer" "$scratch/small.dxf"; done

drawings=(small lines inserts lwpolylines texts)
echo "$(date -u +%F), $(nproc) processors. Wall-clock time, and in brackets processor time, of a process from its start to its end."
echo
line="| |" rule="|---|"
for drawing in "${drawings[@]}"; do
  line+=" $drawing ($(du -h --apparent-size "$scratch/$drawing.dxf" | cut -f 1)) |"
  rule+="---|"
done
printf '%s\n%s\n' "$line" "$rule"
for peer in "${peers[@]}"; do
  printf '| %s |' "${titles[$peer]}"
  for drawing in "${drawings[@]}"; do
    time_peer "$peer" "$scratch/$drawing.dxf"
    printf ' %s |' "$cell"
  done
  echo
done
[ "${#absent[@]}" -eq 0 ] || printf '\nNot installed:\n'
for words in "${absent[@]}"; do echo "- $words"; done
