#include "win32/label_peer.h"

#include "win32/drawing_surface.h"
#include "win32/form_peer.h"
#include "win32/image_peer.h"
#include "win32/native_text.h"
#include "win32/win32_toolkit.h"

namespace quill::win32 {
namespace {

UINT DrawFlags(ui::Alignment alignment) {
  constexpr UINT kFlags = DT_NOPREFIX | DT_WORDBREAK | DT_EXPANDTABS;
  switch (alignment) {
    case ui::Alignment::kRight:
      return kFlags | DT_RIGHT;
    case ui::Alignment::kCentre:
      return kFlags | DT_CENTER;
    case ui::Alignment::kLeft:
      break;
  }
  return kFlags | DT_LEFT;
}

DWORD StaticStyle(ui::Alignment alignment) {
  switch (alignment) {
    case ui::Alignment::kRight:
      return SS_RIGHT;
    case ui::Alignment::kCentre:
      return SS_CENTER;
    case ui::Alignment::kLeft:
      break;
  }
  return SS_LEFT;
}

}  // namespace

WindowPeer::Style LabelPeer::GetStyle() const {
  return {L"STATIC", &label_.caption(), StaticStyle(label_.alignment()) | SS_NOPREFIX | SS_NOTIFY,
          0};
}

void LabelPeer::Show(ui::Changes changes) {
  if (changes.Has(ui::Changes::kText) && !making()) {
    if (WindowText(window()) != label_.caption()) SetWindowTextW(window(), Wide(label_.caption()));
    const auto style = static_cast<DWORD>(GetWindowLongPtrW(window(), GWL_STYLE));
    const DWORD wanted =
        (style & ~static_cast<DWORD>(SS_TYPEMASK)) | StaticStyle(label_.alignment());
    if (style != wanted) SetWindowLongPtrW(window(), GWL_STYLE, static_cast<LONG_PTR>(wanted));
  }
  if (changes.Has(ui::Changes::kText) || changes.Has(ui::Changes::kFont) ||
      changes.Has(ui::Changes::kColour) || changes.Has(ui::Changes::kBounds)) {
    Repaint();
  }
}

// Everything that can lie behind a label: the frame around it, and the images beside it.
void LabelPeer::DrawWhatLiesBehind(HDC context) const {
  const RECT own = Place();
  const HWND parent = GetParent(window());
  POINT origin = {};
  SetViewportOrgEx(context, -own.left, -own.top, &origin);
  SendMessageW(parent, WM_ERASEBKGND, reinterpret_cast<WPARAM>(context), 0);
  SendMessageW(parent, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(context), PRF_CLIENT);
  SetViewportOrgEx(context, origin.x, origin.y, nullptr);

  for (const ui::Control* const sibling : label_.container()->children()) {
    if (sibling == &label_) return;
    const WindowPeer* const peer = Of(*sibling);
    if (sibling->kind() != ui::ControlKind::kImage || !sibling->visible() || peer == nullptr) {
      continue;
    }
    static_cast<const ImagePeer*>(peer)->DrawBehind(context, {own.left, own.top});
  }
}

void LabelPeer::Draw(HDC context, const RECT& area) const {
  if (label_.transparent()) {
    DrawWhatLiesBehind(context);
  } else {
    FillRect(context, &area, form_peer().FaceBrush());
  }

  Text caption = label_.caption();
  UINT flags = DrawFlags(label_.alignment());
  if (form_peer().shows_access_keys() && label_.access_key() != 0) {
    const std::size_t place = ToUpper(caption).find(label_.access_key());
    if (place != Text::npos) {
      caption.insert(place, 1, u'&');
      flags &= ~static_cast<UINT>(DT_NOPREFIX);
    }
  }
  const HGDIOBJ previous = SelectObject(context, form_peer().Font(label_.font_size()));
  SetBkMode(context, TRANSPARENT);
  SetTextColor(context, label_.enabled() ? form_peer().TextColour() : GetSysColor(COLOR_GRAYTEXT));
  RECT place = area;
  DrawTextW(context, Wide(caption), static_cast<int>(caption.size()), &place, flags);
  SelectObject(context, previous);
}

void LabelPeer::Paint() const {
  const WindowPaint paint(window());
  RECT area;
  GetClientRect(window(), &area);
  if (label_.transparent()) {
    // Drawn in several layers, which must not be seen one after the other.
    const DrawingSurface surface(paint.context(), {area.right, area.bottom});
    Draw(surface.context(), area);
    BitBlt(paint.context(), 0, 0, area.right, area.bottom, surface.context(), 0, 0, SRCCOPY);
  } else {
    Draw(paint.context(), area);
  }
}

LRESULT LabelPeer::Handle(UINT message, WPARAM wparam, LPARAM lparam) {
  switch (message) {
    case WM_ERASEBKGND:
      return 1;
    case WM_PRINTCLIENT: {
      RECT area;
      GetClientRect(window(), &area);
      Draw(reinterpret_cast<HDC>(wparam), area);
      return 0;
    }
    case WM_PAINT:
      Paint();
      return 0;
    case WM_SETTEXT:
      // The class itself would draw the text at once, in its own way.
      return DefWindowProcW(window(), message, wparam, lparam);
    case WM_GETFONT:
      return reinterpret_cast<LRESULT>(form_peer().Font(label_.font_size()));
    case WM_ENABLE:
      InvalidateRect(window(), nullptr, FALSE);
      return 0;
    default:
      return WindowPeer::Handle(message, wparam, lparam);
  }
}

}  // namespace quill::win32
