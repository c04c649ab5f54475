// GIF files by the platform's own decoder, which older and newer systems have alike.
#include "win32/native_picture.h"

#include <ocidl.h>
#include <ole2.h>
#include <olectl.h>
#include <shlwapi.h>

#include <string_view>
#include <utility>
#include <vector>

#include "com/com_ptr.h"
#include "support/runtime_error.h"
#include "win32/file_handle.h"
#include "win32/last_error.h"

namespace quill::win32 {
namespace {

constexpr LONGLONG kLargestPictureFile = 16u << 20;
constexpr int kHimetricPerInch = 2540;

[[noreturn]] void RefusePicture() {
  throw RuntimeError(ErrorNumber::kInvalidPicture);
}

// The bytes of a file that begins as a GIF picture does.
std::vector<char> ReadWhole(TextView path) {
  const auto file = OpenExisting(path);
  LARGE_INTEGER size = {};
  if (!GetFileSizeEx(file.get(), &size)) throw FileFailure(GetLastError());
  if (size.QuadPart <= 0 || size.QuadPart > kLargestPictureFile) RefusePicture();
  std::vector<char> bytes(static_cast<std::size_t>(size.QuadPart));
  bytes.resize(ReadFrom(file, bytes.data(), bytes.size()));
  const std::string_view content(bytes.data(), bytes.size());
  if (!content.starts_with("GIF87a") && !content.starts_with("GIF89a")) RefusePicture();
  return bytes;
}

com::ComPtr<IPicture> LoadPictureFrom(const std::vector<char>& bytes) {
  const auto size = static_cast<UINT>(bytes.size());
  const auto stream = com::ComPtr<IStream>::Adopt(
      SHCreateMemStream(reinterpret_cast<const BYTE*>(bytes.data()), size));
  if (!stream) throw std::bad_alloc();
  com::ComPtr<IPicture> picture;
  SHORT type = PICTYPE_UNINITIALIZED;
  // An empty or odd stream can be answered with success and a picture of no type.
  if (FAILED(OleLoadPicture(stream.get(), static_cast<LONG>(size), FALSE, IID_IPicture,
                            picture.ReceiveVoid())) ||
      !picture || FAILED(picture->get_Type(&type)) || type != PICTYPE_BITMAP) {
    RefusePicture();
  }
  return picture;
}

}  // namespace

NativePicture::NativePicture(Text path, com::ComPtr<IPicture> picture)
    : path_(std::move(path)), picture_(std::move(picture)) {
  if (FAILED(picture_->get_Width(&width_)) || FAILED(picture_->get_Height(&height_)) ||
      width_ <= 0 || height_ <= 0) {
    RefusePicture();
  }
}

SIZE NativePicture::Size() const noexcept {
  return {MulDiv(width_, 96, kHimetricPerInch), MulDiv(height_, 96, kHimetricPerInch)};
}

void NativePicture::Draw(HDC context, const RECT& target) const {
  // The usual way of shrinking joins neighbouring pixels' bits, which makes up colours.
  SetStretchBltMode(context, COLORONCOLOR);
  // A picture's rows are counted from its bottom.
  picture_->Render(context, target.left, target.top, target.right - target.left,
                   target.bottom - target.top, 0, height_, width_, -height_, nullptr);
}

std::shared_ptr<const NativePicture> ReadGifPicture(TextView path) {
  return std::make_shared<NativePicture>(Text(path), LoadPictureFrom(ReadWhole(path)));
}

}  // namespace quill::win32
