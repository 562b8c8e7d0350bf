// Writes the metafile of each sequence of gdi_probe_calls.h as a line "name: hex", with what the calls
// returned before it. The outputs of two systems must be the same text.
#include "support/gdi_probe_calls.h"

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <vector>

namespace {

std::vector<uint8_t> BytesOf(HENHMETAFILE metafile) {
  std::vector<uint8_t> bytes(GetEnhMetaFileBits(metafile, 0, nullptr));
  if (!bytes.empty()) GetEnhMetaFileBits(metafile, static_cast<UINT>(bytes.size()), bytes.data());
  return bytes;
}

uint32_t NumberAt(const std::vector<uint8_t>& bytes, size_t place) {
  uint32_t number = 0;
  if (place + sizeof number <= bytes.size()) std::memcpy(&number, &bytes[place], sizeof number);
  return number;
}

// What a font's record has after its face name, and in two bytes at its end, is whatever was in memory.
void BlankUnusedFontBytes(uint8_t* record) {
  constexpr size_t faceName = 40;
  constexpr size_t namesEnd = 296;
  constexpr size_t size = 332;
  size_t end = faceName;
  while (end + 2 < namesEnd && (record[end] | record[end + 1]) != 0) end += 2;
  std::memset(record + end, 0, namesEnd - end);
  std::memset(record + size - 2, 0, 2);
}

void BlankUnusedBytes(std::vector<uint8_t>& bytes) {
  constexpr uint32_t createFont = 82;
  for (size_t place = 0; place + 8 <= bytes.size();) {
    const uint32_t size = NumberAt(bytes, place + 4);
    if (size < 8 || size > bytes.size() - place) return;
    if (NumberAt(bytes, place) == createFont && size >= 332) BlankUnusedFontBytes(&bytes[place]);
    place += size;
  }
}

void Print(const char* name, HENHMETAFILE metafile, const hexlume::ProbeResults& results) {
  if (!results.empty()) {
    std::printf("%s returns:", name);
    for (const long long result : results) std::printf(" %lld", result);
    std::printf("\n");
  }
  std::printf("%s: ", name);
  std::vector<uint8_t> bytes = BytesOf(metafile);
  BlankUnusedBytes(bytes);
  for (const uint8_t byte : bytes) std::printf("%02x", byte);
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
  for (const hexlume::ProbeCalls& calls : hexlume::ArcProbes()) RunCalls(calls);
  for (const hexlume::ProbeCalls& calls : hexlume::ObjectProbes()) RunCalls(calls);
  for (const hexlume::ProbeCalls& calls : hexlume::TextProbes()) RunCalls(calls);
  for (const hexlume::ProbeCalls& calls : hexlume::RegionProbes()) RunCalls(calls);
  for (const hexlume::ProbeFrame& probe : hexlume::FrameProbes()) RunFrame(probe);
}
