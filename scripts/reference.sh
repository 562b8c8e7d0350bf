#!/usr/bin/env bash
# Makes the reference pages of the public headers, and fails at any warning: scripts/reference.sh [FOLDER]
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

HEXLUME_REFERENCE=$(realpath -m "${1:-build/reference}")
HEXLUME_VERSION=$(sed -n 's/^project(Hexlume VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
export HEXLUME_REFERENCE HEXLUME_VERSION
mkdir -p "$HEXLUME_REFERENCE"
doxygen docs/Doxyfile
echo "$HEXLUME_REFERENCE/html/index.html"
