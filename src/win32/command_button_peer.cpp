// The native push button.
#include <utility>

#include "ui/controls.h"
#include "win32/native_text.h"
#include "win32/owned.h"
#include "win32/peers.h"
#include "win32/this_module.h"
#include "win32/win32_toolkit.h"

namespace quill::win32 {
namespace {

class CommandButtonPeer final : public PeerOf<ui::CommandButton> {
 public:
  using PeerOf::PeerOf;

  void OnCommand(WORD notification) override {
    if (notification == BN_CLICKED) Tell(ui::Clicked{});
  }

 protected:
  [[nodiscard]] Style GetStyle() const override {
    return {L"BUTTON", &model_.caption(),
            BS_PUSHBUTTON | WS_TABSTOP | (!model_.icon().empty() ? BS_ICON : 0u), 0};
  }

  void Show(ui::Changes changes) override {
    if (!changes.Has(ui::Changes::kPicture) || model_.icon().empty()) return;
    const SIZE size = toolkit().scale().Scaled(SIZE{32, 32});
    Owned<HICON> icon(static_cast<HICON>(LoadImageW(
        ThisModule(), Wide(Text(model_.icon())), IMAGE_ICON, size.cx, size.cy, LR_DEFAULTCOLOR)));
    Send(BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(icon.get()));
    icon_ = std::move(icon);  // the former one only now: until then the button shows it
  }

 private:
  Owned<HICON> icon_;
};

}  // namespace

std::unique_ptr<WindowPeer> MakeCommandButtonPeer(Win32Toolkit& toolkit, ui::Control& control) {
  return MakePeerOf<CommandButtonPeer>(toolkit, control);
}

}  // namespace quill::win32
