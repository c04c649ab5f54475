// The native tab strip.
#pragma once

#include <vector>

#include "ui/tab_strip.h"
#include "win32/window_peer.h"

namespace quill::win32 {

class TabStripPeer final : public WindowPeer {
 public:
  TabStripPeer(Win32Toolkit& toolkit, ui::TabStrip& strip) noexcept
      : WindowPeer(toolkit, strip), strip_(strip) {}

  void OnNotify(const NMHDR& header) override;

 protected:
  [[nodiscard]] Style GetStyle() const override;
  void Show(ui::Changes changes) override;
  LRESULT Handle(UINT message, WPARAM wparam, LPARAM lparam) override;

 private:
  // The page that is hidden and the one that is shown must not be seen one after the other.
  void BeginOnePaint();
  void EndOnePaint();

  ui::TabStrip& strip_;
  std::vector<const ui::Control*> hidden_pages_;  // when the paint was held back
};

}  // namespace quill::win32
