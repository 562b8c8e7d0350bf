#!/usr/bin/env bash
# Writes the table of the UTF-16 units that Windows replaces by similar characters of code page 932. It asks the system
# for each of the 65,536 units.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. scripts/wine_environment.sh

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
x86_64-w64-mingw32-g++-win32 -O1 -static scripts/best_fit_932.cpp -o "$scratch/best_fit_932.exe"
prepare_wine
{
  echo "// Made by scripts/make_best_fit_932.sh."
  wine "$scratch/best_fit_932.exe" | tr -d '\r'
} >src/platform/code_page_932_best_fit.inc
