// The operator of a dialog without a screen: gestures at controls, found by name, become what a
// native control would do and report. A gesture that nobody could make with a real window (the
// control is hidden or disabled, another window is in front) fails with kInvalidProcedureCall and
// says why; an unknown name fails with kControlNotFound.
//
// Rows are 0-based. A gesture returns after the dialog has handled it; it may have closed the
// dialog.
#pragma once

#include <functional>
#include <vector>

#include "headless/headless_toolkit.h"
#include "ui/fact.h"

namespace quill::headless {

class HeadlessOperator {
 public:
  // `dialog` tells the form at hand, null while there is none. The toolkit must outlive the
  // operator.
  HeadlessOperator(HeadlessToolkit& toolkit, std::function<ui::Form*()> dialog)
      : toolkit_(toolkit), dialog_(std::move(dialog)) {}

  // When the next gestures happen, in milliseconds since some moment.
  std::uint32_t now = 0;

  // Text boxes. A locked one takes no keys.
  void Type(TextView name, TextView text);  // character by character, at the end; or into a list
  void SelectAllAndType(TextView name, TextView text);  // the first character replaces the rest
  void Paste(TextView name, TextView text);  // at once, in place of what is there; first line only
  void PasteAtEnd(TextView name, TextView text);  // at once, behind what is there; first line only
  void EraseLast(TextView name, int count);       // so many backspaces at the end

  void Choose(TextView name, TextView item);  // in a drop-down list; fails when it lacks the item
  void Click(TextView name);                  // check box, push button
  void ClickTab(TextView caption);

  // List boxes. A list scrolls no further than to its last full page.
  void ScrollTo(TextView name, int row);   // by the thumb: one jump
  void ScrollBy(TextView name, int rows);  // by the arrows: one row after the other
  void ClickRow(TextView name, int row);   // scrolled into view first
  // In a list with extended selection, with the last one current; ascending or not.
  void SelectRows(TextView name, const std::vector<int>& rows);
  void DoubleClickRow(TextView name, int row);  // -1: below the last row
  void Key(TextView name, char16_t character);  // into a list; elsewhere typed, or a blank to click

  // Images, labels and frames, at their centre.
  void Press(TextView name, std::int16_t button) { MouseAt(name, true, button); }
  void Release(TextView name, std::int16_t button) { MouseAt(name, false, button); }

  // A key that is no character, or one that is held with Ctrl or Alt, at the control, which takes
  // the focus. `times`: so often while it is held.
  void Strike(TextView name, ui::KeyStroke stroke, int times = 1);
  // Opens a list's menu, by a key or (row from 0) by the right mouse button, and chooses the item;
  // none for an empty caption. Fails when it is grey or not there.
  void ChooseFromMenu(TextView name, int row, TextView caption);

  // Together with Alt, `times` while it is held; fails when no control there has it.
  void PressAccessKey(char16_t key, int times = 1);
  void CloseForm();  // the form's own close button

  // What the control (or the form, by its name) shows; fails with kInvalidProcedureCall when it
  // does not have the property.
  [[nodiscard]] Text Read(TextView name, TextView property) const;

 private:
  class Gesture;

  [[nodiscard]] ui::Form& Dialog() const;
  [[nodiscard]] ui::Control& Find(TextView name) const;
  // `from` on, up to the end, was selected, or is the end.
  void Edit(const Gesture& gesture, Text text, std::size_t from);
  void MouseAt(TextView name, bool pressed, std::int16_t button);

  HeadlessToolkit& toolkit_;
  std::function<ui::Form*()> dialog_;
};

}  // namespace quill::headless
