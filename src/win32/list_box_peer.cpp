// The native list box, and the single-row one that works like a spin box.
#include "ui/list_box.h"

#include <windows.h>

#include <windowsx.h>

#include <algorithm>
#include <optional>

#include "win32/fonts.h"
#include "win32/form_peer.h"
#include "win32/native_text.h"
#include "win32/peers.h"
#include "win32/win32_toolkit.h"

namespace quill::win32 {
namespace {

class ListBoxPeer final : public PeerOf<ui::ListBox> {
 public:
  using PeerOf::PeerOf;

  void OnCommand(WORD notification) override {
    if (notification != LBN_SELCHANGE && notification != LBN_SELCANCEL) return;
    const bool extended = model_.selection() == ui::Selection::kExtended;
    std::vector<int> rows = NativeSelection();
    int current = -1;
    if (extended && Send(LB_GETCOUNT) > 0) {
      current = static_cast<int>(Send(LB_GETCARETINDEX));
    } else if (!rows.empty()) {
      current = rows.front();
    }
    Tell(ui::RowsSelected{std::move(rows), current});
  }

  // A single-row list's row is highlighted only while the list has the focus.
  void OnDrawItem(const DRAWITEMSTRUCT& item) override {
    const bool has_focus = GetFocus() == window();
    const bool is_chosen = has_focus && (item.itemState & ODS_SELECTED) != 0;
    const int ground = !model_.enabled() ? COLOR_BTNFACE
                       : is_chosen       ? COLOR_HIGHLIGHT
                                         : COLOR_WINDOW;
    const int ink = !model_.enabled() ? COLOR_GRAYTEXT
                    : is_chosen       ? COLOR_HIGHLIGHTTEXT
                                      : COLOR_WINDOWTEXT;
    const auto row = static_cast<int>(item.itemID);
    const Text text = row >= 0 && row < model_.Count() ? Text(model_.Item(row)) : Text();
    SetBkColor(item.hDC, GetSysColor(ground));
    SetTextColor(item.hDC, GetSysColor(ink));
    constexpr int kMargin = 1;
    TEXTMETRICW metrics = {};
    GetTextMetricsW(item.hDC, &metrics);
    const RECT& area = item.rcItem;
    ExtTextOutW(item.hDC, area.left + kMargin, (area.top + area.bottom - metrics.tmHeight) / 2,
                ETO_OPAQUE | ETO_CLIPPED, &area, Wide(text), static_cast<UINT>(text.size()),
                nullptr);
    if (has_focus && (item.itemState & ODS_FOCUS) != 0) DrawFocusRect(item.hDC, &area);
  }

 protected:
  [[nodiscard]] Style GetStyle() const override {
    DWORD style = LBS_NOTIFY | LBS_HASSTRINGS | LBS_NOINTEGRALHEIGHT | WS_VSCROLL | WS_TABSTOP;
    style |= is_single_row() ? LBS_DISABLENOSCROLL | LBS_OWNERDRAWFIXED : WS_HSCROLL;
    if (model_.selection() == ui::Selection::kExtended) style |= LBS_EXTENDEDSEL;
    return {L"LISTBOX", nullptr, style, WS_EX_CLIENTEDGE};
  }

  // A list of many rows ends below a whole row, or below its bar under one.
  [[nodiscard]] RECT Place() const override {
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

  void Show(ui::Changes changes) override {
    if (changes.Has(ui::Changes::kBounds) && is_single_row()) {
      RECT inside = {};
      GetClientRect(window(), &inside);
      if (inside.bottom > 0 && Send(LB_GETITEMHEIGHT) != inside.bottom) {
        Send(LB_SETITEMHEIGHT, 0, MAKELPARAM(inside.bottom, 0));
      }
    }
    const bool all_new = changes.Has(ui::Changes::kRows);
    if (all_new || changes.Has(ui::Changes::kRowsAdded)) ShowRows(all_new);
    if (changes.Has(ui::Changes::kRowData) && !all_new) ShowRowData();
    if (changes.Has(ui::Changes::kSelection)) ShowSelection();
    // A native selection may have scrolled.
    if ((changes.Has(ui::Changes::kTopRow) || changes.Has(ui::Changes::kSelection)) &&
        Send(LB_GETTOPINDEX) != model_.TopIndex()) {
      Send(LB_SETTOPINDEX, static_cast<WPARAM>(model_.TopIndex()));
      // A bar at the bottom covers rows that the model takes for visible.
      RECT inside = {};
      GetClientRect(window(), &inside);
      const auto height = std::max<int>(static_cast<int>(Send(LB_GETITEMHEIGHT)), 1);
      const int covered_top = model_.ListIndex() - std::max<int>(inside.bottom / height, 1) + 1;
      if (covered_top > model_.TopIndex() &&
          model_.ListIndex() < model_.TopIndex() + model_.VisibleRows()) {
        Send(LB_SETTOPINDEX, static_cast<WPARAM>(covered_top));
      }
    }
    if (is_single_row() && (changes.Has(ui::Changes::kEnabled) || !model_.enabled())) {
      // The class shows the arrows as usable whenever there is something to scroll.
      EnableScrollBar(window(), SB_VERT, model_.enabled() ? ESB_ENABLE_BOTH : ESB_DISABLE_BOTH);
    }
  }

  LRESULT Handle(UINT message, WPARAM wparam, LPARAM lparam) override {
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
        if (model_.menu.empty()) break;
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
      case WM_TIMER:  // the class scrolls while the mouse is held outside
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

 private:
  [[nodiscard]] bool is_single_row() const noexcept {
    return model_.list_height() == ui::ListHeight::kSingleRow;
  }

  void ShowRows(bool all_new) {
    int row = all_new ? 0 : static_cast<int>(Send(LB_GETCOUNT));
    const int count = model_.Count();
    if (making() && count == 0) return;
    Send(WM_SETREDRAW, FALSE);
    if (all_new) {
      if (Send(LB_GETCOUNT) > 0) Send(LB_RESETCONTENT);
      widest_row_ = 0;
    }
    const int first = row;
    std::size_t units = 0;
    for (int i = first; i < count; ++i) units += model_.Item(i).size() + 1;
    if (count > first) {
      Send(LB_INITSTORAGE, static_cast<WPARAM>(count - first),
           static_cast<LPARAM>(units * sizeof(wchar_t)));
    }
    Text item;
    for (; row < count; ++row) {
      item = model_.Item(row);
      // Past the own procedure, which would be half of the work for many thousand rows.
      CallOriginal(LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(Wide(item)));
      const std::int32_t data = model_.ItemData(row);
      if (data != 0) CallOriginal(LB_SETITEMDATA, static_cast<WPARAM>(row), data);
    }
    if (!is_single_row()) FitWidth(first);
    Send(WM_SETREDRAW, TRUE);
    Repaint();
  }

  // Rows wider than the list can be scrolled sideways.
  void FitWidth(int first_row) {
    if (first_row < model_.Count()) {
      constexpr int kMargin = 4;
      const TextWidths widths(window(), form_peer().Font(kDialogFontPoints));
      for (int row = first_row; row < model_.Count(); ++row) {
        widest_row_ = std::max(widest_row_, widths.Of(model_.Item(row)) + kMargin);
      }
    }
    if (widest_row_ != extent_) {
      extent_ = widest_row_;
      Send(LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(extent_));
      TakePlace();
    }
  }

  void ShowRowData() {
    for (int row = 0; row < model_.Count(); ++row) {
      Send(LB_SETITEMDATA, static_cast<WPARAM>(row), model_.ItemData(row));
    }
  }

  void ShowSelection() {
    if (model_.selection() == ui::Selection::kExtended) {
      ShowExtendedSelection();
    } else if (Send(LB_GETCURSEL) != model_.ListIndex()) {
      Send(LB_SETCURSEL, static_cast<WPARAM>(model_.ListIndex()));
    }
  }

  void ShowExtendedSelection() {
    const std::vector<int> native = NativeSelection();
    auto next = native.begin();
    for (int row = 0; row < model_.Count(); ++row) {
      const bool shown = next != native.end() && *next == row;
      if (shown) ++next;
      if (shown != model_.IsSelected(row)) Send(LB_SETSEL, shown ? FALSE : TRUE, row);
    }
    if (model_.ListIndex() >= 0 && Send(LB_GETCARETINDEX) != model_.ListIndex()) {
      Send(LB_SETCARETINDEX, static_cast<WPARAM>(model_.ListIndex()), FALSE);
    }
  }

  [[nodiscard]] std::vector<int> NativeSelection() const {
    if (model_.selection() == ui::Selection::kSingle) {
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

  // Of a single-row list.
  void TurnWheel(int delta) {
    wheel_ += delta;
    const int notches = wheel_ / WHEEL_DELTA;
    wheel_ %= WHEEL_DELTA;
    const auto count = static_cast<int>(Send(LB_GETCOUNT));
    if (notches == 0 || count == 0) return;
    const auto top = static_cast<int>(Send(LB_GETTOPINDEX));
    Send(LB_SETTOPINDEX, static_cast<WPARAM>(std::clamp(top - notches, 0, count - 1)));
  }

  void TellWhenScrolled() {
    if (window() == nullptr) return;
    const auto top = static_cast<int>(Send(LB_GETTOPINDEX));
    if (top != model_.TopIndex()) Tell(ui::ScrolledTo{top});
  }

  // At that place of the screen; none: asked for by a key.
  void TellMenuAsked(std::optional<POINT> screen) {
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

  [[nodiscard]] int RowAt(int y) const {
    const auto height = static_cast<int>(Send(LB_GETITEMHEIGHT));
    if (y < 0 || height <= 0) return -1;
    const int row = static_cast<int>(Send(LB_GETTOPINDEX)) + y / height;
    return row < Send(LB_GETCOUNT) ? row : -1;
  }

  int widest_row_ = 0;  // pixels
  int extent_ = 0;      // as told to the window, pixels
  int wheel_ = 0;       // turned, but not yet by a whole notch
};

}  // namespace

std::unique_ptr<WindowPeer> MakeListBoxPeer(Win32Toolkit& toolkit, ui::Control& control) {
  return MakePeerOf<ListBoxPeer>(toolkit, control);
}

}  // namespace quill::win32
