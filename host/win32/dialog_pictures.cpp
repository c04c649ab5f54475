// The tabs in turn, each drawn anew before its picture is taken.
#include "host/win32/dialog_pictures.h"

#include <system_error>

#include "host/win32/high_contrast.h"
#include "host/win32/window_picture.h"
#include "host/win32/window_robot.h"
#include "support/number_text.h"

namespace quill::host {

void TakeDialogPictures(const std::filesystem::path& folder, const Text& moment, bool high_contrast,
                        const std::function<void(const Text& line)>& tell) {
  std::error_code error;
  std::filesystem::create_directories(folder, error);
  const WindowRobot robot(u"frmrcBHDGS");
  const HWND form = robot.FormWindow();
  const Text before = robot.Read(u"tsMain", u"caption");
  const int count = ToInt32(robot.Read(u"tsMain", u"count"));
  for (int tab = 0; tab < count; ++tab) {
    const Text caption = robot.Read(u"tsMain", Concat({u"item ", Decimal(tab)}));
    robot.ClickTab(caption);
    RedrawWindow(form, nullptr, nullptr,
                 RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN | RDW_UPDATENOW);
    const Text name = ReplaceAll(ToLower(caption), u" ", u"-");
    const auto file = folder / Concat({moment, u"-", Decimal(tab + 1), u"-", name, u".png"});
    WritePng(TakeWindow(form), file);
    tell(Concat({u"picture: ", file.u16string()}));
  }
  robot.ClickTab(before);
  if (!high_contrast) return;
  const HighContrast scheme(GetModuleHandleW(L"kvrrcBHDGS.dll"), form);
  TakeDialogPictures(folder, Concat({u"high-contrast-", moment}), false, tell);
}

}  // namespace quill::host
