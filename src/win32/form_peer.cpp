// The form's window: where it stands, what is in front of what, and which colours hold.
#include "win32/form_peer.h"

#include <commctrl.h>

#include <algorithm>
#include <utility>
#include <vector>

#include "ui/controls.h"
#include "win32/drawing.h"
#include "win32/mdlBHDGSRCStyle.h"
#include "win32/modal_display.h"
#include "win32/system_services.h"
#include "win32/win32_toolkit.h"

namespace quill::win32 {
namespace {

// A pop-up window, because the system would cut others to the size of the screen.
constexpr DWORD kFormStyle = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN;
// To itself: another window of the thread may have been activated that waits for the form.
constexpr UINT kLookWhatIsActive = WM_APP;

// Without an icon of its own, yet on the task bar although it is a pop-up window.
constexpr DWORD kFormExtendedStyle = WS_EX_CONTROLPARENT | WS_EX_DLGMODALFRAME | WS_EX_APPWINDOW;

bool Overlap(const ui::Control& a, const ui::Control& b) {
  const ui::Bounds& x = a.bounds();
  const ui::Bounds& y = b.bounds();
  return x.left < y.left + y.width && y.left < x.left + x.width && x.top < y.top + y.height &&
         y.top < x.top + x.height;
}

// From front to back. A control comes in front of the siblings that it covers in part or whole;
// elsewhere the order in which they were added stays: a label comes right before the control that
// it names, as assistive tools expect it.
std::vector<ui::Control*> NativeOrder(const std::vector<ui::Control*>& back_to_front) {
  std::vector<ui::Control*> order;
  for (ui::Control* const control : back_to_front) {
    order.insert(
        std::ranges::find_if(order, [&](auto* other) { return Overlap(*control, *other); }),
        control);
  }
  return order;
}

BOOL CALLBACK PassOn(HWND window, LPARAM message) {
  SendMessageW(window, static_cast<UINT>(message), 0, 0);
  return TRUE;
}

}  // namespace

FormPeer::~FormPeer() {
  DestroyWindowNow();
}

void FormPeer::MakeWindows() {
  if (window() != nullptr) return;
  toolkit().RegisterClasses();
  MakeWindow(nullptr);
  try {
    MakeChildren(model_);
  } catch (...) {
    DestroyWindow(window());  // a form with half its controls would only mislead
    tooltips_ = nullptr;
    throw;
  }
  AttachHook();
}

void FormPeer::MakeChildren(ui::Control& container) {
  const HWND parent = Of(container)->window();
  for (ui::Control* const child : NativeOrder(container.children())) {
    WindowPeer* const peer = Of(*child);
    if (peer == nullptr) continue;
    peer->MakeWindow(parent);
    MakeChildren(*child);
  }
}

WindowPeer::Style FormPeer::GetStyle() const {
  return {Win32Toolkit::kFormClass, &model_.caption(), kFormStyle, kFormExtendedStyle};
}

RECT FormPeer::Place() const {
  RECT frame = toolkit().scale().Pixels(model_.bounds());
  AdjustWindowRectEx(&frame, kFormStyle, FALSE, kFormExtendedStyle);
  const int width = frame.right - frame.left;
  const int height = frame.bottom - frame.top;
  // In the middle of the screen that the operator is looking at.
  const RECT area = WorkAreaFor(GetActiveWindow());
  // On a screen that is too small the caption stays in sight.
  const int left = std::max<int>(area.left, (area.left + area.right - width) / 2);
  const int top = std::max<int>(area.top, (area.top + area.bottom - height) / 2);
  return {left, top, left + width, top + height};
}

void FormPeer::Show(ui::Changes changes) {
  if (changes.Has(ui::Changes::kPointer)) toolkit().PointerChanged();
}

void FormPeer::ShowVisible() {
  if (!model_.visible()) {
    if (window() != nullptr) ShowWindow(window(), SW_HIDE);
    return;
  }
  MakeWindows();
  active_before_ = GetActiveWindow();
  ShowWindow(window(), SW_SHOW);
  // The first window of a program is shown as the program was started: hidden, minimised,
  // maximised. Meanwhile the host may have hidden it.
  const bool is_as_designed =
      IsWindowVisible(window()) && !IsIconic(window()) && !IsZoomed(window());
  if (model_.visible() && !is_as_designed) ShowWindow(window(), SW_SHOWNORMAL);
  if (!model_.visible()) return;
  SetForegroundWindow(window());
  UpdateWindow(window());
}

HFONT FormPeer::Font() {
  if (font_ == nullptr) font_ = MakeDialogFont(toolkit().scale());
  return font_.get();
}

HBRUSH FormPeer::FaceBrush() const noexcept {
  return own_face_ != nullptr ? own_face_.get() : GetSysColorBrush(COLOR_BTNFACE);
}

LRESULT FormPeer::FillFace(HWND window, HDC context) const noexcept {
  RECT area;
  GetClientRect(window, &area);
  FillRect(context, &area, FaceBrush());
  return 1;
}

COLORREF FormPeer::FaceColour() const noexcept {
  return own_face_ != nullptr ? ToColorRef(colour_source_->back_colour())
                              : GetSysColor(COLOR_BTNFACE);
}

COLORREF FormPeer::TextColour() const noexcept {
  const COLORREF own = GetSysColor(COLOR_BTNTEXT);
  // A scheme of light text on dark faces, while the faces have their own, light colour.
  return own_face_ != nullptr && GetGValue(own) > 127 ? RGB(0, 0, 0) : own;
}

void FormPeer::ReadColours() noexcept {
  const bool is_own = colour_source_ != nullptr && !IsHighContrast();
  own_face_.reset(is_own ? CreateSolidBrush(ToColorRef(colour_source_->back_colour())) : nullptr);
}

void FormPeer::RepaintAll() const noexcept {
  RedrawWindow(window(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

HWND FormPeer::Tooltips() {
  if (tooltips_ == nullptr) {
    tooltips_ =
        CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr,
                        WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, CW_USEDEFAULT, CW_USEDEFAULT,
                        CW_USEDEFAULT, CW_USEDEFAULT, window(), nullptr, ThisModule(), nullptr);
  }
  return tooltips_;
}

void FormPeer::HookTabBackground(ui::TabStrip* strip, ui::PictureBox* colour_source) noexcept {
  if (HookedWindow() != nullptr) DetachTabBackground(HookedWindow());
  strip_ = strip;
  colour_source_ = colour_source;
  if (window() != nullptr) AttachHook();
}

HWND FormPeer::HookedWindow() const noexcept {
  return strip_ != nullptr ? Of(*strip_)->window() : nullptr;
}

void FormPeer::AttachHook() noexcept {
  ReadColours();
  if (HookedWindow() != nullptr) AttachTabBackground(HookedWindow(), *strip_, *colour_source_);
  RepaintAll();
}

LRESULT FormPeer::Handle(UINT message, WPARAM wparam, LPARAM lparam) {
  switch (message) {
    case WM_CLOSE:
      Tell(ui::CloseAsked{});
      return 0;
    case WM_DESTROY:
      // Somebody else ends the window: as if by its own button, or its display would never end.
      Tell(ui::CloseAsked{});
      break;
    case WM_ERASEBKGND:
      return FillFace(window(), reinterpret_cast<HDC>(wparam));
    case WM_ACTIVATE:
      if (LOWORD(wparam) == WA_INACTIVE && lparam != 0 &&
          !IsWindowEnabled(reinterpret_cast<HWND>(lparam))) {
        PostMessageW(window(), kLookWhatIsActive, 0, 0);
      }
      break;
    case WM_ACTIVATEAPP:
      if (wparam != FALSE) PostMessageW(window(), kLookWhatIsActive, 0, 0);
      break;
    case kLookWhatIsActive:
      ComeForward();
      return 0;
    // The form itself has nothing to type into: the model passes the focus on.
    case WM_SETFOCUS:
      model_.Happened(ui::FocusTaken{});
      return 0;
    // The system tells top-level windows only, and common controls keep colours.
    case WM_SYSCOLORCHANGE:
    case WM_SETTINGCHANGE:
    case WM_THEMECHANGED:
      ReadColours();
      if (message == WM_SYSCOLORCHANGE) EnumChildWindows(window(), &PassOn, message);
      RepaintAll();
      break;
    default:
      break;
  }
  return WindowPeer::Handle(message, wparam, lparam);
}

// The task bar and Alt+Tab also activate windows that take no input.
void FormPeer::ComeForward() const noexcept {
  const HWND active = GetActiveWindow();
  if (active == nullptr || IsWindowEnabled(active) || !model_.shown()) return;
  const HWND box = OpenBoxOf(window());
  SetForegroundWindow(box != nullptr ? box : window());
}

void FormPeer::ShowAccessKeys() {
  if (!std::exchange(shows_access_keys_, true)) RepaintAll();
}

PeerMaker* const kMakeFormPeer = &MakePeerOf<FormPeer>;

}  // namespace quill::win32
