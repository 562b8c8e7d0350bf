#!/usr/bin/env bash
# Tests the packages in dist/ as a user installs them: scripts/test_packages.sh [debian|win-x64|win-x86 ...], all without one named.
# What is missing in dist/ is made first. The Debian packages are installed in a bare system of their own (as root, with network),
# the zips are unpacked into fresh Wine prefixes.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

[ $# -gt 0 ] || set -- debian win-x64 win-x86
version=$(sed -n 's/^project(Hexlume VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
version_number=$(awk -F . '{ print $1 * 10000 + $2 * 100 + $3 }' <<<"$version")
scratch=$(mktemp -d)
trap 'rm -rf --one-file-system "$scratch"' EXIT

fail() {
  echo "$*" >&2
  exit 1
}

run() {
  "$@" >"$scratch/log" 2>&1 </dev/null || { echo "failed: $*" >&2; cat "$scratch/log" >&2; exit 1; }
}

# Whether a command prints this line and nothing else.
prints() {
  local line=$1 printed
  shift
  printed=$("$@" 2>&1 </dev/null | tr -d '\r')
  [ "$printed" = "$line" ] || fail "$* prints \"$printed\" instead of \"$line\""
}

# Debian

debian_packages=(hexlume libhexlume1 libhexlume-dev hexlume-batch)
debian_files=("${debian_packages[@]/%/_${version}_$(dpkg --print-architecture).deb}")

# The bare system is fetched once and kept as an archive.
unpack_bare_system() {
  local cache=${XDG_CACHE_HOME:-${HOME:-/root}/.cache}/hexlume
  if [ ! -e "$cache/bookworm.tar" ]; then
    mkdir -p "$cache"
    run debootstrap --variant=minbase bookworm "$scratch/fetched"
    tar -C "$scratch/fetched" --one-file-system -cf "$cache/bookworm.tar.part" .
    mv "$cache/bookworm.tar.part" "$cache/bookworm.tar"
    rm -rf --one-file-system "$scratch/fetched"
  fi
  mkdir "$scratch/system"
  tar -C "$scratch/system" -xf "$cache/bookworm.tar"
  cp /etc/resolv.conf "$scratch/system/etc"
}

in_system() {
  chroot "$scratch/system" /usr/bin/env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root LC_ALL=C.UTF-8 \
    DEBIAN_FRONTEND=noninteractive "$@"
}

# As a user who may write to their own folder alone.
as_user() {
  in_system runuser -u user -- env --chdir=/home/user "$@"
}

install_in_system() {
  run in_system apt-get install -y "$@"
}

test_debian() {
  run lintian --fail-on error "${debian_files[@]/#/dist/}"
  unpack_bare_system
  cp "${debian_files[@]/#/dist/}" "$scratch/system/srv"
  run in_system useradd --create-home user
  run in_system apt-get update

  # The tool brings the libraries and the font.
  install_in_system "/srv/${debian_files[0]}" "/srv/${debian_files[1]}"
  cp examples/FIRST.dxf examples/TEXT.dxf "$scratch/system/home/user"
  prints "hexlume $version" as_user hexlume --version
  run as_user hexlume FIRST.dxf
  run as_user hexlume --png text.png TEXT.dxf TEXT.emf
  test -s "$scratch/system/home/user/text.png"
  run as_user sh -c 'mkdir out && hexlume -d out --jobs 2 --to emf,png,svg,pdf --report report.jsonl FIRST.dxf TEXT.dxf'
  for kind in emf png svg pdf; do test -s "$scratch/system/home/user/out/TEXT.$kind"; done
  [ "$(grep -c '"status":"ok"' "$scratch/system/home/user/report.jsonl")" = 2 ] || fail "The report lacks drawings."
  for file in man/man1/hexlume.1.gz bash-completion/completions/hexlume thumbnailers/hexlume.thumbnailer; do
    test -s "$scratch/system/usr/share/$file" || fail "The package lacks $file."
  done
  cp "$scratch/system/home/user/FIRST.emf" "$scratch/debian.emf"
  compare_with_this_system

  # Without any engine.
  install_in_system --no-install-recommends "/srv/${debian_files[3]}"
  prints "hexlume-batch $version" as_user hexlume-batch --version
  prints "1 drawings in 1 chunks" as_user hexlume-batch plan FIRST.dxf --out batch
  prints "1 done, 0 failed, 0 left" as_user hexlume-batch run batch
  cmp "$scratch/debian.emf" "$scratch/system/home/user/batch/out/FIRST.emf"

  install_in_system --no-install-recommends "/srv/${debian_files[2]}" gcc g++ libc6-dev make cmake pkg-config python3
  test_debian_hosts
  for library in hexlume hexlume_host; do
    all_versioned "$scratch"/system/usr/lib/*/"lib$library.so.1" || fail "lib$library has symbols without a version."
  done
  run scripts/broken_links.py "$scratch/system/usr/share/doc/libhexlume-dev"
  run in_system apt-get purge -y "${debian_packages[@]}"
  [ -z "$(find "$scratch"/system/usr -iname '*hexlume*')" ] || fail "The purged packages have left something."
}

# Texts are measured with the same font there and here.
compare_with_this_system() {
  local here=$scratch/here
  for file in "dist/${debian_files[0]}" "dist/${debian_files[1]}"; do dpkg-deb -x "$file" "$here"; done
  run env LD_LIBRARY_PATH="$(echo "$here"/usr/lib/*)" "$here/usr/bin/hexlume" examples/TEXT.dxf "$scratch/TEXT.emf"
  cmp "$scratch/TEXT.emf" "$scratch/system/home/user/TEXT.emf"
}

# Whether a library shows symbols, all with the version node.
all_versioned() {
  readelf --dyn-syms --wide "$1" | awk '
    $5 == "GLOBAL" && $7 != "UND" { ++shown; if ($8 !~ /HEXLUME_(1|PRIVATE)$/) exit bad = 1 }
    END { exit bad || !shown }'
}

# The examples, as the package brings them.
test_debian_hosts() {
  run as_user cp -r /usr/share/doc/libhexlume-dev/examples .
  run as_user cmake -S examples/host -B cmake
  run as_user cmake --build cmake
  run as_user cmake/host FIRST.dxf cmake.emf
  run as_user sh -c 'cc examples/host/host.c $(pkg-config --cflags --libs hexlume) -o host'
  run as_user ./host FIRST.dxf host.emf
  run as_user sh -c 'cc -std=c11 examples/hosts/convert.c $(pkg-config --cflags --libs hexlume_host) -o convert'
  run as_user ./convert FIRST.dxf convert.emf
  run as_user sh -c 'c++ -std=c++17 examples/hosts/convert.cpp $(pkg-config --cflags --libs hexlume_host) -o wrapper'
  run as_user ./wrapper FIRST.dxf wrapper.emf
  run as_user python3 examples/hosts/convert.py FIRST.dxf python.emf
  prints "$version" as_user pkg-config --modversion hexlume_host
  prints "$version_number" as_user python3 -c \
    'import ctypes; print(ctypes.CDLL("libhexlume_host.so.1").hexlume_version())'
  for made in cmake host convert wrapper python; do
    cmp "$scratch/debian.emf" "$scratch/system/home/user/$made.emf"
  done
}

# Windows

# A prefix of its own for each zip, and in it nothing but the zip and a drawing.
test_windows() {
  local preset=$1 processor=x86_64 folder
  [ "$preset" = win-x64 ] || processor=i686
  export HEXLUME_WINEPREFIX=$scratch/prefix-$preset
  . scripts/wine_environment.sh
  prepare_wine
  run unzip "dist/hexlume-$version-$preset.zip" -d "$WINEPREFIX/drive_c"
  folder=$WINEPREFIX/drive_c/hexlume-$version-$preset
  run scripts/broken_links.py "$folder"
  cp examples/FIRST.dxf "$WINEPREFIX/drive_c"
  prints "hexlume $version" wine "C:\\hexlume-$version-$preset\\bin\\hexlume.exe" --version
  run wine "C:\\hexlume-$version-$preset\\bin\\hexlume.exe" 'C:\FIRST.dxf' 'C:\FIRST.emf'
  mkdir "$WINEPREFIX/drive_c/out"
  run wine "C:\\hexlume-$version-$preset\\bin\\hexlume.exe" -d 'C:\out' --jobs 2 --to emf,png --report 'C:\report.jsonl' 'C:\*.DXF'
  grep -q '"status":"ok"' "$WINEPREFIX/drive_c/report.jsonl" || fail "The report lacks the drawing."
  for kind in emf png; do test -s "$WINEPREFIX/drive_c/out/FIRST.$kind"; done
  test -s "$WINEPREFIX/drive_c/FIRST.emf"
  for library in Hexlume HexlumeHost; do
    in_resource "$folder/bin/$library.dll" || fail "$library.dll says another version than $version."
  done

  # Hosts that are linked with each kind of import library, beside the DLLs.
  local cc=$processor-w64-mingw32-gcc-win32 host=$folder/examples
  run "$cc" "$host/host/host.c" -I"$folder/include" "$folder/lib/Hexlume.lib" -lgdi32 -o "$folder/bin/msvc_form.exe"
  run "$cc" "$host/host/host.c" -I"$folder/include" "$folder/lib/libHexlume.dll.a" -lgdi32 -o "$folder/bin/mingw_form.exe"
  run "$cc" -std=c11 "$host/hosts/convert.c" -I"$folder/include" "$folder/lib/HexlumeHost.lib" -o "$folder/bin/convert_msvc.exe"
  run "$cc" -std=c11 "$host/hosts/convert.c" -I"$folder/include" "$folder/lib/libHexlumeHost.dll.a" \
    -o "$folder/bin/convert_mingw.exe"
  run cmake -G Ninja -S "$host/host" -B "$scratch/$preset" "-DCMAKE_TOOLCHAIN_FILE=$PWD/cmake/mingw-$processor.cmake" \
    "-DHexlume_DIR=$folder/lib/cmake/Hexlume"
  run cmake --build "$scratch/$preset"
  cp "$scratch/$preset/host.exe" "$folder/bin/by_cmake.exe"
  for made in msvc_form mingw_form convert_msvc convert_mingw by_cmake; do
    run wine "C:\\hexlume-$version-$preset\\bin\\$made.exe" 'C:\FIRST.dxf' "C:\\$made.emf"
    cmp "$WINEPREFIX/drive_c/FIRST.emf" "$WINEPREFIX/drive_c/$made.emf"
  done
  run link_like_microsoft "$processor" "$folder"
  run env --chdir="$WINEPREFIX/drive_c" wine "C:\\hexlume-$version-$preset\\bin\\linked.exe"
  cp "$WINEPREFIX/drive_c/FIRST.emf" "$scratch/$preset.emf"
  wineserver --wait # before the prefix goes
}

# By lld-link, which takes the same files and options as Microsoft's linker. It has no runtime here.
link_like_microsoft() {
  local processor=$1 folder=$2
  clang --target="$processor-pc-windows-msvc" -std=c11 -Wall -Wextra -Werror -O1 -I"$folder/include" -c tests/packages/msvc_host.c \
    -o "$scratch/msvc_host.obj" &&
    lld-link /entry:Start /subsystem:console /nodefaultlib "/out:$folder/bin/linked.exe" "$scratch/msvc_host.obj" \
      "$folder/lib/HexlumeHost.lib" "$folder/lib/Hexlume.lib"
}

# Whether a DLL's version resource has the version of the release.
in_resource() {
  LC_ALL=C grep -aq "FileVersion$version" <(tr -d '\0' <"$1")
}

scripts/setup.sh package
mapfile -t missing < <(
  for package in "$@"; do
    case "$package" in
      debian) [ -e "dist/${debian_files[2]}" ] && [ -e "dist/${debian_files[3]}" ] || echo debian ;;
      *) [ -e "dist/hexlume-$version-$package.zip" ] || echo "$package" ;;
    esac
  done
)
[ "${#missing[@]}" -eq 0 ] || scripts/package.sh "${missing[@]}"
for package in "$@"; do
  case "$package" in
    debian) test_debian ;;
    win-x64 | win-x86) test_windows "$package" ;;
    *) echo "usage: scripts/test_packages.sh [debian|win-x64|win-x86 ...]" >&2; exit 64 ;;
  esac
  echo "$package: passed"
done

# The document names the packages of this version.
others=$(grep -oE 'hexlume(1|-dev)?[-_][0-9]+\.[0-9]+\.[0-9]+' docs/packages.md | grep -v "[-_]${version//./\\.}\$" || true)
[ -z "$others" ] || fail "docs/packages.md names packages of another version: $others"

# The same picture on all systems.
for package in "$@"; do cmp "$scratch/$1.emf" "$scratch/$package.emf"; done
