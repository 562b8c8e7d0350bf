// Writes the metafile of each sequence of gdi_probe_calls.h as a line "name: hex", with what the calls returned before
// it. The outputs of two systems must be the same text.
#include "support/gdi_probe_calls.h"

#include <cstdint>
#include <cstdio>
#include <vector>

namespace {

std::vector<uint8_t> BytesOf(HENHMETAFILE metafile) {
  std::vector<uint8_t> bytes(GetEnhMetaFileBits(metafile, 0, nullptr));
  if (!bytes.empty()) GetEnhMetaFileBits(metafile, static_cast<UINT>(bytes.size()), bytes.data());
  return bytes;
}

void Print(const char* name, HENHMETAFILE metafile, const hexlume::ProbeResults& results) {
  if (!results.empty()) {
    std::printf("%s returns:", name);
    for (const long long result : results) std::printf(" %lld", result);
    std::printf("\n");
  }
  std::printf("%s: ", name);
  for (const uint8_t byte : BytesOf(metafile)) std::printf("%02x", byte);
  std::printf("\n");
}

void RunCalls(const hexlume::ProbeCalls& calls) {
  const RECT frame = {0, 0, 42000, 29700};
  const HDC dc = CreateEnhMetaFileA(nullptr, nullptr, &frame, nullptr);
  hexlume::ProbeResults results;
  calls.run(dc, results);
  const HENHMETAFILE metafile = CloseEnhMetaFile(dc);
  Print(calls.name, metafile, results);
  DeleteEnhMetaFile(metafile);
}

void RunFrame(const hexlume::ProbeFrame& probe) {
  const HDC dc = CreateEnhMetaFileA(nullptr, nullptr, probe.isGiven ? &probe.frame : nullptr, nullptr);
  hexlume::DrawInFrame(dc);
  const HENHMETAFILE metafile = CloseEnhMetaFile(dc);
  Print(probe.name, metafile, {});
  DeleteEnhMetaFile(metafile);
}

}  // namespace

int main() {
  for (const hexlume::ProbeCalls& calls : hexlume::StrokeProbes()) RunCalls(calls);
  for (const hexlume::ProbeCalls& calls : hexlume::ObjectProbes()) RunCalls(calls);
  for (const hexlume::ProbeFrame& probe : hexlume::FrameProbes()) RunFrame(probe);
}
