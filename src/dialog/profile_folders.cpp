// Building the folders, and what the file dialog is told.
#include "dialog/profile_folders.h"

#include <utility>

#include "dialog/frmrcBHDGS.h"

namespace quill {
namespace {

// Flags of the platform's file dialog.
constexpr std::uint32_t kHideReadOnly = 0x4;
constexpr std::uint32_t kAllowMultiselect = 0x200;
constexpr std::uint32_t kPathMustExist = 0x800;
constexpr std::uint32_t kNoLongNames = 0x40000;
constexpr std::uint32_t kExplorer = 0x80000;

Text ProfilesFolder(const DialogContext& context) {
  return Concat({context.HostRoot, u"\\profiles"});
}

Text ProfileFolder(const DialogContext& context) {
  return Concat({ProfilesFolder(context), u"\\", Decimal(context.Index)});
}

ui::FileDialog& Prepare(frmrcBHDGS& dialog, TextView title, TextView filter) {
  ui::FileDialog& question = dialog.cdSettings;
  question.request = {
      .title = Text(title),
      .initial_folder = SettingsFolder(dialog.context()),
      .filter = Text(filter),
      .filter_index = 1,
      .file_name = {},
      .flags = kHideReadOnly | kAllowMultiselect | kPathMustExist | kNoLongNames | kExplorer};
  return question;
}

// A name without an extension means one with that of the filter's pattern.
Text WithExtension(Text path, TextView filter) {
  const std::size_t name = path.find_last_of(u"\\/:") + 1;
  if (path.find(u'.', name) == Text::npos) path += filter.substr(filter.rfind(u'*') + 1);
  return path;
}

}  // namespace

Text SettingsFolder(const DialogContext& context) {
  return Concat({ProfileFolder(context), u"\\settings"});
}

void MakeSettingsFolders(DialogContext& context) {
  for (const Text& folder :
       {ProfilesFolder(context), ProfileFolder(context), SettingsFolder(context)}) {
    if (!context.files.FolderExists(folder)) context.files.MakeFolder(folder);
  }
}

Text AskForFileToOpen(frmrcBHDGS& dialog, TextView title, TextView filter) {
  Text file = Prepare(dialog, title, filter).ShowOpen();
  if (file.empty() || dialog.context().files.FileExists(file)) return file;
  return WithExtension(std::move(file), filter);
}

Text AskForFileToSave(frmrcBHDGS& dialog, TextView title, TextView filter) {
  Text file = Prepare(dialog, title, filter).ShowSave();
  return file.empty() ? file : WithExtension(std::move(file), filter);
}

}  // namespace quill
