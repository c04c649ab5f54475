// A list box: rows with a number each, a first visible row, and one chosen row or, with extended
// selection, any number of selected rows and a current one.
#pragma once

#include <initializer_list>
#include <vector>

#include "ui/control.h"
#include "ui/row_store.h"

namespace quill::ui {

enum class Selection : std::uint8_t { kSingle, kExtended };
// A single-row list is one item tall and works like a spin box.
enum class ListHeight : std::uint8_t { kManyRows, kSingleRow };

class ListBox final : public Control {
 public:
  ListBox(Form& form, Text name, Selection selection, ListHeight height);

  [[nodiscard]] Selection selection() const noexcept { return selection_; }
  [[nodiscard]] ListHeight list_height() const noexcept { return list_height_; }

  [[nodiscard]] int Count() const noexcept { return rows_.Count(); }
  // Rows are 0-based; a row that does not exist fails with kInvalidProcedureCall.
  [[nodiscard]] TextView Item(int row) const;
  [[nodiscard]] std::int32_t ItemData(int row) const;
  void SetItemData(int row, std::int32_t data);

  // Afterwards there is no row, no choice, and the first visible row is 0.
  void Clear();
  void AddItem(TextView text) { AddItem({text}); }
  void AddItem(std::initializer_list<TextView> parts);  // joined

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

  // The chosen row of a single-selection list, the current row of an extended one; -1: none.
  [[nodiscard]] int ListIndex() const noexcept { return list_index_; }
  // -1 to Count() - 1, else kInvalidPropertyValue. In a single-selection list this selects the row;
  // in an extended one it only makes it current. Scrolls the row into view. Runs on_click at once,
  // on every assignment except of -1.
  void SetListIndex(int row);

  [[nodiscard]] int TopIndex() const noexcept { return top_index_; }
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

  std::function<void()> on_click;
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
  [[nodiscard]] Changes HeldBack() const noexcept override {
    return refills_ > 0 ? Changes() : pending_;
  }
  void HeldBackTold() noexcept override {
    if (refills_ == 0) pending_ = {};
  }

 private:
  void CheckRow(int row) const;
  [[nodiscard]] bool Holds(int row) const noexcept { return row >= 0 && row < Count(); }
  // Makes `row` the current one and brings it into view; returns what the peer has to be told.
  [[nodiscard]] Changes MakeCurrent(int row);
  void RowsChanged(Changes changes);
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
  RowStore rows_;
  std::vector<char> selected_;  // extended selection only
  int list_index_ = -1;
  int top_index_ = 0;
  Text typed_;
  std::uint32_t typed_at_ = 0;  // as told by the last key
  int refills_ = 0;
  Changes pending_;
};

}  // namespace quill::ui
