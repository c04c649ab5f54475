// The dialog with real windows, over a host folder of its own in the machine's temporary folder,
// and a robot as its operator.
#pragma once

#include <windows.h>

#include <exception>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "dialog/frmrcBHDGS.h"
#include "host/headless/button_pictures.h"
#include "host/win32/host_folder.h"
#include "host/win32/leak_watch.h"
#include "host/win32/window_picture.h"
#include "host/win32/window_robot.h"
#include "support/runtime_error.h"
#include "tests/doubles/scratch_folder.h"
#include "tests/win32/system_thread.h"
#include "ui/controls.h"
#include "win32/native_text.h"
#include "win32/system_services.h"
#include "win32/win32_file_system.h"
#include "win32/win32_toolkit.h"

namespace quill {

// Lets what waits in the thread's message queue happen.
inline void DrainMessages() {
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

// The resources that repeated work uses up.
inline std::vector<TextView> GrownBy(const std::function<void()>& work) {
  constexpr int kCycles = 30;
  host::LeakWatch watch(kCycles);
  for (int cycle = 0; cycle < kCycles; ++cycle) {
    work();
    watch.CycleDone();
  }
  std::vector<TextView> grown;
  for (const host::LeakWatch::Course& course : watch.Courses()) {
    if (course.grew) grown.push_back(course.resource);
  }
  return grown;
}

// The number of the failure, 0 when there was none.
template <class Call>
std::int32_t FailureOf(const Call& call) {
  try {
    call();
  } catch (const RuntimeError& error) {
    return error.number();
  }
  return 0;
}

struct NativeBench {
  ComForThread com;
  ScratchFolder root;
  win32::Win32FileSystem files;
  win32::Win32Clock clock;
  CodePage code_page = win32::SystemCodePage();
  std::unique_ptr<win32::Win32Toolkit> toolkit = std::make_unique<win32::Win32Toolkit>();
  Session session{{*toolkit, files, clock, code_page}};
  host::WindowRobot robot{u"frmrcBHDGS"};
  // The message boxes that came up, each acknowledged at once; what to answer to file dialogs.
  std::vector<host::SeenBox> boxes;
  std::vector<Text> file_answer;
  std::function<void()> during_box;

  NativeBench() {
    host::PutButtonPictures(root.text());
    session.HostRoot = root.text();
    session.Index = 3;
  }
  ~NativeBench() {
    session.dialog.reset();
    DrainMessages();
  }

  // Shows the dialog, made when there is none, while `script` runs in its message loop; then hides
  // it, unless the script has closed it. Passes on what the script throws.
  void Show(const std::function<void(frmrcBHDGS& dialog)>& script) {
    const auto dialog = TakeDialog(session);
    std::exception_ptr failure;
    bool begun = false;
    {
      const host::Heartbeat heartbeat([&] {
        if (const host::OpenBox box = host::FindOpenBox(); box.window != nullptr) {
          AnswerBox(box);
          return;
        }
        if (begun) return;
        begun = true;
        try {
          script(*dialog);
        } catch (...) {
          failure = std::current_exception();
        }
        dialog->Hide();
      });
      dialog->ShowModal();
    }
    if (failure != nullptr) std::rethrow_exception(failure);
  }

  void AnswerBox(const host::OpenBox& box) {
    if (const auto step = std::exchange(during_box, nullptr)) step();
    if (box.asks_for_file) {
      host::AnswerBox(box, file_answer);
    } else {
      boxes.push_back({box.caption, box.text});
      host::AnswerBox(box);
    }
  }

  // Fills the list of mods as a reply of the remote side does, and picks one.
  void PickMod(const Text& mod) {
    auto& mods = session.dialog->Get<ui::ComboBox>(u"cboMods");
    mods.Clear();
    mods.AddItem(u"None");
    mods.AddItem(mod);
    robot.Choose(u"cboMods", mod);
  }
  [[nodiscard]] host::Pixels PictureOf(const Text& control) const {
    DrainMessages();
    return host::TakeWindow(robot.Find(control));
  }
  [[nodiscard]] Text Seen(const Text& control, const Text& property) const {
    return robot.Read(control, property,
                      {root.text() + Text(host::kReleasedPicturePath),
                       root.text() + Text(host::kPressedPicturePath)});
  }
};

}  // namespace quill
