// The fields that the operator fills in: text boxes and drop-down lists.
#include <algorithm>
#include <utility>

#include "ui/controls.h"
#include "win32/drawing.h"
#include "win32/native_text.h"
#include "win32/peers.h"
#include "win32/win32_toolkit.h"

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
    // Without ES_AUTOHSCROLL the class would take no more text than is seen.
    return {L"EDIT", &model_.text(),
            AlignmentStyle(model_.alignment) | ES_AUTOHSCROLL | WS_TABSTOP |
                (model_.locked ? ES_READONLY : 0u),
            WS_EX_CLIENTEDGE};
  }

  void Show(ui::Changes changes) override {
    // The limit is the model's, and holds for the operator's edits only. This is the most that the
    // class takes; by itself it stops at 32,767 characters.
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

constexpr ui::Twips kDroppedHeight = 2400;

class ComboBoxPeer final : public PeerOf<ui::ComboBox> {
 public:
  using PeerOf::PeerOf;

  void OnCommand(WORD notification) override {
    if (notification == CBN_DROPDOWN) taken_back_ = false;
    if (notification == CBN_SELENDCANCEL) taken_back_ = true;
    const int index = static_cast<int>(Send(CB_GETCURSEL));
    // Escape takes back what was chosen with the arrow keys, without a change being told. A choice
    // with the mouse may close the list before it is told.
    const bool back = notification == CBN_CLOSEUP && taken_back_ && index != model_.ListIndex();
    if (back || notification == CBN_SELCHANGE) Tell(ui::ItemChosen{index});
  }

  [[nodiscard]] Style GetStyle() const override {
    return {L"COMBOBOX", nullptr, CBS_DROPDOWNLIST | CBS_HASSTRINGS | WS_VSCROLL | WS_TABSTOP};
  }

  // With the height of the list dropped down, as the class wants it.
  [[nodiscard]] RECT Place() const override {
    RECT place = WindowPeer::Place();
    place.bottom += toolkit().scale().Pixels(kDroppedHeight);
    return place;
  }

  void Show(ui::Changes changes) override {
    if (changes.Has(ui::Changes::kBounds)) FitClosedHeight();
    const bool all_new = changes.Has(ui::Changes::kRows);
    if (all_new || changes.Has(ui::Changes::kRowsAdded)) ShowItems(all_new);
    if (changes.Has(ui::Changes::kSelection) && Send(CB_GETCURSEL) != model_.ListIndex()) {
      Send(CB_SETCURSEL, static_cast<WPARAM>(model_.ListIndex()));
    }
  }

 private:
  // The class makes itself as high as its font wants. What can be told to it is the height of its
  // item, to which it adds a margin that differs from system to system.
  void FitClosedHeight() {
    // A guess, which the first box corrects for all that follow.
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
      // -1 is the closed box.
      Send(CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), item);
      known_margin = closed_height() - item;
    }
  }

  void ShowItems(bool all_new) {
    if (all_new && Send(CB_GETCOUNT) > 0) Send(CB_RESETCONTENT);
    if (Send(CB_GETCOUNT) == model_.Count()) return Repaint();
    Send(WM_SETREDRAW, FALSE);  // each item would be drawn for itself
    for (int index = static_cast<int>(Send(CB_GETCOUNT)); index < model_.Count(); ++index) {
      Send(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(Wide(Text(model_.Item(index)))));
    }
    // The open list is never narrower than the closed one, whatever it is told.
    int width = WidestRow(window(), model_, 0);
    width += GetSystemMetrics(SM_CXVSCROLL) + 4 * GetSystemMetrics(SM_CXEDGE);
    Send(CB_SETDROPPEDWIDTH, static_cast<WPARAM>(width));
    Send(WM_SETREDRAW, TRUE);
    Repaint();
  }

  bool taken_back_ = false;  // the choice in the open list
};

}  // namespace

PeerMaker* const kMakeComboBoxPeer = &MakePeerOf<ComboBoxPeer>;
PeerMaker* const kMakeTextBoxPeer = &MakePeerOf<TextBoxPeer>;

}  // namespace quill::win32
