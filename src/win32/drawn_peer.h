// A peer whose window has no looks of its own: all of it is drawn here.
#pragma once

#include "win32/window_peer.h"

namespace quill::win32 {

class DrawnPeer : public WindowPeer {
 protected:
  using WindowPeer::WindowPeer;

  // Draws the whole client area.
  virtual void Draw(HDC context, const RECT& area) const = 0;
  LRESULT Handle(UINT message, WPARAM wparam, LPARAM lparam) override;
};

}  // namespace quill::win32
