// The native window of a form, and what its controls' windows share: font, colours, tooltips.
#pragma once

#include "ui/form.h"
#include "win32/owned.h"
#include "win32/peers.h"

namespace quill::win32 {

class FormPeer final : public PeerOf<ui::Form> {
 public:
  using PeerOf::PeerOf;
  ~FormPeer() override;

  // The thread's active window until the form was shown last.
  [[nodiscard]] HWND active_before() const noexcept { return active_before_; }
  // Makes the windows of the form and of all its controls, unless they exist.
  void MakeWindows();

  // Lives as long as the peer.
  [[nodiscard]] HFONT Font();
  // Behind everything on the form.
  [[nodiscard]] HBRUSH FaceBrush() const noexcept;
  // With that brush, the whole client area of a window; 1, as WM_ERASEBKGND wants it.
  LRESULT FillFace(HWND window, HDC context) const noexcept;
  [[nodiscard]] COLORREF FaceColour() const noexcept;
  // Of text on that.
  [[nodiscard]] COLORREF TextColour() const noexcept;
  [[nodiscard]] HWND Tooltips();

  // The strip's body is drawn in the box's colour, and the form's faces with it; both null: no
  // longer. Before the windows exist it is kept for their making.
  void HookTabBackground(ui::TabStrip* strip, ui::PictureBox* colour_source) noexcept;

  // Captions underline their access keys from the first time on that the operator presses Alt.
  void ShowAccessKeys();
  [[nodiscard]] bool shows_access_keys() const noexcept { return shows_access_keys_; }

 protected:
  [[nodiscard]] Style GetStyle() const override;
  void Show(ui::Changes changes) override;
  void ShowVisible() override;
  [[nodiscard]] RECT Place() const override;
  LRESULT Handle(UINT message, WPARAM wparam, LPARAM lparam) override;

 private:
  void MakeChildren(ui::Control& container);
  [[nodiscard]] HWND HookedWindow() const noexcept;
  void AttachHook() noexcept;
  void ReadColours() noexcept;
  void RepaintAll() const noexcept;
  void ComeForward() const noexcept;

  Owned<HFONT> font_;
  HWND tooltips_ = nullptr;
  Owned<HBRUSH> own_face_;         // while the tab strip is hooked
  ui::TabStrip* strip_ = nullptr;  // the hooked one
  ui::PictureBox* colour_source_ = nullptr;
  bool shows_access_keys_ = false;
  HWND active_before_ = nullptr;
};

}  // namespace quill::win32
