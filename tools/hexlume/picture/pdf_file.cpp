#include "tools/hexlume/picture/pdf_file.h"

#include <array>
#include <cstdio>
#include <new>
#include <utility>

namespace hexlume {

PdfFile::Deflater::Deflater() {
  // Higher levels take several times as long for a few per cent.
  constexpr int quick = 3;
  if (deflateInit(&state, quick) != Z_OK) throw std::bad_alloc();
}

void PdfFile::Deflater::Begin() {
  deflateReset(&state);
}

template <typename Take>
void PdfFile::Deflater::Add(const std::string& text, bool isLast, Take take) {
  std::array<Bytef, 1 << 14> compressed;
  state.next_in = reinterpret_cast<z_const Bytef*>(const_cast<char*>(text.data()));
  state.avail_in = static_cast<uInt>(text.size());
  do {
    state.next_out = compressed.data();
    state.avail_out = static_cast<uInt>(compressed.size());
    deflate(&state, isLast ? Z_FINISH : Z_NO_FLUSH);
    take(compressed.data(), compressed.size() - state.avail_out);
  } while (state.avail_out == 0);
}

PdfFile::PdfFile(ByteSink byteSink) : sink(std::move(byteSink)) {
  // The second line shows programs that the file isn't plain text.
  Write("%PDF-1.5\n%\xE2\xE3\xCF\xD3\n");
}

void PdfFile::Write(const std::string& text) {
  sink(reinterpret_cast<const uint8_t*>(text.data()), text.size());
  position += text.size();
}

int PdfFile::NewObject() {
  places.push_back(0);
  return static_cast<int>(places.size());
}

void PdfFile::WriteObject(int object, const std::string& contents) {
  places[static_cast<size_t>(object) - 1] = position;
  Write(std::to_string(object) + " 0 obj\n" + contents + "\nendobj\n");
}

void PdfFile::BeginStream(int object) {
  lengthObject = NewObject();
  places[static_cast<size_t>(object) - 1] = position;
  Write(std::to_string(object) + " 0 obj\n<</Filter/FlateDecode/Length " + PdfReference(lengthObject) +
        ">>\nstream\n");
  streamStart = position;
  deflater.Begin();
}

void PdfFile::AddToStream(const std::string& text, bool isLast) {
  deflater.Add(text, isLast, [this](const uint8_t* bytes, size_t size) {
    if (size > 0) sink(bytes, size);
    position += size;
  });
}

void PdfFile::WriteToStream(const std::string& text) {
  AddToStream(text, false);
}

void PdfFile::EndStream() {
  AddToStream("", true);
  const uint64_t length = position - streamStart;
  Write("\nendstream\nendobj\n");
  WriteObject(lengthObject, std::to_string(length));
}

void PdfFile::Finish(int catalogue) {
  const uint64_t start = position;
  std::string table = "xref\n0 " + std::to_string(places.size() + 1) + "\n0000000000 65535 f \n";
  for (const uint64_t place : places) {
    char entry[32];
    std::snprintf(entry, sizeof entry, "%010llu 00000 n \n", static_cast<unsigned long long>(place));
    table += entry;
  }
  Write(table + "trailer\n<</Size " + std::to_string(places.size() + 1) + "/Root " + PdfReference(catalogue) +
        ">>\nstartxref\n" + std::to_string(start) + "\n%%EOF\n");
}

std::string PdfReference(int object) {
  return std::to_string(object) + " 0 R";
}

}  // namespace hexlume
