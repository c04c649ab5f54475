// Pictures as native controls draw them.
#pragma once

#include <windows.h>

#include <cstdint>
#include <memory>
#include <span>

#include "ui/toolkit.h"

namespace quill::win32 {

class NativePicture : public ui::Picture {
 public:
  // Its own size, in pixels at 96 dots per inch.
  [[nodiscard]] virtual SIZE Size() const noexcept = 0;
  // Draws it stretched over `target`; what lies there shows through where it is transparent.
  virtual void Draw(HDC context, const RECT& target) const = 0;
};

// Reads the first frame of a GIF picture. Fails with kFileNotFound (or as opening a file does), and
// with kInvalidPicture for a file that is no picture. The thread has COM initialised.
[[nodiscard]] std::shared_ptr<const NativePicture> ReadGifPicture(TextView path);

// From `width` * `height` pixels, row by row from the top, 0xAARRGGBB. Fails with kInvalidPicture
// for sizes that do not fit the pixels.
[[nodiscard]] std::shared_ptr<const NativePicture> MakePixelPicture(
    int width, int height, std::span<const std::uint32_t> pixels);

// An icon of that size in pixels that shows the picture; null when the system refuses. The caller
// destroys it.
[[nodiscard]] HICON MakeIcon(const NativePicture& picture, SIZE size);

}  // namespace quill::win32
