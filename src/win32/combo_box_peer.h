// The native drop-down list.
#pragma once

#include "ui/combo_box.h"
#include "win32/window_peer.h"

namespace quill::win32 {

class ComboBoxPeer final : public WindowPeer {
 public:
  ComboBoxPeer(Win32Toolkit& toolkit, ui::ComboBox& box) noexcept
      : WindowPeer(toolkit, box), box_(box) {}

  void OnCommand(WORD notification) override;

 protected:
  [[nodiscard]] Style GetStyle() const override;
  void Show(ui::Changes changes) override;
  // With the height of the list dropped down, as the class wants it.
  [[nodiscard]] RECT Place() const override;

 private:
  void FitClosedHeight();
  void ShowItems(bool all_new);
  void FitDroppedWidth();

  ui::ComboBox& box_;
};

}  // namespace quill::win32
