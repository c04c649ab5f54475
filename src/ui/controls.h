// The kinds of controls that are little more than their properties: frame, label, text box, check
// box, push button, picture box, image, file dialog, and what shows rows of which one is chosen.
#pragma once

#include <vector>

#include "ui/control.h"

namespace quill::ui {

enum class Alignment : std::uint8_t { kLeft, kRight, kCentre };
// A colour as the platform writes it: 0x00BBGGRR, or 0x80000000 plus a system colour index.
using Colour = std::uint32_t;

// A captioned group of controls.
class Frame final : public Control {
 public:
  Frame(Form& form, Text name, TextView title)
      : Control(form, ControlKind::kFrame, std::move(name), title) {}
};

// Text that the operator reads; with mouse handlers it can serve as a button's caption.
class Label final : public Control {
 public:
  Label(Form& form, Text name, TextView title = {}, Alignment aligned = Alignment::kLeft,
        bool is_transparent = false)
      : Control(form, ControlKind::kLabel, std::move(name), title),
        alignment(aligned),
        transparent(is_transparent) {}

  const Alignment alignment;
  const bool transparent;  // what lies behind shows between the letters
};

// A single-line text box.
class TextBox final : public Control {
 public:
  TextBox(Form& form, Text name, int limit = 0, Alignment aligned = Alignment::kLeft,
          bool is_locked = false)
      : Control(form, ControlKind::kTextBox, std::move(name)),
        alignment(aligned),
        max_length(limit),
        locked(is_locked) {}

  [[nodiscard]] const Text& text() const noexcept { return text_; }
  // Any length: the limit holds for typing and pasting only.
  void SetText(TextView text);
  const Alignment alignment;
  const int max_length;  // in characters; 0: no limit
  const bool locked;     // the operator cannot edit it

  // What the operator's edit of `before` leaves under a limit: of what has come in the place of the
  // selection, as much as fits; a text that was already longer may only become shorter.
  [[nodiscard]] static Text ApplyLimit(TextView before, const TextEdited& edit, int max_length);

 protected:
  void React(const Fact& fact) override;

 private:
  Text text_;
};

class CheckBox final : public Control {
 public:
  CheckBox(Form& form, Text name, TextView title = {})
      : Control(form, ControlKind::kCheckBox, std::move(name), title) {}

  // 0 = off, 1 = on, 2 = greyed.
  [[nodiscard]] int value() const noexcept { return value_; }
  // Fails with kInvalidPropertyValue outside 0 to 2. Runs on_click when the value changes.
  void SetValue(int value);

 protected:
  // A click turns off into on, and on and greyed into off.
  void React(const Fact& fact) override;

 private:
  int value_ = 0;
};

// A standard push button, with a caption or an icon.
class CommandButton final : public Control {
 public:
  CommandButton(Form& form, Text name, TextView title = {}, TextView icon_name = {})
      : Control(form, ControlKind::kCommandButton, std::move(name), title), icon(icon_name) {}

  // The name of one of the library's icons, 32 pixels wide and high at 96 dots per inch. Not
  // copied: it outlives the button.
  const TextView icon;

 protected:
  void React(const Fact& fact) override;
  bool ReactToKey(const KeyStruck& key) override;  // Enter clicks it
};

// An area of one colour that drawing code can use as a source.
class PictureBox final : public Control {
 public:
  PictureBox(Form& form, Text name, Colour colour)
      : Control(form, ControlKind::kPictureBox, std::move(name)), back_colour(*this, colour) {}

  Property<Colour, Changes::kColour> back_colour;
  // Its drawing is held in a memory image whose device context stays valid.
  Property<bool, Changes::kColour> persistent_image{*this};
};

// Shows a picture, stretched to its own size. As a tab stop it is a button: Enter and its access
// key count as a press and a release of the left mouse button on its middle, the space bar as that
// button, held as long as it is. Without a picture it is not there for the operator.
class Image final : public Control {
 public:
  Image(Form& form, Text name) : Control(form, ControlKind::kImage, std::move(name)) {}

  [[nodiscard]] bool visible() const noexcept override {
    return Control::visible() && picture_ != nullptr;
  }
  // Null: empty.
  [[nodiscard]] const PicturePtr& picture() const noexcept { return picture_; }
  void SetPicture(PicturePtr picture);
  // A key that is held presses it again and again. Otherwise once, as at first.
  bool repeats = false;

 protected:
  void React(const Fact& fact) override;
  bool ReactToKey(const KeyStruck& key) override;

 private:
  [[nodiscard]] MouseEvent Middle() const noexcept;
  void LoseSpace();

  PicturePtr picture_;
  bool space_held_ = false;
};

// A control without a window of its own that asks the operator for a file.
class FileDialog final : public Control {
 public:
  FileDialog(Form& form, Text name) : Control(form, ControlKind::kFileDialog, std::move(name)) {}

  // What the next ShowOpen or ShowSave asks. Its file_name is the name that is proposed, and
  // afterwards the answer: empty on cancel.
  FileDialogRequest request;

  // Both return the full path that was picked (the first, should several be), empty on cancel.
  Text ShowOpen() { return Show(false); }
  Text ShowSave() { return Show(true); }

 private:
  Text Show(bool save);
};

// A control of rows (items, tabs) of which one is chosen. Rows are 0-based; a row that does not
// exist fails with kInvalidProcedureCall where nothing else is said.
class Selector : public Control {
 public:
  struct Row {
    Text text;
    std::int32_t data = 0;
    bool selected = false;  // in a list with extended selection
    friend bool operator==(const Row&, const Row&) = default;
  };
  [[nodiscard]] const std::vector<Row>& rows() const noexcept { return rows_; }
  [[nodiscard]] int Count() const noexcept { return static_cast<int>(rows_.size()); }
  [[nodiscard]] TextView Item(int row) const { return rows_[Checked(row)].text; }

  // Afterwards there is no row, no choice, and the first visible row is 0.
  void Clear();
  void AddItem(TextView text);

  // The chosen row, -1: none.
  [[nodiscard]] int ListIndex() const noexcept { return list_index_; }
  // -1 to Count() - 1, else kInvalidPropertyValue. Runs on_click at once, on every assignment
  // except of -1.
  void SetListIndex(int row);
  // The text of the chosen row; empty when there is none.
  [[nodiscard]] TextView text() const noexcept;
  // The first visible row; 0 where rows do not scroll.
  [[nodiscard]] int TopIndex() const noexcept { return top_index_; }

 protected:
  using Control::Control;
  // The operator's choice of a row that exists counts as an assignment.
  void React(const Fact& fact) override;
  // Makes `row`, which exists or is -1, the chosen one; returns what the peer has to be told.
  virtual Changes MakeCurrent(int row);
  // The same, and all that follows.
  virtual void Choose(int row);
  virtual void RowsChanged(Changes changes) { Changed(changes); }
  [[nodiscard]] bool Holds(int row) const noexcept { return row >= 0 && row < Count(); }
  // The place of `row` in rows_; fails unless it exists.
  [[nodiscard]] std::size_t Checked(int row) const;

  std::vector<Row> rows_;
  int list_index_ = -1;
  int top_index_ = 0;
};

// A drop-down list: the operator picks an item and cannot type.
class ComboBox final : public Selector {
 public:
  ComboBox(Form& form, Text name) : Selector(form, ControlKind::kComboBox, std::move(name)) {}

  // Chooses the first item with exactly this text, as SetListIndex does. Fails with kTextNotInList
  // and a description that names the text when there is none.
  void SetText(TextView text);
};

// Captions of which one is chosen. It shows no pages; its owner does that on a click.
class TabStrip final : public Selector {
 public:
  TabStrip(Form& form, Text name, std::initializer_list<TextView> captions);

  // Chooses the next tab or the one before, round the end, as the operator's choice.
  void Turn(bool forward);

 protected:
  void Choose(int row) override;
};

}  // namespace quill::ui
