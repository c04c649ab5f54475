// Gestures as messages, and what the windows show.
#include "host/win32/window_robot.h"

#include <commctrl.h>
#include <commdlg.h>

#include <algorithm>
#include <array>
#include <functional>
#include <optional>
#include <string>

#include "headless/shown_words.h"
#include "host/kit/text_line.h"
#include "host/win32/window_picture.h"
#include "support/number_text.h"
#include "win32/drawing.h"
#include "win32/native_picture.h"
#include "win32/native_text.h"
#include "win32/screen_scale.h"

namespace quill::host {
namespace {

using win32::FromWide;
using win32::Wide;
using win32::WindowText;

// Bits of a key message's second parameter.
constexpr LPARAM kWithAlt = 1 << 29;
constexpr LPARAM kRepeated = 1 << 30;

[[noreturn]] void Fail(const Text& control, const char* what) {
  throw StageError(ToUtf8(control) + " " + what);
}

Text ControlName(HWND window) {
  const auto* const name = static_cast<const wchar_t*>(GetPropW(window, L"ControlName"));
  return name != nullptr ? FromWide(name) : Text();
}

struct Search {
  const std::function<bool(HWND window)>& is_wanted;
  HWND found = nullptr;
};
BOOL CALLBACK TryWindow(HWND window, LPARAM parameter) {
  auto& search = *reinterpret_cast<Search*>(parameter);
  if (search.is_wanted(window)) search.found = window;
  return search.found == nullptr;
}

// The topmost of this thread's own windows that is wanted, or of the windows inside `outer`; null
// when there is none.
HWND FindWindowIn(HWND outer, const std::function<bool(HWND window)>& is_wanted) {
  Search search{is_wanted};
  const auto parameter = reinterpret_cast<LPARAM>(&search);
  if (outer == nullptr) {
    EnumThreadWindows(GetCurrentThreadId(), &TryWindow, parameter);
  } else {
    EnumChildWindows(outer, &TryWindow, parameter);
  }
  return search.found;
}

constexpr TextView kList = u"ListBox";
constexpr TextView kBox = u"ComboBox";
constexpr TextView kStrip = u"SysTabControl32";

bool IsClass(HWND window, TextView wanted) {
  std::array<wchar_t, 64> name{};
  const int length = GetClassNameW(window, name.data(), static_cast<int>(name.size()));
  return EqualIgnoringCase(FromWide({name.data(), static_cast<std::size_t>(length)}), wanted);
}

LRESULT Send(HWND window, UINT message, WPARAM wparam = 0, LPARAM lparam = 0) {
  return SendMessageW(window, message, wparam, lparam);
}

LPARAM At(POINT place) {
  return MAKELPARAM(place.x, place.y);
}

RECT InsideOf(HWND window) {
  RECT inside = {};
  GetClientRect(window, &inside);
  return inside;
}

// Where a row of a list is drawn.
RECT RowPlace(HWND list, int row) {
  RECT place = {};
  Send(list, LB_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&place));
  return place;
}

POINT Middle(const RECT& area) {
  return {(area.left + area.right) / 2, (area.top + area.bottom) / 2};
}

// What the mouse would meet at a place of the form.
HWND WindowUnder(HWND form, POINT screen) {
  HWND window = form;
  for (;;) {
    POINT place = screen;
    ScreenToClient(window, &place);
    const HWND inner = ChildWindowFromPointEx(window, place, CWP_SKIPINVISIBLE | CWP_SKIPDISABLED);
    if (inner == nullptr || inner == window) return window;
    window = inner;
  }
}

void ClickAt(HWND window, POINT place, WPARAM keys = 0) {
  Send(window, WM_MOUSEMOVE, keys, At(place));
  Send(window, WM_LBUTTONDOWN, keys | MK_LBUTTON, At(place));
  Send(window, WM_LBUTTONUP, keys, At(place));
}

// The message of a button that goes down; the next one is that of its going up.
UINT DownMessage(std::int16_t button) {
  if (button == ui::kRightButton) return WM_RBUTTONDOWN;
  return button == ui::kMiddleButton ? WM_MBUTTONDOWN : WM_LBUTTONDOWN;
}

// A list's messages, which a drop-down list has by other names.
struct ListMessages {
  UINT count;
  UINT current;
  UINT text_length;
  UINT text;
};
ListMessages MessagesOf(HWND list) {
  if (IsClass(list, kBox)) return {CB_GETCOUNT, CB_GETCURSEL, CB_GETLBTEXTLEN, CB_GETLBTEXT};
  return {LB_GETCOUNT, LB_GETCURSEL, LB_GETTEXTLEN, LB_GETTEXT};
}

int CountOf(HWND list) {
  return static_cast<int>(Send(list, MessagesOf(list).count));
}

Text ItemOf(HWND list, int row) {
  const ListMessages messages = MessagesOf(list);
  const LRESULT length = Send(list, messages.text_length, static_cast<WPARAM>(row));
  if (length < 0) throw StageError("there is no row " + std::to_string(row));
  std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
  Send(list, messages.text, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(text.data()));
  return FromWide({text.data(), static_cast<std::size_t>(length)});
}

Text TabCaption(HWND strip, int index) {
  std::array<wchar_t, 256> text{};
  TCITEMW item = {};
  item.mask = TCIF_TEXT;
  item.pszText = text.data();
  item.cchTextMax = static_cast<int>(text.size());
  Send(strip, TCM_GETITEMW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item));
  return FromWide(text.data());
}

std::vector<int> SelectedRows(HWND list) {
  std::vector<int> rows;
  for (int row = 0; row < CountOf(list); ++row) {
    if (Send(list, LB_GETSEL, static_cast<WPARAM>(row)) > 0) rows.push_back(row);
  }
  return rows;
}

bool HasStyle(HWND window, DWORD style) {
  return (static_cast<DWORD>(GetWindowLongPtrW(window, GWL_STYLE)) & style) != 0;
}

// Which of the picture files the window draws, by its pixels.
Text PictureIn(HWND window, const std::vector<Text>& pictures) {
  const Pixels shown = TakeOwnDrawing(window);
  for (const Text& path : pictures) {
    const win32::NativePicture picture(path);
    const win32::DrawingSurface surface({shown.width, shown.height});
    // Where the picture is transparent both show the same ground.
    Send(window, WM_ERASEBKGND, reinterpret_cast<WPARAM>(surface.context()));
    picture.Draw(surface.context(), {0, 0, shown.width, shown.height});
    GdiFlush();
    if (std::equal(shown.values.begin(), shown.values.end(), surface.pixels(),
                   [](std::uint32_t a, std::uint32_t b) { return a == (b & 0x00FFFFFFu); })) {
      return path.substr(path.rfind(u'\\') + 1);
    }
  }
  return {};
}

// Left, top, width and height in the window around it, in twips.
std::array<int, 4> PlaceInTwips(HWND window) {
  const win32::ScreenScale scale;
  RECT place = {};
  GetWindowRect(window, &place);
  MapWindowPoints(nullptr, GetParent(window), reinterpret_cast<POINT*>(&place), 2);
  return {scale.ToTwips(place.left), scale.ToTwips(place.top),
          scale.ToTwips(place.right - place.left), scale.ToTwips(place.bottom - place.top)};
}

// True when the pointer over the window would be the hourglass.
bool IsBusyOver(HWND window) {
  const HCURSOR before = GetCursor();
  SetCursor(LoadCursorW(nullptr, IDC_ARROW));
  Send(window, WM_SETCURSOR, reinterpret_cast<WPARAM>(window), MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
  const bool busy = GetCursor() == LoadCursorW(nullptr, IDC_WAIT);
  SetCursor(before);
  return busy;
}

Text Truth(bool value) {
  return Text(headless::TruthWord(value));
}

Text ListIndex(HWND list) {
  if (!HasStyle(list, LBS_EXTENDEDSEL)) return Decimal(Send(list, LB_GETCURSEL));
  const bool is_none = CountOf(list) == 0 || Send(list, LB_GETSELCOUNT) == 0;
  return Decimal(is_none ? -1 : Send(list, LB_GETCARETINDEX));
}

Text RowData(HWND list, int row) {
  if (row < 0 || row >= CountOf(list)) throw StageError("there is no row of that number");
  const LRESULT data = Send(list, LB_GETITEMDATA, static_cast<WPARAM>(row));
  return Decimal(static_cast<std::int32_t>(data));
}

Text SelectionOf(HWND list) {
  std::vector<Text> rows;
  for (const int row : SelectedRows(list)) rows.push_back(Decimal(row));
  return Joined(rows, u" ");
}

Text CurrentItem(HWND list) {
  const auto row = static_cast<int>(Send(list, MessagesOf(list).current));
  return row < 0 ? Text() : ItemOf(list, row);
}

// What a window shows by itself. The first row holds that names the property and the window's
// class.
struct Sight {
  TextView property;
  TextView of;  // a class of windows; empty: any
  Text (*read)(HWND window, int row);
};
constexpr Sight kSights[] = {
    {u"enabled", {}, [](HWND w, int) { return Truth(!HasStyle(w, WS_DISABLED)); }},
    {u"visible", {}, [](HWND w, int) { return Truth(HasStyle(w, WS_VISIBLE)); }},
    {u"shown", {}, [](HWND w, int) { return Truth(IsWindowVisible(w) != FALSE); }},
    {u"pointer", {}, [](HWND w, int) { return Text(headless::PointerWord(IsBusyOver(w))); }},
    {u"value", {}, [](HWND w, int) { return Decimal(Send(w, BM_GETCHECK)); }},
    {u"count", kStrip, [](HWND w, int) { return Decimal(Send(w, TCM_GETITEMCOUNT)); }},
    {u"count", {}, [](HWND w, int) { return Decimal(CountOf(w)); }},
    {u"index", kStrip, [](HWND w, int) { return Decimal(Send(w, TCM_GETCURSEL)); }},
    {u"index", kBox, [](HWND w, int) { return Decimal(Send(w, CB_GETCURSEL)); }},
    {u"index", {}, [](HWND w, int) { return ListIndex(w); }},
    {u"item", kStrip, [](HWND w, int row) { return TabCaption(w, row); }},
    {u"item", {}, [](HWND w, int row) { return ItemOf(w, row); }},
    {u"caret", kList, [](HWND w, int) { return Decimal(Send(w, LB_GETCARETINDEX)); }},
    {u"top", kList, [](HWND w, int) { return Decimal(Send(w, LB_GETTOPINDEX)); }},
    {u"data", kList, [](HWND w, int row) { return RowData(w, row); }},
    {u"selected", kList, [](HWND w, int) { return SelectionOf(w); }},
    {u"text", kStrip,
     [](HWND w, int) { return TabCaption(w, static_cast<int>(Send(w, TCM_GETCURSEL))); }},
    {u"text", kBox, [](HWND w, int) { return CurrentItem(w); }},
    {u"text", kList, [](HWND w, int) { return CurrentItem(w); }},
    {u"text", {}, [](HWND w, int) { return WindowText(w); }},
    {u"left", {}, [](HWND w, int) { return Decimal(PlaceInTwips(w)[0]); }},
    {u"top", {}, [](HWND w, int) { return Decimal(PlaceInTwips(w)[1]); }},
    {u"width", {}, [](HWND w, int) { return Decimal(PlaceInTwips(w)[2]); }},
    {u"height", {}, [](HWND w, int) { return Decimal(PlaceInTwips(w)[3]); }},
};

}  // namespace

HWND WindowRobot::FormWindow() const {
  return FindWindowIn(nullptr, [&](HWND window) { return ControlName(window) == form_; });
}

bool WindowRobot::FormShown() const {
  const HWND form = FormWindow();
  return form != nullptr && IsWindowVisible(form);
}

HWND WindowRobot::Find(const Text& control) const {
  const HWND form = FormWindow();
  if (form == nullptr) Fail(form_, "is not there");
  if (control == form_) return form;
  const HWND found =
      FindWindowIn(form, [&](HWND window) { return ControlName(window) == control; });
  if (found == nullptr) Fail(control, "is not there");
  return found;
}

HWND WindowRobot::Reach(const Text& control) const {
  const HWND window = Find(control);
  if (!IsWindowVisible(window)) Fail(control, "is hidden");
  for (HWND outer = window; outer != nullptr; outer = GetAncestor(outer, GA_PARENT)) {
    if (outer != GetDesktopWindow() && !IsWindowEnabled(outer)) Fail(control, "is disabled");
  }
  return window;
}

HWND WindowRobot::Focus(const Text& control) const {
  const HWND window = Reach(control);
  if (GetFocus() != window) SetFocus(window);
  if (GetFocus() != window) Fail(control, "takes no keyboard focus");
  return window;
}

// As near to the middle as can be.
POINT WindowRobot::OpenPlace(const Text& control) const {
  const HWND window = Reach(control);
  const RECT inside = InsideOf(window);
  for (const POINT place :
       {Middle(inside), POINT{2, inside.bottom / 2}, POINT{inside.right - 2, inside.bottom / 2},
        POINT{inside.right / 2, 1}, POINT{1, 1}}) {
    POINT screen = place;
    ClientToScreen(window, &screen);
    if (WindowUnder(FormWindow(), screen) == window) return place;
  }
  Fail(control, "is covered");
}

void WindowRobot::Type(const Text& control, const Text& text) const {
  const HWND window = Focus(control);
  if (!IsClass(window, u"ListBox")) {
    Send(window, WM_KEYDOWN, VK_END);
    Send(window, WM_KEYUP, VK_END);
  }
  for (const char16_t unit : text) Send(window, WM_CHAR, unit, 1);
}

void WindowRobot::Paste(const Text& control, const Text& text) const {
  const HWND window = Focus(control);
  const std::size_t bytes = (text.size() + 1) * sizeof(char16_t);
  const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, bytes);
  if (memory == nullptr || !OpenClipboard(window)) Fail(control, "could not reach the clipboard");
  std::copy_n(text.c_str(), text.size() + 1, static_cast<char16_t*>(GlobalLock(memory)));
  GlobalUnlock(memory);
  EmptyClipboard();
  SetClipboardData(CF_UNICODETEXT, memory);
  CloseClipboard();
  Send(window, EM_SETSEL, 0, -1);
  Send(window, WM_PASTE);
}

void WindowRobot::EraseLast(const Text& control, int count) const {
  const HWND window = Focus(control);
  Send(window, WM_KEYDOWN, VK_END);
  for (int i = 0; i < count; ++i) Send(window, WM_CHAR, VK_BACK, 1);
}

void WindowRobot::Choose(const Text& control, const Text& item) const {
  const HWND box = Reach(control);
  const int count = CountOf(box);
  int row = 0;
  while (row < count && ItemOf(box, row) != item) ++row;
  if (row == count) throw StageError(ToUtf8(control) + " does not offer \"" + ToUtf8(item) + "\"");

  ClickAt(box, Middle(InsideOf(box)));
  COMBOBOXINFO info = {};
  info.cbSize = sizeof info;
  if (!GetComboBoxInfo(box, &info) || !Send(box, CB_GETDROPPEDSTATE)) {
    Fail(control, "does not open");
  }
  if (Send(info.hwndList, LB_GETTOPINDEX) > row ||
      RowPlace(info.hwndList, row).bottom > InsideOf(info.hwndList).bottom) {
    Send(info.hwndList, LB_SETTOPINDEX, static_cast<WPARAM>(row));
  }
  ClickAt(info.hwndList, Middle(RowPlace(info.hwndList, row)));
  if (Send(box, CB_GETDROPPEDSTATE)) Fail(control, "does not close");
}

void WindowRobot::ScrollBy(const Text& control, int rows) const {
  const HWND list = Reach(control);
  for (int i = 0; i < std::abs(rows); ++i) {
    Send(list, WM_VSCROLL, rows > 0 ? SB_LINEDOWN : SB_LINEUP);
    Send(list, WM_VSCROLL, SB_ENDSCROLL);
  }
}

void WindowRobot::ScrollTo(const Text& control, int row) const {
  const HWND list = Reach(control);
  Send(list, WM_VSCROLL, MAKEWPARAM(SB_THUMBPOSITION, row));
  Send(list, WM_VSCROLL, SB_ENDSCROLL);
}

void WindowRobot::TurnWheel(const Text& control, int notches) const {
  const HWND list = Reach(control);
  const auto turn = static_cast<WORD>(notches > 0 ? WHEEL_DELTA : -WHEEL_DELTA);
  for (int i = 0; i < std::abs(notches); ++i) Send(list, WM_MOUSEWHEEL, MAKEWPARAM(0, turn));
}

void WindowRobot::ClickTab(const Text& caption) const {
  const HWND form = FormWindow();
  const HWND strip = FindWindowExW(form, nullptr, WC_TABCONTROLW, nullptr);
  if (strip == nullptr) Fail(form_, "has no tabs");
  static_cast<void>(Reach(ControlName(strip)));
  const auto count = static_cast<int>(Send(strip, TCM_GETITEMCOUNT));
  for (int index = 0; index < count; ++index) {
    if (TabCaption(strip, index) != caption) continue;
    RECT place = {};
    Send(strip, TCM_GETITEMRECT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&place));
    ClickAt(strip, Middle(place));
    return;
  }
  throw StageError("there is no tab \"" + ToUtf8(caption) + "\"");
}

void WindowRobot::Click(const Text& control) const {
  ClickAt(Find(control), OpenPlace(control));
}

void WindowRobot::ClickRow(const Text& control, int row, WPARAM keys) const {
  const HWND list = Reach(control);
  if (row < 0 || row >= CountOf(list)) {
    throw StageError(ToUtf8(control) + " has no row " + std::to_string(row));
  }
  const RECT inside = InsideOf(list);
  RECT place = RowPlace(list, row);
  if (place.top < 0 || place.bottom > inside.bottom) {
    ScrollTo(control, row);
    place = RowPlace(list, row);
  }
  ClickAt(list, {std::min<LONG>(8, inside.right / 2), (place.top + place.bottom) / 2}, keys);
}

void WindowRobot::SelectRows(const Text& control, const std::vector<int>& rows) const {
  const HWND list = Reach(control);
  std::vector<int> toggled = rows.empty() ? SelectedRows(list) : rows;
  if (!rows.empty()) {
    ClickRow(control, rows.front(), 0);
    toggled.erase(toggled.begin());
  }
  const HeldKey held(VK_CONTROL);
  for (const int row : toggled) ClickRow(control, row, MK_CONTROL);
}

void WindowRobot::DoubleClickRow(const Text& control, int row) const {
  const HWND list = Reach(control);
  POINT place = {8, InsideOf(list).bottom - 2};
  if (row >= 0) {
    ClickRow(control, row, 0);
    place.y = Middle(RowPlace(list, row)).y;
  } else {
    const auto height = static_cast<int>(Send(list, LB_GETITEMHEIGHT));
    const int shown = CountOf(list) - static_cast<int>(Send(list, LB_GETTOPINDEX));
    if (shown * height >= place.y) Fail(control, "has no room below its last row");
    ClickAt(list, place);
  }
  Send(list, WM_LBUTTONDBLCLK, MK_LBUTTON, At(place));
  Send(list, WM_LBUTTONUP, 0, At(place));
}

void WindowRobot::Key(const Text& control, char16_t character) const {
  Send(Focus(control), WM_CHAR, character, 1);
}

void WindowRobot::PressKey(WORD key) const {
  const HWND focus = GetFocus();
  if (focus == nullptr) throw StageError("nothing has the keyboard focus");
  Send(focus, WM_KEYDOWN, key, 1);
  Send(focus, WM_KEYUP, key, 1);
}

void WindowRobot::Strike(const Text& control, ui::KeyStroke stroke, int times) const {
  const HWND window = Focus(control);
  const bool with_alt = (stroke.shift & ui::kAltHeld) != 0;
  const HeldKey alt(with_alt ? VK_MENU : stroke.key);
  const HeldKey control_key((stroke.shift & ui::kCtrlHeld) != 0 ? VK_CONTROL : stroke.key);
  for (int time = 0; time < times; ++time) {
    Send(window, with_alt ? WM_SYSKEYDOWN : WM_KEYDOWN, stroke.key,
         1 | (with_alt ? kWithAlt : 0) | (time > 0 ? kRepeated : 0));
  }
}

namespace {

// Goes through the menu that is open in this thread, a step at each call, until it is closed.
struct MenuWalk {
  Text wanted;  // empty: Escape
  HWND owner = nullptr;
  bool is_read = false;
  std::vector<Text> items;
  int wanted_at = -1;  // among the native items
};
MenuWalk* menu_walk = nullptr;

void CALLBACK StepThroughMenu(HWND, UINT, UINT_PTR, DWORD) {
  const HWND window = FindWindowIn(nullptr, [](HWND candidate) {
    return IsClass(candidate, u"#32768") && IsWindowVisible(candidate);
  });
  if (window == nullptr || menu_walk == nullptr) return;
  constexpr UINT kGetMenu = 0x01E1;  // MN_GETHMENU
  const auto menu = reinterpret_cast<HMENU>(Send(window, kGetMenu));
  for (int at = 0; !menu_walk->is_read && at < GetMenuItemCount(menu); ++at) {
    std::array<wchar_t, 128> text{};
    GetMenuStringW(menu, static_cast<UINT>(at), text.data(), static_cast<int>(text.size()),
                   MF_BYPOSITION);
    const UINT state = GetMenuState(menu, static_cast<UINT>(at), MF_BYPOSITION);
    const Text shown = FromWide(text.data());
    if ((state & MF_SEPARATOR) != 0) menu_walk->items.emplace_back(u"-");
    if (shown.empty()) continue;
    const bool is_grey = (state & MF_GRAYED) != 0;
    if (!is_grey && shown.starts_with(menu_walk->wanted + u'\t')) menu_walk->wanted_at = at;
    const std::size_t tab = shown.find(u'\t');
    const Text item = Concat({shown.substr(0, tab), u" | ", shown.substr(tab + 1)});
    menu_walk->items.push_back(is_grey ? Concat({u"(", item, u")"}) : item);
  }
  menu_walk->is_read = true;
  WPARAM key = VK_ESCAPE;
  if (menu_walk->wanted_at >= 0) {
    const UINT state = GetMenuState(menu, static_cast<UINT>(menu_walk->wanted_at), MF_BYPOSITION);
    key = (state & MF_HILITE) != 0 ? VK_RETURN : VK_DOWN;
  }
  PostMessageW(menu_walk->owner, WM_KEYDOWN, key, 1);
}

}  // namespace

std::vector<Text> WindowRobot::ChooseFromMenu(const Text& control, int row,
                                              const Text& item) const {
  const HWND list = Focus(control);
  MenuWalk walk;
  walk.wanted = item;
  walk.owner = list;
  menu_walk = &walk;
  const UINT_PTR timer = SetTimer(nullptr, 0, 10, &StepThroughMenu);
  if (row < 0) {
    Send(list, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(list), -1);
  } else {
    const LPARAM place = At(Middle(RowPlace(list, row)));
    Send(list, WM_RBUTTONDOWN, MK_RBUTTON, place);
    Send(list, WM_RBUTTONUP, 0, place);
  }
  KillTimer(nullptr, timer);
  menu_walk = nullptr;
  if (!walk.is_read) Fail(control, "opened no menu");
  if (!item.empty() && walk.wanted_at < 0) Fail(control, "offers no such item in its menu");
  return walk.items;
}

void WindowRobot::PressAccessKey(char16_t key, int times) const {
  const HWND focus = GetFocus();
  if (focus == nullptr) throw StageError("nothing has the keyboard focus");
  Send(focus, WM_SYSKEYDOWN, VK_MENU, kWithAlt);
  for (int time = 0; time < times; ++time) {
    const HWND window = GetFocus();
    const LPARAM held = kWithAlt | (time > 0 ? kRepeated : 0);
    Send(window, WM_SYSKEYDOWN, ToUpper(key), held);
    // What is not taken ends as a beep, with the answer of the window's own class.
    Send(window, WM_SYSCHAR, key, held);
  }
}

void WindowRobot::Press(const Text& control, std::int16_t button) const {
  // The middle one has another number among the keys of a message.
  const auto key = static_cast<WPARAM>(button == ui::kMiddleButton ? MK_MBUTTON : button);
  Send(Find(control), DownMessage(button), key, At(OpenPlace(control)));
}

void WindowRobot::Release(const Text& control, std::int16_t button) const {
  POINT where = OpenPlace(control);
  const HWND window = Find(control);
  const HWND capture = GetCapture();
  if (capture != nullptr) MapWindowPoints(window, capture, &where, 1);
  Send(capture != nullptr ? capture : window, DownMessage(button) + 1, 0, At(where));
}

void WindowRobot::CloseForm() const {
  Send(Reach(form_), WM_SYSCOMMAND, SC_CLOSE);
}

Text WindowRobot::ReadTooltip(HWND window) const {
  const HWND form = FormWindow();
  for (HWND tips = FindWindowExW(nullptr, nullptr, TOOLTIPS_CLASSW, nullptr); tips != nullptr;
       tips = FindWindowExW(nullptr, tips, TOOLTIPS_CLASSW, nullptr)) {
    if (GetWindow(tips, GW_OWNER) != form) continue;
    std::array<wchar_t, 1024> text{};
    TTTOOLINFOW tool = {};
    tool.cbSize = TTTOOLINFOW_V1_SIZE;
    tool.hwnd = form;
    tool.uId = reinterpret_cast<UINT_PTR>(window);
    tool.lpszText = text.data();
    Send(tips, TTM_GETTEXTW, text.size(), reinterpret_cast<LPARAM>(&tool));
    return FromWide(text.data());
  }
  return {};
}

Text WindowRobot::Read(const Text& control, const Text& property,
                       const std::vector<Text>& pictures) const {
  const HWND window = Find(control);
  if (property == u"tooltip") return ReadTooltip(window);
  if (property == u"picture") return PictureIn(window, pictures);
  const std::size_t blank = property.find(u' ');
  const int row = blank == Text::npos ? -1 : ToInt32(TextView(property).substr(blank));
  const TextView name = property == u"caption" ? u"text" : TextView(property).substr(0, blank);
  for (const Sight& sight : kSights) {
    if (sight.property != name || (!sight.of.empty() && !IsClass(window, sight.of))) continue;
    return sight.read(window, row);
  }
  throw StageError("no window shows the property " + ToUtf8(property));
}

Text WindowRobot::Focused() const {
  const HWND focus = GetFocus();
  return focus != nullptr && IsChild(FormWindow(), focus) ? ControlName(focus) : Text();
}

namespace {

constexpr int kMessageText = 0xFFFF;
constexpr int kFileNameBox = 0x47C;    // a drop-down box with the name in it
constexpr int kFileNameField = 0x480;  // a plain field

HWND FileNameField(HWND box) {
  const HWND combo = GetDlgItem(box, kFileNameBox);
  return combo != nullptr ? combo : GetDlgItem(box, kFileNameField);
}

}  // namespace

OpenBox FindOpenBox() {
  const HWND window = FindWindowIn(nullptr, [](HWND candidate) {
    return IsWindowVisible(candidate) && IsWindowEnabled(candidate) &&
           IsClass(candidate, u"#32770");
  });
  if (window == nullptr) return {};
  OpenBox box{window, FileNameField(window) != nullptr, WindowText(window), {}};
  if (const HWND text = GetDlgItem(window, kMessageText)) {
    box.text = WindowText(text);
  } else if (box.asks_for_file) {
    wchar_t folder[MAX_PATH] = {};
    Send(window, CDM_GETFOLDERPATH, MAX_PATH, reinterpret_cast<LPARAM>(folder));
    box.text = FromWide(folder);
  }
  return box;
}

void AnswerBox(const OpenBox& box, const std::vector<Text>& paths) {
  if (box.asks_for_file && !paths.empty()) {
    const Text quoted = Concat({u"\"", Joined(paths, u"\" \""), u"\""});
    const Text& answer = paths.size() == 1 ? paths.front() : quoted;
    Send(FileNameField(box.window), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(Wide(answer)));
  }
  Send(box.window, WM_COMMAND, box.asks_for_file && paths.empty() ? IDCANCEL : IDOK);
}

namespace {

std::function<void()> heartbeat_turn;

void CALLBACK Beat(HWND, UINT, UINT_PTR, DWORD) {
  const auto turn = heartbeat_turn;
  try {
    if (turn) turn();
  } catch (...) {
    // `turn` keeps its own failures; nothing may pass into the system.
  }
}

}  // namespace

Heartbeat::Heartbeat(std::function<void()> turn) {
  heartbeat_turn = std::move(turn);
  timer_ = SetTimer(nullptr, 0, 10, &Beat);
}

Heartbeat::~Heartbeat() {
  KillTimer(nullptr, timer_);
  heartbeat_turn = nullptr;
}

}  // namespace quill::host
