// A message-only window, because messages to a thread alone are lost in other programs' loops.
#include "win32/deferred_tasks.h"

#include <utility>

#include "win32/this_module.h"

namespace quill::win32 {
namespace {

constexpr UINT kRunTasks = WM_APP;

}  // namespace

DeferredTasks::~DeferredTasks() {
  RunAll();
}

void DeferredTasks::Add(std::function<void()> task) {
  tasks_.push_back(std::move(task));
  if (events_ == 0) Post();
}

void DeferredTasks::Post() noexcept {
  if (window_ == nullptr) {
    window_.reset(CreateWindowExW(0, L"STATIC", nullptr, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                  ThisModule(), nullptr));
    if (window_ == nullptr) return;  // the tasks then run with the destructor
    // A class of one's own would have to be withdrawn before the library is unloaded.
    SetWindowLongPtrW(window_.get(), GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    SetWindowLongPtrW(window_.get(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Procedure));
  }
  if (!posted_) posted_ = PostMessageW(window_.get(), kRunTasks, 0, 0) != FALSE;
}

void DeferredTasks::RunAll() noexcept {
  while (!tasks_.empty()) Run();
}

void DeferredTasks::Run() noexcept {
  const auto tasks = std::exchange(tasks_, {});
  for (const auto& task : tasks) {
    try {
      task();
    } catch (...) {
      // Nobody waits for it any more.
    }
  }
}

LRESULT CALLBACK DeferredTasks::Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
  if (message != kRunTasks) return DefWindowProcW(window, message, wparam, lparam);
  auto* const self = reinterpret_cast<DeferredTasks*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  self->posted_ = false;
  // Inside an event's message box they go on waiting; the end of the event posts again.
  if (self->events_ == 0) self->Run();
  return 0;
}

}  // namespace quill::win32
