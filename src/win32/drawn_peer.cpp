// Painting, and drawing into the device contexts of others, as one thing.
#include "win32/drawn_peer.h"

#include "win32/drawing_surface.h"

namespace quill::win32 {

LRESULT DrawnPeer::Handle(UINT message, WPARAM wparam, LPARAM lparam) {
  const auto draw = [&](HDC context, const RECT& area) { Draw(context, area); };
  switch (message) {
    case WM_ERASEBKGND:
      return 1;  // nothing is seen before the drawing
    case WM_PRINTCLIENT: {
      RECT area;
      GetClientRect(window(), &area);
      Draw(reinterpret_cast<HDC>(wparam), area);
      return 0;
    }
    case WM_PAINT:
      PaintAtOnce(window(), draw);
      return 0;
    default:
      return WindowPeer::Handle(message, wparam, lparam);
  }
}

}  // namespace quill::win32
