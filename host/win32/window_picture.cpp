// Windows as pixels, and pixels as the few chunks that a PNG file needs.
#include "host/win32/window_picture.h"

#include <zlib.h>

#include <fstream>
#include <stdexcept>
#include <string>
#include <string_view>

#include "win32/drawing_surface.h"

namespace quill::host {
namespace {

template <class Draw>
Pixels Take(int width, int height, const Draw& draw) {
  std::uint32_t* bits = nullptr;
  const win32::DrawingSurface surface({width, height}, &bits);
  if (!surface.valid()) throw std::runtime_error("no memory for a picture of a window");
  draw(surface.context());
  GdiFlush();
  const auto count = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
  Pixels pixels{width, height, std::vector<std::uint32_t>(bits, bits + count)};
  for (std::uint32_t& pixel : pixels.values) pixel &= 0x00FFFFFFu;
  return pixels;
}

void AppendNumber(std::string& target, std::uint32_t number) {
  for (int shift = 24; shift >= 0; shift -= 8) {
    target += static_cast<char>(number >> shift & 0xFFu);
  }
}

void AppendChunk(std::string& target, std::string_view type, std::string_view content) {
  AppendNumber(target, static_cast<std::uint32_t>(content.size()));
  const std::size_t begin = target.size();
  target += type;
  target += content;
  const auto* const data = reinterpret_cast<const Bytef*>(target.data() + begin);
  AppendNumber(
      target, static_cast<std::uint32_t>(crc32(0, data, static_cast<uInt>(target.size() - begin))));
}

std::string Deflated(const std::string& bytes) {
  uLongf size = compressBound(static_cast<uLong>(bytes.size()));
  std::string deflated(size, '\0');
  if (compress(reinterpret_cast<Bytef*>(deflated.data()), &size,
               reinterpret_cast<const Bytef*>(bytes.data()),
               static_cast<uLong>(bytes.size())) != Z_OK) {
    throw std::runtime_error("a picture could not be compressed");
  }
  deflated.resize(size);
  return deflated;
}

}  // namespace

Pixels TakeWindow(HWND window) {
  RECT place = {};
  GetWindowRect(window, &place);
  const int width = place.right - place.left;
  const int height = place.bottom - place.top;
  return Take(width, height, [&](HDC target) {
    const HDC source = GetWindowDC(window);
    BitBlt(target, 0, 0, width, height, source, 0, 0, SRCCOPY);
    ReleaseDC(window, source);
  });
}

Pixels TakeOwnDrawing(HWND window) {
  RECT inside = {};
  GetClientRect(window, &inside);
  return Take(inside.right, inside.bottom, [&](HDC target) {
    SendMessageW(window, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(target),
                 PRF_CLIENT | PRF_ERASEBKGND);
  });
}

void WritePng(const Pixels& pixels, const std::filesystem::path& path) {
  std::string rows;
  for (int y = 0; y < pixels.height; ++y) {
    rows += '\0';  // no filter
    for (int x = 0; x < pixels.width; ++x) {
      const std::uint32_t pixel = pixels.At(x, y);
      for (const int shift : {16, 8, 0}) rows += static_cast<char>(pixel >> shift & 0xFFu);
    }
  }
  std::string header;
  AppendNumber(header, static_cast<std::uint32_t>(pixels.width));
  AppendNumber(header, static_cast<std::uint32_t>(pixels.height));
  header += std::string_view("\x08\x02\0\0\0", 5);  // 8 bits, red green blue

  std::string png = "\x89PNG\r\n\x1A\n";
  AppendChunk(png, "IHDR", header);
  AppendChunk(png, "IDAT", Deflated(rows));
  AppendChunk(png, "IEND", {});
  std::ofstream file(path, std::ios::binary);
  file.write(png.data(), static_cast<std::streamsize>(png.size()));
  file.close();
  if (!file) throw std::runtime_error("cannot write " + path.string());
}

}  // namespace quill::host
