// Tasks that wait until no native event of the plug-in is being handled any more. One thread.
#pragma once

#include <windows.h>

#include <functional>
#include <utility>
#include <vector>

#include "win32/owned.h"
#include "win32/system_services.h"

namespace quill::win32 {

class DeferredTasks {
 public:
  DeferredTasks() = default;
  ~DeferredTasks() { RunAll(); }
  DeferredTasks(const DeferredTasks&) = delete;
  DeferredTasks& operator=(const DeferredTasks&) = delete;

  // `task` runs from the thread's message loop, whoever owns that. A failure in it is dropped.
  void Add(std::function<void()> task) {
    tasks_.push_back(std::move(task));
    if (events_ == 0) Post();
  }

  // Runs everything now, also what the tasks add.
  void RunAll() noexcept {
    while (!tasks_.empty()) Run();
  }

  // A native event begins and ends being handled; one may come inside the other.
  void BeginEvent() noexcept { ++events_; }
  void EndEvent() noexcept {
    if (--events_ == 0 && !tasks_.empty()) Post();
  }

 private:
  static constexpr UINT kRunTasks = WM_APP;

  // To a message-only window, because messages to a thread alone are lost in other programs' loops.
  void Post() noexcept {
    if (window_ == nullptr) {
      window_.reset(CreateWindowExW(0, L"STATIC", nullptr, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                    ThisModule(), nullptr));
      if (window_ == nullptr) return;  // the tasks then run with the destructor
      // A class of one's own would have to be withdrawn before the library is unloaded.
      SetWindowLongPtrW(window_.get(), GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
      class_procedure_ = reinterpret_cast<WNDPROC>(
          SetWindowLongPtrW(window_.get(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Procedure)));
    }
    if (!posted_) posted_ = PostMessageW(window_.get(), kRunTasks, 0, 0) != FALSE;
  }

  void Run() noexcept {
    const auto tasks = std::exchange(tasks_, {});
    for (const auto& task : tasks) {
      try {
        task();
      } catch (...) {
        // Nobody waits for it any more.
      }
    }
  }

  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    auto* const self = reinterpret_cast<DeferredTasks*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (message != kRunTasks) {
      return CallWindowProcW(self->class_procedure_, window, message, wparam, lparam);
    }
    self->posted_ = false;
    // Inside an event's message box they go on waiting; the end of the event posts again.
    if (self->events_ == 0) self->Run();
    return 0;
  }

  WNDPROC class_procedure_ = &DefWindowProcW;  // which gives back what the class keeps
  Owned<HWND> window_;
  std::vector<std::function<void()>> tasks_;
  int events_ = 0;
  bool posted_ = false;
};

}  // namespace quill::win32
