// The system's boxes, and one more for a message that is taller than the screen.
#include "win32/boxes.h"

#include <commctrl.h>
#include <commdlg.h>

#include <algorithm>
#include <optional>
#include <string>

#include "support/runtime_error.h"
#include "win32/drawing.h"
#include "win32/modal_display.h"
#include "win32/native_text.h"
#include "win32/system_services.h"

namespace quill::win32 {
namespace {

// Pixels at 96 dots per inch.
constexpr SIZE kMargin = {12, 12};
constexpr SIZE kButton = {75, 23};
constexpr SIZE kAroundSystemText = {0, 140};  // by how much the system's box is taller

constexpr int kTextId = 0xFFFF;  // as in the system's box

// The font of the system's box; null: it does not tell.
Owned<HFONT> MakeMessageFont() noexcept {
  NONCLIENTMETRICSW metrics = {};
  metrics.cbSize = sizeof metrics;
  return Owned<HFONT>(SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0)
                          ? CreateFontIndirectW(&metrics.lfMessageFont)
                          : nullptr);
}

// Of the text, broken into lines where the system's box breaks it.
SIZE Measure(HFONT font, const Text& text, const RECT& work) noexcept {
  RECT area = {0, 0, (work.right - work.left) / 8 * 5, 0};
  const WindowContext screen(nullptr, font);
  DrawTextW(screen.get(), Wide(text), -1, &area,
            DT_CALCRECT | DT_WORDBREAK | DT_EXPANDTABS | DT_NOPREFIX | DT_EXTERNALLEADING);
  return {area.right, area.bottom};
}

// Without comctl32's own subclassing, which version 5 is not promised to export by name.
LRESULT CALLBACK CopyWithoutSelection(HWND field, UINT message, WPARAM wparam, LPARAM lparam) {
  const auto former = reinterpret_cast<WNDPROC>(GetWindowLongPtrW(field, GWLP_USERDATA));
  DWORD from = 0;
  DWORD to = 0;
  if (message == WM_COPY) {
    SendMessageW(field, EM_GETSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
  }
  if (message != WM_COPY || from != to)
    return CallWindowProcW(former, field, message, wparam, lparam);
  // As in the system's box, where Ctrl+C copies the whole message.
  SendMessageW(field, EM_SETSEL, 0, -1);
  const LRESULT result = CallWindowProcW(former, field, message, wparam, lparam);
  SendMessageW(field, EM_SETSEL, from, static_cast<LPARAM>(to));
  return result;
}

// The same caption, the same text and one OK button as in the system's box, in a window that fits
// the work area and scrolls. Meanwhile the owner, or without one every other window of the thread,
// takes no input. Enter, Esc, Alt+F4 and the close button close it; copying without a selection
// copies all.
struct ScrollingBox {
  static INT_PTR CALLBACK Handle(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    if (message == WM_INITDIALOG) {
      SetWindowLongPtrW(window, DWLP_USER, lparam);
      reinterpret_cast<ScrollingBox*>(lparam)->Fill(window);
      return FALSE;  // the focus is where it belongs
    }
    if (message != WM_COMMAND) return FALSE;
    if (LOWORD(wparam) != IDOK && LOWORD(wparam) != IDCANCEL) return FALSE;
    // The others first: the system activates one of them when the box goes.
    reinterpret_cast<ScrollingBox*>(GetWindowLongPtrW(window, DWLP_USER))->others.reset();
    EndDialog(window, IDOK);
    return TRUE;
  }

  void Fill(HWND window) noexcept {
    if (owner == nullptr) others.emplace(window, GetActiveWindow()).HoldBackOthers();
    const ScreenScale scale;
    const SIZE margin = scale.Scaled(kMargin);
    const SIZE button = scale.Scaled(kButton);
    const RECT work = WorkAreaFor(owner);
    const SIZE room = {work.right - work.left, work.bottom - work.top};

    // As wide as the text and its bar need, and seven eighths of the work area tall.
    RECT outer = {0, 0, 0, 0};
    AdjustWindowRectEx(&outer, static_cast<DWORD>(GetWindowLongPtrW(window, GWL_STYLE)), FALSE,
                       static_cast<DWORD>(GetWindowLongPtrW(window, GWL_EXSTYLE)));
    const SIZE frame = {outer.right - outer.left, outer.bottom - outer.top};
    const LONG bar = GetSystemMetrics(SM_CXVSCROLL) + margin.cx;
    const SIZE inner = {
        std::min(Measure(font.get(), text, work).cx + bar + 2 * margin.cx, room.cx - frame.cx),
        room.cy / 8 * 7 - frame.cy};
    const SIZE field = {inner.cx - 2 * margin.cx, inner.cy - button.cy - 3 * margin.cy};

    const auto place = [&](int id, LONG left, LONG top, SIZE size) {
      const HWND control = GetDlgItem(window, id);
      MoveWindow(control, left, top, size.cx, size.cy, FALSE);
      SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(font.get()), FALSE);
      return control;
    };
    SetWindowTextW(window, Wide(caption));
    MoveWindow(window, work.left + (room.cx - inner.cx - frame.cx) / 2, work.top + room.cy / 16,
               inner.cx + frame.cx, inner.cy + frame.cy, FALSE);
    place(IDOK, (inner.cx - button.cx) / 2, inner.cy - margin.cy - button.cy, button);
    const HWND field_window = place(kTextId, margin.cx, margin.cy, field);
    SetWindowTextW(field_window, Wide(text));
    SetWindowLongPtrW(field_window, GWLP_USERDATA, GetWindowLongPtrW(field_window, GWLP_WNDPROC));
    SetWindowLongPtrW(field_window, GWLP_WNDPROC,
                      reinterpret_cast<LONG_PTR>(&CopyWithoutSelection));
    MessageBeep(MB_OK);
    SetFocus(field_window);
  }

  HWND owner;
  const Text& caption;
  Text text;
  const Owned<HFONT> font = MakeMessageFont();
  std::optional<ModalDisplay> others = std::nullopt;
};

// Room for a selection of many files.
constexpr std::size_t kBufferSize = 65536;

// "description|pattern" as zero-ended strings with a zero behind the last.
std::wstring NativeFilter(TextView filter) {
  std::wstring native(filter.begin(), filter.end());
  std::replace(native.begin(), native.end(), L'|', L'\0');
  native.append(2, L'\0');
  return native;
}

}  // namespace

void ShowMessageBox(HWND owner, const Text& caption, const Text& text) {
  const RECT work = WorkAreaFor(owner);
  const LONG height = Measure(MakeMessageFont().get(), text, work).cy;
  INT_PTR answer = 0;
  if (height + ScreenScale().Scaled(kAroundSystemText).cy > work.bottom - work.top) {
    // A text field breaks lines at carriage return and line feed together only.
    const Text lines = ReplaceAll(ReplaceAll(text, kLineBreak, u"\n"), u"\r", u"\n");
    ScrollingBox box = {owner, caption, ReplaceAll(lines, u"\n", kLineBreak)};
    answer = DialogBoxParamW(ThisModule(), L"SCROLLBOX", owner, &ScrollingBox::Handle,
                             reinterpret_cast<LPARAM>(&box));
  } else {
    // Without an owner the flag has all windows of the thread wait.
    answer = MessageBoxW(owner, Wide(text), Wide(caption),
                         MB_OK | (owner == nullptr ? MB_TASKMODAL : 0u));
  }
  // A thread that is to quit closes its boxes without an answer.
  MSG quit;
  if (answer > 0 || PeekMessageW(&quit, nullptr, WM_QUIT, WM_QUIT, PM_NOREMOVE)) return;
  throw RuntimeError(ErrorNumber::kInvalidProcedureCall, u"The message box could not be shown");
}

int ChooseFromMenu(HWND owner, POINT place, const std::vector<ui::MenuItem>& items) {
  const Owned<HMENU> menu(CreatePopupMenu());
  if (menu == nullptr) return -1;
  UINT_PTR command = 0;  // counted from 1: the system answers 0 for none
  for (const ui::MenuItem& item : items) {
    if (item.begins_group) AppendMenuW(menu.get(), MF_SEPARATOR, 0, nullptr);
    const Text text = Concat({item.caption, u"\t", item.key_name});
    AppendMenuW(menu.get(), MF_STRING | (item.is_usable() ? 0u : MF_GRAYED), ++command, Wide(text));
  }
  return static_cast<int>(TrackPopupMenuEx(menu.get(), TPM_RETURNCMD | TPM_RIGHTBUTTON, place.x,
                                           place.y, owner, nullptr)) -
         1;
}

std::vector<Text> PathsIn(std::wstring_view buffer) {
  std::vector<Text> pieces;
  while (!buffer.empty() && buffer.front() != L'\0') {
    const std::size_t end = std::min(buffer.find(L'\0'), buffer.size());
    pieces.push_back(FromWide(buffer.substr(0, end)));
    buffer.remove_prefix(std::min(end + 1, buffer.size()));
  }
  if (pieces.size() <= 1) return pieces;

  Text folder = pieces.front();
  if (!folder.ends_with(u'\\')) folder += u'\\';
  pieces.erase(pieces.begin());
  for (Text& name : pieces) {
    // A name from elsewhere comes as a full path.
    const bool is_full = name.starts_with(u"\\\\") || (name.size() > 1 && name[1] == u':');
    if (!is_full) name.insert(0, folder);
  }
  return pieces;
}

std::vector<Text> AskForFiles(HWND owner, const ui::FileDialogRequest& request) {
  const std::wstring filter = NativeFilter(request.filter);
  // With two zeros at its end at least, as PathsIn reads them.
  std::wstring buffer(kBufferSize, L'\0');
  const std::size_t proposed = std::min(request.file_name.size(), kBufferSize - 2);
  std::copy_n(request.file_name.begin(), proposed, buffer.begin());

  OPENFILENAMEW dialog = {};
  dialog.lStructSize = sizeof dialog;
  dialog.hwndOwner = owner;
  dialog.lpstrFilter = filter.c_str();
  dialog.lpstrFile = buffer.data();
  dialog.nMaxFile = static_cast<DWORD>(buffer.size());
  dialog.lpstrInitialDir = request.initial_folder.empty() ? nullptr : Wide(request.initial_folder);
  dialog.lpstrTitle = request.title.empty() ? nullptr : Wide(request.title);
  dialog.Flags = request.flags;

  // The dialog's own flag for it, OFN_NOCHANGEDIR, has no effect on opening files.
  std::wstring folder(kBufferSize, L'\0');
  GetCurrentDirectoryW(static_cast<DWORD>(folder.size()), folder.data());
  const BOOL picked = request.save ? GetSaveFileNameW(&dialog) : GetOpenFileNameW(&dialog);
  SetCurrentDirectoryW(folder.c_str());
  if (picked) return PathsIn(buffer);
  const DWORD reason = CommDlgExtendedError();
  // The operator has cancelled.
  if (reason == 0) return {};
  if (reason == FNERR_BUFFERTOOSMALL) {
    throw RuntimeError(ErrorNumber::kInvalidProcedureCall, u"Too many files were picked");
  }
  throw RuntimeError(
      ErrorNumber::kInvalidProcedureCall,
      Concat({u"The file dialog could not be shown (error ", Decimal(reason), u")"}));
}

}  // namespace quill::win32
