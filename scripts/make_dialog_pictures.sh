#!/usr/bin/env bash
# Makes the pictures of the dialogs in docs/gallery.md: scripts/make_dialog_pictures.sh, after a build of the preset
# win-x64. It installs fonts that the tests must not have, so it uses a Wine prefix of its own.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
export HEXLUME_WINEPREFIX="$scratch/wine"
. scripts/wine_environment.sh
prepare_wine

# The cross on the close button is a character of this font.
chmod 755 "$scratch" # apt downloads as a user of its own
mkdir -m 777 "$scratch/fonts"
(cd "$scratch/fonts" && apt-get download -qq fonts-wine && dpkg -x fonts-wine_*.deb .)
cp "$scratch/fonts/usr/share/wine/fonts/marlett.ttf" "$WINEPREFIX/drive_c/windows/Fonts"

# Replaces the fonts of a Japanese Windows by a similar free one.
for face in 'ＭＳ Ｐゴシック' 'MS UI Gothic' 'MS PGothic'; do
  wine reg add 'HKCU\Software\Wine\Fonts\Replacements' /v "$face" /d IPAPGothic /f >/dev/null
done
wineserver --wait

scripts/with_screen.sh wine build/win-x64/bin/hexlume_dialog_pictures.exe \
  "$(windows_path examples/WORKSHOP.dxf)" "$(windows_path docs/pictures)"
