#include "win32/list_box_peer.h"

#include <windowsx.h>

#include <algorithm>

#include "win32/fonts.h"
#include "win32/form_peer.h"
#include "win32/native_text.h"
#include "win32/win32_toolkit.h"

namespace quill::win32 {

WindowPeer::Style ListBoxPeer::GetStyle() const {
  DWORD style = LBS_NOTIFY | LBS_HASSTRINGS | LBS_NOINTEGRALHEIGHT | WS_VSCROLL | WS_TABSTOP;
  style |= is_single_row() ? LBS_DISABLENOSCROLL | LBS_OWNERDRAWFIXED : WS_HSCROLL;
  if (list_.selection() == ui::Selection::kExtended) style |= LBS_EXTENDEDSEL;
  return {L"LISTBOX", nullptr, style, WS_EX_CLIENTEDGE};
}

RECT ListBoxPeer::Place() const {
  RECT place = WindowPeer::Place();
  if (is_single_row()) return place;
  const int row = toolkit().list_row_pixels();
  const int edges = 2 * GetSystemMetrics(SM_CXEDGE) + GetSystemMetrics(SM_CXVSCROLL);
  const bool has_bar = extent_ > place.right - place.left - edges;
  const int spare = (place.bottom - place.top - 2 * GetSystemMetrics(SM_CYEDGE) -
                     (has_bar ? GetSystemMetrics(SM_CYHSCROLL) : 0)) %
                    row;
  if (spare > 0) place.bottom -= spare;
  return place;
}

void ListBoxPeer::Show(ui::Changes changes) {
  if (changes.Has(ui::Changes::kFont)) SetFont(Win32Toolkit::kFontPoints);
  if (changes.Has(ui::Changes::kBounds) && is_single_row()) {
    RECT inside = {};
    GetClientRect(window(), &inside);
    if (inside.bottom > 0 && Send(LB_GETITEMHEIGHT) != inside.bottom) {
      Send(LB_SETITEMHEIGHT, 0, MAKELPARAM(inside.bottom, 0));
    }
  }
  if (changes.Has(ui::Changes::kRows)) {
    ShowRows(true);
  } else if (changes.Has(ui::Changes::kRowsAdded)) {
    ShowRows(false);
  }
  if (changes.Has(ui::Changes::kRowData) && !changes.Has(ui::Changes::kRows)) ShowRowData();
  if (changes.Has(ui::Changes::kSelection)) ShowSelection();
  // A native selection may have scrolled.
  if ((changes.Has(ui::Changes::kTopRow) || changes.Has(ui::Changes::kSelection)) &&
      Send(LB_GETTOPINDEX) != list_.TopIndex()) {
    Send(LB_SETTOPINDEX, static_cast<WPARAM>(list_.TopIndex()));
    // A bar at the bottom covers rows that the model takes for visible.
    RECT inside = {};
    GetClientRect(window(), &inside);
    const auto height = std::max<int>(static_cast<int>(Send(LB_GETITEMHEIGHT)), 1);
    const int covered_top = list_.ListIndex() - std::max<int>(inside.bottom / height, 1) + 1;
    if (covered_top > list_.TopIndex() &&
        list_.ListIndex() < list_.TopIndex() + list_.VisibleRows()) {
      Send(LB_SETTOPINDEX, static_cast<WPARAM>(covered_top));
    }
  }
  if (is_single_row() && (changes.Has(ui::Changes::kEnabled) || !list_.enabled())) {
    // The class shows the arrows as usable whenever there is something to scroll.
    EnableScrollBar(window(), SB_VERT, list_.enabled() ? ESB_ENABLE_BOTH : ESB_DISABLE_BOTH);
  }
}

void ListBoxPeer::OnDrawItem(const DRAWITEMSTRUCT& item) {
  const bool has_focus = GetFocus() == window();
  const bool is_chosen = has_focus && (item.itemState & ODS_SELECTED) != 0;
  const int ground = !list_.enabled() ? COLOR_BTNFACE : is_chosen ? COLOR_HIGHLIGHT : COLOR_WINDOW;
  const int ink = !list_.enabled() ? COLOR_GRAYTEXT
                  : is_chosen      ? COLOR_HIGHLIGHTTEXT
                                   : COLOR_WINDOWTEXT;
  const auto row = static_cast<int>(item.itemID);
  const Text text = row >= 0 && row < list_.Count() ? Text(list_.Item(row)) : Text();
  SetBkColor(item.hDC, GetSysColor(ground));
  SetTextColor(item.hDC, GetSysColor(ink));
  constexpr int kMargin = 1;
  TEXTMETRICW metrics = {};
  GetTextMetricsW(item.hDC, &metrics);
  const RECT& area = item.rcItem;
  ExtTextOutW(item.hDC, area.left + kMargin, (area.top + area.bottom - metrics.tmHeight) / 2,
              ETO_OPAQUE | ETO_CLIPPED, &area, Wide(text), static_cast<UINT>(text.size()), nullptr);
  if (has_focus && (item.itemState & ODS_FOCUS) != 0) DrawFocusRect(item.hDC, &area);
}

void ListBoxPeer::ShowRows(bool all_new) {
  int row = all_new ? 0 : static_cast<int>(Send(LB_GETCOUNT));
  const int count = list_.Count();
  if (making() && count == 0) return;
  Send(WM_SETREDRAW, FALSE);
  if (all_new) {
    if (Send(LB_GETCOUNT) > 0) Send(LB_RESETCONTENT);
    widest_row_ = 0;
  }
  const int first = row;
  std::size_t units = 0;
  for (int i = first; i < count; ++i) units += list_.Item(i).size() + 1;
  if (count > first) {
    Send(LB_INITSTORAGE, static_cast<WPARAM>(count - first),
         static_cast<LPARAM>(units * sizeof(wchar_t)));
  }
  Text item;
  for (; row < count; ++row) {
    item = list_.Item(row);
    CallOriginal(LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(Wide(item)));
    const std::int32_t data = list_.ItemData(row);
    if (data != 0) CallOriginal(LB_SETITEMDATA, static_cast<WPARAM>(row), data);
  }
  if (!is_single_row()) FitWidth(first);
  Send(WM_SETREDRAW, TRUE);
  Repaint();
}

void ListBoxPeer::FitWidth(int first_row) {
  if (first_row < list_.Count()) {
    constexpr int kMargin = 4;
    const TextWidths widths(window(), form_peer().Font(Win32Toolkit::kFontPoints));
    for (int row = first_row; row < list_.Count(); ++row) {
      widest_row_ = std::max(widest_row_, widths.Of(list_.Item(row)) + kMargin);
    }
  }
  if (widest_row_ != extent_) {
    extent_ = widest_row_;
    Send(LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(extent_));
    TakePlace();
  }
}

void ListBoxPeer::ShowRowData() {
  for (int row = 0; row < list_.Count(); ++row) {
    const std::int32_t data = list_.ItemData(row);
    if (Send(LB_GETITEMDATA, static_cast<WPARAM>(row)) != data) {
      Send(LB_SETITEMDATA, static_cast<WPARAM>(row), data);
    }
  }
}

void ListBoxPeer::ShowSelection() {
  if (list_.selection() == ui::Selection::kExtended) {
    ShowExtendedSelection();
  } else if (Send(LB_GETCURSEL) != list_.ListIndex()) {
    Send(LB_SETCURSEL, static_cast<WPARAM>(list_.ListIndex()));
  }
}

void ListBoxPeer::ShowExtendedSelection() {
  const std::vector<int> native = NativeSelection();
  auto next = native.begin();
  for (int row = 0; row < list_.Count(); ++row) {
    const bool shown = next != native.end() && *next == row;
    if (shown) ++next;
    if (shown != list_.IsSelected(row)) Send(LB_SETSEL, shown ? FALSE : TRUE, row);
  }
  if (list_.ListIndex() >= 0 && Send(LB_GETCARETINDEX) != list_.ListIndex()) {
    Send(LB_SETCARETINDEX, static_cast<WPARAM>(list_.ListIndex()), FALSE);
  }
}

std::vector<int> ListBoxPeer::NativeSelection() const {
  if (list_.selection() == ui::Selection::kSingle) {
    const auto row = static_cast<int>(Send(LB_GETCURSEL));
    return row >= 0 ? std::vector<int>{row} : std::vector<int>{};
  }
  std::vector<int> rows(static_cast<std::size_t>(std::max<LRESULT>(Send(LB_GETSELCOUNT), 0)));
  if (!rows.empty()) {
    const auto copied = Send(LB_GETSELITEMS, rows.size(), reinterpret_cast<LPARAM>(rows.data()));
    rows.resize(static_cast<std::size_t>(std::max<LRESULT>(copied, 0)));
  }
  return rows;
}

void ListBoxPeer::OnCommand(WORD notification) {
  if (notification != LBN_SELCHANGE && notification != LBN_SELCANCEL) return;
  const bool extended = list_.selection() == ui::Selection::kExtended;
  std::vector<int> rows = NativeSelection();
  int current = -1;
  if (extended && Send(LB_GETCOUNT) > 0) {
    current = static_cast<int>(Send(LB_GETCARETINDEX));
  } else if (!rows.empty()) {
    current = rows.front();
  }
  Tell(ui::RowsSelected{std::move(rows), current});
}

void ListBoxPeer::TellWhenScrolled() {
  if (window() == nullptr) return;
  const auto top = static_cast<int>(Send(LB_GETTOPINDEX));
  if (top != list_.TopIndex()) Tell(ui::ScrolledTo{top});
}

void ListBoxPeer::TellMenuAsked(std::optional<POINT> screen) {
  SetFocus(window());
  POINT place = screen.value_or(POINT{});
  int row = -1;
  if (screen.has_value()) {
    ScreenToClient(window(), &place);
    row = RowAt(place.y);
  } else {
    // Below the current row, as far as that can be seen.
    RECT item = {};
    RECT inside = {};
    GetClientRect(window(), &inside);
    Send(LB_GETITEMRECT, static_cast<WPARAM>(Send(LB_GETCARETINDEX)),
         reinterpret_cast<LPARAM>(&item));
    place.y = std::clamp(item.bottom, inside.top, inside.bottom);
  }
  const ScreenScale& scale = toolkit().scale();
  Tell(ui::MenuAsked{scale.TwipsX(place.x), scale.TwipsY(place.y), row});
}

int ListBoxPeer::RowAt(int y) const {
  const auto height = static_cast<int>(Send(LB_GETITEMHEIGHT));
  if (y < 0 || height <= 0) return -1;
  const int row = static_cast<int>(Send(LB_GETTOPINDEX)) + y / height;
  return row < Send(LB_GETCOUNT) ? row : -1;
}

void ListBoxPeer::TurnWheel(int delta) {
  wheel_ += delta;
  const int notches = wheel_ / WHEEL_DELTA;
  wheel_ %= WHEEL_DELTA;
  const auto count = static_cast<int>(Send(LB_GETCOUNT));
  if (notches == 0 || count == 0) return;
  const auto top = static_cast<int>(Send(LB_GETTOPINDEX));
  Send(LB_SETTOPINDEX, static_cast<WPARAM>(std::clamp(top - notches, 0, count - 1)));
}

LRESULT ListBoxPeer::Handle(UINT message, WPARAM wparam, LPARAM lparam) {
  LRESULT result = 0;
  switch (message) {
    case WM_MOUSEWHEEL:
      if (!is_single_row()) break;
      TurnWheel(GET_WHEEL_DELTA_WPARAM(wparam));
      TellWhenScrolled();
      return 0;
    case WM_CHAR:  // where it leads is the model's
      if (wparam != L'\t') {
        Tell(ui::KeyPressed{static_cast<char16_t>(wparam),
                            static_cast<std::uint32_t>(GetMessageTime())});
      }
      return 0;
    case WM_NCLBUTTONDOWN:  // the bar takes no focus by itself
      SetFocus(window());
      break;
    case WM_CONTEXTMENU: {
      if (list_.menu().empty()) break;
      const bool by_key = lparam == -1;
      const POINT place = {GET_X_LPARAM(lparam), GET_Y_LPARAM(lparam)};
      if (!by_key && SendMessageW(window(), WM_NCHITTEST, 0, lparam) != HTCLIENT) break;
      TellMenuAsked(by_key ? std::nullopt : std::optional(place));
      return 0;
    }
    case WM_LBUTTONDBLCLK:
      result = WindowPeer::Handle(message, wparam, lparam);
      Tell(ui::RowDoubleClicked{RowAt(GET_Y_LPARAM(lparam))});
      return result;
    default:
      break;
  }
  result = WindowPeer::Handle(message, wparam, lparam);
  switch (message) {
    case WM_VSCROLL:
    case WM_MOUSEWHEEL:
    case WM_KEYDOWN:
    case WM_LBUTTONDOWN:
    case WM_LBUTTONUP:
    case WM_MOUSEMOVE:
    case WM_TIMER:
      TellWhenScrolled();
      break;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
      if (is_single_row()) Repaint();
      break;
    default:
      break;
  }
  return result;
}

}  // namespace quill::win32
