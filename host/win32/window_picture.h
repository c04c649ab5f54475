// Pictures of native windows, as pixels and as PNG files. In-process, and with no display as well.
#pragma once

#include <windows.h>

#include <cstdint>
#include <filesystem>
#include <vector>

namespace quill::host {

struct Pixels {
  int width = 0;
  int height = 0;
  std::vector<std::uint32_t> values;  // row by row from the top, 0x00RRGGBB

  [[nodiscard]] std::uint32_t At(int x, int y) const {
    return values.at(static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                     static_cast<std::size_t>(x));
  }
  friend bool operator==(const Pixels&, const Pixels&) = default;
};

// The whole window, with frame and title bar, as it stands on the screen.
[[nodiscard]] Pixels TakeWindow(HWND window);
// Its inside only, as it draws itself when asked to, whatever lies in front of it.
[[nodiscard]] Pixels TakeOwnDrawing(HWND window);

// Throws std::runtime_error when the file cannot be written.
void WritePng(const Pixels& pixels, const std::filesystem::path& path);

}  // namespace quill::host
