// The native push button.
#pragma once

#include "ui/command_button.h"
#include "win32/window_peer.h"

namespace quill::win32 {

class CommandButtonPeer final : public WindowPeer {
 public:
  CommandButtonPeer(Win32Toolkit& toolkit, ui::CommandButton& button) noexcept
      : WindowPeer(toolkit, button), button_(button) {}
  ~CommandButtonPeer() override;

  void OnCommand(WORD notification) override;

 protected:
  [[nodiscard]] Style GetStyle() const override;
  void Show(ui::Changes changes) override;

 private:
  void ShowIcon();

  ui::CommandButton& button_;
  HICON icon_ = nullptr;
};

}  // namespace quill::win32
