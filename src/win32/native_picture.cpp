#include "win32/native_picture.h"

#include <ocidl.h>
#include <ole2.h>
#include <olectl.h>

#include <algorithm>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "support/runtime_error.h"
#include "win32/com/com_ptr.h"
#include "win32/drawing_surface.h"
#include "win32/file_handle.h"
#include "win32/last_error.h"

namespace quill::win32 {
namespace {

constexpr std::size_t kLargestPictureFile = 16u << 20;
constexpr int kLargestSide = 4096;
constexpr int kHimetricPerInch = 2540;

[[noreturn]] void RefusePicture() {
  throw RuntimeError(ErrorNumber::kInvalidPicture);
}

std::vector<char> ReadWhole(TextView path) {
  const FileHandle file = OpenExisting(path);
  LARGE_INTEGER size = {};
  if (!GetFileSizeEx(file.get(), &size)) throw FileFailure(GetLastError());
  if (size.QuadPart <= 0 || size.QuadPart > static_cast<LONGLONG>(kLargestPictureFile)) {
    RefusePicture();
  }
  std::vector<char> bytes(static_cast<std::size_t>(size.QuadPart));
  DWORD read = 0;
  if (!ReadFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr)) {
    throw RuntimeError(ErrorNumber::kDeviceIoError);
  }
  bytes.resize(read);
  return bytes;
}

com::ComPtr<IPicture> LoadPictureFrom(const std::vector<char>& bytes) {
  const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, bytes.size());
  if (memory == nullptr) throw std::bad_alloc();
  if (void* const target = GlobalLock(memory)) {
    std::copy(bytes.begin(), bytes.end(), static_cast<char*>(target));
    GlobalUnlock(memory);
  }
  com::ComPtr<IStream> stream;
  if (FAILED(CreateStreamOnHGlobal(memory, TRUE, stream.Receive()))) {
    GlobalFree(memory);
    throw std::bad_alloc();
  }
  com::ComPtr<IPicture> picture;
  SHORT type = PICTYPE_UNINITIALIZED;
  // An empty or odd stream can be answered with success and a picture of no type.
  if (FAILED(OleLoadPicture(stream.get(), static_cast<LONG>(bytes.size()), FALSE, IID_IPicture,
                            reinterpret_cast<void**>(picture.Receive()))) ||
      picture.get() == nullptr || FAILED(picture->get_Type(&type)) || type != PICTYPE_BITMAP) {
    RefusePicture();
  }
  return picture;
}

class GifPicture final : public NativePicture {
 public:
  GifPicture(Text path, com::ComPtr<IPicture> picture)
      : path_(std::move(path)), picture_(std::move(picture)) {
    if (FAILED(picture_->get_Width(&width_)) || FAILED(picture_->get_Height(&height_)) ||
        width_ <= 0 || height_ <= 0) {
      RefusePicture();
    }
  }

  [[nodiscard]] TextView path() const noexcept override { return path_; }
  [[nodiscard]] SIZE Size() const noexcept override {
    return {MulDiv(width_, 96, kHimetricPerInch), MulDiv(height_, 96, kHimetricPerInch)};
  }
  void Draw(HDC context, const RECT& target) const override {
    SetStretchBltMode(context, COLORONCOLOR);
    picture_->Render(context, target.left, target.top, target.right - target.left,
                     target.bottom - target.top, 0, height_, width_, -height_, nullptr);
  }

 private:
  Text path_;
  com::ComPtr<IPicture> picture_;
  OLE_XSIZE_HIMETRIC width_ = 0;
  OLE_YSIZE_HIMETRIC height_ = 0;
};

std::uint32_t Premultiplied(std::uint32_t pixel) {
  const std::uint32_t alpha = pixel >> 24;
  const auto channel = [&](int shift) {
    return (((pixel >> shift) & 0xFFu) * alpha + 127) / 255 << shift;
  };
  return alpha << 24 | channel(16) | channel(8) | channel(0);
}

class PixelPicture final : public NativePicture {
 public:
  PixelPicture(SIZE size, std::span<const std::uint32_t> pixels)
      : size_(size), surface_(nullptr, size, &target_) {
    if (!surface_.valid()) throw std::bad_alloc();
    std::transform(pixels.begin(), pixels.end(), target_, Premultiplied);
  }

  [[nodiscard]] TextView path() const noexcept override { return {}; }
  [[nodiscard]] SIZE Size() const noexcept override { return size_; }
  void Draw(HDC context, const RECT& target) const override {
    AlphaBlend(context, target.left, target.top, target.right - target.left,
               target.bottom - target.top, surface_.context(), 0, 0, size_.cx, size_.cy,
               BLENDFUNCTION{AC_SRC_OVER, 0, 255, AC_SRC_ALPHA});
  }

 private:
  SIZE size_;
  std::uint32_t* target_ = nullptr;
  DrawingSurface surface_;
};

}  // namespace

std::shared_ptr<const NativePicture> ReadGifPicture(TextView path) {
  const std::vector<char> bytes = ReadWhole(path);
  const std::string_view content(bytes.data(), bytes.size());
  if (!content.starts_with("GIF87a") && !content.starts_with("GIF89a")) RefusePicture();
  return std::make_shared<GifPicture>(Text(path), LoadPictureFrom(bytes));
}

std::shared_ptr<const NativePicture> MakePixelPicture(int width, int height,
                                                      std::span<const std::uint32_t> pixels) {
  if (width <= 0 || height <= 0 || width > kLargestSide || height > kLargestSide ||
      pixels.size() != static_cast<std::size_t>(width) * static_cast<std::size_t>(height)) {
    RefusePicture();
  }
  return std::make_shared<PixelPicture>(SIZE{width, height}, pixels);
}

HICON MakeIcon(const NativePicture& picture, SIZE size) {
  std::uint32_t* on_black = nullptr;
  std::uint32_t* on_white = nullptr;
  const DrawingSurface black(nullptr, size, &on_black);
  const DrawingSurface white(nullptr, size, &on_white);
  if (!black.valid() || !white.valid()) return nullptr;
  const RECT all = {0, 0, size.cx, size.cy};
  FillRect(black.context(), &all, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
  FillRect(white.context(), &all, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
  picture.Draw(black.context(), all);
  picture.Draw(white.context(), all);
  GdiFlush();

  // What differs between the two backgrounds is how far the background shows through.
  const auto count = static_cast<std::size_t>(size.cx) * static_cast<std::size_t>(size.cy);
  std::vector<std::uint32_t> colours(count);
  for (std::size_t i = 0; i < count; ++i) {
    const std::uint32_t through = (on_white[i] & 0xFFu) - (on_black[i] & 0xFFu);
    const std::uint32_t alpha = 255 - std::min<std::uint32_t>(through, 255);
    if (alpha == 0) continue;
    const auto channel = [&](int shift) {
      return std::min<std::uint32_t>(((on_black[i] >> shift) & 0xFFu) * 255 / alpha, 255) << shift;
    };
    colours[i] = alpha << 24 | channel(16) | channel(8) | channel(0);
  }

  std::uint32_t* pixels = nullptr;
  BITMAPINFO info = {};
  info.bmiHeader = {sizeof(BITMAPINFOHEADER), size.cx, -size.cy, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
  const HBITMAP colour = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS,
                                          reinterpret_cast<void**>(&pixels), nullptr, 0);
  const HBITMAP mask = CreateBitmap(size.cx, size.cy, 1, 1, nullptr);
  HICON icon = nullptr;
  if (colour != nullptr && mask != nullptr) {
    std::copy(colours.begin(), colours.end(), pixels);
    ICONINFO parts = {TRUE, 0, 0, mask, colour};
    icon = CreateIconIndirect(&parts);
  }
  if (colour != nullptr) DeleteObject(colour);
  if (mask != nullptr) DeleteObject(mask);
  return icon;
}

}  // namespace quill::win32
