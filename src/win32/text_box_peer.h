// The native text box.
#pragma once

#include <utility>

#include "ui/text_box.h"
#include "win32/window_peer.h"

namespace quill::win32 {

class TextBoxPeer final : public WindowPeer {
 public:
  TextBoxPeer(Win32Toolkit& toolkit, ui::TextBox& box) noexcept
      : WindowPeer(toolkit, box), box_(box) {}

  void OnCommand(WORD notification) override;

 protected:
  [[nodiscard]] Style GetStyle() const override;
  void Show(ui::Changes changes) override;
  LRESULT Handle(UINT message, WPARAM wparam, LPARAM lparam) override;

 private:
  void ShowText();
  // Before a message that may edit the text.
  void NoteSelection(UINT message);

  ui::TextBox& box_;
  std::pair<std::size_t, std::size_t> selected_;
  bool editing_ = false;  // the operator's edit is with the model
};

}  // namespace quill::win32
