// The native text box.
#include "ui/controls.h"

#include <algorithm>
#include <utility>

#include "win32/native_text.h"
#include "win32/peers.h"

namespace quill::win32 {
namespace {

class TextBoxPeer final : public PeerOf<ui::TextBox> {
 public:
  using PeerOf::PeerOf;

  void OnCommand(WORD notification) override {
    if (notification != EN_CHANGE) return;
    const bool editing_before = std::exchange(editing_, true);
    const auto [from, to] = selected_;  // asking for the text handles messages
    Tell(ui::TextEdited{WindowText(window()), from, to});
    editing_ = editing_before;  // the echo of the model's text comes in the middle of an edit
  }

  [[nodiscard]] Style GetStyle() const override {
    return {L"EDIT", &model_.text(),
            AlignmentStyle(model_.alignment()) | ES_AUTOHSCROLL | WS_TABSTOP |
                (model_.locked() ? ES_READONLY : 0u),
            WS_EX_CLIENTEDGE};
  }

  void Show(ui::Changes changes) override {
    // The limit is the model's, which also knows what it does not hold for.
    constexpr WPARAM kNoLimit = 0x7FFFFFFE;
    if (making()) Send(EM_SETLIMITTEXT, kNoLimit);
    if (changes.Has(ui::Changes::kText)) ShowText();
  }

  LRESULT Handle(UINT message, WPARAM wparam, LPARAM lparam) override {
    NoteSelection(message);
    // Enter and Escape mean nothing here; the class would only beep at them, and not every version
    // of it knows Ctrl+A.
    constexpr WPARAM kCtrlA = 1;
    if (message == WM_CHAR && wparam == kCtrlA) Send(EM_SETSEL, 0, -1);
    if (message == WM_CHAR && (wparam == L'\r' || wparam == L'\x1B' || wparam == kCtrlA)) return 0;
    return WindowPeer::Handle(message, wparam, lparam);
  }

 private:
  void ShowText() {
    const Text native = WindowText(window());
    if (native == model_.text()) return;
    DWORD caret = 0;
    Send(EM_GETSEL, 0, reinterpret_cast<LPARAM>(&caret));
    SetWindowTextW(window(), Wide(model_.text()));
    if (!editing_) return;
    // What the model left out of an edit lies right before the caret.
    const std::size_t behind = native.size() - std::min<std::size_t>(caret, native.size());
    const std::size_t place = model_.text().size() - std::min(behind, model_.text().size());
    Send(EM_SETSEL, place, static_cast<LPARAM>(place));
  }

  // Before a message that may edit the text: once it is edited the class no longer knows.
  void NoteSelection(UINT message) {
    constexpr UINT kEdits[] = {WM_CHAR, WM_KEYDOWN,    WM_PASTE,          WM_CUT, WM_CLEAR, WM_UNDO,
                               EM_UNDO, EM_REPLACESEL, WM_IME_COMPOSITION};
    if (message == WM_SETTEXT) selected_ = {0, Text::npos};
    if (std::ranges::find(kEdits, message) == std::end(kEdits)) return;
    DWORD from = 0;
    DWORD to = 0;
    CallOriginal(EM_GETSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
    selected_ = {from, to};
  }

  std::pair<std::size_t, std::size_t> selected_;
  bool editing_ = false;  // the operator's edit is with the model
};

}  // namespace

PeerMaker* const kMakeTextBoxPeer = &MakePeerOf<TextBoxPeer>;

}  // namespace quill::win32
