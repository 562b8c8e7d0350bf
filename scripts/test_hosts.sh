#!/usr/bin/env bash
# Builds the sample hosts and has each convert a drawing, which must give the metafile that the tool gives:
#   scripts/test_hosts.sh linux|win-x64|win-x86
# Natively those in C, C++, Python and C#; for Windows those in C and C++. The declarations for VBA, which nothing here runs,
# are compared with the header.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

preset=$1
build=build/$preset
drawing=examples/FIRST.dxf
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
strict=(-Wall -Wextra -Werror -Iinclude)

# A host's name and its command, which gets the drawing and the metafile.
run() {
  local name=$1
  shift
  if ! "$@" "$drawing" "$scratch/$name.emf" >"$scratch/log" 2>&1 </dev/null ||
    ! cmp "$scratch/tool.emf" "$scratch/$name.emf" >>"$scratch/log" 2>&1; then
    echo "failed: $name" >&2
    cat "$scratch/log" >&2
    exit 1
  fi
}

native_hosts() {
  export LD_LIBRARY_PATH=$PWD/$build/lib
  "$build/bin/hexlume" "$drawing" "$scratch/tool.emf"
  cc -std=c11 "${strict[@]}" examples/hosts/convert.c -o "$scratch/c" -L"$build/lib" -lhexlume_host
  c++ -std=c++17 "${strict[@]}" examples/hosts/convert.cpp -o "$scratch/cpp" -L"$build/lib" -lhexlume_host
  mcs -warnaserror -out:"$scratch/Convert.exe" examples/hosts/Convert.cs
  mcs -warnaserror -out:"$scratch/NineExports.exe" examples/hosts/NineExports.cs
  run c "$scratch/c"
  run cpp "$scratch/cpp"
  run python python3 examples/hosts/convert.py
  run python_nine python3 examples/hosts/nine_exports.py
  run csharp mono "$scratch/Convert.exe"
  run csharp_nine mono "$scratch/NineExports.exe"
}

windows_hosts() {
  local processor=x86_64
  [ "$preset" = win-x64 ] || processor=i686
  . scripts/wine_environment.sh
  prepare_wine
  cp "$build"/bin/HexlumeHost.dll "$scratch"
  wine "$build/bin/hexlume.exe" "$drawing" "$(windows_path "$scratch/tool.emf")" </dev/null
  "$processor-w64-mingw32-gcc-win32" -std=c11 "${strict[@]}" -D__USE_MINGW_ANSI_STDIO examples/hosts/convert.c \
    -o "$scratch/c.exe" -static "$build/lib/libHexlumeHost.dll.a"
  "$processor-w64-mingw32-g++-win32" -std=c++17 "${strict[@]}" examples/hosts/convert.cpp \
    -o "$scratch/cpp.exe" -static "$build/lib/libHexlumeHost.dll.a"
  cd "$scratch"
  drawing=$(windows_path "$OLDPWD/$drawing")
  run c wine ./c.exe
  run cpp wine ./cpp.exe
}

# Each export once, with as many parameters as in the header.
vba_declarations() {
  python3 - <<'PYTHON'
import re
header = open("include/hexlume.h", encoding="utf-8").read()
module = open("examples/hosts/NineExports.bas", encoding="utf-8").read()
exports = {name: arguments.count(",") + 1
           for name, arguments in re.findall(r"^\w+ (vz\w+)\(([^)]*)\);", header, re.M)}
declared = {name: arguments.count(",") + 1
            for name, arguments in re.findall(r"^Public Declare PtrSafe Function (vz\w+) Lib \"Hexlume\.dll\" "
                                              r"\(([^)]*)\) As (?:Long|Byte)$", module, re.M)}
assert len(exports) == 9 and exports == declared, (exports, declared)
PYTHON
}

case "$preset" in
  linux)
    vba_declarations
    native_hosts
    ;;
  *) windows_hosts ;;
esac
