#include "win32/image_peer.h"

#include "ui/image_button.h"
#include "win32/drawing_surface.h"
#include "win32/form_peer.h"
#include "win32/native_colour.h"
#include "win32/native_picture.h"
#include "win32/win32_toolkit.h"

namespace quill::win32 {

WindowPeer::Style ImagePeer::GetStyle() const {
  return {Win32Toolkit::kImageClass, nullptr, image_.IsTabStop() ? WS_TABSTOP : 0u, 0};
}

void ImagePeer::Show(ui::Changes changes) {
  if (!changes.Has(ui::Changes::kPicture)) return;
  Repaint();
  RepaintInFront();
}

void ImagePeer::DrawBehind(HDC context, POINT origin) const {
  RECT area = Place();
  OffsetRect(&area, -origin.x, -origin.y);
  Draw(context, area);
  DrawFocus(context, area);
}

void ImagePeer::Draw(HDC context, const RECT& area) const {
  if (image_.IsTabStop() && IsHighContrast()) {
    // The operator's colours, which the picture does not know.
    RECT button = area;
    const bool pressed = ui::LooksPressed(image_);
    DrawFrameControl(context, &button, DFC_BUTTON, DFCS_BUTTONPUSH | (pressed ? DFCS_PUSHED : 0u));
    if (pressed) {
      // Schemes of few colours draw both edges alike.
      InflateRect(&button, -2, -2);
      FrameRect(context, &button, GetSysColorBrush(COLOR_HIGHLIGHT));
    }
    return;
  }
  const auto* const picture = static_cast<const NativePicture*>(image_.picture().get());
  if (picture == nullptr) return;
  RECT target = area;
  if (!image_.stretch()) {
    const SIZE size = toolkit().scale().Scaled(picture->Size());
    target.right = target.left + size.cx;
    target.bottom = target.top + size.cy;
  }
  picture->Draw(context, target);
}

void ImagePeer::DrawAll(HDC context, const RECT& area) const {
  FillRect(context, &area, form_peer().FaceBrush());
  Draw(context, area);
}

void ImagePeer::DrawFocus(HDC context, RECT area) const {
  constexpr ui::Twips kInset = 45;
  if (GetFocus() != window()) return;
  InflateRect(&area, -toolkit().scale().PixelsX(kInset), -toolkit().scale().PixelsY(kInset));
  SetTextColor(context, 0);
  SetBkColor(context, RGB(255, 255, 255));
  DrawFocusRect(context, &area);
}

LRESULT ImagePeer::Handle(UINT message, WPARAM wparam, LPARAM lparam) {
  switch (message) {
    case WM_KILLFOCUS:
    case WM_SETFOCUS:
      Repaint();
      RepaintInFront();
      break;
    case WM_ERASEBKGND:
      return 1;
    case WM_PRINTCLIENT: {
      RECT area;
      GetClientRect(window(), &area);
      DrawAll(reinterpret_cast<HDC>(wparam), area);
      return 0;
    }
    case WM_PAINT: {
      const WindowPaint paint(window());
      RECT area;
      GetClientRect(window(), &area);
      const DrawingSurface surface(paint.context(), {area.right, area.bottom});
      DrawAll(surface.context(), area);
      DrawFocus(surface.context(), area);
      BitBlt(paint.context(), 0, 0, area.right, area.bottom, surface.context(), 0, 0, SRCCOPY);
      return 0;
    }
    default:
      break;
  }
  return WindowPeer::Handle(message, wparam, lparam);
}

}  // namespace quill::win32
