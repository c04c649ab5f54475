// The native windowing toolkit. One thread: that on which it is made.
#pragma once

#include <windows.h>

#include <map>
#include <vector>

#include "ui/toolkit.h"
#include "win32/deferred_tasks.h"
#include "win32/native_picture.h"
#include "win32/screen_scale.h"

namespace quill::win32 {

class FormPeer;
class ModalDisplay;

class Win32Toolkit final : public ui::Toolkit {
 public:
  static constexpr wchar_t kFormClass[] = L"QuillForm";
  // Of an image. Assistive tools know the system's classes, and take a STATIC for text.
  static constexpr wchar_t kImageClass[] = L"QuillImage";

  Win32Toolkit();
  // Every form is gone by now, or goes with the tasks that are still waiting.
  ~Win32Toolkit() override;
  Win32Toolkit(const Win32Toolkit&) = delete;
  Win32Toolkit& operator=(const Win32Toolkit&) = delete;

  std::unique_ptr<ui::Peer> MakePeer(ui::Control& control) override;
  [[nodiscard]] ui::Metrics GetMetrics() const override;
  // A file that has not changed since it was read last is not read again.
  ui::PicturePtr ReadPicture(TextView path) override;
  void ShowMessage(TextView caption, TextView text) override;
  std::vector<Text> ShowFileDialog(ui::Form& owner, const ui::FileDialogRequest& request) override;
  int ShowMenu(ui::Control& control, ui::Twips x, ui::Twips y) override;
  void SetScreenPointer(ui::Pointer pointer) override;
  void RunModal(ui::Form& form) override;
  void EndModal(ui::Form& form) override;
  void Defer(std::function<void()> task) override { tasks_.Add(std::move(task)); }
  void HookTabBackground(ui::TabStrip& strip, ui::PictureBox& colour_source) override;
  void UnhookTabBackground(ui::TabStrip& strip) override;

  // A native event of the plug-in begins and ends being handled.
  void BeginEvent() noexcept { tasks_.BeginEvent(); }
  void EndEvent() noexcept { tasks_.EndEvent(); }

  [[nodiscard]] const ScreenScale& scale() const noexcept { return scale_; }
  // Height of a row of a list box, in pixels.
  [[nodiscard]] int list_row_pixels() const noexcept { return list_row_pixels_; }
  // Readies what a form's windows are made of. Fails as WindowFailure says.
  void RegisterClasses();
  [[nodiscard]] bool IsBusy(const ui::Form& form) const noexcept;
  // Shows the right pointer at once where it is over a window of the plug-in.
  void PointerChanged() const noexcept;

 private:
  struct CachedPicture {
    FILETIME written = {};
    DWORD size = 0;
    std::shared_ptr<const NativePicture> picture;
  };
  struct Display {
    ui::Form* form;
    ModalDisplay* modal;
  };
  // The window that message boxes and file dialogs belong to; null: none is shown.
  [[nodiscard]] HWND BoxOwner() const noexcept;
  template <class Box>
  auto WithBox(const Box& show);

  ScreenScale scale_;
  int list_row_pixels_;
  std::map<Text, CachedPicture> pictures_;  // by their paths
  std::vector<Display> displays_;           // from the outermost to the innermost
  int open_boxes_ = 0;
  ui::Pointer screen_pointer_ = ui::Pointer::kDefault;
  DeferredTasks tasks_;
};

}  // namespace quill::win32
