// What the system's class BUTTON shows: check boxes, push buttons, and frames as group boxes.
#include <windows.h>

#include <uxtheme.h>

#include "ui/controls.h"
#include "win32/drawing.h"
#include "win32/form_peer.h"
#include "win32/native_text.h"
#include "win32/peers.h"
#include "win32/system_services.h"
#include "win32/win32_toolkit.h"

namespace quill::win32 {
namespace {

class CheckBoxPeer final : public PeerOf<ui::CheckBox> {
 public:
  using PeerOf::PeerOf;

  void OnCommand(WORD notification) override {
    if (notification == BN_CLICKED) Tell(ui::Clicked{});
  }

  [[nodiscard]] Style GetStyle() const override {
    // Not an automatic one: whether a click changes its state is the model's.
    return {L"BUTTON", &model_.caption(), BS_3STATE | WS_TABSTOP};
  }

  void Show(ui::Changes changes) override {
    if (changes.Has(ui::Changes::kValue)) Send(BM_SETCHECK, static_cast<WPARAM>(model_.value()));
  }

  LRESULT Handle(UINT message, WPARAM wparam, LPARAM lparam) override {
    const LRESULT result = WindowPeer::Handle(message, wparam, lparam);
    if (window() == nullptr) return result;
    switch (message) {
      case WM_PAINT:
        if (GetFocus() == window()) DrawFocus();
        break;
      case WM_SETFOCUS:
      case WM_KILLFOCUS:
      case BM_SETCHECK:
      case BM_SETSTATE:  // which the class draws at once
        Repaint();
        break;
      default:
        break;
    }
    return result;
  }

 private:
  // Around the whole: the class would mark the caption, and there is none.
  void DrawFocus() const {
    const WindowContext context(window());
    RECT area;
    GetClientRect(window(), &area);
    // The dots invert what is there, so the ground is painted first.
    FrameRect(context.get(), &area, form_peer().FaceBrush());
    SetTextColor(context.get(), form_peer().TextColour());
    SetBkColor(context.get(), form_peer().FaceColour());
    DrawFocusRect(context.get(), &area);
  }
};

class CommandButtonPeer final : public PeerOf<ui::CommandButton> {
 public:
  using PeerOf::PeerOf;

  void OnCommand(WORD notification) override {
    if (notification == BN_CLICKED) Tell(ui::Clicked{});
  }

  [[nodiscard]] Style GetStyle() const override {
    return {L"BUTTON", &model_.caption(),
            BS_PUSHBUTTON | WS_TABSTOP | (!model_.icon.empty() ? BS_ICON : 0u)};
  }

  void Show(ui::Changes) override {
    if (!making() || model_.icon.empty()) return;
    // Scaled by the system from the nearest one in the file.
    const SIZE size = toolkit().scale().Scaled(SIZE{32, 32});
    icon_.reset(static_cast<HICON>(LoadImageW(ThisModule(), Wide(Text(model_.icon)), IMAGE_ICON,
                                              size.cx, size.cy, LR_DEFAULTCOLOR)));
    Send(BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(icon_.get()));
  }

 private:
  Owned<HICON> icon_;
};

// The windows of the frame's controls lie in its own.
class FramePeer final : public PeerOf<ui::Frame> {
 public:
  using PeerOf::PeerOf;

  [[nodiscard]] Style GetStyle() const override {
    return {L"BUTTON", &model_.caption(), BS_GROUPBOX | WS_CLIPCHILDREN, WS_EX_CONTROLPARENT};
  }

  void Show(ui::Changes) override {
    // A visual style has a text colour of its own, which need not show on the form's faces. No
    // style has a class named by a blank; an empty name would not be kept everywhere.
    if (making()) SetWindowTheme(window(), L" ", L" ");
  }

  LRESULT Handle(UINT message, WPARAM wparam, LPARAM lparam) override {
    switch (message) {
      case WM_ERASEBKGND:
        // A group box leaves its inside to the window behind, which here is the tab strip.
        return form_peer().FillFace(window(), reinterpret_cast<HDC>(wparam));
      case WM_NCHITTEST:
        return HTCLIENT;  // and likewise clicks on it, which would choose tabs
      case WM_LBUTTONDOWN:
      case WM_LBUTTONDBLCLK:
        return 0;  // the class would take the focus from the field being edited
      default:
        return WindowPeer::Handle(message, wparam, lparam);
    }
  }
};

}  // namespace

PeerMaker* const kMakeCheckBoxPeer = &MakePeerOf<CheckBoxPeer>;
PeerMaker* const kMakeCommandButtonPeer = &MakePeerOf<CommandButtonPeer>;
PeerMaker* const kMakeFramePeer = &MakePeerOf<FramePeer>;

}  // namespace quill::win32
