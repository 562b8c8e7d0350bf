#!/usr/bin/env bash
# Checks that the web build gives what the native one gives: scripts/compare_web.sh FOLDER...
#
# Each drawing below the folders is converted in several ways and inspected, by both, and so are drawings with all characters
# in many faces. Statuses, sentences, remarks, numbers and the bytes of the metafiles must be the same. An exception: a
# drawing whose blocks contain each other without end is drawn until the stack is used up, which is smaller in a browser. Of
# such a conversion only the status, the sentence and the numbers are compared.
#
# The native library sees only the fonts of Debian's package fonts-ipafont-gothic, of which the viewer's are made.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
node "$root/build/web/tests/font_drawings.mjs" "$scratch/fonts"
find "$@" "$scratch/fonts" -iname '*.dxf' -type f -print | LC_ALL=C sort >"$scratch/drawings"
count=$(wc -l <"$scratch/drawings")
[ "$count" -gt 0 ] || { echo "no drawings found in $*" >&2; exit 1; }

mkdir "$scratch/cache"
cat >"$scratch/fonts.conf" <<XML
<fontconfig>
  <dir>/usr/share/fonts/opentype/ipafont-gothic</dir>
  <cachedir>$scratch/cache</cachedir>
</fontconfig>
XML
FONTCONFIG_FILE=$scratch/fonts.conf "$root/build/linux/bin/hexlume_host_digest" <"$scratch/drawings" >"$scratch/native"
node "$root/build/web/tests/host_digest.mjs" "$root/build/web" <"$scratch/drawings" >"$scratch/web"

# Of a conversion that ended by a fault, the line with its metafile is left out.
comparable() {
  awk '/^-- / { fault = /^-- [^:]*(:[^:]*)?: fault / } fault && /^strokes / { next } { print }' "$1"
}
comparable "$scratch/native" >"$scratch/native.comparable"
comparable "$scratch/web" >"$scratch/web.comparable"
metafiles=$(grep -c '^strokes ' "$scratch/web.comparable" || true)
faults=$(($(grep -c '^strokes ' "$scratch/web" || true) - metafiles))
if ! cmp -s "$scratch/native.comparable" "$scratch/web.comparable"; then
  echo "the native and the web build differ:" >&2
  diff "$scratch/native.comparable" "$scratch/web.comparable" | cut -c 1-300 | head -n 40 >&2 || true
  exit 1
fi
echo "$count drawings, $metafiles conversions and $count inspections are the same; $faults ended by a fault in both"
