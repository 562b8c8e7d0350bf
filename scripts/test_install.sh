#!/usr/bin/env bash
# Tests the installed package: scripts/test_install.sh [BUILD_FOLDER]
#
# Installs a native build into a temporary folder, moves it, follows the links of its documents, builds the example host
# with CMake and with pkg-config, and converts a drawing with these hosts and the installed tool.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

build=$(realpath "${1:-build/linux}")
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
log="$scratch/log"

run() {
  "$@" >"$log" 2>&1 || { echo "failed: $*" >&2; cat "$log" >&2; exit 1; }
}

# An installed tree contains no path of its own, so it can be moved.
run cmake --install "$build" --prefix "$scratch/first"
mv "$scratch/first" "$scratch/package"
libraries=$(dirname "$(find "$scratch/package" -name libhexlume.so)")
if grep -rqI "$scratch/first" "$scratch/package"; then
  echo "The installed files name the folder they were installed to." >&2
  exit 1
fi
for header in hexlume.h hexlume_system.h hexlume_answers.h hexlume_host.h hexlume_host.hpp; do
  test -f "$scratch/package/include/$header"
done
documents=$(find "$scratch/package" -type d -name docs -printf '%h\n')
test -f "$documents/README.md"
run scripts/broken_links.py "$documents"

run cmake -G Ninja -S examples/host -B "$scratch/cmake" "-DCMAKE_PREFIX_PATH=$scratch/package" -DCMAKE_C_FLAGS="-Wall -Wextra -Werror"
run cmake --build "$scratch/cmake"
run "$scratch/cmake/host" examples/FIRST.dxf "$scratch/cmake.emf"

export PKG_CONFIG_PATH="$libraries/pkgconfig"
read -ra flags <<<"$(pkg-config --cflags --libs hexlume)"
run cc -Wall -Wextra -Werror examples/host/host.c "${flags[@]}" -o "$scratch/host"
run env LD_LIBRARY_PATH="$libraries" "$scratch/host" examples/FIRST.dxf "$scratch/pkg_config.emf"

read -ra flags <<<"$(pkg-config --cflags --libs hexlume_host)"
run cc -std=c11 -Wall -Wextra -Werror examples/hosts/convert.c "${flags[@]}" -o "$scratch/convert"
run env LD_LIBRARY_PATH="$libraries" "$scratch/convert" examples/FIRST.dxf "$scratch/host_library.emf"

for file in man/man1/hexlume.1 bash-completion/completions/hexlume thumbnailers/hexlume.thumbnailer; do
  test -s "$scratch/package/share/$file"
done
# As a file manager does.
thumbnail=$(sed -n 's/^Exec=//p' "$scratch/package/share/thumbnailers/hexlume.thumbnailer")
thumbnail=${thumbnail//%s/256} thumbnail=${thumbnail//%o/$scratch/thumbnail.png} thumbnail=${thumbnail//%i/examples/FIRST.dxf}
read -ra words <<<"$thumbnail"
run env "PATH=$scratch/package/bin:$PATH" "${words[@]}"
test -s "$scratch/thumbnail.png"

run "$scratch/package/bin/hexlume" examples/FIRST.dxf "$scratch/tool.emf"
test -s "$scratch/tool.emf"
cmp "$scratch/tool.emf" "$scratch/cmake.emf"
cmp "$scratch/tool.emf" "$scratch/pkg_config.emf"
cmp "$scratch/tool.emf" "$scratch/host_library.emf"
