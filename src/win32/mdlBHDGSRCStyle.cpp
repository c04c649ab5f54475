// The strip paints itself into memory, where its face colour is then exchanged for the box's
// colour.
#include "win32/mdlBHDGSRCStyle.h"

#include "win32/drawing.h"
#include "win32/drawn_peers.h"

namespace quill::win32 {
namespace {

constexpr wchar_t kFormerProcedure[] = L"lpPROC";
constexpr wchar_t kColourSource[] = L"PctOBJ";
// Set and removed with the others; nothing here reads it.
constexpr wchar_t kStrip[] = L"GridOBJ";

constexpr DWORD kMergePaint = 0x00BB0226;  // destination OR NOT source
constexpr DWORD kSourceAnd = 0x008800C6;   // destination AND source
constexpr ui::Colour kButtonFace = 0x8000000Fu;

WNDPROC FormerProcedure(HWND window) {
  return reinterpret_cast<WNDPROC>(GetPropW(window, kFormerProcedure));
}

// Lays the box's background over the whole of `context`.
void Mix(HDC context, const RECT& area, const ui::PictureBox& box, DWORD operation) {
  const auto* const peer = static_cast<const PictureBoxPeer*>(box.peer());
  if (peer == nullptr || peer->image() == nullptr) return;
  StretchBlt(context, 0, 0, area.right, area.bottom, peer->image(), 0, 0, 1, 1, operation);
}

void Paint(HDC memory, const RECT& area, HWND window, ui::PictureBox& box) {
  // What is printed is not cleared first.
  const WNDPROC former = FormerProcedure(window);
  CallWindowProcW(former, window, WM_ERASEBKGND, reinterpret_cast<WPARAM>(memory), 0);
  CallWindowProcW(former, window, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(memory), PRF_CLIENT);
  if (IsHighContrast()) return;

  SetStretchBltMode(memory, COLORONCOLOR);
  // (painted OR NOT face) AND the box's colour: what is painted white or in the face colour gets
  // the box's colour, and black stays black where the two colours are alike.
  const ui::Colour own = box.back_colour();
  try {
    box.back_colour = kButtonFace;
    Mix(memory, area, box, kMergePaint);
  } catch (...) {
    // The box's own colour comes back, whatever happens to its drawing in between.
  }
  box.back_colour = own;
  Mix(memory, area, box, kSourceAnd);
}

}  // namespace

void AttachTabBackground(HWND window, ui::TabStrip& strip, ui::PictureBox& colour_source) noexcept {
  const LONG_PTR former =
      SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&TabBackgroundProc));
  SetPropW(window, kFormerProcedure, reinterpret_cast<HANDLE>(former));
  SetPropW(window, kColourSource, &colour_source);
  SetPropW(window, kStrip, &strip);
}

void DetachTabBackground(HWND window) noexcept {
  const WNDPROC former = FormerProcedure(window);
  if (former == nullptr) return;
  SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(former));
  RemovePropW(window, kFormerProcedure);
  RemovePropW(window, kColourSource);
  RemovePropW(window, kStrip);
}

LRESULT CALLBACK TabBackgroundProc(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
  auto* const box = static_cast<ui::PictureBox*>(GetPropW(window, kColourSource));
  const WNDPROC former = FormerProcedure(window);
  // Once the hook is off, there is no procedure to pass a message to.
  if (former == nullptr) return DefWindowProcW(window, message, wparam, lparam);
  if (message == WM_NCDESTROY) {
    // The window goes before it was unhooked; its properties must not stay behind.
    DetachTabBackground(window);
  }
  if (message != WM_PAINT || box == nullptr) {
    return CallWindowProcW(former, window, message, wparam, lparam);
  }
  try {
    PaintAtOnce(window, [&](HDC memory, const RECT& area) { Paint(memory, area, window, *box); });
  } catch (...) {
    // Nothing may pass into the system.
  }
  return 0;
}

}  // namespace quill::win32
