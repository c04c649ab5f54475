// The native list box, and the single-row one that works like a spin box.
#pragma once

#include <optional>

#include "ui/list_box.h"
#include "win32/window_peer.h"

namespace quill::win32 {

class ListBoxPeer final : public WindowPeer {
 public:
  ListBoxPeer(Win32Toolkit& toolkit, ui::ListBox& list) noexcept
      : WindowPeer(toolkit, list), list_(list) {}

  void OnCommand(WORD notification) override;
  // A single-row list's row is highlighted only while the list has the focus.
  void OnDrawItem(const DRAWITEMSTRUCT& item) override;

 protected:
  [[nodiscard]] Style GetStyle() const override;
  void Show(ui::Changes changes) override;
  // A list of many rows ends below a whole row, or below its bar under one.
  [[nodiscard]] RECT Place() const override;
  LRESULT Handle(UINT message, WPARAM wparam, LPARAM lparam) override;

 private:
  [[nodiscard]] bool is_single_row() const noexcept {
    return list_.list_height() == ui::ListHeight::kSingleRow;
  }
  void ShowRows(bool all_new);
  void ShowRowData();
  void ShowSelection();
  void ShowExtendedSelection();
  // Rows wider than the list can be scrolled sideways.
  void FitWidth(int first_row);
  [[nodiscard]] std::vector<int> NativeSelection() const;

  void TurnWheel(int delta);  // of a single-row list
  void TellWhenScrolled();
  // At that place of the screen; none: asked for by a key.
  void TellMenuAsked(std::optional<POINT> screen);
  [[nodiscard]] int RowAt(int y) const;

  ui::ListBox& list_;
  int widest_row_ = 0;  // pixels
  int extent_ = 0;      // as told to the window, pixels
  int wheel_ = 0;       // turned, but not yet by a whole notch
};

}  // namespace quill::win32
