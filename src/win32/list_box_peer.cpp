// The native list box, and the single-row one that works like a spin box.
#include "ui/list_box.h"

#include <windows.h>

#include <windowsx.h>

#include <algorithm>
#include <utility>
#include <vector>

#include "win32/drawing.h"
#include "win32/native_text.h"
#include "win32/peers.h"
#include "win32/win32_toolkit.h"

namespace quill::win32 {
namespace {

using ui::Changes;

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
    const auto [ground, ink] = !model_.enabled() ? std::pair(COLOR_BTNFACE, COLOR_GRAYTEXT)
                               : is_chosen       ? std::pair(COLOR_HIGHLIGHT, COLOR_HIGHLIGHTTEXT)
                                                 : std::pair(COLOR_WINDOW, COLOR_WINDOWTEXT);
    const auto row = static_cast<int>(item.itemID);
    const Text text = row >= 0 && row < model_.Count() ? Text(model_.Item(row)) : Text();
    SetBkMode(item.hDC, TRANSPARENT);
    SetTextColor(item.hDC, GetSysColor(ink));
    FillRect(item.hDC, &item.rcItem, GetSysColorBrush(ground));
    RECT area = item.rcItem;
    area.left += 1;
    DrawTextW(item.hDC, Wide(text), static_cast<int>(text.size()), &area,
              DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
    if (has_focus && (item.itemState & ODS_FOCUS) != 0) DrawFocusRect(item.hDC, &item.rcItem);
  }

  [[nodiscard]] Style GetStyle() const override {
    // The height is decided in Place: by itself the class would cut it to whole rows. A spin list
    // always shows its bar, and its row is drawn here.
    DWORD style = LBS_NOTIFY | LBS_HASSTRINGS | LBS_NOINTEGRALHEIGHT | WS_VSCROLL | WS_TABSTOP;
    style |= is_single_row() ? LBS_DISABLENOSCROLL | LBS_OWNERDRAWFIXED : WS_HSCROLL;
    if (model_.selection() == ui::Selection::kExtended) style |= LBS_EXTENDEDSEL;
    return {L"LISTBOX", nullptr, style, WS_EX_CLIENTEDGE};
  }

  // A list of many rows ends below a whole row, or below its bar under one.
  [[nodiscard]] RECT Place() const override {
    RECT place = WindowPeer::Place();
    if (is_single_row()) return place;
    const int edges = 2 * GetSystemMetrics(SM_CXEDGE) + GetSystemMetrics(SM_CXVSCROLL);
    const bool has_bar = widest_row_ > place.right - place.left - edges;
    const LONG rows_height = place.bottom - place.top - 2 * GetSystemMetrics(SM_CYEDGE) -
                             (has_bar ? GetSystemMetrics(SM_CYHSCROLL) : 0);
    place.bottom -= std::max<LONG>(rows_height % toolkit().list_row_pixels(), 0);
    return place;
  }

  void Show(Changes changes) override {
    if (changes.Has(Changes::kBounds) && is_single_row()) {
      Send(LB_SETITEMHEIGHT, 0, MAKELPARAM(std::max<LONG>(Inside().bottom, 1), 0));
    }
    const bool all_new = changes.Has(Changes::kRows);
    if (all_new || changes.Has(Changes::kRowsAdded)) ShowRows(all_new);
    if (changes.Has(Changes::kRowData) && !all_new) ShowRowData();
    if (changes.Has(Changes::kSelection)) ShowSelection();
    // A native selection may have scrolled.
    if (changes.Has(Changes::kTopRow | Changes::kSelection)) ShowTopRow();
    if (is_single_row() && (changes.Has(Changes::kEnabled) || !model_.enabled())) {
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
      case WM_CONTEXTMENU:  // -1: asked for by a key
        if (model_.menu.empty()) break;
        if (static_cast<LONG>(lparam) != -1 && Send(WM_NCHITTEST, 0, lparam) != HTCLIENT) break;
        TellMenuAsked({GET_X_LPARAM(lparam), GET_Y_LPARAM(lparam)},
                      static_cast<LONG>(lparam) == -1);
        return 0;
      case WM_LBUTTONDBLCLK:
        result = WindowPeer::Handle(message, wparam, lparam);
        // The class goes on selecting as the mouse moves, over rows that are about to be others.
        if (GetCapture() == window()) ReleaseCapture();
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

  [[nodiscard]] RECT Inside() const {
    RECT inside = {};
    GetClientRect(window(), &inside);
    return inside;
  }

  void ShowTopRow() {
    if (Send(LB_GETTOPINDEX) == model_.TopIndex()) return;
    Send(LB_SETTOPINDEX, static_cast<WPARAM>(model_.TopIndex()));
    // A bar at the bottom covers rows that the model takes for visible.
    const auto height = std::max<int>(static_cast<int>(Send(LB_GETITEMHEIGHT)), 1);
    const int covered_top = model_.ListIndex() - std::max<int>(Inside().bottom / height, 1) + 1;
    if (covered_top > model_.TopIndex() &&
        model_.ListIndex() < model_.TopIndex() + model_.VisibleRows()) {
      Send(LB_SETTOPINDEX, static_cast<WPARAM>(covered_top));
    }
  }

  void ShowRows(bool all_new) {
    const int first = all_new ? 0 : static_cast<int>(Send(LB_GETCOUNT));
    const int count = model_.Count();
    if (making() && count == 0) return;
    Send(WM_SETREDRAW, FALSE);
    if (all_new) Send(LB_RESETCONTENT);
    std::size_t units = 0;
    for (int row = first; row < count; ++row) units += model_.Item(row).size() + 1;
    // All memory at once.
    Send(LB_INITSTORAGE, static_cast<WPARAM>(count - first),
         static_cast<LPARAM>(units * sizeof(wchar_t)));
    Text item;
    for (int row = first; row < count; ++row) {
      item = model_.Item(row);
      // Past the own procedure, which would be half of the work for many thousand rows.
      CallOriginal(LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(Wide(item)));
      const std::int32_t data = model_.ItemData(row);
      // A new row has 0 already.
      if (data != 0) CallOriginal(LB_SETITEMDATA, static_cast<WPARAM>(row), data);
    }
    if (!is_single_row()) FitWidth(first);
    Send(WM_SETREDRAW, TRUE);
    Repaint();
  }

  // Rows wider than the list can be scrolled sideways.
  void FitWidth(int first_row) {
    constexpr int kMargin = 4;
    const int widest = WidestRow(window(), model_, first_row) + kMargin;
    widest_row_ = first_row == 0 ? widest : std::max(widest_row_, widest);
    Send(LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(widest_row_));
    TakePlace();
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
      // Each of these messages draws its row.
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
  // One row a notch: the class would go by the system's setting, usually three.
  void TurnWheel(int delta) {
    wheel_ += delta;
    const int notches = wheel_ / WHEEL_DELTA;
    wheel_ %= WHEEL_DELTA;
    const auto count = static_cast<int>(Send(LB_GETCOUNT));
    if (notches == 0 || count == 0) return;
    const auto top = static_cast<int>(Send(LB_GETTOPINDEX));
    Send(LB_SETTOPINDEX, static_cast<WPARAM>(std::clamp(top - notches, 0, count - 1)));
  }

  // The class has no notification for it, so this follows each message that may scroll.
  void TellWhenScrolled() {
    if (window() == nullptr) return;
    const auto top = static_cast<int>(Send(LB_GETTOPINDEX));
    if (top != model_.TopIndex()) Tell(ui::ScrolledTo{top});
  }

  // At that place of the screen, or by a key: below the current row, as far as that can be seen.
  void TellMenuAsked(POINT place, bool by_key) {
    SetFocus(window());
    ScreenToClient(window(), &place);
    if (by_key) {
      RECT row = {};
      Send(LB_GETITEMRECT, static_cast<WPARAM>(Send(LB_GETCARETINDEX)),
           reinterpret_cast<LPARAM>(&row));
      place = {0, std::clamp<LONG>(row.bottom, 0, Inside().bottom)};
    }
    const ScreenScale& scale = toolkit().scale();
    Tell(ui::MenuAsked{scale.ToTwips(place.x), scale.ToTwips(place.y),
                       by_key ? -1 : RowAt(place.y)});
  }

  [[nodiscard]] int RowAt(int y) const {
    const auto height = static_cast<int>(Send(LB_GETITEMHEIGHT));
    if (y < 0 || height <= 0) return -1;
    const int row = static_cast<int>(Send(LB_GETTOPINDEX)) + y / height;
    return row < Send(LB_GETCOUNT) ? row : -1;
  }

  int widest_row_ = 0;  // pixels
  int wheel_ = 0;       // turned, but not yet by a whole notch
};

}  // namespace

PeerMaker* const kMakeListBoxPeer = &MakePeerOf<ListBoxPeer>;

}  // namespace quill::win32
