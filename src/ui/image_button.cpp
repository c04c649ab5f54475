// Image buttons: building them, and pressing and releasing them.
#include "ui/image_button.h"

#include <optional>

namespace quill::ui {
namespace {

constexpr TextView kReleasedPicture = u"\\imgs\\butup.gif";
constexpr TextView kPressedPicture = u"\\imgs\\butdown.gif";
constexpr TextView kPressedState = u"Down";

constexpr Twips kSideMargin = 75;
constexpr Twips kPressedShiftRight = 20;
constexpr Twips kPressedShiftDown = 50;

int FontSizeOf(const ImageButton& button) {
  return button.font_size > 0 ? button.font_size : kDefaultCaptionPoints;
}

}  // namespace

CaptionPlace PlaceCaption(const Bounds& face, int font_size, std::int32_t dots_per_inch,
                          bool pressed) noexcept {
  const Twips centre = Nearest(std::int64_t{face.top} * 2 + face.height, 2);
  // By as many pixels as the font has points; a pixel need not be a whole number of twips.
  const std::int64_t raised = std::int64_t{font_size} * kTwipsPerInch;
  CaptionPlace place{face.left + kSideMargin,
                     Nearest(std::int64_t{centre} * dots_per_inch - raised, dots_per_inch)};
  if (pressed) {
    place.left += kPressedShiftRight;
    place.top += kPressedShiftDown;
  }
  return place;
}

Image& CreateButtonFace(Form& dialog, const ImageButton& button, TextView host_root) {
  auto& face = dialog.Add<Image>(button.name, nullptr);
  face.SetBounds({button.left, button.top, button.width, button.height});
  face.SetEnabled(button.enabled);
  face.stretch = true;
  face.SetVisible(button.visible);
  face.BringToFront();
  face.SetPicture(dialog.toolkit().ReadPicture(Concat({host_root, kReleasedPicture})));
  if (button.container != nullptr) face.MoveInto(*button.container);
  return face;
}

Label& CreateButtonCaption(Form& dialog, const ImageButton& button, TextView host_root) {
  auto& caption = dialog.Add<Label>(button.name, nullptr);
  if (button.container != nullptr) caption.MoveInto(*button.container);
  caption.font_size = FontSizeOf(button);

  const Text face_name = Concat({button.name, kFaceSuffix});
  const Bounds& face = dialog.At(face_name).bounds();
  const CaptionPlace place =
      PlaceCaption(face, caption.font_size(), dialog.toolkit().GetMetrics().dots_per_inch, false);
  caption.SetBounds({place.left, place.top, face.width - 2 * kSideMargin, face.height});

  caption.SetEnabled(button.enabled);
  caption.SetVisible(button.visible);
  caption.caption = button.caption;
  caption.BringToFront();
  caption.transparent = true;
  caption.alignment = Alignment::kCentre;
  SetButtonState(dialog, face_name, u"Up", host_root);
  return caption;
}

void SetButtonState(Form& dialog, TextView face_name, TextView state, TextView host_root) {
  const bool pressed = state == kPressedState;
  const Text picture = Concat({host_root, pressed ? kPressedPicture : kReleasedPicture});
  std::exception_ptr unreadable;
  std::optional<Bounds> face_bounds;
  for (const auto& control : dialog.controls()) {
    if (control->name() != face_name) continue;
    if (auto* const face = dynamic_cast<Image*>(control.get())) {
      try {
        face->SetPicture(dialog.toolkit().ReadPicture(picture));
      } catch (...) {
        unreadable = std::current_exception();
      }
    }
    face_bounds = control->bounds();
  }

  if (face_bounds && face_name.size() > kFaceSuffix.size()) {
    const TextView caption_name = face_name.substr(0, face_name.size() - kFaceSuffix.size());
    const std::int32_t dots_per_inch = dialog.toolkit().GetMetrics().dots_per_inch;
    for (const auto& control : dialog.controls()) {
      if (control->name() != caption_name) continue;
      if (auto* const caption = dynamic_cast<Label*>(control.get())) {
        const CaptionPlace place =
            PlaceCaption(*face_bounds, caption->font_size(), dots_per_inch, pressed);
        caption->SetPlace(place.left, place.top);
      }
    }
  }
  if (unreadable != nullptr) std::rethrow_exception(unreadable);
}

bool LooksPressed(const Image& face) noexcept {
  return face.picture() != nullptr && face.picture()->path().ends_with(kPressedPicture);
}

}  // namespace quill::ui
