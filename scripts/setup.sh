#!/usr/bin/env bash
# Installs the packages for building and testing Hexlume on Debian 12. If all are installed, nothing is changed and the
# network isn't used, so other scripts can call this every time.
#
#   scripts/setup.sh native        for the native library and tool
#   scripts/setup.sh native-test   for the native library and tool and their tests
#   scripts/setup.sh windows       for the Windows library and tool: cross compilers and Wine
#   scripts/setup.sh test          for all builds and all tests
#   scripts/setup.sh fuzz          for the native library and the fuzzer
#   scripts/setup.sh package       for making and testing the packages
#   scripts/setup.sh web           for the viewer: emscripten, libraries that it builds, and npm packages
#   scripts/setup.sh web-test      for the viewer and its tests, with the native library that it is compared with
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

native_packages=(
  cmake g++ ninja-build pkg-config
  libcairo2-dev libcxxopts-dev libfontconfig-dev libfreetype-dev libpixman-1-dev libpng-dev libsqlite3-dev
  nettle-dev nlohmann-json3-dev zlib1g-dev
  fonts-ipafont-gothic
)
windows_packages=(
  cmake ninja-build
  g++-mingw-w64-i686-win32 g++-mingw-w64-x86-64-win32
  libcxxopts-dev nlohmann-json3-dev
  locales
  wine wine64 wine32:i386
)
engine_packages=(munge openssh-client openssh-server parallel procps slurm-client slurmctld slurmd)
native_test_packages=(
  clang-format doxygen googletest groff-base libbenchmark-dev libemf2svg-dev libfast-float-dev libuemf-dev
  libmono-system-core4.0-cil librsvg2-bin mono-mcs mono-runtime poppler-utils python3 qpdf
  "${engine_packages[@]}"
)
windows_test_packages=(googletest xvfb)
fuzz_packages=(clang googletest libclang-rt-14-dev libfast-float-dev llvm python3)
package_packages=(clang debootstrap doxygen dpkg-dev file lintian lld llvm python3 unzip zip)
web_packages=(
  cmake ninja-build dpkg-dev emscripten libfast-float-dev nodejs
  fonts-ipafont-gothic libfreetype-dev pkg-config python3 python3-fonttools
)
# Another Node than Debian's has its own npm, and Debian's would replace it.
command -v npm >/dev/null || web_packages+=(npm)
web_test_packages=(chromium poppler-utils)

case "${1:-}" in
  native) packages=("${native_packages[@]}") ;;
  native-test) packages=("${native_packages[@]}" "${native_test_packages[@]}") ;;
  windows) packages=("${windows_packages[@]}") ;;
  test)
    packages=("${native_packages[@]}" "${native_test_packages[@]}" "${windows_packages[@]}" "${windows_test_packages[@]}")
    ;;
  fuzz) packages=("${native_packages[@]}" "${fuzz_packages[@]}") ;;
  package) packages=("${native_packages[@]}" "${windows_packages[@]}" "${package_packages[@]}") ;;
  web) packages=("${web_packages[@]}") ;;
  web-test) packages=("${native_packages[@]}" "${native_test_packages[@]}" "${web_packages[@]}" "${web_test_packages[@]}") ;;
  *) echo "usage: scripts/setup.sh native|native-test|windows|test|fuzz|package|web|web-test" >&2; exit 64 ;;
esac

as_root() {
  if [ "$(id -u)" = 0 ]; then "$@"; else sudo "$@"; fi
}

missing_packages() {
  local package
  for package in "${packages[@]}"; do
    [ "$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null)" = installed ] || printf '%s\n' "$package"
  done
}

needs_wine() {
  [[ " ${packages[*]} " == *" wine "* ]]
}

# The engines of hexlume-batch are services, which must not start by themselves. Their tests start and end them.
refuse_services() {
  [ ! -e /usr/sbin/policy-rc.d ] || return 0
  own_policy=/usr/sbin/policy-rc.d
  printf '#!/bin/sh\nexit 101\n' | as_root tee "$own_policy" >/dev/null
  as_root chmod 755 "$own_policy"
}

clean_up() {
  [ -z "${own_policy:-}" ] || as_root rm -f "$own_policy"
  [ -z "${scratch:-}" ] || as_root rm -rf "$scratch"
}
trap clean_up EXIT

install_from_configured_archives() {
  as_root apt-get update || true # one archive's broken index may not matter: the install shows
  as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends "$@"
}

# At times the security archive's i386 index doesn't match its release file and can't be downloaded. Without it apt sees
# newer libraries for amd64 than for i386 and refuses to install Wine. The main archive alone is consistent, so it is
# used through a source list and an index folder of our own. All Wine packages are installed in one call; otherwise apt
# would remove wine64 to install wine32.
install_from_main_archive() {
  local site
  scratch=$(mktemp -d)
  chmod 755 "$scratch" # apt downloads as a user of its own
  mkdir -p "$scratch/sources" "$scratch/lists/partial"
  site=$(apt-get indextargets --format '$(SITE) $(LABEL) $(CODENAME)' 2>/dev/null |
    awk '$2 == "Debian" && $3 == "bookworm" { print $1; exit }' || true)
  printf 'deb [signed-by=/usr/share/keyrings/debian-archive-keyring.gpg] %s bookworm main\n' \
    "${site:-http://deb.debian.org/debian}" >"$scratch/sources/main.list"
  main_archive=(-o Dir::Etc::sourcelist=/dev/null -o "Dir::Etc::sourceparts=$scratch/sources"
    -o "Dir::State::Lists=$scratch/lists" --no-remove)
  as_root apt-get "${main_archive[@]}" update
  simulate_main_archive "$@" >/dev/null 2>&1 || prefer_main_archive "$@"
  as_root env DEBIAN_FRONTEND=noninteractive apt-get "${main_archive[@]}" install -y --no-install-recommends "$@"
}

simulate_main_archive() {
  LC_ALL=C apt-get "${main_archive[@]}" install --simulate --no-install-recommends "$@"
}

# A library must have the same version for amd64 and i386. An amd64 library from the security archive is replaced by the
# main archive's version.
prefer_main_archive() {
  local older
  printf 'Package: *\nPin: release n=bookworm\nPin-Priority: 1001\n' >"$scratch/preferences"
  main_archive+=(-o "Dir::Etc::preferences=$scratch/preferences" --allow-downgrades)
  older=$(simulate_main_archive "$@" |
    awk '/^[^ ]/ { listed = 0 } listed { print } /^The following packages will be DOWNGRADED:/ { listed = 1 }' | xargs)
  echo "Going back to the main archive's versions, as i386 has no newer ones today (a later apt-get upgrade undoes it): $older"
}

has_japanese_locale() {
  [ "$(LC_ALL=ja_JP.UTF-8 locale charmap 2>/dev/null)" = UTF-8 ]
}

# Other packages run locale-gen, which removes all locales that aren't in /etc/locale.gen.
make_japanese_locale() {
  grep -q '^ja_JP\.UTF-8 UTF-8' /etc/locale.gen || echo 'ja_JP.UTF-8 UTF-8' | as_root tee -a /etc/locale.gen >/dev/null
  has_japanese_locale || as_root localedef -i ja_JP -f UTF-8 ja_JP.UTF-8
}

mapfile -t missing < <(missing_packages)
if [ "${#missing[@]}" -gt 0 ]; then
  echo "Installing: ${missing[*]}"
  if needs_wine && ! dpkg --print-foreign-architectures | grep -qx i386; then
    as_root dpkg --add-architecture i386
  fi
  refuse_services
  install_from_configured_archives "${packages[@]}" || install_from_main_archive "${packages[@]}"
fi
if needs_wine; then make_japanese_locale; fi

# What the viewer needs besides packages is made in the tree, as the user.
install_npm_packages() {
  local folder=$root/web
  ! cmp -s "$folder/package-lock.json" "$folder/node_modules/.installed" || return 0
  (cd "$folder" && npm ci --no-audit --no-fund)
  cp "$folder/package-lock.json" "$folder/node_modules/.installed"
}

case "$1" in
  web*)
    "$root/scripts/build_web_libraries.sh"
    install_npm_packages
    ;;
esac
