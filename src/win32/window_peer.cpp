// The passage of messages and changes between a native window and its control.
#include "win32/window_peer.h"

#include <commctrl.h>

#include <algorithm>
#include <utility>

#include "com/com_error.h"
#include "win32/drawing.h"
#include "win32/form_peer.h"
#include "win32/native_text.h"
#include "win32/owned.h"
#include "win32/system_services.h"
#include "win32/win32_toolkit.h"

namespace quill::win32 {
namespace {

constexpr int kFirstControlId = 1001;

// The place in the form's collection, so that it is the same in every run.
int ControlId(const ui::Control& control) {
  const auto& controls = control.form().controls();
  const auto found =
      std::ranges::find_if(controls, [&](const auto& other) { return other.get() == &control; });
  return kFirstControlId + static_cast<int>(found - controls.begin());
}

// This property of a window is the name of its control, for robots in the same process.
constexpr wchar_t kControlName[] = L"ControlName";

}  // namespace

RuntimeError WindowFailure() {
  const DWORD code = GetLastError();
  if (code == ERROR_SUCCESS) return RuntimeError(ErrorNumber::kOutOfMemory);
  return com::ErrorOf(HRESULT_FROM_WIN32(code));
}

std::map<HWND, WindowPeer*> WindowPeer::peers_;

WindowPeer::~WindowPeer() {
  DestroyWindowNow();
}

WindowPeer* WindowPeer::Of(HWND window) noexcept {
  const auto found = peers_.find(window);
  return found != peers_.end() ? found->second : nullptr;
}

WindowPeer* WindowPeer::Of(const ui::Control& control) noexcept {
  return static_cast<WindowPeer*>(control.peer());
}

FormPeer& WindowPeer::form_peer() const noexcept {
  return static_cast<FormPeer&>(*control_.form().peer());
}

void WindowPeer::MakeWindow(HWND parent) {
  const Style style = GetStyle();
  place_ = Place();
  const bool is_form = parent == nullptr;
  const DWORD state = is_form
                          ? 0u
                          : WS_CHILD | WS_CLIPSIBLINGS | (control_.visible() ? WS_VISIBLE : 0u) |
                                (control_.enabled() ? 0u : WS_DISABLED);
  const HMENU id =
      is_form ? nullptr : reinterpret_cast<HMENU>(static_cast<INT_PTR>(ControlId(control_)));
  // A class may refuse its window without saying why; an older code would then pass for the reason.
  SetLastError(ERROR_SUCCESS);
  Owned<HWND> window(CreateWindowExW(
      style.extended, style.window_class, style.text != nullptr ? Wide(*style.text) : nullptr,
      style.style | state, place_.left, place_.top, place_.right - place_.left,
      place_.bottom - place_.top, parent, id, ThisModule(), nullptr));
  if (window == nullptr) throw WindowFailure();
  peers_.insert_or_assign(window.get(), this);
  window_ = window.release();
  // Only now, so that the messages of the window's creation go to its class alone.
  original_ = reinterpret_cast<WNDPROC>(
      SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Procedure)));
  SetPropW(window_, kControlName, const_cast<wchar_t*>(Wide(control_.name())));

  // What the window tells from here on is the echo of what it is told.
  ++showing_;
  making_ = true;
  const AtEnd made([&] {
    making_ = false;
    --showing_;
  });
  Send(WM_SETFONT, reinterpret_cast<WPARAM>(form_peer().Font()), FALSE);
  Show(ui::Changes::Everything());
  if (!is_form) ShowTooltip();
}

void WindowPeer::Sync(ui::Changes changes) {
  using ui::Changes;
  const bool visible = control_.visible();
  if (window_ == nullptr && !(control_.kind() == ui::ControlKind::kForm && visible)) return;
  const SystemResolution resolution;
  ++showing_;
  const AtEnd shown([&] { --showing_; });
  // A window is hidden before it changes and shown after it, so that no step is seen.
  if (changes.Has(Changes::kVisible) && !visible) ShowVisible();
  if (window_ != nullptr) {
    if (changes.Has(Changes::kBounds)) TakePlace();
    if (changes.Has(Changes::kEnabled)) EnableWindow(window_, control_.enabled());
    Show(changes);
    if (changes.Has(Changes::kTooltip)) ShowTooltip();
  }
  if (changes.Has(Changes::kVisible) && visible) ShowVisible();
  if (changes.Has(Changes::kFocus)) ShowFocus(changes.Has(Changes::kReachedByKey));
}

void WindowPeer::TakePlace() {
  const RECT place = Place();
  if (EqualRect(&place, &place_)) return;
  // The old picture is not copied along: a transparent label would bring its former ground with it.
  place_ = place;
  SetWindowPos(window_, nullptr, place.left, place.top, place.right - place.left,
               place.bottom - place.top, SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOCOPYBITS);
}

RECT WindowPeer::Place() const {
  return toolkit_.scale().Pixels(control_.bounds());
}

void WindowPeer::ShowVisible() {
  const bool visible = control_.visible();
  if (((GetWindowLongPtrW(window_, GWL_STYLE) & WS_VISIBLE) != 0) == visible) return;
  ShowWindow(window_, visible ? SW_SHOWNA : SW_HIDE);
}

void WindowPeer::ShowFocus(bool reached_by_key) const {
  const bool is_here = control_.form().focus() == &control_ || &control_ == &control_.form();
  if (!is_here || GetActiveWindow() != form_peer().window()) return;
  // Once the keyboard is used the operator wants to see where the focus is.
  if (reached_by_key) {
    SendMessageW(form_peer().window(), WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEFOCUS), 0);
  }
  SetFocus(window_);
  // A text field, whose text is selected whole as in any dialog.
  if (reached_by_key && (Send(WM_GETDLGCODE) & DLGC_HASSETSEL) != 0) Send(EM_SETSEL, 0, -1);
}

void WindowPeer::ShowTooltip() {
  const Text& text = control_.tooltip();
  if (text.empty() && !has_tooltip_) return;
  TTTOOLINFOW tool = {};
  tool.cbSize = TTTOOLINFOW_V1_SIZE;  // all versions take it; the older ones refuse a larger one
  tool.uFlags = TTF_IDISHWND;
  tool.hwnd = form_peer().window();
  tool.uId = reinterpret_cast<UINT_PTR>(window_);
  tool.lpszText = const_cast<wchar_t*>(Wide(text));
  const UINT message = text.empty()   ? TTM_DELTOOLW
                       : has_tooltip_ ? TTM_UPDATETIPTEXTW
                                      : TTM_ADDTOOLW;
  SendMessageW(form_peer().Tooltips(), message, 0, reinterpret_cast<LPARAM>(&tool));
  has_tooltip_ = !text.empty();
}

void WindowPeer::Repaint() const {
  if (!making_) InvalidateRect(window_, nullptr, TRUE);
}

bool WindowPeer::Tell(const ui::Fact& fact) {
  return showing_ == 0 && !closing_ && window_ != nullptr && control_.Happened(fact);
}

LRESULT WindowPeer::CallOriginal(UINT message, WPARAM wparam, LPARAM lparam) {
  return CallWindowProcW(original_, window_, message, wparam, lparam);
}

LRESULT WindowPeer::Handle(UINT message, WPARAM wparam, LPARAM lparam) {
  const auto child = [&](HWND window) -> WindowPeer* {
    return window != nullptr && GetParent(window) == window_ ? Of(window) : nullptr;
  };
  switch (message) {
    case WM_COMMAND:
      if (WindowPeer* const sender = child(reinterpret_cast<HWND>(lparam))) {
        sender->OnCommand(HIWORD(wparam));
        return 0;
      }
      break;
    case WM_DRAWITEM: {
      const auto& item = *reinterpret_cast<const DRAWITEMSTRUCT*>(lparam);
      if (WindowPeer* const sender = child(item.hwndItem)) {
        sender->OnDrawItem(item);
        return TRUE;
      }
      break;
    }
    case WM_NOTIFY: {
      const auto& header = *reinterpret_cast<const NMHDR*>(lparam);
      if (WindowPeer* const sender = child(header.hwndFrom)) {
        sender->OnNotify(header);
        return 0;
      }
      break;
    }
    // Also asked for text fields that are disabled or read-only.
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLORBTN:
      if (child(reinterpret_cast<HWND>(lparam)) != nullptr) {
        auto* const context = reinterpret_cast<HDC>(wparam);
        SetBkColor(context, form_peer().FaceColour());
        SetTextColor(context, form_peer().TextColour());
        return reinterpret_cast<LRESULT>(form_peer().FaceBrush());
      }
      break;
    case WM_SETCURSOR:
      if (LOWORD(lparam) == HTCLIENT && toolkit_.IsBusy(control_.form())) {
        SetCursor(LoadCursorW(nullptr, IDC_WAIT));
        return TRUE;
      }
      break;
    // Not by Tell: the focus that the model itself has set counts too.
    case WM_SETFOCUS:
      control_.Happened(ui::FocusTaken{});
      break;
    case WM_KILLFOCUS:
      Tell(ui::FocusLost{});
      break;
    case WM_KEYDOWN:
      if (TellKey(wparam, lparam)) return 0;
      break;
    case WM_KEYUP:
      Tell(ui::KeyReleased{static_cast<char16_t>(wparam)});
      // A handler may have ended the form.
      if (window_ == nullptr) return 0;
      break;
    case WM_CHAR:
      if (wparam == L'\t') return 0;  // its key has moved the focus
      break;
    case WM_SYSKEYDOWN:
      if (wparam == VK_MENU) form_peer().ShowAccessKeys();
      // Goes on even so: without it the system would take the Alt key alone to have been pressed.
      if (TellKey(wparam, lparam) && window_ == nullptr) return 0;
      break;
    case WM_SYSCHAR:
      if (control_.form().Happened(
              ui::AccessKeyStruck{static_cast<char16_t>(wparam), IsRepeated(lparam)})) {
        return 0;
      }
      break;
    case WM_GETOBJECT:
      // Of the parameter only the low 32 bits count.
      if (static_cast<LONG>(lparam) != OBJID_CLIENT) break;
      if (const LRESULT answer = AnswerAssistiveTool(wparam)) return answer;
      break;
    default:
      break;
  }
  if (has_tooltip_ && message >= WM_MOUSEFIRST && message <= WM_MOUSELAST) {
    // By hand: Wine 8 loses memory for each window that a tooltip watches itself (TTF_SUBCLASS).
    MSG relayed = {window_, message, wparam, lparam, 0, {0, 0}};
    SendMessageW(form_peer().Tooltips(), TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&relayed));
  }
  return CallOriginal(message, wparam, lparam);
}

LRESULT CALLBACK WindowPeer::Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
  WindowPeer* const peer = Of(window);
  if (peer == nullptr) return DefWindowProcW(window, message, wparam, lparam);
  if (message == WM_NCDESTROY) {
    // The window is going, with its peer or before it.
    RemovePropW(window, kControlName);
    peers_.erase(window);
    SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(peer->original_));
    peer->window_ = nullptr;
    return CallWindowProcW(peer->original_, window, message, wparam, lparam);
  }
  // The model may be half gone by now.
  if (peer->closing_) return peer->CallOriginal(message, wparam, lparam);
  peer->toolkit_.BeginEvent();
  const AtEnd end([&toolkit = peer->toolkit_] { toolkit.EndEvent(); });
  try {
    const auto fact = peer->FactOfMouse(message, wparam, lparam);
    if (fact.has_value()) peer->Tell(*fact);
    if (peer->window_ == nullptr) return 0;  // a handler has ended the form
    // The system would turn the fourth and fifth button into going back and forward.
    const bool is_extra = message >= WM_XBUTTONDOWN && message <= WM_XBUTTONDBLCLK;
    if (fact.has_value() && peer->CapturesMouse()) {
      return is_extra ? TRUE : peer->WindowPeer::Handle(message, wparam, lparam);
    }
    return peer->Handle(message, wparam, lparam);
  } catch (...) {
    return 0;  // nothing may pass into the system
  }
}

void WindowPeer::DestroyWindowNow() noexcept {
  closing_ = true;
  if (window_ != nullptr) DestroyWindow(window_);
}

}  // namespace quill::win32
