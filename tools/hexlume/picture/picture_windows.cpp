#include <objidl.h>
#include <wincodec.h>
#include <windows.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <string>
#include <type_traits>

#include "tools/hexlume/picture/picture.h"
#include "tools/hexlume/picture/picture_book.h"
#include "tools/hexlume/picture/picture_cost.h"

namespace hexlume {
namespace {

template <auto function>
struct Release {
  template <typename T>
  void operator()(T* object) const {
    function(object);
  }
};
using DeviceContext = std::unique_ptr<std::remove_pointer_t<HDC>, Release<DeleteDC>>;
using Metafile = std::unique_ptr<std::remove_pointer_t<HENHMETAFILE>, Release<DeleteEnhMetaFile>>;
using Bitmap = std::unique_ptr<std::remove_pointer_t<HBITMAP>, Release<DeleteObject>>;

struct ReleaseInterface {
  void operator()(IUnknown* object) const { object->Release(); }
};
template <typename T>
using Interface = std::unique_ptr<T, ReleaseInterface>;

void Require(HRESULT result, const char* step) {
  if (SUCCEEDED(result)) return;
  if (result == E_OUTOFMEMORY) throw std::bad_alloc();
  throw PictureError(std::string("the system's imaging component can't ") + step);
}

// Calls create with a pointer to the interface that it creates.
template <typename T, typename Create>
Interface<T> Make(const char* step, Create&& create) {
  T* object = nullptr;
  Require(create(&object), step);
  return Interface<T>(object);
}

size_t RowBytes(PixelSize size) {
  return (static_cast<size_t>(size.width) * 3 + 3) / 4 * 4;
}

PixelSize SizeOf(HENHMETAFILE metafile, const PictureSettings& settings) {
  ENHMETAHEADER header;
  if (GetEnhMetaFileHeader(metafile, sizeof header, &header) == 0) {
    throw PictureError("the metafile has no header");
  }
  const RECTL& frame = header.rclFrame;
  return PictureSize(frame.left, frame.top, frame.right, frame.bottom, settings);
}

// A bitmap in memory, 24 bits per pixel, rows from top to bottom as the encoder expects
// them; initially white.
struct Canvas {
  explicit Canvas(PixelSize canvasSize) : size(canvasSize) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = size.width;
    info.bmiHeader.biHeight = -size.height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 24;
    void* bits = nullptr;
    bitmap.reset(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    if (!bitmap) throw std::bad_alloc();
    pixels = static_cast<uint8_t*>(bits);
    std::memset(pixels, 0xFF, RowBytes(size) * size.height);
  }

  PixelSize size;
  Bitmap bitmap;
  uint8_t* pixels;
};

void Play(HENHMETAFILE metafile, const Canvas& canvas) {
  const DeviceContext dc(CreateCompatibleDC(nullptr));
  if (!dc) throw PictureError("the system gives no device context");
  const HGDIOBJ before = SelectObject(dc.get(), canvas.bitmap.get());
  const RECT whole{0, 0, canvas.size.width, canvas.size.height};
  // The result isn't checked: for a metafile with a header, a record that can't be played doesn't count
  // as an error.
  PlayEnhMetaFile(dc.get(), metafile, &whole);
  GdiFlush();
  SelectObject(dc.get(), before);
}

// Writes bands, because the encoder accepts at most 4 GB at once.
void WriteRows(IWICBitmapFrameEncode& frame, const Canvas& canvas) {
  constexpr int32_t bandRows = 1024;
  const size_t rowBytes = RowBytes(canvas.size);
  for (int32_t row = 0; row < canvas.size.height; row += bandRows) {
    const int32_t rows = std::min(bandRows, canvas.size.height - row);
    Require(frame.WritePixels(rows, static_cast<UINT>(rowBytes), static_cast<UINT>(rowBytes * rows),
                              canvas.pixels + rowBytes * row),
            "take the picture");
  }
}

void WriteFrame(IWICBitmapFrameEncode& frame, const Canvas& canvas) {
  const double dotsPerInch = canvas.size.dotsPerMetre * 0.0254;
  WICPixelFormatGUID format = GUID_WICPixelFormat24bppBGR;
  Require(frame.Initialize(nullptr), "begin a picture");
  Require(frame.SetSize(canvas.size.width, canvas.size.height), "set the picture's size");
  Require(frame.SetResolution(dotsPerInch, dotsPerInch), "set the picture's resolution");
  Require(frame.SetPixelFormat(&format), "set the pixel format");
  if (!IsEqualGUID(format, GUID_WICPixelFormat24bppBGR))
    throw PictureError("the pixel format isn't supported");
  WriteRows(frame, canvas);
  Require(frame.Commit(), "end the picture");
}

std::vector<uint8_t> StreamBytes(IStream& stream) {
  STATSTG state{};
  Require(stream.Stat(&state, STATFLAG_NONAME), "get the picture's size");
  std::vector<uint8_t> bytes(static_cast<size_t>(state.cbSize.QuadPart));
  ULONG read = 0;
  Require(stream.Seek(LARGE_INTEGER{}, STREAM_SEEK_SET, nullptr), "read the picture back");
  Require(stream.Read(bytes.data(), static_cast<ULONG>(bytes.size()), &read), "read the picture back");
  bytes.resize(read);
  return bytes;
}

std::vector<uint8_t> Encode(const Canvas& canvas) {
  const auto factory = Make<IWICImagingFactory>("be started", [](IWICImagingFactory** out) {
    return CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER, IID_IWICImagingFactory,
                            reinterpret_cast<void**>(out));
  });
  const auto stream =
      Make<IStream>("make a stream", [](IStream** out) { return CreateStreamOnHGlobal(nullptr, TRUE, out); });
  const auto encoder = Make<IWICBitmapEncoder>("make an encoder", [&](IWICBitmapEncoder** out) {
    return factory->CreateEncoder(GUID_ContainerFormatPng, nullptr, out);
  });
  Require(encoder->Initialize(stream.get(), WICBitmapEncoderNoCache), "begin a file");
  const auto frame = Make<IWICBitmapFrameEncode>(
      "make a picture", [&](IWICBitmapFrameEncode** out) { return encoder->CreateNewFrame(out, nullptr); });
  WriteFrame(*frame, canvas);
  Require(encoder->Commit(), "end the file");
  return StreamBytes(*stream);
}

// Initializes COM for the imaging component.
struct ComLibrary {
  ComLibrary() { Require(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), "be initialized"); }
  ~ComLibrary() { CoUninitialize(); }
};

void WritePngPicture(const MetafileBytes& bytes, const PictureSettings& settings, const ByteSink& sink) {
  const Metafile metafile(SetEnhMetaFileBits(static_cast<UINT>(bytes.size()), bytes.data()));
  if (!metafile) throw std::bad_alloc();
  const PixelSize size = SizeOf(metafile.get(), settings);
  RequireWork(bytes, size);
  const Canvas canvas(size);
  Play(metafile.get(), canvas);
  const ComLibrary com;
  const std::vector<uint8_t> file = Encode(canvas);
  sink(file.data(), file.size());
}

}  // namespace

const std::vector<PictureKind>& PictureKinds() {
  static const std::vector<PictureKind> kinds = {
      {"png", "Write a picture of the metafile", true, false, WritePngPicture},
  };
  return kinds;
}

bool HasPictureBooks() {
  return false;
}

void CheckPage(const MetafileBytes&) {}

std::unique_ptr<PictureBook> MakePictureBook(const ByteSink&) {
  return nullptr;
}

}  // namespace hexlume
