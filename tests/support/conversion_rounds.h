// Conversions of all kinds, over and over.
#pragma once

#include <string>

#include "support/loaded_library.h"
#include "support/text_drawing.h"

namespace hexlume {

constexpr int32_t conversionKinds = 9;

class ConversionRounds {
 public:
  ConversionRounds();

  // The rounds from first up to end. One of each kind in turn: all conversions, a cut view, the sheet's
  // default answers, files that are missing or no drawing, a fault that leaves, texts that prove too wide
  // for the view and one that outgrows its place. Metafiles that come out are deleted.
  void Run(const LoadedLibrary& library, int32_t first, int32_t end) const;

 private:
  void ConvertOnce(const LoadedLibrary& library, int32_t round) const;

  const TemporaryDrawing drawing;
  const TemporaryFile garbage;
  const TemporaryDrawing outgrowing;
  const std::string longPath;
};

// Converts a drawing of so many texts, each of which leaves its font selected.
void ConvertTextsThatLeaveTheirFonts(const LoadedLibrary& library, int32_t count);

}  // namespace hexlume
