// The native tab strip.
#pragma once

#include "ui/tab_strip.h"
#include "win32/window_peer.h"

namespace quill::win32 {

class TabStripPeer final : public WindowPeer {
 public:
  TabStripPeer(Win32Toolkit& toolkit, ui::TabStrip& strip) noexcept
      : WindowPeer(toolkit, strip), strip_(strip) {}

  // Chooses the next tab, or the one before, as a key does.
  void Turn(bool forward);
  [[nodiscard]] bool TakesFocus() const noexcept override { return true; }
  void OnNotify(const NMHDR& header) override;

 protected:
  [[nodiscard]] Style GetStyle() const override;
  void Show(ui::Changes changes) override;
  LRESULT Handle(UINT message, WPARAM wparam, LPARAM lparam) override;

 private:
  // The page that is hidden and the one that is shown must not be seen one after the other.
  void TellInOnePaint(int tab);

  ui::TabStrip& strip_;
};

}  // namespace quill::win32
