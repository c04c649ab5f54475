// The native check box.
#pragma once

#include "ui/check_box.h"
#include "win32/window_peer.h"

namespace quill::win32 {

class CheckBoxPeer final : public WindowPeer {
 public:
  CheckBoxPeer(Win32Toolkit& toolkit, ui::CheckBox& box) noexcept
      : WindowPeer(toolkit, box), box_(box) {}

  void OnCommand(WORD notification) override;

 protected:
  [[nodiscard]] Style GetStyle() const override;
  void Show(ui::Changes changes) override;
  // The class marks the focus around the caption, and there is none.
  LRESULT Handle(UINT message, WPARAM wparam, LPARAM lparam) override;

 private:
  ui::CheckBox& box_;
};

}  // namespace quill::win32
