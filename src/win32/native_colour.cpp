#include "win32/native_colour.h"

namespace quill::win32 {

bool IsHighContrast() noexcept {
  HIGHCONTRASTW contrast = {};
  contrast.cbSize = sizeof contrast;
  return SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0) &&
         (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

}  // namespace quill::win32
