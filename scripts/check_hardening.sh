#!/usr/bin/env bash
# Checks what the linker and the compiler have done against faults of memory: scripts/check_hardening.sh PRESET
#
# Linux: programs and libraries at any address, relocations read-only before the start, no executable stack, nothing both
# writable and executable, stack protector, checked functions of the C library, branch targets marked.
# Windows: any address, with high entropy in 64 bits, no execution of data, nothing both writable and code.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
export LC_ALL=C
status=0

complain() {
  echo "$1: $2" >&2
  status=1
}

# check FILE WORDS COMMAND...: complains unless the command succeeds.
check() {
  local file=$1 words=$2
  shift 2
  "$@" >/dev/null || complain "$file" "$words"
}

has() { grep -qE -- "$1" <<<"$2"; }
has_not() { ! has "$@"; }

check_linux_file() {
  local file=$1 head segments dynamic symbols
  head=$(readelf -hW "$file")
  segments=$(readelf -lW "$file")
  dynamic=$(readelf -dW "$file")
  symbols=$(readelf --dyn-syms -W "$file")
  check "$file" "has a fixed address" has 'Type: +DYN' "$head"
  check "$file" "has an executable stack" has 'GNU_STACK .* RW +0x' "$segments"
  check "$file" "has a segment that is writable and executable" has_not '^ +LOAD .* RWE ' "$segments"
  check "$file" "has relocations that stay writable" has 'GNU_RELRO' "$segments"
  check "$file" "is bound while it runs" has '(BIND_NOW|FLAGS_1.*NOW)' "$dynamic"
  check "$file" "changes its code when it is loaded" has_not 'TEXTREL' "$dynamic"
  # The plain build finds its libraries where they were made.
  [[ "$file" != build/package-* ]] || check "$file" "searches libraries in a folder of the build" has_not '(RPATH|RUNPATH).*\[([^]]*:)?/' "$dynamic"
  check "$file" "has no stack protector" has '__stack_chk_fail' "$symbols"
  check "$file" "calls no checked functions of the C library" has '__[a-z]+_chk@' "$symbols"
  if has 'X86-64' "$head"; then
    # Each function that can be called through a pointer begins with the mark.
    local marks
    marks=$(objdump -d --no-show-raw-insn -j .text "$file" | grep -c endbr64 || true)
    [ "$marks" -ge 50 ] || complain "$file" "has only $marks marked branch targets"
  fi
}

check_windows_file() {
  local file=$1 head sections
  head=$(x86_64-w64-mingw32-objdump -p "$file")
  sections=$(x86_64-w64-mingw32-objdump -hw "$file")
  check "$file" "has a fixed address" has 'DYNAMIC_BASE' "$head"
  check "$file" "has no relocations, so its address stays fixed" has ' \.reloc ' "$sections"
  check "$file" "may execute data" has 'NX_COMPAT' "$head"
  check "$file" "has code that is writable" has_not ' CODE' "$(grep ' CODE' <<<"$sections" | grep -v READONLY || true)"
  if has 'pei?-x86-64' "$sections$head"; then
    check "$file" "has an address of low entropy" has 'HIGH_ENTROPY_VA' "$head"
  fi
}

case "${1:-}" in
  linux | package-linux)
    libraries=build/$1/$(sed -n 's/^CMAKE_INSTALL_LIBDIR:[A-Z]*=//p' "build/$1/CMakeCache.txt")
    for file in "build/$1"/bin/hexlume "build/$1"/bin/hexlume-batch "$libraries"/libhexlume.so.1 "$libraries"/libhexlume_host.so.1 \
      "$libraries"/hexlume/libhexlume_pictures.so; do
      check_linux_file "$file"
    done
    ;;
  win-x64 | win-x86 | package-win-x64 | package-win-x86)
    for file in "build/$1"/bin/Hexlume.dll "build/$1"/bin/HexlumeHost.dll "build/$1"/bin/hexlume.exe; do
      check_windows_file "$file"
    done
    ;;
  *) echo "usage: scripts/check_hardening.sh PRESET" >&2; exit 64 ;;
esac
exit "$status"
