// Image buttons: building them, and pressing and releasing them.
#include "ui/image_button.h"

#include "support/trap.h"

namespace quill::ui {
namespace {

constexpr TextView kReleasedPicture = u"\\imgs\\butup.gif";
constexpr TextView kPressedPicture = u"\\imgs\\butdown.gif";
constexpr TextView kPressedState = u"Down";

constexpr Twips kSideMargin = 75;
constexpr Twips kPressedShiftRight = 20;
constexpr Twips kPressedShiftDown = 50;

// The control of exactly that name, when it is a T; null otherwise. Face and caption belong
// together by their exact names, while a form finds names in any letter case.
template <class T>
T* FindExactly(const Form& dialog, TextView name) {
  Control* const found = dialog.Find(name);
  return found != nullptr && found->name() == name ? dynamic_cast<T*>(found) : nullptr;
}

}  // namespace

CaptionPlace PlaceCaption(const Bounds& face, std::int32_t dots_per_inch, bool pressed) noexcept {
  // Rounded by itself, before the font's share comes off: together some captions would lie a twip
  // elsewhere.
  const Twips centre = Nearest(std::int64_t{face.top} * 2 + face.height, 2);
  // By as many pixels as the font has points; a pixel need not be a whole number of twips.
  const std::int64_t raised = std::int64_t{kFontPoints} * kTwipsPerInch;
  CaptionPlace place{face.left + kSideMargin,
                     Nearest(std::int64_t{centre} * dots_per_inch - raised, dots_per_inch)};
  if (pressed) {
    place.left += kPressedShiftRight;
    place.top += kPressedShiftDown;
  }
  return place;
}

Image& CreateButtonFace(Form& dialog, const ImageButton& button, TextView host_root) {
  auto& face = dialog.Add<Image>(button.name, button.container);
  face.SetBounds(button.bounds);
  face.SetPicture(dialog.toolkit().ReadPicture(Concat({host_root, kReleasedPicture})));
  return face;
}

Label& CreateButtonCaption(Form& dialog, const ImageButton& button, TextView host_root) {
  auto& caption = dialog.Add<Label>(button.name, button.container, button.caption,
                                    Alignment::kCentre, /*is_transparent=*/true);
  const Text face_name = Concat({button.name, kFaceSuffix});
  const Bounds& face = dialog.At(face_name).bounds();
  // Added after the face, it lies in front of it.
  // Its place is that of the state.
  caption.SetBounds({0, 0, face.width - 2 * kSideMargin, face.height});
  SetButtonState(dialog, face_name, u"Up", host_root);
  return caption;
}

void SetButtonState(Form& dialog, TextView face_name, TextView state, TextView host_root) {
  const bool pressed = state == kPressedState;
  const auto* const face = FindExactly<Control>(dialog, face_name);
  RunAll(
      [&] {
        if (auto* const image = FindExactly<Image>(dialog, face_name)) {
          image->SetPicture(dialog.toolkit().ReadPicture(
              Concat({host_root, pressed ? kPressedPicture : kReleasedPicture})));
        }
      },
      [&] {
        if (face == nullptr || face_name.size() <= kFaceSuffix.size()) return;
        const TextView caption_name = face_name.substr(0, face_name.size() - kFaceSuffix.size());
        if (auto* const caption = FindExactly<Label>(dialog, caption_name)) {
          const CaptionPlace place =
              PlaceCaption(face->bounds(), dialog.toolkit().GetMetrics().dots_per_inch, pressed);
          caption->SetPlace(place.left, place.top);
        }
      });
}

bool LooksPressed(const Image& face) noexcept {
  // The picture is the only place that holds the state.
  return face.picture() != nullptr && face.picture()->path().ends_with(kPressedPicture);
}

}  // namespace quill::ui
