// The tab strip's body is shown in the colour of the dialog's frames instead of white.
#pragma once

#include <cstdint>

#include "ui/picture_box.h"
#include "ui/tab_strip.h"

namespace quill::ui {

// Readies the colour source (persistent image, automatic sizing, pixel units) and starts the
// drawing.
void AttachTabBackground(TabStrip& strip, PictureBox& colour_source);
void DetachTabBackground(TabStrip& strip);

// What is shown for a pixel that the strip painted, channel by channel and bit by bit:
// (painted OR NOT face) AND background. All are 0x00BBGGRR.
[[nodiscard]] constexpr std::uint32_t MixTabPixel(std::uint32_t painted, std::uint32_t face,
                                                  std::uint32_t background) noexcept {
  return (painted | (~face & 0x00FFFFFFu)) & background;
}

}  // namespace quill::ui
