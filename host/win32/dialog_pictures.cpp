#include "host/win32/dialog_pictures.h"

#include <system_error>

#include "host/win32/high_contrast.h"
#include "host/win32/window_picture.h"
#include "host/win32/window_robot.h"
#include "support/number_text.h"

namespace quill::host {
namespace {

// "Game Settings" as part of a file's name.
Text FileWord(TextView caption) {
  Text word;
  for (const char16_t unit : caption) {
    if (unit >= u'A' && unit <= u'Z') {
      word += static_cast<char16_t>(unit + (u'a' - u'A'));
    } else {
      word += unit == u' ' ? u'-' : unit;
    }
  }
  return word;
}

}  // namespace

void DialogPictures::Take(const Text& moment, bool high_contrast,
                          const std::function<void(const Text& line)>& tell) const {
  TakeTabs(moment, tell);
  if (!high_contrast) return;
  const HighContrast scheme(GetModuleHandleW(L"kvrrcBHDGS.dll"),
                            WindowRobot(u"frmrcBHDGS").FormWindow());
  TakeTabs(Concat({u"high-contrast-", moment}), tell);
}

void DialogPictures::TakeTabs(const Text& moment,
                              const std::function<void(const Text& line)>& tell) const {
  std::error_code error;
  std::filesystem::create_directories(folder_, error);
  const WindowRobot robot(u"frmrcBHDGS");
  const Text strip = u"tsMain";
  const Text before = robot.Read(strip, u"caption");
  const int count = ToInt32(robot.Read(strip, u"count"));
  for (int tab = 0; tab < count; ++tab) {
    const Text caption = robot.Read(strip, Concat({u"item ", Decimal(tab)}));
    robot.ClickTab(caption);
    const HWND form = robot.FormWindow();
    RedrawWindow(form, nullptr, nullptr,
                 RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN | RDW_UPDATENOW);
    const std::filesystem::path file =
        folder_ / Concat({moment, u"-", Decimal(tab + 1), u"-", FileWord(caption), u".png"});
    WritePng(TakeWindow(form), file);
    tell(Concat({u"picture: ", file.u16string()}));
  }
  robot.ClickTab(before);
}

}  // namespace quill::host
