// Reports what a drawing contains and converts it, in C++: convert DRAWING.dxf METAFILE.emf
//
// c++ -std=c++17 convert.cpp -lhexlume_host -o convert
#include <fstream>
#include <hexlume_host.hpp>
#include <iostream>
#include <iterator>
#include <string>

namespace host = hexlume::host;

static void Report(const std::string& drawing) {
  const host::Result found = host::InspectBytes(drawing);
  std::cout << "version " << found.Summary()->version << ", " << found.Summary()->sheet_width / 100 << " x "
            << found.Summary()->sheet_height / 100 << " mm\n";
  for (const hexlume_layer& layer : found.Layers())
    std::cout << "layer " << layer.name << (layer.shown ? "\n" : ", off\n");
  for (const hexlume_entities& row : found.Entities())
    std::cout << row.count << " " << row.kind << " on " << row.layer
              << (row.drawn ? "\n" : ", never drawn\n");
  for (const hexlume_text& text : found.Texts())
    std::cout << "text at " << text.x << ", " << text.y << ": " << text.text << "\n";
}

int main(int argc, char** argv) {
  if (argc != 3) return 64;
  std::ifstream file(argv[1], std::ios::binary);
  const std::string drawing(std::istreambuf_iterator<char>(file), {});
  Report(drawing);

  host::Options options;
  options.OnProgress([](int32_t pass, int32_t passes, int64_t done, int64_t total) {
    std::cerr << "pass " << pass << " of " << passes << ": " << done << " of " << total << " bytes\n";
    return true;  // false cancels
  });
  const host::Result result = host::ConvertBytes(drawing, options);
  if (!result) std::cerr << result.StatusName() << ": " << result.Message() << "\n";
  std::ofstream(argv[2], std::ios::binary) << result.Metafile();
  return result.Status();
}
