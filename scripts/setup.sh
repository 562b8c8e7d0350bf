#!/usr/bin/env bash
# Installs what building and testing Hexlume needs on Debian 12. A machine that has it all is left untouched, without a
# look at the network, so the callers can run this every time.
#
#   scripts/setup.sh native     what the native library and tool need
#   scripts/setup.sh windows    the cross compilers and Wine for the Windows ones
#   scripts/setup.sh test       both, and what the tests need besides
#   scripts/setup.sh fuzz       what the native library and the fuzzer need
#   scripts/setup.sh package    what making and testing the packages needs
set -euo pipefail

native_packages=(
  cmake g++ ninja-build pkg-config
  libcairo2-dev libcxxopts-dev libfontconfig-dev libfreetype-dev libpixman-1-dev
  fonts-ipafont-gothic
)
windows_packages=(
  cmake ninja-build
  g++-mingw-w64-i686-win32 g++-mingw-w64-x86-64-win32
  libcxxopts-dev
  locales
  wine wine64 wine32:i386
)
test_packages=(
  clang-format doxygen googletest libbenchmark-dev libemf2svg-dev libuemf-dev xvfb
  libmono-system-core4.0-cil mono-mcs mono-runtime python3
)
fuzz_packages=(clang googletest libclang-rt-14-dev)
package_packages=(debootstrap doxygen dpkg-dev file lintian llvm unzip zip)

case "${1:-}" in
  native) packages=("${native_packages[@]}") ;;
  windows) packages=("${windows_packages[@]}") ;;
  test) packages=("${native_packages[@]}" "${windows_packages[@]}" "${test_packages[@]}") ;;
  fuzz) packages=("${native_packages[@]}" "${fuzz_packages[@]}") ;;
  package) packages=("${native_packages[@]}" "${windows_packages[@]}" "${package_packages[@]}") ;;
  *) echo "usage: scripts/setup.sh native|windows|test|fuzz|package" >&2; exit 64 ;;
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

install_from_configured_archives() {
  as_root apt-get update || true # a broken index of one archive need not stop us: the install tells
  as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends "$@"
}

# The security archive's i386 index is at times out of step with its release file and can't be fetched. Without it apt
# sees newer amd64 libraries than i386 ones and refuses Wine. The main archive alone is consistent in itself, so it is
# asked through a source list and an index folder of our own. All Wine packages go in one call: apt would remove wine64
# to make room for wine32 otherwise.
install_from_main_archive() {
  local scratch site
  scratch=$(mktemp -d)
  chmod 755 "$scratch" # apt fetches as its own user
  mkdir -p "$scratch/sources" "$scratch/lists/partial"
  site=$(apt-get indextargets --format '$(SITE) $(LABEL) $(CODENAME)' 2>/dev/null |
    awk '$2 == "Debian" && $3 == "bookworm" { print $1; exit }' || true)
  printf 'deb [signed-by=/usr/share/keyrings/debian-archive-keyring.gpg] %s bookworm main\n' \
    "${site:-http://deb.debian.org/debian}" >"$scratch/sources/main.list"
  local options=(-o Dir::Etc::sourcelist=/dev/null -o "Dir::Etc::sourceparts=$scratch/sources"
    -o "Dir::State::Lists=$scratch/lists")
  as_root apt-get "${options[@]}" update
  as_root env DEBIAN_FRONTEND=noninteractive apt-get "${options[@]}" install -y --no-install-recommends "$@"
  as_root rm -rf "$scratch"
}

make_japanese_locale() {
  locale -a 2>/dev/null | grep -qix 'ja_JP\.utf-\?8' ||
    as_root localedef -i ja_JP -f UTF-8 ja_JP.UTF-8
}

mapfile -t missing < <(missing_packages)
if [ "${#missing[@]}" -gt 0 ]; then
  echo "Installing: ${missing[*]}"
  if needs_wine && ! dpkg --print-foreign-architectures | grep -qx i386; then
    as_root dpkg --add-architecture i386
  fi
  install_from_configured_archives "${packages[@]}" || install_from_main_archive "${packages[@]}"
fi
if needs_wine; then make_japanese_locale; fi
