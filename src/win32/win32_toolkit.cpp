// Boxes, menus and modal displays, and what all windows of a thread have in
// common.
#include "win32/win32_toolkit.h"

#include <commctrl.h>

#include <algorithm>
#include <ranges>
#include <string>

#include "win32/file_handle.h"
#include "win32/fonts.h"
#include "win32/form_peer.h"
#include "win32/last_error.h"
#include "win32/modal_display.h"
#include "win32/mouse_buttons.h"
#include "win32/native_file_dialog.h"
#include "win32/native_text.h"
#include "win32/peers.h"
#include "win32/scrolling_box.h"
#include "win32/this_module.h"

namespace quill::win32 {
namespace {

constexpr std::size_t kMostCachedPictures = 16;

// In the order of ui::ControlKind, whose last one has no peer.
constexpr PeerMaker* kMakers[] = {MakeFormPeer,    MakeTabStripPeer,  MakeFramePeer,
                                  MakeLabelPeer,   MakeTextBoxPeer,   MakeCheckBoxPeer,
                                  MakeListBoxPeer, MakeComboBoxPeer,  MakeCommandButtonPeer,
                                  MakeImagePeer,   MakePictureBoxPeer};
static_assert(std::size(kMakers) == static_cast<std::size_t>(ui::ControlKind::kFileDialog));

// Height of a line of the dialog's font, in pixels.
int FontLineHeight(const ScreenScale& scale) {
  constexpr ui::Twips kUsualHeight = 195;
  const auto font = MakeDialogFont(scale, kDialogFontPoints);
  const int height = FontContext(nullptr, font.get()).Metrics().tmHeight;
  return height > 0 ? height : scale.PixelsY(kUsualHeight);
}

// Shows the items at that place of the screen until one is chosen or the menu
// is left; -1: left, or it could not be shown.
int ChooseFromMenu(HWND owner, POINT place, const std::vector<ui::MenuItem>& items) {
  const Owned<HMENU> menu(CreatePopupMenu());
  if (menu == nullptr) return -1;
  UINT_PTR command = 0;  // counted from 1: the system answers 0 for none
  for (const ui::MenuItem& item : items) {
    if (item.begins_group) AppendMenuW(menu.get(), MF_SEPARATOR, 0, nullptr);
    const Text text = Concat({item.caption, u"\t", item.key_name});
    AppendMenuW(menu.get(), MF_STRING | (item.is_usable() ? 0u : MF_GRAYED), ++command, Wide(text));
  }
  return static_cast<int>(TrackPopupMenuEx(menu.get(), TPM_RETURNCMD | TPM_RIGHTBUTTON, place.x,
                                           place.y, owner, nullptr)) -
         1;
}

FormPeer& FormPeerOf(const ui::Form& form) {
  return static_cast<FormPeer&>(*form.peer());
}

}  // namespace

Win32Toolkit::Win32Toolkit() : list_row_pixels_(FontLineHeight(scale_)) {}

Win32Toolkit::~Win32Toolkit() {
  // What still waits may hold forms, and they need the class of their windows
  // until they are gone.
  tasks_.RunAll();
  for (const wchar_t* const name : {kFormClass, kImageClass}) UnregisterClassW(name, ThisModule());
}

std::unique_ptr<ui::Peer> Win32Toolkit::MakePeer(ui::Control& control) {
  auto peer = kMakers[static_cast<std::size_t>(control.kind())](*this, control);
  if (control.container() != nullptr) {
    const SystemResolution resolution;
    FormPeerOf(control.form()).MakeWindowOf(*peer);
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

// While a box is open the windows that wait for the form go on waiting, even if
// the form is closed meanwhile.
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
  const HWND window = owner.shown() ? FormPeerOf(owner).window() : BoxOwner();
  return WithBox([&] { return AskForFiles(window, request); });
}

int Win32Toolkit::ShowMenu(ui::Control& control, ui::Twips x, ui::Twips y) {
  const WindowPeer* const peer = WindowPeer::Of(control);
  if (peer == nullptr || peer->window() == nullptr) return -1;
  POINT place = {scale_.PixelsX(x), scale_.PixelsY(y)};
  ClientToScreen(peer->window(), &place);
  return WithBox([&] { return ChooseFromMenu(peer->window(), place, control.menu); });
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
  FormPeer& peer = FormPeerOf(form);
  ModalDisplay modal(peer.window(), peer.active_before());
  displays_.push_back({&form, &modal});
  struct Ended {
    std::vector<Display>& displays;
    ~Ended() { displays.pop_back(); }
  } const ended{displays_};
  modal.HoldBackOthers();
  modal.Run();
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
  FormPeerOf(strip.form()).HookTabBackground(strip, colour_source);
}

void Win32Toolkit::UnhookTabBackground(ui::TabStrip& strip) {
  FormPeerOf(strip.form()).UnhookTabBackground(strip);
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
    // Each form asks anew; the classes go with the toolkit.
    if (RegisterClassExW(&window) == 0 && GetLastError() != ERROR_CLASS_ALREADY_EXISTS) {
      throw WindowFailure();
    }
  }
}

}  // namespace quill::win32
