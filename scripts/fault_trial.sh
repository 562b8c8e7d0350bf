#!/usr/bin/env bash
# Lets each call of the system fail once, in turn, in all that the native build converts with: scripts/fault_trial.sh
#
# Allocations, reads, writes, opens, closes, renames, lookups of fonts and starts of processes: in the library with the drawings of
# the examples and of the tests, in one process, then in the tools. Half an hour of a processor; ctest runs a sample. The tables say how often
# it was tried and what went wrong.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

scripts/build.sh linux hexlume_tool hexlume_batch hexlume_library_faults
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
# It is read in two pieces.
{
  printf '0\nSECTION\n2\nHEADER\n9\n$LIMMIN\n10\n0\n20\n0\n9\n$LIMMAX\n10\n420\n20\n297\n0\nENDSEC\n0\nSECTION\n2\nENTITIES\n'
  for ((i = 0; i < 12000; ++i)); do printf '0\nLINE\n10\n0\n20\n0\n11\n9\n21\n9\n'; done
  printf '0\nENDSEC\n0\nEOF\n'
} >"$scratch/large.dxf"
mapfile -t drawings < <(find examples tests/drawings -name '*.dxf' -size -16k | LC_ALL=C sort)
status=0
nice -n 19 build/linux/bin/hexlume_library_faults "$scratch/large.dxf" "${drawings[@]}" || status=1
nice -n 19 tests/faults/tool_faults.py build/linux || status=1
exit "$status"
