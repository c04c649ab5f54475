// The native peers, one for each kind of control.
#pragma once

#include <memory>

#include "win32/window_peer.h"

namespace quill::win32 {

// Makes the peer of a control, which is of the kind that the maker is named for.
using PeerMaker = std::unique_ptr<WindowPeer>(Win32Toolkit& toolkit, ui::Control& control);

extern PeerMaker* const kMakeCheckBoxPeer;
extern PeerMaker* const kMakeComboBoxPeer;
extern PeerMaker* const kMakeCommandButtonPeer;
extern PeerMaker* const kMakeFormPeer;
extern PeerMaker* const kMakeFramePeer;
extern PeerMaker* const kMakeImagePeer;
extern PeerMaker* const kMakeLabelPeer;
extern PeerMaker* const kMakeListBoxPeer;
extern PeerMaker* const kMakePictureBoxPeer;
extern PeerMaker* const kMakeTabStripPeer;
extern PeerMaker* const kMakeTextBoxPeer;

// What every maker does.
template <class PeerType>
[[nodiscard]] std::unique_ptr<WindowPeer> MakePeerOf(Win32Toolkit& toolkit, ui::Control& control) {
  return std::make_unique<PeerType>(toolkit, control);
}

// A peer of controls of one class, with an own window or, for DrawnPeer, an own drawing.
template <class ControlType, class Base = WindowPeer>
class PeerOf : public Base {
 public:
  PeerOf(Win32Toolkit& toolkit, ui::Control& control) noexcept
      : Base(toolkit, control), model_(static_cast<ControlType&>(control)) {}

 protected:
  ControlType& model_;
};

}  // namespace quill::win32
