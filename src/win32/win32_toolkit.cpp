#include "win32/win32_toolkit.h"

#include <commctrl.h>

#include <algorithm>
#include <ranges>
#include <string>

#include "ui/check_box.h"
#include "ui/combo_box.h"
#include "ui/command_button.h"
#include "ui/frame.h"
#include "ui/image.h"
#include "ui/label.h"
#include "ui/list_box.h"
#include "ui/picture_box.h"
#include "ui/tab_strip.h"
#include "ui/text_box.h"
#include "win32/check_box_peer.h"
#include "win32/combo_box_peer.h"
#include "win32/command_button_peer.h"
#include "win32/file_handle.h"
#include "win32/form_peer.h"
#include "win32/frame_peer.h"
#include "win32/image_peer.h"
#include "win32/label_peer.h"
#include "win32/last_error.h"
#include "win32/list_box_peer.h"
#include "win32/modal_display.h"
#include "win32/mouse_buttons.h"
#include "win32/native_file_dialog.h"
#include "win32/native_menu.h"
#include "win32/native_text.h"
#include "win32/picture_box_peer.h"
#include "win32/scrolling_box.h"
#include "win32/tab_strip_peer.h"
#include "win32/text_box_peer.h"
#include "win32/this_module.h"

namespace quill::win32 {
namespace {

constexpr std::size_t kMostCachedPictures = 16;

// Height of a line of the dialog's font, in pixels.
int FontLineHeight(const ScreenScale& scale) {
  int height = 0;
  const HDC screen = GetDC(nullptr);
  const HFONT font =
      CreateFontW(scale.FontHeight(Win32Toolkit::kFontPoints), 0, 0, 0, FW_NORMAL, FALSE, FALSE,
                  FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY,
                  DEFAULT_PITCH | FF_DONTCARE, Win32Toolkit::kFontFace);
  if (screen != nullptr && font != nullptr) {
    const HGDIOBJ previous = SelectObject(screen, font);
    TEXTMETRICW metrics = {};
    if (GetTextMetricsW(screen, &metrics)) height = metrics.tmHeight;
    SelectObject(screen, previous);
  }
  if (font != nullptr) DeleteObject(font);
  if (screen != nullptr) ReleaseDC(nullptr, screen);
  return height > 0 ? height : scale.PixelsY(195);
}

FormPeer& PeerOf(const ui::Form& form) {
  return static_cast<FormPeer&>(*form.peer());
}

template <class PeerType, class ControlType>
std::unique_ptr<WindowPeer> Make(Win32Toolkit& toolkit, ui::Control& control) {
  return std::make_unique<PeerType>(toolkit, static_cast<ControlType&>(control));
}

std::unique_ptr<WindowPeer> MakeForKind(Win32Toolkit& toolkit, ui::Control& control) {
  switch (control.kind()) {
    case ui::ControlKind::kForm:
      return Make<FormPeer, ui::Form>(toolkit, control);
    case ui::ControlKind::kTabStrip:
      return Make<TabStripPeer, ui::TabStrip>(toolkit, control);
    case ui::ControlKind::kFrame:
      return Make<FramePeer, ui::Frame>(toolkit, control);
    case ui::ControlKind::kLabel:
      return Make<LabelPeer, ui::Label>(toolkit, control);
    case ui::ControlKind::kTextBox:
      return Make<TextBoxPeer, ui::TextBox>(toolkit, control);
    case ui::ControlKind::kCheckBox:
      return Make<CheckBoxPeer, ui::CheckBox>(toolkit, control);
    case ui::ControlKind::kListBox:
      return Make<ListBoxPeer, ui::ListBox>(toolkit, control);
    case ui::ControlKind::kComboBox:
      return Make<ComboBoxPeer, ui::ComboBox>(toolkit, control);
    case ui::ControlKind::kCommandButton:
      return Make<CommandButtonPeer, ui::CommandButton>(toolkit, control);
    case ui::ControlKind::kImage:
      return Make<ImagePeer, ui::Image>(toolkit, control);
    case ui::ControlKind::kPictureBox:
      return Make<PictureBoxPeer, ui::PictureBox>(toolkit, control);
    case ui::ControlKind::kFileDialog:
      break;
  }
  return nullptr;
}

}  // namespace

Win32Toolkit::Win32Toolkit() : list_row_pixels_(FontLineHeight(scale_)) {}

Win32Toolkit::~Win32Toolkit() {
  // What still waits may hold forms, and they need the class of their windows until they are gone.
  tasks_.RunAll();
  for (const wchar_t* const name : {kFormClass, kImageClass}) UnregisterClassW(name, ThisModule());
}

std::unique_ptr<ui::Peer> Win32Toolkit::MakePeer(ui::Control& control) {
  auto peer = MakeForKind(*this, control);
  if (peer != nullptr && control.container() != nullptr) {
    const SystemResolution resolution;
    PeerOf(control.form()).MakeWindowOf(*peer);
  }
  return peer;
}

ui::Metrics Win32Toolkit::GetMetrics() const {
  return {scale_.dots_per_inch_x(), scale_.TwipsY(list_row_pixels_)};
}

ui::PicturePtr Win32Toolkit::ReadPicture(TextView path) {
  WIN32_FILE_ATTRIBUTE_DATA file = {};
  if (!GetFileAttributesExW(NativePath(path).c_str(), GetFileExInfoStandard, &file)) {
    return ReadGifPicture(path);  // which says why it cannot be read
  }
  const ULONGLONG size = static_cast<ULONGLONG>(file.nFileSizeHigh) << 32 | file.nFileSizeLow;
  const auto known = std::ranges::find(pictures_, path, &CachedPicture::path);
  if (known != pictures_.end()) {
    if (known->size == size && CompareFileTime(&known->written, &file.ftLastWriteTime) == 0) {
      return known->picture;
    }
    pictures_.erase(known);
  }
  auto picture = ReadGifPicture(path);
  if (pictures_.size() >= kMostCachedPictures) pictures_.clear();
  pictures_.push_back({Text(path), file.ftLastWriteTime, size, picture});
  return picture;
}

HWND Win32Toolkit::BoxOwner() const noexcept {
  for (const auto& display : std::ranges::reverse_view(displays_)) {
    if (!display.modal->ended()) return display.modal->window();
  }
  return nullptr;
}

// While a box is open the windows that wait for the form go on waiting, even if the form is closed
// meanwhile.
template <class Box>
auto Win32Toolkit::WithBox(const Box& show) {
  struct Open {
    explicit Open(Win32Toolkit& shown_by) noexcept : toolkit(shown_by) { ++toolkit.open_boxes_; }
    ~Open() {
      --toolkit.open_boxes_;
      toolkit.buttons_of_closed_box = ButtonsDown();
    }
    Open(const Open&) = delete;
    Open& operator=(const Open&) = delete;
    Win32Toolkit& toolkit;
  };
  const Open open(*this);
  const SystemResolution resolution;
  return show();
}

void Win32Toolkit::ShowMessage(TextView caption, TextView text) {
  const Text native_caption(caption);
  const Text native_text = VisibleText(text);
  const HWND owner = BoxOwner();
  const INT_PTR answer = WithBox([&]() -> INT_PTR {
    if (NeedsScrolling(owner, native_text)) {
      return ShowScrollingBox(owner, native_caption, native_text);
    }
    return MessageBoxW(owner, Wide(native_text), Wide(native_caption),
                       MB_OK | (owner == nullptr ? MB_TASKMODAL : 0u));
  });
  // A thread that is to quit closes its boxes without an answer.
  MSG quit;
  if (answer > 0 || PeekMessageW(&quit, nullptr, WM_QUIT, WM_QUIT, PM_NOREMOVE)) return;
  throw RuntimeError(ErrorNumber::kInvalidProcedureCall, u"The message box could not be shown");
}

std::vector<Text> Win32Toolkit::ShowFileDialog(ui::Form& owner,
                                               const ui::FileDialogRequest& request) {
  const HWND window = owner.shown() ? PeerOf(owner).window() : BoxOwner();
  return WithBox([&] { return AskForFiles(window, request); });
}

int Win32Toolkit::ShowMenu(ui::Control& control, ui::Twips x, ui::Twips y) {
  const WindowPeer* const peer = WindowPeer::Of(control);
  if (peer == nullptr || peer->window() == nullptr) return -1;
  POINT place = {scale_.PixelsX(x), scale_.PixelsY(y)};
  ClientToScreen(peer->window(), &place);
  return WithBox([&] { return ChooseFromMenu(peer->window(), place, control.menu()); });
}

void Win32Toolkit::SetScreenPointer(ui::Pointer pointer) {
  screen_pointer_ = pointer;
  PointerChanged();
}

bool Win32Toolkit::IsBusy(const ui::Form& form) const noexcept {
  return screen_pointer_ == ui::Pointer::kBusy || form.pointer() == ui::Pointer::kBusy;
}

void Win32Toolkit::PointerChanged() const noexcept {
  POINT place = {};
  if (displays_.empty() || !GetCursorPos(&place)) return;
  const HWND under = WindowFromPoint(place);
  const HWND root = GetAncestor(under, GA_ROOT);
  for (const Display& display : displays_) {
    if (display.modal->window() != root) continue;
    SendMessageW(under, WM_SETCURSOR, reinterpret_cast<WPARAM>(under),
                 MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
    return;
  }
}

void Win32Toolkit::RunModal(ui::Form& form) {
  FormPeer& peer = PeerOf(form);
  ModalDisplay modal(peer.window(), peer.active_before());
  displays_.push_back({&form, &modal});
  try {
    modal.HoldBackOthers();
    modal.Run();
  } catch (...) {
    displays_.pop_back();
    throw;
  }
  displays_.pop_back();
}

void Win32Toolkit::EndModal(ui::Form& form) {
  for (const auto& display : std::ranges::reverse_view(displays_)) {
    if (display.form != &form || display.modal->ended()) continue;
    display.modal->End();
    if (open_boxes_ > 0) EndMenu();  // a context menu does not outlive the dialog
    if (open_boxes_ == 0) display.modal->ReleaseOthers();
    return;
  }
}

void Win32Toolkit::HookTabBackground(ui::TabStrip& strip, ui::PictureBox& colour_source) {
  PeerOf(strip.form()).HookTabBackground(strip, colour_source);
}

void Win32Toolkit::UnhookTabBackground(ui::TabStrip& strip) {
  PeerOf(strip.form()).UnhookTabBackground(strip);
}

void Win32Toolkit::RegisterClasses() {
  const INITCOMMONCONTROLSEX controls = {sizeof controls, ICC_TAB_CLASSES | ICC_BAR_CLASSES};
  InitCommonControlsEx(&controls);
  for (const wchar_t* const name : {kFormClass, kImageClass}) {
    WNDCLASSEXW window = {};
    window.cbSize = sizeof window;
    window.lpfnWndProc = &DefWindowProcW;
    window.hInstance = ThisModule();
    window.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    window.lpszClassName = name;
    if (RegisterClassExW(&window) == 0 && GetLastError() != ERROR_CLASS_ALREADY_EXISTS) {
      throw WindowFailure();
    }
  }
}

}  // namespace quill::win32
