// Tasks that wait until no native event of the plug-in is being handled any more. One thread.
#pragma once

#include <windows.h>

#include <functional>
#include <vector>

#include "win32/owned.h"

namespace quill::win32 {

class DeferredTasks {
 public:
  DeferredTasks() = default;
  ~DeferredTasks();  // runs what is left
  DeferredTasks(const DeferredTasks&) = delete;
  DeferredTasks& operator=(const DeferredTasks&) = delete;

  // `task` runs from the thread's message loop, whoever owns that. A failure in it is dropped.
  void Add(std::function<void()> task);

  // Runs everything now, also what the tasks add.
  void RunAll() noexcept;

  // A native event that is being handled.
  class Event {
   public:
    explicit Event(DeferredTasks& tasks) noexcept : tasks_(tasks) { ++tasks_.events_; }
    ~Event() {
      if (--tasks_.events_ == 0 && !tasks_.tasks_.empty()) tasks_.Post();
    }
    Event(const Event&) = delete;
    Event& operator=(const Event&) = delete;

   private:
    DeferredTasks& tasks_;
  };

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
  void Post() noexcept;
  void Run() noexcept;

  Owned<HWND> window_;
  std::vector<std::function<void()>> tasks_;
  int events_ = 0;  // being handled, one inside the other
  bool posted_ = false;
};

}  // namespace quill::win32
