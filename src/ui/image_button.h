// Image buttons: a face (an image named after the button with "Img" appended) under a caption (a
// transparent label named after the button). Positions and sizes in twips, relative to the
// container.
#pragma once

#include <cstdint>

#include "ui/controls.h"
#include "ui/form.h"

namespace quill::ui {

inline constexpr TextView kFaceSuffix = u"Img";

// Both builders take the same description; each uses what it needs.
struct ImageButton {
  Bounds bounds;  // of the face
  Text caption;
  Text name;                     // of the control to build: face name or caption name
  Control* container = nullptr;  // null: the form
};

// Where a caption lies on its face. The screen's `dots_per_inch` are the horizontal ones.
struct CaptionPlace {
  Twips left = 0;
  Twips top = 0;
};
[[nodiscard]] CaptionPlace PlaceCaption(const Bounds& face, std::int32_t dots_per_inch,
                                        bool pressed) noexcept;

// `host_root` is the folder above "imgs". A picture that cannot be read fails as
// Toolkit::ReadPicture does.
Image& CreateButtonFace(Form& dialog, const ImageButton& button, TextView host_root);
// Fails with kControlNotFound when the face (name + "Img") does not exist.
Label& CreateButtonCaption(Form& dialog, const ImageButton& button, TextView host_root);

// Shows the face and places its caption: pressed when `state` is exactly "Down", else released.
// When the picture cannot be read the face keeps its picture, everything else is done, and then the
// failure is passed on.
void SetButtonState(Form& dialog, TextView face_name, TextView state, TextView host_root);
// True when that is the face's picture.
[[nodiscard]] bool LooksPressed(const Image& face) noexcept;

}  // namespace quill::ui
