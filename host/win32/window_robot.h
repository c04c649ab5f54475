// An operator at the real dialog: gestures as genuine window messages, sights read back from the
// native windows. Works on windows of its own thread, from a timer or another callback inside the
// dialog's message loop. A gesture that nobody could make, because the control is hidden, disabled,
// covered or not there, fails with StageError.
#pragma once

#include <windows.h>

#include <array>
#include <functional>
#include <string_view>
#include <vector>

#include "host/story/stage.h"
#include "support/runtime_error.h"
#include "support/text.h"
#include "ui/fact.h"

namespace quill::host {

class StageError : public RuntimeError {
 public:
  explicit StageError(std::string_view reason)
      : RuntimeError(ErrorNumber::kInvalidProcedureCall, FromUtf8(reason)) {}
};

class WindowRobot {
 public:
  // `form` is the name of the dialog.
  explicit WindowRobot(Text form) : form_(std::move(form)) {}

  // The window of the dialog, null while there is none; whether it is shown.
  [[nodiscard]] HWND FormWindow() const;
  [[nodiscard]] bool FormShown() const;
  // The window of the control of that name; StageError when there is none.
  [[nodiscard]] HWND Find(const Text& control) const;

  void Type(const Text& control, const Text& text) const;   // at the end of what is there
  void Paste(const Text& control, const Text& text) const;  // in place of what is there
  void EraseLast(const Text& control, int count) const;
  void Choose(const Text& control, const Text& item) const;  // with the mouse, from the open list
  void ScrollBy(const Text& control, int rows) const;        // by the bar's arrows
  void ScrollTo(const Text& control, int row) const;         // by the bar's thumb
  void TurnWheel(const Text& control, int notches) const;    // positive: away from the operator
  void ClickTab(const Text& caption) const;
  void Click(const Text& control) const;
  void SelectRows(const Text& control, const std::vector<int>& rows) const;
  void DoubleClickRow(const Text& control, int row) const;
  void Key(const Text& control, char16_t character) const;
  // A key without a character, in whatever has the focus.
  void PressKey(WORD key) const;
  // A key, with what is held, in a control; `times` as Stage does.
  void Strike(const Text& control, ui::KeyStroke stroke, int times = 1) const;
  // Chooses from a list's context menu as Stage does; the menu's items. An item that is grey or not
  // there leaves it with nothing chosen and fails.
  std::vector<Text> ChooseFromMenu(const Text& control, int row, const Text& item) const;
  // A letter while Alt is held, in whatever has the focus.
  void PressAccessKey(char16_t key, int times = 1) const;
  void Press(const Text& control, std::int16_t button = ui::kLeftButton) const;
  // Where the button was pressed, if it was pressed on another window.
  void Release(const Text& control, std::int16_t button = ui::kLeftButton) const;
  void CloseForm() const;

  // The properties that Stage::Read names, as far as a window shows them. A picture is recognised
  // among `pictures` (full paths) and read as the file's name, empty when none shows.
  [[nodiscard]] Text Read(const Text& control, const Text& property,
                          const std::vector<Text>& pictures = {}) const;
  // The name of the control that has the keyboard focus; empty when none of the dialog's has.
  [[nodiscard]] Text Focused() const;

 private:
  [[nodiscard]] HWND Reach(const Text& control) const;
  HWND Focus(const Text& control) const;
  // A place inside of the control's window that nothing else covers.
  [[nodiscard]] POINT OpenPlace(const Text& control) const;
  void ClickRow(const Text& control, int row, WPARAM keys) const;
  [[nodiscard]] Text ReadTooltip(HWND window) const;

  Text form_;
};

// Makes a modifier key count as held, for native controls that ask the keyboard.
class HeldKey {
 public:
  explicit HeldKey(int key) {
    GetKeyboardState(before_.data());
    auto held = before_;
    held[static_cast<std::size_t>(key)] = 0x80;
    SetKeyboardState(held.data());
  }
  ~HeldKey() { SetKeyboardState(before_.data()); }
  HeldKey(const HeldKey&) = delete;
  HeldKey& operator=(const HeldKey&) = delete;

 private:
  std::array<BYTE, 256> before_{};
};

// An open message box or file dialog of this thread.
struct OpenBox {
  HWND window = nullptr;  // null: none is open
  bool asks_for_file = false;
  Text caption;
  Text text;  // of a message box; the folder of a file dialog
};
// The one opened last.
[[nodiscard]] OpenBox FindOpenBox();
// Acknowledges a message box; picks these full paths in a file dialog, or cancels it when there is
// none.
void AnswerBox(const OpenBox& box, const std::vector<Text>& paths = {});

// Runs `turn` again and again from this thread's message loops, nested ones included, while it
// exists; also while a call of `turn` waits for a box to be closed. One at a time in a thread.
class Heartbeat {
 public:
  explicit Heartbeat(std::function<void()> turn);
  ~Heartbeat();
  Heartbeat(const Heartbeat&) = delete;
  Heartbeat& operator=(const Heartbeat&) = delete;

 private:
  UINT_PTR timer_;
};

}  // namespace quill::host
