#!/usr/bin/env bash
# Makes the packages in dist/: scripts/package.sh [debian|win-x64|win-x86 ...], all without one named. Installs what is missing
# first. The same sources give the same bytes in any folder. The last lines name the packages.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
umask 022

[ $# -gt 0 ] || set -- debian win-x64 win-x86
version=$(sed -n 's/^project(Hexlume VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
released=$(sed -n 's/^## \[[0-9.]*\] - \([0-9-]*\)$/\1/p' CHANGELOG.md | head -n 1)
SOURCE_DATE_EPOCH=$(date -ud "$released" +%s)
export SOURCE_DATE_EPOCH TZ=UTC

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

run() {
  "$@" >"$scratch/log" 2>&1 || { echo "failed: $*" >&2; cat "$scratch/log" >&2; exit 1; }
}

debian_packages() {
  scripts/build.sh package-linux
  scripts/check_hardening.sh package-linux
  rm -f dist/*.deb
  run cpack --config build/package-linux/CPackConfig.cmake -B "$scratch/debian"
  for package in "$scratch"/debian/*.deb; do
    repack "$package" "dist/$(basename "$package")"
  done
}

# By dpkg's own tool, which writes all members of the archives in order and with the time of the release.
repack() {
  rm -rf "$scratch/repacked"
  dpkg-deb -R "$1" "$scratch/repacked"
  rm -f "$scratch"/repacked/DEBIAN/post{inst,rm} # these only call ldconfig, which the trigger does
  find "$scratch/repacked" -exec touch --no-dereference --date="@$SOURCE_DATE_EPOCH" {} +
  run dpkg-deb --root-owner-group -Zxz --threads-max=1 -b "$scratch/repacked" "$2"
}

windows_zip() {
  local preset=$1 name=hexlume-$version-$1
  scripts/build.sh "package-$preset"
  scripts/check_imports.sh "package-$preset"
  scripts/check_hardening.sh "package-$preset"
  rm -f "dist/$name.zip"
  run cmake --install "build/package-$preset" --prefix "$scratch/$name"
  find "$scratch/$name" -type d -exec chmod 755 {} + -o -type f -exec chmod 644 {} +
  find "$scratch/$name" -exec touch --date="@$SOURCE_DATE_EPOCH" {} +
  (cd "$scratch" && find "$name" | LC_ALL=C sort | zip -X -9 -q -@ "$OLDPWD/dist/$name.zip")
}

scripts/setup.sh package
mkdir -p dist
rm -rf build/reference # what is left of another version would be packed too
run scripts/reference.sh
for package in "$@"; do
  case "$package" in
    debian) debian_packages ;;
    win-x64 | win-x86) windows_zip "$package" ;;
    *) echo "usage: scripts/package.sh [debian|win-x64|win-x86 ...]" >&2; exit 64 ;;
  esac
done
ls dist/*
