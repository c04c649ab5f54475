#include "win32/picture_box_peer.h"

#include "win32/native_colour.h"

namespace quill::win32 {
namespace {

void Fill(HDC context, const RECT& area, COLORREF colour) {
  const HBRUSH brush = CreateSolidBrush(colour);
  FillRect(context, &area, brush);
  DeleteObject(brush);
}

}  // namespace

WindowPeer::Style PictureBoxPeer::GetStyle() const {
  return {L"STATIC", nullptr, 0, 0};
}

void PictureBoxPeer::Show(ui::Changes changes) {
  if (changes.Has(ui::Changes::kBounds)) {
    RECT area = {};
    GetClientRect(window(), &area);
    inner_size_ = {area.right, area.bottom};
    image_.reset();
  }
  if (!changes.Has(ui::Changes::kBounds) && !changes.Has(ui::Changes::kColour)) return;
  if (!box_.persistent_image()) {
    image_.reset();
  } else {
    if (!image_.has_value()) {
      const HDC screen = GetDC(window());
      image_.emplace(screen, inner_size_);
      ReleaseDC(window(), screen);
    }
    Fill(image_->context(), {0, 0, inner_size_.cx, inner_size_.cy}, ToColorRef(box_.back_colour()));
  }
  if (box_.visible()) InvalidateRect(window(), nullptr, TRUE);
}

LRESULT PictureBoxPeer::Handle(UINT message, WPARAM wparam, LPARAM lparam) {
  switch (message) {
    case WM_ERASEBKGND:
      Fill(reinterpret_cast<HDC>(wparam), {0, 0, inner_size_.cx, inner_size_.cy},
           ToColorRef(box_.back_colour()));
      return 1;
    case WM_PAINT: {
      const WindowPaint paint(window());
      return 0;
    }
    default:
      return WindowPeer::Handle(message, wparam, lparam);
  }
}

}  // namespace quill::win32
