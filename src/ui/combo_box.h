// A drop-down list: the operator picks an item and cannot type.
#pragma once

#include "ui/control.h"
#include "ui/row_store.h"

namespace quill::ui {

class ComboBox final : public Control {
 public:
  ComboBox(Form& form, Text name);

  [[nodiscard]] int Count() const noexcept { return rows_.Count(); }
  [[nodiscard]] TextView Item(int index) const;  // 0-based, else kInvalidProcedureCall
  void Clear();                                  // afterwards nothing is chosen
  void AddItem(TextView text);

  [[nodiscard]] int ListIndex() const noexcept { return list_index_; }  // -1: none
  // -1 to Count() - 1, else kInvalidPropertyValue. Runs on_click at once, on every assignment
  // except of -1.
  void SetListIndex(int index);

  // The text of the chosen item; empty when there is none.
  [[nodiscard]] TextView text() const noexcept;
  // Chooses the first item with exactly this text, as SetListIndex does. Fails with kTextNotInList
  // and a description that names the text when there is none.
  void SetText(TextView text);

  std::function<void()> on_click;

 protected:
  void React(const Fact& fact) override;

 private:
  RowStore rows_;
  int list_index_ = -1;
};

}  // namespace quill::ui
