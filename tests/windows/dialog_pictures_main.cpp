// Takes pictures of the dialogs: hexlume_dialog_pictures DRAWING FOLDER. The drawing is for the selection
// sheet.
#include <windows.h>

#include <objidl.h>
#include <wincodec.h>

#include <cstdio>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>

#include "windows/dialog_test.h"

namespace hexlume {
namespace {

struct ReleaseInterface {
  void operator()(IUnknown* object) const { object->Release(); }
};
template <typename T>
using Interface = std::unique_ptr<T, ReleaseInterface>;

void Require(HRESULT result) {
  if (FAILED(result)) throw std::runtime_error("the system's imaging component can't write a picture");
}

template <typename T, typename Create>
Interface<T> Make(Create&& create) {
  T* object = nullptr;
  Require(create(&object));
  return Interface<T>(object);
}

void WritePng(HBITMAP picture, const std::wstring& file) {
  const auto factory = Make<IWICImagingFactory>([](IWICImagingFactory** out) {
    return CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER, IID_IWICImagingFactory,
                            reinterpret_cast<void**>(out));
  });
  const auto source = Make<IWICBitmap>([&](IWICBitmap** out) {
    return factory->CreateBitmapFromHBITMAP(picture, nullptr, WICBitmapIgnoreAlpha, out);
  });
  const auto stream = Make<IWICStream>([&](IWICStream** out) { return factory->CreateStream(out); });
  Require(stream->InitializeFromFilename(file.c_str(), GENERIC_WRITE));
  const auto encoder = Make<IWICBitmapEncoder>(
      [&](IWICBitmapEncoder** out) { return factory->CreateEncoder(GUID_ContainerFormatPng, nullptr, out); });
  Require(encoder->Initialize(stream.get(), WICBitmapEncoderNoCache));
  const auto frame = Make<IWICBitmapFrameEncode>(
      [&](IWICBitmapFrameEncode** out) { return encoder->CreateNewFrame(out, nullptr); });
  WICPixelFormatGUID format = GUID_WICPixelFormat24bppBGR;
  Require(frame->Initialize(nullptr));
  Require(frame->SetPixelFormat(&format));
  Require(frame->WriteSource(source.get(), nullptr));
  Require(frame->Commit());
  Require(encoder->Commit());
}

// What the screen shows of a window, its frame included.
void TakePicture(HWND window, const std::wstring& file) {
  RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN | RDW_FRAME);
  Ask(window, WM_NCACTIVATE, TRUE);  // the first of a process may not be the screen's active one
  const RECT place = PlaceOf(window);
  const int width = place.right - place.left;
  const int height = place.bottom - place.top;
  const HDC screen = GetDC(nullptr);
  const HDC copy = CreateCompatibleDC(screen);
  const HBITMAP picture = CreateCompatibleBitmap(screen, width, height);
  const HGDIOBJ before = SelectObject(copy, picture);
  BitBlt(copy, 0, 0, width, height, screen, place.left, place.top, SRCCOPY);
  SelectObject(copy, before);
  DeleteDC(copy);
  ReleaseDC(nullptr, screen);
  WritePng(picture, file);
  DeleteObject(picture);
}

class Photographer {
 public:
  Photographer(const char* drawing, const std::wstring& folder) : drawing(drawing), folder(folder) {}

  // Of all dialogs in one font mode; the names end alike.
  void TakeAll(uint8_t fontMode, const std::wstring& nameEnd) const {
    library.dxfSetFontMode(fontMode);
    Convert(drawing, 1, [&] {
      SheetWindow sheet;
      sheet.ClickBox(2);
      sheet.ExpectTicks("xx-");
      TakePicture(sheet.window, folder + L"/dialog_layers" + nameEnd);
      sheet.OpenPage(SheetWindow::lines);
      sheet.ClickBox(1);
      sheet.ExpectTicks("x-xxx");
      TakePicture(sheet.window, folder + L"/dialog_lines" + nameEnd);
      sheet.Cancel();
    });
    Convert(house.Path(), 2, [&] {
      const SizeWindow dialog;
      TakePicture(dialog.window, folder + L"/dialog_size" + nameEnd);
      dialog.Cancel();
    });
  }

 private:
  void Convert(const char* path, int32_t showDialogs, const std::function<void()>& user) const {
    HENHMETAFILE out = nullptr;
    int32_t code = 0;
    const std::string complaint = RunWithUser([&] { code = library.metaMake(path, &out, showDialogs, 0); },
                                              [&] {
                                                CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
                                                user();
                                                CoUninitialize();
                                              });
    if (!complaint.empty()) throw std::runtime_error(complaint);
    if (code != HEXLUME_CANCELLED) throw std::runtime_error("a conversion shows no dialog");
  }

  const char* const drawing;
  const std::wstring folder;
  const LoadedLibrary library;
  const TemporaryDrawing house{LargeDrawing(42000, 29700)};  // A3 in 1:100
};

}  // namespace
}  // namespace hexlume

int main(int argumentCount, char** arguments) {
  if (argumentCount != 3) {
    std::fprintf(stderr, "usage: hexlume_dialog_pictures DRAWING FOLDER\n");
    return 64;
  }
  SetProcessDPIAware();  // at the screen's resolution
  try {
    const hexlume::Photographer photographer(arguments[1], std::filesystem::path(arguments[2]).wstring());
    photographer.TakeAll(0, L".png");
    photographer.TakeAll(1, L"_menu_font.png");
  } catch (const std::exception& error) {
    std::fprintf(stderr, "hexlume_dialog_pictures: %s\n", error.what());
    return 1;
  }
  return 0;
}
