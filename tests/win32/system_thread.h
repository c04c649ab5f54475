// A thread of the system's own (the standard library of the Windows compilers has none) and COM on
// a thread.
#pragma once

#include <windows.h>

#include <objbase.h>

#include <functional>
#include <utility>

namespace quill {

// Runs `work` on a new thread, which is joined at the latest when this ends.
class SystemThread {
 public:
  explicit SystemThread(std::function<void()> work)
      : work_(std::move(work)), thread_(::CreateThread(nullptr, 0, &Run, this, 0, nullptr)) {}
  SystemThread(const SystemThread&) = delete;
  SystemThread& operator=(const SystemThread&) = delete;
  ~SystemThread() {
    ::WaitForSingleObject(thread_, INFINITE);
    ::CloseHandle(thread_);
  }

 private:
  static DWORD WINAPI Run(void* self) {
    static_cast<SystemThread*>(self)->work_();
    return 0;
  }

  const std::function<void()> work_;
  const HANDLE thread_;
};

struct ComForThread {
  ComForThread() { static_cast<void>(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)); }
  ~ComForThread() { ::CoUninitialize(); }
  ComForThread(const ComForThread&) = delete;
  ComForThread& operator=(const ComForThread&) = delete;
};

}  // namespace quill
