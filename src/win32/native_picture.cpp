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
#include "win32/win32_file_system.h"

namespace quill::win32 {
namespace {

// Bytes. A button's picture has some hundred; what is larger than this is not read into memory.
constexpr std::int64_t kLargestPictureFile = 16u << 20;

[[noreturn]] void RefusePicture() {
  throw RuntimeError(ErrorNumber::kInvalidPicture);
}

// The bytes of a file that begins as a GIF picture does.
std::vector<char> ReadWhole(TextView path) {
  Win32FileSystem files;
  const auto file = files.OpenForReading(path);
  const std::int64_t size = files.FileSize(path);
  if (size > kLargestPictureFile) RefusePicture();
  std::vector<char> bytes(static_cast<std::size_t>(size));
  bytes.resize(file->Read(bytes));
  const std::string_view content(bytes.data(), bytes.size());
  if (!content.starts_with("GIF87a") && !content.starts_with("GIF89a")) RefusePicture();
  return bytes;
}

}  // namespace

NativePicture::NativePicture(TextView path) : path_(path) {
  const std::vector<char> bytes = ReadWhole(path);
  const auto size = static_cast<UINT>(bytes.size());
  const auto stream = com::ComPtr<IStream>::Adopt(
      SHCreateMemStream(reinterpret_cast<const BYTE*>(bytes.data()), size));
  if (!stream) throw std::bad_alloc();
  SHORT type = PICTYPE_UNINITIALIZED;
  // An empty or odd stream can be answered with success and a picture of no type.
  if (FAILED(OleLoadPicture(stream.get(), static_cast<LONG>(size), FALSE, IID_IPicture,
                            picture_.ReceiveVoid())) ||
      !picture_ || FAILED(picture_->get_Type(&type)) || type != PICTYPE_BITMAP ||
      FAILED(picture_->get_Width(&width_)) || FAILED(picture_->get_Height(&height_)) ||
      width_ <= 0 || height_ <= 0) {
    RefusePicture();
  }
}

void NativePicture::Draw(HDC context, const RECT& target) const {
  // The usual way of shrinking joins neighbouring pixels' bits, which makes up colours.
  SetStretchBltMode(context, COLORONCOLOR);
  // A picture's rows are counted from its bottom.
  picture_->Render(context, target.left, target.top, target.right - target.left,
                   target.bottom - target.top, 0, height_, width_, -height_, nullptr);
}

}  // namespace quill::win32
