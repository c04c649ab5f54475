#include "host/win32/window_robot.h"

#include <commctrl.h>
#include <commdlg.h>

#include <algorithm>
#include <array>
#include <functional>
#include <optional>
#include <string>

#include "headless/shown_words.h"
#include "host/win32/window_picture.h"
#include "win32/drawing_surface.h"
#include "win32/native_picture.h"
#include "win32/native_text.h"
#include "win32/screen_scale.h"

namespace quill::host {
namespace {

using win32::FromWide;
using win32::Wide;
using win32::WindowText;

// Of a key's message.
constexpr LPARAM kWithAlt = 1 << 29;
constexpr LPARAM kRepeated = 1 << 30;

[[noreturn]] void Fail(const Text& control, const char* what) {
  throw StageError(ToUtf8(control) + " " + what);
}

Text ControlName(HWND window) {
  const auto atom =
      static_cast<ATOM>(reinterpret_cast<ULONG_PTR>(GetPropW(window, L"ControlName")));
  std::array<wchar_t, 256> name{};
  if (atom == 0) return {};
  const UINT length = GlobalGetAtomNameW(atom, name.data(), static_cast<int>(name.size()));
  return FromWide({name.data(), length});
}

struct Search {
  TextView name;
  HWND found = nullptr;
};
BOOL CALLBACK TryWindow(HWND window, LPARAM parameter) {
  auto& search = *reinterpret_cast<Search*>(parameter);
  if (ControlName(window) == search.name) search.found = window;
  return search.found == nullptr;
}

Text ClassOf(HWND window) {
  std::array<wchar_t, 64> name{};
  const int length = GetClassNameW(window, name.data(), static_cast<int>(name.size()));
  return FromWide({name.data(), static_cast<std::size_t>(length)});
}
bool IsClass(HWND window, TextView name) {
  return EqualIgnoringCase(ClassOf(window), name);
}

LRESULT Send(HWND window, UINT message, WPARAM wparam = 0, LPARAM lparam = 0) {
  return SendMessageW(window, message, wparam, lparam);
}

LPARAM At(POINT place) {
  return MAKELPARAM(place.x, place.y);
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

// A place inside of `window` that nothing else covers, as near to the middle as can be.
std::optional<POINT> OpenPlace(HWND form, HWND window) {
  RECT inside = {};
  GetClientRect(window, &inside);
  for (const POINT place :
       {Middle(inside), POINT{2, inside.bottom / 2}, POINT{inside.right - 2, inside.bottom / 2},
        POINT{inside.right / 2, 1}, POINT{1, 1}}) {
    POINT screen = place;
    ClientToScreen(window, &screen);
    if (WindowUnder(form, screen) == window) return place;
  }
  return std::nullopt;
}

void ClickAt(HWND window, POINT place, WPARAM keys = 0) {
  Send(window, WM_MOUSEMOVE, keys, At(place));
  Send(window, WM_LBUTTONDOWN, keys | MK_LBUTTON, At(place));
  Send(window, WM_LBUTTONUP, keys, At(place));
}

struct ButtonMessages {
  UINT down;
  UINT up;
  WPARAM key;
};
ButtonMessages MessagesOf(std::int16_t button) {
  switch (button) {
    case ui::kRightButton:
      return {WM_RBUTTONDOWN, WM_RBUTTONUP, MK_RBUTTON};
    case ui::kMiddleButton:
      return {WM_MBUTTONDOWN, WM_MBUTTONUP, MK_MBUTTON};
    default:
      return {WM_LBUTTONDOWN, WM_LBUTTONUP, MK_LBUTTON};
  }
}

Text RowText(HWND window, UINT length_message, UINT text_message, int row) {
  const LRESULT length = Send(window, length_message, static_cast<WPARAM>(row));
  if (length < 0) throw StageError("there is no row " + std::to_string(row));
  std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
  const LRESULT copied =
      Send(window, text_message, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(text.data()));
  return FromWide({text.data(), static_cast<std::size_t>(std::max<LRESULT>(copied, 0))});
}

int CountOf(HWND window) {
  return static_cast<int>(Send(window, IsClass(window, u"ComboBox") ? CB_GETCOUNT : LB_GETCOUNT));
}

Text ItemOf(HWND window, int row) {
  return IsClass(window, u"ComboBox") ? RowText(window, CB_GETLBTEXTLEN, CB_GETLBTEXT, row)
                                      : RowText(window, LB_GETTEXTLEN, LB_GETTEXT, row);
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

bool IsExtended(HWND list) {
  return (GetWindowLongPtrW(list, GWL_STYLE) & LBS_EXTENDEDSEL) != 0;
}

bool HasStyle(HWND window, DWORD style) {
  return (static_cast<DWORD>(GetWindowLongPtrW(window, GWL_STYLE)) & style) != 0;
}

// Which of the picture files the window draws, by its pixels.
Text PictureIn(HWND window, const std::vector<Text>& pictures) {
  const Pixels shown = TakeOwnDrawing(window);
  for (const Text& path : pictures) {
    const auto picture = win32::ReadGifPicture(path);
    std::uint32_t* bits = nullptr;
    const win32::DrawingSurface surface({shown.width, shown.height}, &bits);
    // Where the picture is transparent both show the same ground.
    Send(window, WM_ERASEBKGND, reinterpret_cast<WPARAM>(surface.context()));
    picture->Draw(surface.context(), {0, 0, shown.width, shown.height});
    GdiFlush();
    if (std::equal(shown.values.begin(), shown.values.end(), bits,
                   [](std::uint32_t a, std::uint32_t b) { return a == (b & 0x00FFFFFFu); })) {
      return path.substr(path.rfind(u'\\') + 1);
    }
  }
  return {};
}

std::optional<Text> ReadPlace(HWND window, TextView property) {
  const win32::ScreenScale scale;
  RECT place = {};
  GetWindowRect(window, &place);
  MapWindowPoints(nullptr, GetParent(window), reinterpret_cast<POINT*>(&place), 2);
  if (property == u"left") return Decimal(scale.TwipsX(place.left));
  if (property == u"top") return Decimal(scale.TwipsY(place.top));
  if (property == u"width") return Decimal(scale.TwipsX(place.right - place.left));
  if (property == u"height") return Decimal(scale.TwipsY(place.bottom - place.top));
  return std::nullopt;
}

int RowIn(TextView property, TextView prefix) {
  return std::stoi(ToUtf8(property.substr(prefix.size())));
}

}  // namespace

HWND WindowRobot::FormWindow() const {
  Search search{form_};
  EnumThreadWindows(GetCurrentThreadId(), &TryWindow, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

bool WindowRobot::FormShown() const {
  const HWND form = FormWindow();
  return form != nullptr && IsWindowVisible(form);
}

HWND WindowRobot::Find(const Text& control) const {
  const HWND form = FormWindow();
  if (form == nullptr) Fail(form_, "is not there");
  if (control == form_) return form;
  Search search{control};
  EnumChildWindows(form, &TryWindow, reinterpret_cast<LPARAM>(&search));
  if (search.found == nullptr) Fail(control, "is not there");
  return search.found;
}

HWND WindowRobot::Reach(const Text& control) const {
  const HWND window = Find(control);
  if (!IsWindowVisible(window)) Fail(control, "is hidden");
  for (HWND outer = window; outer != nullptr; outer = GetAncestor(outer, GA_PARENT)) {
    if (outer != GetDesktopWindow() && !IsWindowEnabled(outer)) Fail(control, "is disabled");
  }
  return window;
}

void WindowRobot::Focus(const Text& control) const {
  const HWND window = Reach(control);
  if (GetFocus() != window) SetFocus(window);
  if (GetFocus() != window) Fail(control, "takes no keyboard focus");
}

void WindowRobot::Type(const Text& control, const Text& text) const {
  Focus(control);
  const HWND window = Find(control);
  if (!IsClass(window, u"ListBox")) {
    Send(window, WM_KEYDOWN, VK_END);
    Send(window, WM_KEYUP, VK_END);
  }
  for (const char16_t unit : text) Send(window, WM_CHAR, unit, 1);
}

void WindowRobot::Paste(const Text& control, const Text& text) const {
  Focus(control);
  const HWND window = Find(control);
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
  Focus(control);
  const HWND window = Find(control);
  Send(window, WM_KEYDOWN, VK_END);
  for (int i = 0; i < count; ++i) Send(window, WM_CHAR, VK_BACK, 1);
}

void WindowRobot::Choose(const Text& control, const Text& item) const {
  const HWND box = Reach(control);
  const int count = CountOf(box);
  int row = 0;
  while (row < count && ItemOf(box, row) != item) ++row;
  if (row == count) throw StageError(ToUtf8(control) + " does not offer \"" + ToUtf8(item) + "\"");

  RECT inside = {};
  GetClientRect(box, &inside);
  ClickAt(box, Middle(inside));
  COMBOBOXINFO info = {};
  info.cbSize = sizeof info;
  if (!GetComboBoxInfo(box, &info) || !Send(box, CB_GETDROPPEDSTATE)) {
    Fail(control, "does not open");
  }
  if (Send(info.hwndList, LB_GETTOPINDEX) > row) {
    Send(info.hwndList, LB_SETTOPINDEX, static_cast<WPARAM>(row));
  }
  RECT place = {};
  RECT list = {};
  GetClientRect(info.hwndList, &list);
  Send(info.hwndList, LB_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&place));
  if (place.bottom > list.bottom) {
    Send(info.hwndList, LB_SETTOPINDEX, static_cast<WPARAM>(row));
    Send(info.hwndList, LB_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&place));
  }
  ClickAt(info.hwndList, Middle(place));
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
  const Text name = ControlName(strip);
  static_cast<void>(Reach(name));
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
  const HWND window = Reach(control);
  const auto place = OpenPlace(FormWindow(), window);
  if (!place.has_value()) Fail(control, "is covered");
  ClickAt(window, *place);
}

void WindowRobot::ClickRow(const Text& control, int row, WPARAM keys) const {
  const HWND list = Reach(control);
  if (row < 0 || row >= CountOf(list)) {
    throw StageError(ToUtf8(control) + " has no row " + std::to_string(row));
  }
  RECT inside = {};
  GetClientRect(list, &inside);
  const auto place_of = [&] {
    RECT place = {};
    Send(list, LB_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&place));
    return place;
  };
  RECT place = place_of();
  if (place.top < 0 || place.bottom > inside.bottom) {
    ScrollTo(control, row);
    place = place_of();
  }
  ClickAt(list, {std::min<LONG>(8, inside.right / 2), (place.top + place.bottom) / 2}, keys);
}

void WindowRobot::SelectRows(const Text& control, const std::vector<int>& rows) const {
  const HWND list = Reach(control);
  if (rows.empty()) {
    const HeldKey held(VK_CONTROL);
    for (const int row : SelectedRows(list)) ClickRow(control, row, MK_CONTROL);
    return;
  }
  ClickRow(control, rows.front(), 0);
  const HeldKey held(VK_CONTROL);
  for (std::size_t i = 1; i < rows.size(); ++i) ClickRow(control, rows[i], MK_CONTROL);
}

void WindowRobot::DoubleClickRow(const Text& control, int row) const {
  const HWND list = Reach(control);
  RECT inside = {};
  GetClientRect(list, &inside);
  POINT place = {8, inside.bottom - 2};
  if (row >= 0) {
    ClickRow(control, row, 0);
    RECT area = {};
    Send(list, LB_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&area));
    place = {8, (area.top + area.bottom) / 2};
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
  Focus(control);
  Send(Find(control), WM_CHAR, character, 1);
}

void WindowRobot::PressKey(WORD key) const {
  const HWND focus = GetFocus();
  if (focus == nullptr) throw StageError("nothing has the keyboard focus");
  Send(focus, WM_KEYDOWN, key, 1);
  Send(focus, WM_KEYUP, key, 1);
}

void WindowRobot::Strike(const Text& control, ui::KeyStroke stroke, int times) const {
  Focus(control);
  const bool with_alt = (stroke.shift & ui::kAltHeld) != 0;
  const HeldKey alt(with_alt ? VK_MENU : stroke.key);
  const HeldKey control_key((stroke.shift & ui::kCtrlHeld) != 0 ? VK_CONTROL : stroke.key);
  const HWND window = Find(control);
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

BOOL CALLBACK FindMenu(HWND window, LPARAM found) {
  if (!IsClass(window, u"#32768") || !IsWindowVisible(window)) return TRUE;
  *reinterpret_cast<HWND*>(found) = window;
  return FALSE;
}

void CALLBACK StepThroughMenu(HWND, UINT, UINT_PTR, DWORD) {
  HWND window = nullptr;
  EnumThreadWindows(GetCurrentThreadId(), &FindMenu, reinterpret_cast<LPARAM>(&window));
  if (window == nullptr || menu_walk == nullptr) return;
  constexpr UINT kGetMenu = 0x01E1;  // MN_GETHMENU
  const auto menu = reinterpret_cast<HMENU>(Send(window, kGetMenu));
  for (int at = 0; !menu_walk->is_read && at < GetMenuItemCount(menu); ++at) {
    std::array<wchar_t, 128> text{};
    GetMenuStringW(menu, static_cast<UINT>(at), text.data(), static_cast<int>(text.size()),
                   MF_BYPOSITION);
    const UINT state = GetMenuState(menu, static_cast<UINT>(at), MF_BYPOSITION);
    const Text shown = FromWide(text.data());
    if (shown.empty()) continue;
    const bool is_grey = (state & MF_GRAYED) != 0;
    if (!is_grey && shown.starts_with(menu_walk->wanted + u'\t')) menu_walk->wanted_at = at;
    const std::size_t tab = shown.find(u'\t');
    const Text item = Concat({shown.substr(0, tab), u" | ", shown.substr(tab + 1)});
    menu_walk->items.push_back(is_grey ? Concat({u"(", item, u")"}) : item);
  }
  menu_walk->is_read = true;
  const bool chooses = menu_walk->wanted_at >= 0;
  const bool is_there =
      chooses &&
      (GetMenuState(menu, static_cast<UINT>(menu_walk->wanted_at), MF_BYPOSITION) & MF_HILITE) != 0;
  PostMessageW(menu_walk->owner, WM_KEYDOWN,
               !chooses   ? VK_ESCAPE
               : is_there ? VK_RETURN
                          : VK_DOWN,
               1);
}

}  // namespace

std::vector<Text> WindowRobot::ChooseFromMenu(const Text& control, int row,
                                              const Text& item) const {
  Focus(control);
  const HWND list = Find(control);
  MenuWalk walk;
  walk.wanted = item;
  walk.owner = list;
  menu_walk = &walk;
  const UINT_PTR timer = SetTimer(nullptr, 0, 10, &StepThroughMenu);
  if (row < 0) {
    Send(list, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(list), -1);
  } else {
    RECT place = {};
    Send(list, LB_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&place));
    Send(list, WM_RBUTTONDOWN, MK_RBUTTON, At(Middle(place)));
    Send(list, WM_RBUTTONUP, 0, At(Middle(place)));
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
  const HWND window = Reach(control);
  const auto place = OpenPlace(FormWindow(), window);
  if (!place.has_value()) Fail(control, "is covered");
  const ButtonMessages messages = MessagesOf(button);
  Send(window, messages.down, messages.key, At(*place));
}

void WindowRobot::Release(const Text& control, std::int16_t button) const {
  const HWND window = Reach(control);
  const auto place = OpenPlace(FormWindow(), window);
  if (!place.has_value()) Fail(control, "is covered");
  const HWND capture = GetCapture();
  POINT where = *place;
  if (capture != nullptr) MapWindowPoints(window, capture, &where, 1);
  Send(capture != nullptr ? capture : window, MessagesOf(button).up, 0, At(where));
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

namespace {
Text Truth(bool value) {
  return Text(headless::TruthWord(value));
}
}  // namespace

Text WindowRobot::Read(const Text& control, const Text& property,
                       const std::vector<Text>& pictures) const {
  const HWND window = Find(control);
  const bool is_list = IsClass(window, u"ListBox");
  const bool is_box = IsClass(window, u"ComboBox");
  const bool is_strip = IsClass(window, u"SysTabControl32");
  if (property == u"enabled") return Truth(!HasStyle(window, WS_DISABLED));
  if (property == u"visible") return Truth(HasStyle(window, WS_VISIBLE));
  if (property == u"shown") return Truth(IsWindowVisible(window) != FALSE);
  if (property == u"tooltip") return ReadTooltip(window);
  if (property == u"pointer") return Text(headless::PointerWord(IsBusyOver(control)));
  if (property == u"picture") return PictureIn(window, pictures);
  if (property == u"value") return Decimal(Send(window, BM_GETCHECK));
  if (property == u"count") {
    return Decimal(is_strip ? Send(window, TCM_GETITEMCOUNT) : CountOf(window));
  }
  if (property == u"index") {
    if (is_strip) return Decimal(Send(window, TCM_GETCURSEL));
    if (is_box) return Decimal(Send(window, CB_GETCURSEL));
    if (!IsExtended(window)) return Decimal(Send(window, LB_GETCURSEL));
    const bool none = CountOf(window) == 0 || Send(window, LB_GETSELCOUNT) == 0;
    return Decimal(none ? -1 : Send(window, LB_GETCARETINDEX));
  }
  if (is_list && property == u"caret") return Decimal(Send(window, LB_GETCARETINDEX));
  if (is_list && property == u"top") return Decimal(Send(window, LB_GETTOPINDEX));
  if (property.starts_with(u"item ")) {
    const int row = RowIn(property, u"item ");
    return is_strip ? TabCaption(window, row) : ItemOf(window, row);
  }
  if (is_list && property.starts_with(u"data ")) {
    const int row = RowIn(property, u"data ");
    if (row < 0 || row >= CountOf(window)) throw StageError("there is no row of that number");
    return Decimal(
        static_cast<std::int32_t>(Send(window, LB_GETITEMDATA, static_cast<WPARAM>(row))));
  }
  if (is_list && property == u"selected") {
    Text rows;
    for (const int row : SelectedRows(window)) {
      if (!rows.empty()) rows += u' ';
      AppendDecimal(rows, row);
    }
    return rows;
  }
  if (property == u"text" || property == u"caption") {
    if (is_strip) return TabCaption(window, static_cast<int>(Send(window, TCM_GETCURSEL)));
    if (is_box || is_list) {
      const LRESULT row = Send(window, is_box ? CB_GETCURSEL : LB_GETCURSEL);
      return row < 0 ? Text() : ItemOf(window, static_cast<int>(row));
    }
    return WindowText(window);
  }
  if (const auto place = ReadPlace(window, property)) return *place;
  throw StageError("no window shows the property " + ToUtf8(property));
}

bool WindowRobot::IsBusyOver(const Text& control) const {
  const HWND window = Find(control);
  const HCURSOR before = GetCursor();
  SetCursor(LoadCursorW(nullptr, IDC_ARROW));
  Send(window, WM_SETCURSOR, reinterpret_cast<WPARAM>(window), MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
  const bool busy = GetCursor() == LoadCursorW(nullptr, IDC_WAIT);
  SetCursor(before);
  return busy;
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

BOOL CALLBACK TryBox(HWND window, LPARAM parameter) {
  auto& box = *reinterpret_cast<OpenBox*>(parameter);
  if (!IsWindowVisible(window) || !IsWindowEnabled(window) || !IsClass(window, u"#32770")) {
    return TRUE;
  }
  box = {window, FileNameField(window) != nullptr, WindowText(window), {}};
  if (box.asks_for_file) {
    wchar_t folder[MAX_PATH] = {};
    SendMessageW(window, CDM_GETFOLDERPATH, MAX_PATH, reinterpret_cast<LPARAM>(folder));
    box.text = FromWide(folder);
  }
  const HWND text = GetDlgItem(window, kMessageText);
  if (text != nullptr) box.text = WindowText(text);
  return FALSE;
}

std::function<void()>& Turn() {
  static std::function<void()> turn;
  return turn;
}

void CALLBACK Beat(HWND, UINT, UINT_PTR, DWORD) {
  const auto turn = Turn();
  try {
    if (turn) turn();
  } catch (...) {
    // `turn` keeps its own failures; nothing may pass into the system.
  }
}

}  // namespace

OpenBox FindOpenBox() {
  OpenBox box;
  EnumThreadWindows(GetCurrentThreadId(), &TryBox, reinterpret_cast<LPARAM>(&box));
  return box;
}

void AcknowledgeBox(const OpenBox& box) {
  Send(box.window, WM_COMMAND, IDOK);
}

void AnswerFileBox(const OpenBox& box, const std::vector<Text>& paths) {
  if (paths.empty()) {
    Send(box.window, WM_COMMAND, IDCANCEL);
    return;
  }
  Text answer = paths.front();
  if (paths.size() > 1) {
    answer.clear();
    for (const Text& path : paths) answer += Concat({answer.empty() ? u"\"" : u" \"", path, u"\""});
  }
  Send(FileNameField(box.window), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(Wide(answer)));
  Send(box.window, WM_COMMAND, IDOK);
}

Heartbeat::Heartbeat(std::function<void()> turn) {
  Turn() = std::move(turn);
  timer_ = SetTimer(nullptr, 0, 10, &Beat);
}

Heartbeat::~Heartbeat() {
  KillTimer(nullptr, timer_);
  Turn() = nullptr;
}

}  // namespace quill::host
