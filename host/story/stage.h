// What an operator story is played on: a host with the plug-in in it, an operator at its dialog,
// and everything that either can see. There is one stage over the headless layer and one over the
// real library and its native windows; a story cannot tell them apart.
//
// Controls are named as in the dialog; rows and positions are 0-based. A gesture that a real
// operator could not make (the control is hidden, disabled, not there) fails with StageError, and
// so does the reading of something that the stage cannot see.
//
// A new stage's host has its two button pictures, no other files, and offers both service objects.
// The plug-in is loaded by the first host call.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "support/text.h"
#include "ui/menu.h"

namespace quill::host {

class StageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// A message box as the operator saw it.
struct SeenBox {
  Text caption;
  Text text;
  friend bool operator==(const SeenBox&, const SeenBox&) = default;
};

// One right of the operator, as the host's collection holds it.
struct Right {
  // kFails: the item is none that could be compared with a text, such as an array.
  enum class Form : std::uint8_t { kText, kNumber, kFails };
  Text name;
  Form form = Form::kText;
  Text value;
};

enum class Button : std::uint8_t { kLeft = 1, kRight = 2, kMiddle = 4 };

// How the next call of one kit operation goes wrong.
struct KitFault {
  // For example u"CompressString"; u"CreateFileKit" and u"CreateMemoryKit" stand for the creation
  // of the two service objects, which fails whatever the number.
  Text operation;
  std::int32_t number = 0;  // 0: no failure, but SendErrorReport answers false
  Text description;
  bool from_there_on = false;  // every later call of it too
};

class Stage {
 public:
  virtual ~Stage() = default;
  [[nodiscard]] virtual std::string Name() const = 0;  // "headless" or "native"

  // --- set-up, before and between host calls -------------------------------------------------
  // The host's root folder, without a trailing backslash.
  [[nodiscard]] virtual Text HostRoot() = 0;
  // A file under the host's root, by its host path; nothing as content removes it. Missing folders
  // are made.
  virtual void PutFile(const Text& path, const std::optional<std::string>& bytes) = 0;
  [[nodiscard]] virtual std::optional<std::string> FileContent(const Text& path) = 0;
  // Faults of different operations stand side by side; a new one of the same replaces the old one.
  virtual void BreakKit(const KitFault& fault) = 0;
  virtual void RepairKit() = 0;  // forgets all faults
  virtual void SetClock(std::uint64_t ticks) = 0;

  // --- host calls ----------------------------------------------------------------------------
  virtual Text DllVersion() = 0;
  // Field by name, as text; arrays as their elements joined by "|", "empty" for an empty variant.
  virtual Text PluginField(const Text& field) = 0;
  virtual void SetPrivis(const std::vector<Right>& rights, bool super_admin) = 0;
  // `target` is the array of texts that the host hands over. Returns when the dialog is hidden or
  // closed. While it is shown, and no message box or file dialog is open, the stage calls `go_on`
  // from inside again and again; it plays the next step and returns false when the story has none
  // left (the stage then hides the dialog). The stage itself closes the boxes, and the file dialogs
  // with the operator's answers.
  virtual void LoadInterface(std::int32_t index, const std::vector<Text>& target,
                             const std::function<bool()>& go_on) = 0;
  virtual void RemoteData(const Text& data) = 0;
  virtual void HideInterface() = 0;

  // --- the operator --------------------------------------------------------------------------
  virtual void Type(const Text& control, const Text& text) = 0;    // at the end of what is there
  virtual void Paste(const Text& control, const Text& text) = 0;   // in place of what is there
  virtual void EraseLast(const Text& control, int count) = 0;      // backspace at the end
  virtual void Choose(const Text& control, const Text& item) = 0;  // in a drop-down list
  virtual void ScrollBy(const Text& control, int rows) = 0;        // one step at a time
  virtual void ScrollTo(const Text& control, int row) = 0;         // by the thumb
  virtual void ClickTab(const Text& caption) = 0;
  virtual void Click(const Text& control) = 0;  // check box, push button
  virtual void SelectRows(const Text& control, const std::vector<int>& rows) = 0;
  virtual void DoubleClickRow(const Text& control, int row) = 0;  // -1: below the last row
  virtual void Key(const Text& control, char16_t character) = 0;
  virtual void Press(const Text& control, Button button) = 0;
  virtual void Release(const Text& control, Button button) = 0;
  // A key that is no character, or one that is held with Ctrl or Alt. `times`: so often while it is
  // held; all but the first are repetitions.
  virtual void Strike(const Text& control, ui::KeyStroke stroke, int times) = 0;
  // Opens a list's context menu, by a key or (row from 0) by the right mouse button, and chooses an
  // item; Escape for an empty one.
  virtual void ChooseFromMenu(const Text& control, int row, const Text& item) = 0;
  // The items of the menu opened last: "CAPTION | KEY", in parentheses when grey.
  [[nodiscard]] virtual std::vector<Text> LastMenu() = 0;
  virtual void PressAccessKey(char16_t key, int times) = 0;  // together with Alt
  virtual void CloseWindow() = 0;
  // What the operator does in the next file dialog that has no answer yet: picks these full paths
  // (none: cancels). A file dialog without an answer is cancelled. By a double click it closes
  // while the left mouse button is down, which goes up with the next Release.
  virtual void AnswerFileDialog(const std::vector<Text>& paths, bool by_double_click) = 0;
  // Plays `step` while the next message box, or the next file dialog, is open, before it is closed.
  // A box that `step` itself brings up is another one.
  virtual void DuringNextBox(const std::function<void()>& step) = 0;
  virtual void DuringNextFileDialog(const std::function<void()>& step) = 0;

  // --- what can be seen ----------------------------------------------------------------------
  // Property names: text, caption, value, index, top, count, item N, data N, selected (rows joined
  // by " "), tooltip, enabled, visible, shown, picture (file name), pointer (of the dialog), left,
  // top and so on in twips.
  [[nodiscard]] virtual Text Read(const Text& control, const Text& property) = 0;
  [[nodiscard]] virtual bool DialogShown() = 0;
  [[nodiscard]] virtual Text DialogPointer() = 0;  // "default" or "busy"
  [[nodiscard]] virtual Text ScreenPointer() = 0;
  // Boxes shown since the last call, in order; taking empties the list.
  [[nodiscard]] virtual std::vector<SeenBox> TakeBoxes() = 0;
  // The file dialogs shown since the last call, in order; as the text the folder that each began
  // in.
  [[nodiscard]] virtual std::vector<SeenBox> TakeFileDialogs() = 0;
  // What the plug-in handed to the host's error log and report store since the last call, as
  // LogLine and ReportLine of breakable_file_kit.h write it.
  [[nodiscard]] virtual std::vector<Text> TakeLog() = 0;
  [[nodiscard]] virtual std::vector<Text> TakeReports() = 0;
  // What of the plug-in does not hold that always does, in words; nothing where that cannot be
  // seen.
  [[nodiscard]] virtual std::vector<Text> Broken() { return {}; }
  // The command whose reply the plug-in awaits; nothing where that cannot be seen from outside.
  [[nodiscard]] virtual std::optional<Text> PendingCommand() = 0;
};

}  // namespace quill::host
