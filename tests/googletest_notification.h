// GoogleTest writes this class with std::mutex, which the compilers of the win32 threads model
// lack; included before its headers, it takes the place of that.
#pragma once

#ifdef __cplusplus
#include <atomic>
#include <chrono>
#include <thread>

namespace testing::internal {

class Notification {
 public:
  void Notify() { notified_ = true; }
  void WaitForNotification() {
    while (!notified_) std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }

 private:
  std::atomic<bool> notified_ = false;
};

}  // namespace testing::internal
#endif
