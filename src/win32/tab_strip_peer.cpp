// The native tab strip.
#include "ui/controls.h"

#include <windows.h>

#include <commctrl.h>
#include <windowsx.h>

#include <array>
#include <vector>

#include "win32/form_peer.h"
#include "win32/native_text.h"
#include "win32/peers.h"

namespace quill::win32 {
namespace {

// Wine 8 shows an unfinished page after the drawing of any device context that began its last
// drawing more than 50 ms ago, which most did. A point outside draws nothing and counts as a
// beginning. Wine keeps 64 contexts; all of them held at once are all of them.
void FreshenContexts(HWND window) {
  std::array<HDC, 64> contexts = {};
  for (HDC& context : contexts) {
    context = GetDC(window);
    SetPixelV(context, -1, -1, 0);
  }
  for (const HDC context : contexts) ReleaseDC(window, context);
}

class TabStripPeer final : public PeerOf<ui::TabStrip> {
 public:
  using PeerOf::PeerOf;

  [[nodiscard]] Style GetStyle() const override {
    return {WC_TABCONTROLW, nullptr, TCS_TABS | TCS_FOCUSONBUTTONDOWN | WS_TABSTOP};
  }

  void Show(ui::Changes changes) override {
    if (making()) {
      WPARAM place = 0;
      for (const ui::Selector::Row& tab : model_.rows()) {
        TCITEMW item = {};
        item.mask = TCIF_TEXT;
        item.pszText = const_cast<wchar_t*>(Wide(tab.text));
        Send(TCM_INSERTITEMW, place++, reinterpret_cast<LPARAM>(&item));
      }
    }
    if (changes.Has(ui::Changes::kTurnBegins) && !making()) BeginOnePaint();
    if (changes.Has(ui::Changes::kSelection)) {
      Send(TCM_SETCURSEL, static_cast<WPARAM>(model_.ListIndex()));
    }
    if (changes.Has(ui::Changes::kTurnEnds) && !making()) EndOnePaint();
  }

  void OnNotify(const NMHDR& header) override {
    if (header.code == TCN_SELCHANGE) Tell(ui::ItemChosen{static_cast<int>(Send(TCM_GETCURSEL))});
  }

  LRESULT Handle(UINT message, WPARAM wparam, LPARAM lparam) override {
    if (message == WM_LBUTTONDOWN || message == WM_LBUTTONDBLCLK) {
      TCHITTESTINFO hit = {{GET_X_LPARAM(lparam), GET_Y_LPARAM(lparam)}, 0};
      // Beside the tabs the class would take the focus from the field being edited.
      if (Send(TCM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit)) < 0) return 0;
    }
    return WindowPeer::Handle(message, wparam, lparam);
  }

 private:
  // The page that is hidden and the one that is shown must not be seen one after the other.
  void BeginOnePaint() {
    hidden_pages_.clear();
    for (const ui::Control* const page : model_.form().children()) {
      if (!page->visible()) hidden_pages_.push_back(page);
    }
    SendMessageW(form_peer().window(), WM_SETREDRAW, FALSE, 0);
  }

  void EndOnePaint() {
    if (!model_.form().shown()) return;  // WM_SETREDRAW would make it visible again
    SendMessageW(form_peer().window(), WM_SETREDRAW, TRUE, 0);
    for (const ui::Control* const page : hidden_pages_) {
      if (!page->visible()) continue;
      const HWND shown = Of(*page)->window();
      FreshenContexts(shown);
      MsgWaitForMultipleObjects(0, nullptr, FALSE, 0, 0);  // likewise for a thread's last wait
      RedrawWindow(shown, nullptr, nullptr,
                   RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN | RDW_UPDATENOW);
    }
    RedrawWindow(window(), nullptr, nullptr, RDW_INVALIDATE);  // the tabs
  }

  std::vector<const ui::Control*> hidden_pages_;  // when the paint was held back
};

}  // namespace

PeerMaker* const kMakeTabStripPeer = &MakePeerOf<TabStripPeer>;

}  // namespace quill::win32
