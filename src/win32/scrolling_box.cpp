// Measuring as the system does, and a dialog around a read-only text field.
#include "win32/scrolling_box.h"

#include <commctrl.h>

#include <algorithm>
#include <optional>

#include "win32/fonts.h"
#include "win32/modal_display.h"
#include "win32/native_text.h"
#include "win32/owned.h"
#include "win32/screen_scale.h"
#include "win32/this_module.h"

namespace quill::win32 {
namespace {

// Pixels at 96 dots per inch.
constexpr SIZE kMargin = {12, 12};
constexpr SIZE kButton = {75, 23};
constexpr SIZE kAroundSystemText = {0, 140};  // what the system's box is taller than its text

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
  const FontContext screen(nullptr, font);
  DrawTextW(screen.get(), Wide(text), -1, &area,
            DT_CALCRECT | DT_WORDBREAK | DT_EXPANDTABS | DT_NOPREFIX | DT_EXTERNALLEADING);
  return {area.right, area.bottom};
}

LRESULT CALLBACK CopyWithoutSelection(HWND field, UINT message, WPARAM wparam, LPARAM lparam,
                                      UINT_PTR, DWORD_PTR) {
  if (message == WM_NCDESTROY) RemoveWindowSubclass(field, &CopyWithoutSelection, 0);
  DWORD from = 0;
  DWORD to = 0;
  if (message == WM_COPY) {
    SendMessageW(field, EM_GETSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
  }
  if (message != WM_COPY || from != to) return DefSubclassProc(field, message, wparam, lparam);
  SendMessageW(field, EM_SETSEL, 0, -1);
  const LRESULT result = DefSubclassProc(field, message, wparam, lparam);
  SendMessageW(field, EM_SETSEL, from, static_cast<LPARAM>(to));
  return result;
}

class ScrollingBox {
 public:
  ScrollingBox(HWND owner, const Text& caption, const Text& text)
      : owner_(owner), caption_(caption), text_(ReplaceAll(text, kLineBreak, u"\n")) {
    // A text field breaks lines at carriage return and line feed together only.
    text_ = ReplaceAll(ReplaceAll(text_, u"\r", u"\n"), u"\n", kLineBreak);
  }
  ScrollingBox(const ScrollingBox&) = delete;
  ScrollingBox& operator=(const ScrollingBox&) = delete;

  INT_PTR Show() {
    return DialogBoxParamW(ThisModule(), L"SCROLLBOX", owner_, &Handle,
                           reinterpret_cast<LPARAM>(this));
  }

 private:
  static INT_PTR CALLBACK Handle(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    if (message == WM_INITDIALOG) {
      SetWindowLongPtrW(window, DWLP_USER, lparam);
      reinterpret_cast<ScrollingBox*>(lparam)->Fill(window);
      return FALSE;  // the focus is where it belongs
    }
    if (message != WM_COMMAND) return FALSE;
    if (LOWORD(wparam) != IDOK && LOWORD(wparam) != IDCANCEL) return FALSE;
    // The others first: the system activates one of them when the box goes.
    reinterpret_cast<ScrollingBox*>(GetWindowLongPtrW(window, DWLP_USER))->others_.reset();
    EndDialog(window, IDOK);
    return TRUE;
  }

  void Fill(HWND window) noexcept {
    if (owner_ == nullptr) others_.emplace(window, GetActiveWindow()).HoldBackOthers();
    const ScreenScale scale;
    const SIZE margin = scale.Scaled(kMargin);
    const SIZE button = scale.Scaled(kButton);
    const RECT work = WorkAreaFor(owner_);
    const SIZE room = {work.right - work.left, work.bottom - work.top};

    // As wide as the text and its bar need, and seven eighths of the work area tall.
    RECT outer = {0, 0, 0, 0};
    AdjustWindowRectEx(&outer, static_cast<DWORD>(GetWindowLongPtrW(window, GWL_STYLE)), FALSE,
                       static_cast<DWORD>(GetWindowLongPtrW(window, GWL_EXSTYLE)));
    const SIZE frame = {outer.right - outer.left, outer.bottom - outer.top};
    const LONG bar = GetSystemMetrics(SM_CXVSCROLL) + margin.cx;
    const SIZE inner = {
        std::min(Measure(font_.get(), text_, work).cx + bar + 2 * margin.cx, room.cx - frame.cx),
        room.cy / 8 * 7 - frame.cy};
    const SIZE field = {inner.cx - 2 * margin.cx, inner.cy - button.cy - 3 * margin.cy};

    const auto place = [&](int id, LONG left, LONG top, SIZE size) {
      const HWND control = GetDlgItem(window, id);
      MoveWindow(control, left, top, size.cx, size.cy, FALSE);
      SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(font_.get()), FALSE);
      return control;
    };
    SetWindowTextW(window, Wide(caption_));
    MoveWindow(window, work.left + (room.cx - inner.cx - frame.cx) / 2, work.top + room.cy / 16,
               inner.cx + frame.cx, inner.cy + frame.cy, FALSE);
    place(IDOK, (inner.cx - button.cx) / 2, inner.cy - margin.cy - button.cy, button);
    const HWND text = place(kTextId, margin.cx, margin.cy, field);
    SetWindowTextW(text, Wide(text_));
    SetWindowSubclass(text, &CopyWithoutSelection, 0, 0);
    MessageBeep(MB_OK);
    SetFocus(text);
  }

  HWND owner_;
  const Text& caption_;
  Text text_;
  const Owned<HFONT> font_ = MakeMessageFont();
  std::optional<ModalDisplay> others_;
};

}  // namespace

bool NeedsScrolling(HWND owner, const Text& text) noexcept {
  const RECT work = WorkAreaFor(owner);
  const LONG height = Measure(MakeMessageFont().get(), text, work).cy;
  return height + ScreenScale().Scaled(kAroundSystemText).cy > work.bottom - work.top;
}

INT_PTR ShowScrollingBox(HWND owner, const Text& caption, const Text& text) {
  return ScrollingBox(owner, caption, text).Show();
}

}  // namespace quill::win32
