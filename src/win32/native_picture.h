// Pictures as native controls draw them.
#pragma once

#include <windows.h>

#include <memory>

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

}  // namespace quill::win32
