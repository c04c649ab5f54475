#include "win32/text_box_peer.h"

#include <algorithm>
#include <utility>

#include "win32/native_text.h"
#include "win32/win32_toolkit.h"

namespace quill::win32 {
namespace {

DWORD EditStyle(ui::Alignment alignment) {
  switch (alignment) {
    case ui::Alignment::kRight:
      return ES_RIGHT;
    case ui::Alignment::kCentre:
      return ES_CENTER;
    case ui::Alignment::kLeft:
      break;
  }
  return ES_LEFT;
}

}  // namespace

WindowPeer::Style TextBoxPeer::GetStyle() const {
  return {L"EDIT", &box_.text(),
          EditStyle(box_.alignment()) | ES_AUTOHSCROLL | WS_TABSTOP |
              (box_.locked() ? ES_READONLY : 0u),
          WS_EX_CLIENTEDGE};
}

void TextBoxPeer::Show(ui::Changes changes) {
  if (changes.Has(ui::Changes::kFont)) SetFont(Win32Toolkit::kFontPoints);
  if (changes.Has(ui::Changes::kLimit)) {
    // The limit is the model's, which also knows what it does not hold for.
    constexpr WPARAM kNoLimit = 0x7FFFFFFE;
    Send(EM_SETLIMITTEXT, kNoLimit);
  }
  if (changes.Has(ui::Changes::kText)) ShowText();
}

void TextBoxPeer::ShowText() {
  const Text native = WindowText(window());
  if (native == box_.text()) return;
  DWORD caret = 0;
  Send(EM_GETSEL, 0, reinterpret_cast<LPARAM>(&caret));
  SetWindowTextW(window(), Wide(box_.text()));
  if (!editing_) return;
  // What the model left out of an edit lies right before the caret.
  const std::size_t behind = native.size() - std::min<std::size_t>(caret, native.size());
  const std::size_t place = box_.text().size() - std::min(behind, box_.text().size());
  Send(EM_SETSEL, place, static_cast<LPARAM>(place));
}

void TextBoxPeer::OnCommand(WORD notification) {
  if (notification != EN_CHANGE) return;
  const bool editing_before = std::exchange(editing_, true);
  const auto [from, to] = selected_;  // asking for the text handles messages
  Tell(ui::TextEdited{WindowText(window()), from, to});
  editing_ = editing_before;  // the echo of the model's text comes in the middle of an edit
}

void TextBoxPeer::NoteSelection(UINT message) {
  DWORD from = 0;
  DWORD to = 0;
  switch (message) {
    case WM_CHAR:
    case WM_KEYDOWN:
    case WM_PASTE:
    case WM_CUT:
    case WM_CLEAR:
    case WM_UNDO:
    case EM_UNDO:
    case EM_REPLACESEL:
    case WM_IME_COMPOSITION:
      CallOriginal(EM_GETSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
      selected_ = {from, to};
      break;
    case WM_SETTEXT:
      selected_ = {0, Text::npos};
      break;
    default:
      break;
  }
}

LRESULT TextBoxPeer::Handle(UINT message, WPARAM wparam, LPARAM lparam) {
  NoteSelection(message);
  // Enter and Escape mean nothing here; the class would only beep at them, and not every version of
  // it knows Ctrl+A.
  constexpr WPARAM kCtrlA = 1;
  if (message == WM_CHAR && wparam == kCtrlA) Send(EM_SETSEL, 0, -1);
  if (message == WM_CHAR && (wparam == L'\r' || wparam == L'\x1B' || wparam == kCtrlA)) return 0;
  return WindowPeer::Handle(message, wparam, lparam);
}

}  // namespace quill::win32
