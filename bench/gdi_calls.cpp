// Makes the GDI calls that the library makes for a drawing of LINEs, and saves the metafile as the tool does. What takes
// longer in a conversion is the library's own time: hexlume_gdi_calls LINES FILE
#include <windows.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <vector>

namespace {

constexpr RECT sheet = {0, 0, 100000, 70000};

void Stroke(HDC canvas, const POINT& start, const POINT& end) {
  const HPEN pen = CreatePen(PS_SOLID, 0, RGB(0, 255, 0));
  const HGDIOBJ before = SelectObject(canvas, pen);
  MoveToEx(canvas, start.x, start.y, nullptr);
  LineTo(canvas, end.x, end.y);
  SelectObject(canvas, before);
  DeleteObject(pen);
}

// Points by chance, which cost next to nothing.
POINT NextPoint(uint32_t& number) {
  number = number * 1664525 + 1013904223;
  return {10000 + static_cast<LONG>((number >> 16) % 89900),
          -10000 - static_cast<LONG>((number >> 8) % 59900)};
}

HENHMETAFILE MetafileOf(long lines) {
  const HDC canvas = CreateEnhMetaFileA(nullptr, nullptr, &sheet, nullptr);
  SetMapMode(canvas, MM_HIMETRIC);
  uint32_t number = 1;
  for (long i = 0; i < lines; ++i) {
    const POINT start = NextPoint(number);
    Stroke(canvas, start, NextPoint(number));
  }
  return CloseEnhMetaFile(canvas);
}

bool Save(HENHMETAFILE metafile, const char* path) {
  std::vector<BYTE> bytes(GetEnhMetaFileBits(metafile, 0, nullptr));
  GetEnhMetaFileBits(metafile, static_cast<UINT>(bytes.size()), bytes.data());
  const HANDLE file =
      CreateFileA(path, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) return false;
  DWORD written = 0;
  const bool saved = WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) &&
                     written == bytes.size();
  return CloseHandle(file) && saved;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fputs("usage: hexlume_gdi_calls LINES FILE\n", stderr);
    return 64;
  }
  const HENHMETAFILE metafile = MetafileOf(std::atol(argv[1]));
  const bool saved = metafile && Save(metafile, argv[2]);
  DeleteEnhMetaFile(metafile);
  return saved ? 0 : 1;
}
