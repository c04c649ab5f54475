// The native group box of a frame, in which the windows of its controls lie.
#pragma once

#include "ui/frame.h"
#include "win32/window_peer.h"

namespace quill::win32 {

class FramePeer final : public WindowPeer {
 public:
  FramePeer(Win32Toolkit& toolkit, ui::Frame& frame) noexcept
      : WindowPeer(toolkit, frame), frame_(frame) {}

 protected:
  [[nodiscard]] Style GetStyle() const override;
  void Show(ui::Changes changes) override;
  LRESULT Handle(UINT message, WPARAM wparam, LPARAM lparam) override;

 private:
  ui::Frame& frame_;
};

}  // namespace quill::win32
