// The native window of one control: creation, what all kinds share, and the passage of its
// messages.
//
// The windows of a form are made together when it is first shown, each with its final state; until
// then a peer has none and Sync does nothing. The window dies with the peer, or with the window
// that it lies in. User-interface thread only.
#pragma once

#include <windows.h>

#include <map>
#include <optional>

#include "support/runtime_error.h"
#include "ui/control.h"

namespace quill::win32 {

class FormPeer;
class Win32Toolkit;

// The failure of making a window, right after it: what the system says, kOutOfMemory where it does
// not say.
[[nodiscard]] RuntimeError WindowFailure();

// The mouse buttons that are down, by the messages that this thread has taken; their numbers added
// up.
[[nodiscard]] std::int16_t ButtonsDown() noexcept;

class WindowPeer : public ui::Peer {
 public:
  WindowPeer(Win32Toolkit& toolkit, ui::Control& control) noexcept
      : toolkit_(toolkit), control_(control) {}
  ~WindowPeer() override;
  WindowPeer(const WindowPeer&) = delete;
  WindowPeer& operator=(const WindowPeer&) = delete;

  // Of a window; null for one that was not made here.
  [[nodiscard]] static WindowPeer* Of(HWND window) noexcept;
  // Of a control; null for one without a window.
  [[nodiscard]] static WindowPeer* Of(const ui::Control& control) noexcept;

  void Sync(ui::Changes changes) final;

  // Makes the window inside `parent` (null for a form), in front of no sibling, and shows
  // everything.
  void MakeWindow(HWND parent);

  [[nodiscard]] HWND window() const noexcept { return window_; }
  [[nodiscard]] const ui::Control& control() const noexcept { return control_; }

  // Messages that the window's parent gets on its behalf.
  virtual void OnCommand(WORD) {}
  virtual void OnNotify(const NMHDR&) {}
  virtual void OnDrawItem(const DRAWITEMSTRUCT&) {}

 protected:
  struct Style {
    const wchar_t* window_class = nullptr;
    const Text* text = nullptr;
    DWORD style = 0;
    DWORD extended = 0;
  };
  [[nodiscard]] virtual Style GetStyle() const = 0;
  // Shows what is not common to all kinds. The window exists; what it sends meanwhile is no fact.
  virtual void Show(ui::Changes) {}
  virtual LRESULT Handle(UINT message, WPARAM wparam, LPARAM lparam);
  // True when a mouse button that is pressed here is to be released here, wherever the mouse is.
  [[nodiscard]] virtual bool CapturesMouse() const noexcept { return false; }

  // Whether a key's message comes from holding the key.
  [[nodiscard]] static bool IsRepeated(LPARAM key_data) noexcept {
    return (key_data & 1 << 30) != 0;
  }
  // Has the window's own class handle a message.
  LRESULT CallOriginal(UINT message, WPARAM wparam, LPARAM lparam);
  LRESULT Send(UINT message, WPARAM wparam = 0, LPARAM lparam = 0) const {
    return SendMessageW(window_, message, wparam, lparam);
  }
  // Tells the model, unless the window merely echoes what Show does to it. True for a key that the
  // window's class is not to have.
  bool Tell(const ui::Fact& fact);

  [[nodiscard]] Win32Toolkit& toolkit() const noexcept { return toolkit_; }
  [[nodiscard]] FormPeer& form_peer() const noexcept;
  // Where the window goes, in pixels relative to its parent.
  [[nodiscard]] virtual RECT Place() const;
  // Goes there, if it is elsewhere.
  void TakePlace();
  virtual void ShowVisible();
  // Has the window drawn anew; a window in the making will be anyway.
  void Repaint() const;
  // True while Show tells a new window everything for the first time.
  [[nodiscard]] bool making() const noexcept { return making_; }

 private:
  friend class FormPeer;
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
  // Of all windows made here. The system could keep the peer with the window as well, but asking it
  // costs as much as a tenth of the window's creation.
  static std::map<HWND, WindowPeer*> peers_;

  void ShowTooltip();
  // As the model holds it: at once while the form's window is active, else when it becomes so.
  void ShowFocus(bool reached_by_key) const;
  // The fact that a message of a mouse button stands for, if it does for one. To be asked before
  // any other handling.
  [[nodiscard]] std::optional<ui::Fact> FactOfMouse(UINT message, WPARAM wparam, LPARAM lparam);
  // The answer to WM_GETOBJECT of a screen reader or other assistive tool: name, role, value and
  // state of the control; all else as the system tells of a window of its class. 0 where the system
  // has no such support.
  [[nodiscard]] LRESULT AnswerAssistiveTool(WPARAM wparam) const noexcept;
  // False when the window's class is to have it.
  bool TellKey(WPARAM key, LPARAM key_data);
  void DestroyWindowNow() noexcept;

  Win32Toolkit& toolkit_;
  ui::Control& control_;
  HWND window_ = nullptr;
  WNDPROC original_ = nullptr;
  RECT place_ = {};
  int pressed_ = 0;  // mouse buttons while the mouse is captured; their numbers added up
  int showing_ = 0;
  bool making_ = false;
  bool closing_ = false;
  bool has_tooltip_ = false;
};

}  // namespace quill::win32
