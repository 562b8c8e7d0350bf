#!/usr/bin/env bash
# Measures everything and writes the tables into docs/performance.md: bench/measure.sh
#
# It takes half an hour, and the machine should have nothing else to do. The rows for Windows need Wine and the cross
# compilers (scripts/setup.sh windows), those of other programs the packages that bench/peers.sh names.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

scripts/build.sh linux benches
for preset in win-x64 win-x86; do
  scripts/build.sh "$preset" benches || echo "Without $preset." >&2
done
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
build/linux/bin/hexlume_speed | tee "$scratch/speed"
bench/peers.sh | tee "$scratch/peers"

python3 - "$scratch" docs/performance.md <<'END'
import re, sys

folder, path = sys.argv[1:]
with open(path, encoding="utf-8") as file:
    page = file.read()
for table in ("speed", "peers"):
    with open(f"{folder}/{table}", encoding="utf-8") as file:
        measured = file.read().strip()
    between = f"(<!-- {table} -->\n).*?(<!-- /{table} -->)"
    page, places = re.subn(between, lambda found: f"{found[1]}\n{measured}\n\n{found[2]}", page, flags=re.DOTALL)
    if places != 1:
        sys.exit(f"{path} has no place for the table {table}")
with open(path, "w", encoding="utf-8") as file:
    file.write(page)
END
echo "docs/performance.md has the new tables."
