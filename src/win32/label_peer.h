// The native window of a label. It draws itself, so that a transparent one shows what lies behind
// it between its letters.
#pragma once

#include "ui/label.h"
#include "win32/window_peer.h"

namespace quill::win32 {

class LabelPeer final : public WindowPeer {
 public:
  LabelPeer(Win32Toolkit& toolkit, ui::Label& label) noexcept
      : WindowPeer(toolkit, label), label_(label) {}

 protected:
  [[nodiscard]] bool CapturesMouse() const noexcept override { return true; }
  [[nodiscard]] Style GetStyle() const override;
  void Show(ui::Changes changes) override;
  LRESULT Handle(UINT message, WPARAM wparam, LPARAM lparam) override;

 private:
  void Paint() const;
  void Draw(HDC context, const RECT& area) const;
  void DrawWhatLiesBehind(HDC context) const;

  ui::Label& label_;
};

}  // namespace quill::win32
