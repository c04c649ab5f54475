// Pictures as native controls draw them.
#pragma once

#include <windows.h>

#include "com/automation.h"
#include "com/com_ptr.h"
#include "ui/toolkit.h"

namespace quill::win32 {

class NativePicture final : public ui::Picture {
 public:
  // Reads the first frame of a GIF picture. Fails with kFileNotFound (or as opening a file does),
  // and with kInvalidPicture for a file that is no picture. The thread has COM initialised.
  explicit NativePicture(TextView path);

  [[nodiscard]] TextView path() const noexcept override { return path_; }
  // Draws it stretched over `target`; what lies there shows through where it is transparent.
  void Draw(HDC context, const RECT& target) const;

 private:
  Text path_;
  com::ComPtr<IPicture> picture_;
  OLE_XSIZE_HIMETRIC width_ = 0;
  OLE_YSIZE_HIMETRIC height_ = 0;
};

}  // namespace quill::win32
