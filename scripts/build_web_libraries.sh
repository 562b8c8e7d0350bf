#!/usr/bin/env bash
# Builds the libraries that the web build needs, as WebAssembly, in build/web-libraries: FreeType and pixman, from Debian's
# source packages. Does nothing if they are up to date. Downloads as any user, through a source list and an index folder of
# its own, so that the system's configuration stays as it is.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
target=$PWD/build/web-libraries
# What the result depends on.
made_by=$(sha256sum scripts/build_web_libraries.sh cmake/freetype_modules.h | awk '{ print $1 }')
[ "$(cat "$target/made-by" 2>/dev/null)" != "$made_by" ] || exit 0

export NODE_PATH=/usr/share/nodejs
flags="-O2 -fwasm-exceptions -sSUPPORT_LONGJMP=wasm"
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
log=$scratch/log

fail() {
  tail -n 40 "$log" >&2
  echo "build_web_libraries.sh: $1" >&2
  exit 1
}

fetch_sources() {
  local site
  site=$(apt-get indextargets --format '$(SITE) $(LABEL) $(CODENAME)' 2>/dev/null |
    awk '$2 == "Debian" && $3 == "bookworm" { print $1; exit }' || true)
  mkdir -p "$scratch/sources" "$scratch/lists/partial" "$scratch/archives/partial"
  printf 'deb-src [signed-by=/usr/share/keyrings/debian-archive-keyring.gpg] %s bookworm main\n' \
    "${site:-http://deb.debian.org/debian}" >"$scratch/sources/main.list"
  local apt=(-o Dir::Etc::sourcelist=/dev/null -o "Dir::Etc::sourceparts=$scratch/sources" -o "Dir::State::Lists=$scratch/lists"
    -o "Dir::Cache=$scratch" -o APT::Sandbox::User= -q)
  # Debian changes nothing in pixman's own sources, and the file of its changes isn't always in the archive.
  cd "$scratch" && apt-get "${apt[@]}" update && apt-get "${apt[@]}" source freetype &&
    apt-get "${apt[@]}" source --tar-only pixman && mkdir pixman &&
    tar -xf pixman_*.orig.tar.gz -C pixman --strip-components 1
}

# Only what measures fonts: no decompression, no drawing.
build_freetype() {
  cmake -G Ninja -S "$scratch"/freetype-*/ -B "$scratch/build-freetype" \
    -D CMAKE_TOOLCHAIN_FILE=/usr/share/emscripten/cmake/Modules/Platform/Emscripten.cmake -D CMAKE_BUILD_TYPE=Release \
    -D CMAKE_C_FLAGS="$flags -DFT_CONFIG_MODULES_H='<$PWD/cmake/freetype_modules.h>'" -D CMAKE_INSTALL_PREFIX="$target" \
    -D CMAKE_C_COMPILER_LAUNCHER= \
    -D FT_DISABLE_ZLIB=ON -D FT_DISABLE_BZIP2=ON -D FT_DISABLE_PNG=ON -D FT_DISABLE_HARFBUZZ=ON -D FT_DISABLE_BROTLI=ON &&
    cmake --build "$scratch/build-freetype" && cmake --install "$scratch/build-freetype"
}

build_pixman() {
  local off=(arm-simd arm-neon arm-a64-neon arm-iwmmxt loongson-mmi mips-dspr2 mmx openmp gtk libpng sse2 ssse3 timers vmx)
  cd "$scratch/pixman" &&
    CFLAGS=$flags emconfigure ./configure --host=wasm32-unknown-linux --prefix="$target" --disable-shared --enable-static \
      --disable-dependency-tracking "${off[@]/#/--disable-}" &&
    emmake make -C pixman install
}

rm -rf "$target"
(fetch_sources) >"$log" 2>&1 || fail "the source packages can't be downloaded"
(build_freetype) >"$log" 2>&1 || fail "FreeType doesn't build"
(build_pixman) >"$log" 2>&1 || fail "pixman doesn't build"
mkdir -p "$target/licences"
cp "$scratch"/freetype-*/docs/FTL.TXT "$target/licences/freetype.txt"
cp "$scratch/pixman/COPYING" "$target/licences/pixman.txt"
echo "$made_by" >"$target/made-by"
