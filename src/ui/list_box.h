// A list box: rows with a number each, and one chosen row or, with extended selection, any number
// of selected rows and a current one, which ListIndex then tells.
#pragma once

#include "ui/controls.h"

namespace quill::ui {

enum class Selection : std::uint8_t { kSingle, kExtended };
// A single-row list is one item tall and works like a spin box.
enum class ListHeight : std::uint8_t { kManyRows, kSingleRow };

class ListBox final : public Selector {
 public:
  ListBox(Form& form, Text name, Selection selection, ListHeight height);

  [[nodiscard]] Selection selection() const noexcept { return selection_; }
  [[nodiscard]] ListHeight list_height() const noexcept { return list_height_; }

  [[nodiscard]] std::int32_t ItemData(int row) const { return rows_[Checked(row)].data; }
  void SetItemData(int row, std::int32_t data);

  // While one exists, what is done to the rows, the selection and the first row reaches the peer
  // together when the last is gone. The same holds while the list is hidden, until it is shown. A
  // peer that fails then is told again with the next change.
  class Refill {
   public:
    explicit Refill(ListBox& list) noexcept : list_(&list) { ++list.refills_; }
    ~Refill();
    Refill(const Refill&) = delete;
    Refill& operator=(const Refill&) = delete;
    // Ends it here, where a failure of the peer can be passed on.
    void Finish();

   private:
    ListBox* list_;  // null once it has ended
  };

  // 0 to Count() - 1, else kInvalidPropertyValue; runs no handler.
  void SetTopIndex(int row);
  // Makes the row of an extended list current and scrolls it into view; -1: none. Selects nothing
  // and runs no handler.
  void SetCurrentRow(int row);
  // How many rows fit, at least 1.
  [[nodiscard]] int VisibleRows() const;

  // Extended selection; in a single-selection list the chosen row is the selected one, and
  // selecting is SetListIndex.
  [[nodiscard]] bool IsSelected(int row) const;
  void SetSelected(int row, bool selected);

  std::function<void()> on_double_click;
  std::function<void(char16_t)> on_key_press;
  std::function<void()> on_scroll;

 protected:
  // A double click below the last row of an extended list leaves no row current. A menu is that of
  // the selected rows, or of a row that is not selected and becomes so.
  void React(const Fact& fact) override;
  // A single-row list goes to the row that an arrow, page, home or end key leads to from the row
  // that is in view.
  bool ReactToKey(const KeyStruck& key) override;
  // What was kept from the peer while the list was hidden.
  void BeforeShown() override { RowsChanged({}); }
  // Brings the row into view too. In an extended list it selects nothing.
  Changes MakeCurrent(int row) override;
  void RowsChanged(Changes changes) override;

 private:
  // The operator's selection. A row -1 is none; rows that do not exist are left out.
  void TakeSelection(const RowsSelected& fact);
  void TakeTopRow(int top);
  // What is typed within a second belongs together. It leads to the row that equals it, else to the
  // first that begins with it; in a list of many rows to the next one that begins with it. A
  // character that leads nowhere is dropped.
  void TakeTyping(const KeyPressed& key);
  [[nodiscard]] int RowOfTyping(TextView typed) const noexcept;
  void SelectOnly(int row);

  Selection selection_;
  ListHeight list_height_;
  Text typed_;
  std::uint32_t typed_at_ = 0;  // as told by the last key
  int refills_ = 0;
  Changes pending_;
};

}  // namespace quill::ui
