// The shuffle button's picture: two crossing arrows.
#include "dialog/shuffle_picture.h"

#include <vector>

#include "support/text.h"

namespace quill {
namespace {

constexpr int kSize = 32;

constexpr TextView kPixels =
    u"................................"
    u"................................"
    u".......................#........"
    u".......................##......."
    u".......................###......"
    u".......................####....."
    u"..ooooooo..........#########...."
    u".ooooooooo........###########..."
    u".ooooooooo........###########..."
    u"..ooooooooo......###########...."
    u"........oooo....####...####....."
    u".........oooo..####....###......"
    u".........oooo..####....##......."
    u"..........oo..####.....#........"
    u".............####..............."
    u"............####................"
    u"............####................"
    u"...........####................."
    u"..........####..oo.....o........"
    u".........####..oooo....oo......."
    u".........####..oooo....ooo......"
    u"........####....oooo...oooo....."
    u"..#########......ooooooooooo...."
    u".#########........ooooooooooo..."
    u".#########........ooooooooooo..."
    u"..#######..........ooooooooo...."
    u".......................oooo....."
    u".......................ooo......"
    u".......................oo......."
    u".......................o........"
    u"................................"
    u"................................";
static_assert(kPixels.size() == kSize * kSize);

constexpr std::uint32_t ColourOf(char16_t pixel) {
  switch (pixel) {
    case u'#':
      return 0xFF1F4E79;  // blue
    case u'o':
      return 0xFFC55A11;  // orange
    default:
      return 0;  // transparent
  }
}

}  // namespace

ui::PicturePtr MakeShufflePicture(ui::Toolkit& toolkit) {
  std::vector<std::uint32_t> colours;
  colours.reserve(kPixels.size());
  for (const char16_t pixel : kPixels) colours.push_back(ColourOf(pixel));
  return toolkit.MakePicture(kSize, kSize, colours);
}

}  // namespace quill
