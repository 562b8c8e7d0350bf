// Writes the objects of a PDF file, one after the other. Nothing but their places is kept.
#pragma once

#include <zlib.h>

#include <cstdint>
#include <string>
#include <vector>

#include "tools/hexlume/picture/byte_sink.h"

namespace hexlume {

class PdfFile {
 public:
  explicit PdfFile(ByteSink byteSink);

  // Returns the number of an object that is written later.
  int NewObject();

  void WriteObject(int object, const std::string& contents);

  // A stream is compressed while it is written. No other object may be written before it ends.
  void BeginStream(int object);
  void WriteToStream(const std::string& text);
  void EndStream();

  // Ends the file. catalogue is the number of the document's root.
  void Finish(int catalogue);

 private:
  // Compresses what a stream contains.
  class Deflater {
   public:
    Deflater();
    ~Deflater() { deflateEnd(&state); }
    Deflater(const Deflater&) = delete;
    Deflater& operator=(const Deflater&) = delete;

    void Begin();
    // Passes compressed bytes on to take.
    template <typename Take>
    void Add(const std::string& text, bool isLast, Take take);

   private:
    z_stream state{};
  };

  void Write(const std::string& text);
  void AddToStream(const std::string& text, bool isLast);

  ByteSink sink;
  uint64_t position = 0;
  std::vector<uint64_t> places;  // of the objects, from number 1 on
  Deflater deflater;
  int lengthObject = 0;  // of the stream that is being written
  uint64_t streamStart = 0;
};

// "7 0 R"
std::string PdfReference(int object);

}  // namespace hexlume
