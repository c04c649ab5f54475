#include "win32/combo_box_peer.h"

#include <algorithm>

#include "win32/fonts.h"
#include "win32/form_peer.h"
#include "win32/native_text.h"
#include "win32/win32_toolkit.h"

namespace quill::win32 {
namespace {

constexpr ui::Twips kDroppedHeight = 2400;

}  // namespace

WindowPeer::Style ComboBoxPeer::GetStyle() const {
  return {L"COMBOBOX", nullptr, CBS_DROPDOWNLIST | CBS_HASSTRINGS | WS_VSCROLL | WS_TABSTOP, 0};
}

RECT ComboBoxPeer::Place() const {
  RECT place = WindowPeer::Place();
  place.bottom += toolkit().scale().PixelsY(kDroppedHeight);
  return place;
}

void ComboBoxPeer::Show(ui::Changes changes) {
  if (changes.Has(ui::Changes::kFont)) SetFont(Win32Toolkit::kFontPoints);
  if (changes.Has(ui::Changes::kBounds)) FitClosedHeight();
  if (changes.Has(ui::Changes::kRows)) {
    ShowItems(true);
  } else if (changes.Has(ui::Changes::kRowsAdded)) {
    ShowItems(false);
  }
  if (changes.Has(ui::Changes::kSelection) && Send(CB_GETCURSEL) != box_.ListIndex()) {
    Send(CB_SETCURSEL, static_cast<WPARAM>(box_.ListIndex()));
  }
}

// The class makes itself as high as its font wants. What can be told to it is the height of its
// item, to which it adds a margin that differs from system to system.
void ComboBoxPeer::FitClosedHeight() {
  static int known_margin = 6;
  const RECT wanted = WindowPeer::Place();
  const int height = wanted.bottom - wanted.top;
  const auto closed_height = [&] {
    RECT closed = {};
    GetWindowRect(window(), &closed);
    return static_cast<int>(closed.bottom - closed.top);
  };
  for (int attempt = 0; attempt < 2 && closed_height() != height; ++attempt) {
    const int item = height - known_margin;
    if (item <= 0) return;
    Send(CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), item);
    known_margin = closed_height() - item;
  }
}

void ComboBoxPeer::ShowItems(bool all_new) {
  if (all_new && Send(CB_GETCOUNT) > 0) Send(CB_RESETCONTENT);
  if (Send(CB_GETCOUNT) == box_.Count()) return Repaint();
  Send(WM_SETREDRAW, FALSE);
  Text item;
  for (int index = static_cast<int>(Send(CB_GETCOUNT)); index < box_.Count(); ++index) {
    item = box_.Item(index);
    Send(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(Wide(item)));
  }
  FitDroppedWidth();
  Send(WM_SETREDRAW, TRUE);
  Repaint();
}

// The open list is never narrower than the closed one, whatever it is told.
void ComboBoxPeer::FitDroppedWidth() {
  const TextWidths widths(window(), form_peer().Font(Win32Toolkit::kFontPoints));
  int widest = 0;
  for (int index = 0; index < box_.Count(); ++index) {
    widest = std::max(widest, widths.Of(box_.Item(index)));
  }
  const int around = GetSystemMetrics(SM_CXVSCROLL) + 4 * GetSystemMetrics(SM_CXEDGE);
  Send(CB_SETDROPPEDWIDTH, static_cast<WPARAM>(widest) + static_cast<WPARAM>(around));
}

void ComboBoxPeer::OnCommand(WORD notification) {
  if (notification != CBN_SELCHANGE && notification != CBN_CLOSEUP) return;
  // Escape takes back what was chosen with the arrow keys, and is only heard as the closing.
  const int index = static_cast<int>(Send(CB_GETCURSEL));
  if (notification == CBN_CLOSEUP && index == box_.ListIndex()) return;
  Tell(ui::ItemChosen{index});
}

}  // namespace quill::win32
