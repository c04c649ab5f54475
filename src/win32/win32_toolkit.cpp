// Boxes, menus and modal displays, and what all windows of a thread have in common.
#include "win32/win32_toolkit.h"

#include <commctrl.h>

#include <algorithm>
#include <ranges>
#include <string>

#include "win32/boxes.h"
#include "win32/drawing.h"
#include "win32/form_peer.h"
#include "win32/modal_display.h"
#include "win32/native_text.h"
#include "win32/peers.h"
#include "win32/system_services.h"
#include "win32/win32_file_system.h"

namespace quill::win32 {
namespace {

constexpr std::size_t kMostCachedPictures = 16;

// In the order of ui::ControlKind, whose last one has no peer.
constexpr PeerMaker* const* kMakers[] = {
    &kMakeFormPeer,          &kMakeTabStripPeer, &kMakeFramePeer,     &kMakeLabelPeer,
    &kMakeTextBoxPeer,       &kMakeCheckBoxPeer, &kMakeListBoxPeer,   &kMakeComboBoxPeer,
    &kMakeCommandButtonPeer, &kMakeImagePeer,    &kMakePictureBoxPeer};
static_assert(std::size(kMakers) == static_cast<std::size_t>(ui::ControlKind::kFileDialog));

// Height of a line of the dialog's font, in pixels.
int FontLineHeight(const ScreenScale& scale) {
  constexpr ui::Twips kUsualHeight = 195;
  const auto font = MakeDialogFont(scale);
  const int height = WindowContext(nullptr, font.get()).Metrics().tmHeight;
  return height > 0 ? height : scale.Pixels(kUsualHeight);
}

FormPeer& FormPeerOf(const ui::Form& form) {
  return static_cast<FormPeer&>(*form.peer());
}

}  // namespace

Win32Toolkit::Win32Toolkit() : list_row_pixels_(FontLineHeight(scale_)) {}

Win32Toolkit::~Win32Toolkit() {
  // What still waits may hold forms, and they need the class of their windows until they are gone.
  tasks_.RunAll();
  for (const wchar_t* const name : {kFormClass, kImageClass}) UnregisterClassW(name, ThisModule());
}

std::unique_ptr<ui::Peer> Win32Toolkit::MakePeer(ui::Control& control) {
  return (*kMakers[static_cast<std::size_t>(control.kind())])(*this, control);
}

ui::Metrics Win32Toolkit::GetMetrics() const {
  return {scale_.dots_per_inch(), scale_.ToTwips(list_row_pixels_)};
}

ui::PicturePtr Win32Toolkit::ReadPicture(TextView path) {
  WIN32_FILE_ATTRIBUTE_DATA file = {};
  if (!GetFileAttributesExW(NativePath(path).c_str(), GetFileExInfoStandard, &file)) {
    return std::make_shared<NativePicture>(path);  // which says why it cannot be read
  }
  // A dialog reads two; more come only with another host root.
  if (pictures_.size() >= kMostCachedPictures) pictures_.clear();
  CachedPicture& known = pictures_[Text(path)];
  if (known.picture == nullptr || known.size != file.nFileSizeLow ||
      CompareFileTime(&known.written, &file.ftLastWriteTime) != 0) {
    known = {file.ftLastWriteTime, file.nFileSizeLow, std::make_shared<NativePicture>(path)};
  }
  return known.picture;
}

HWND Win32Toolkit::BoxOwner() const noexcept {
  for (const auto& display : std::ranges::reverse_view(displays_)) {
    if (display.modal->ended()) continue;
    // Inside an open box, the box: at its end a box has its owner take input again.
    const HWND box = OpenBoxOf(display.modal->window());
    return box != nullptr ? box : display.modal->window();
  }
  return nullptr;
}

// While a box is open the windows that wait for the form go on waiting, even if the form is closed
// meanwhile.
template <class Box>
auto Win32Toolkit::WithBox(const Box& show) {
  ++open_boxes_;
  const AtEnd closed([&] {
    --open_boxes_;
    buttons_of_closed_box = ButtonsDown();
  });
  const SystemResolution resolution;
  return show();
}

void Win32Toolkit::ShowMessage(TextView caption, TextView text) {
  WithBox([&] { ShowMessageBox(BoxOwner(), Text(caption), VisibleText(text)); });
}

std::vector<Text> Win32Toolkit::ShowFileDialog(ui::Form& owner,
                                               const ui::FileDialogRequest& request) {
  const HWND window = owner.shown() ? FormPeerOf(owner).window() : BoxOwner();
  return WithBox([&] { return AskForFiles(window, request); });
}

int Win32Toolkit::ShowMenu(ui::Control& control, ui::Twips x, ui::Twips y) {
  const WindowPeer* const peer = WindowPeer::Of(control);
  if (peer == nullptr || peer->window() == nullptr) return -1;
  POINT place = {scale_.Pixels(x), scale_.Pixels(y)};
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
  GetCursorPos(&place);
  const HWND under = WindowFromPoint(place);
  if (WindowPeer::Of(under) == nullptr) return;
  // As if the mouse had moved, which is when the system asks for the pointer.
  SendMessageW(under, WM_SETCURSOR, reinterpret_cast<WPARAM>(under),
               MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
}

void Win32Toolkit::RunModal(ui::Form& form) {
  FormPeer& peer = FormPeerOf(form);
  ModalDisplay modal(peer.window(), peer.active_before());
  displays_.push_back({&form, &modal});
  const AtEnd ended([&] { displays_.pop_back(); });
  // With the display in the list: the others hear of it and may end it.
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
  FormPeerOf(strip.form()).HookTabBackground(&strip, &colour_source);
}

void Win32Toolkit::UnhookTabBackground(ui::TabStrip& strip) {
  FormPeerOf(strip.form()).HookTabBackground(nullptr, nullptr);
}

void Win32Toolkit::RegisterClasses() {
  // The second set holds the tooltips.
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
