// Makes the profile's folders and asks the operator for a file in them.
#include "dialog/profile_folders.h"

#include <utility>

#include "dialog/frmrcBHDGS.h"

namespace quill {
namespace {

// Flags of the platform's file dialog, none of which asks before an existing file is written.
// kNoLongNames has no effect on a dialog in the explorer style.
constexpr std::uint32_t kHideReadOnly = 0x4;
constexpr std::uint32_t kAllowMultiselect = 0x200;
constexpr std::uint32_t kPathMustExist = 0x800;
constexpr std::uint32_t kNoLongNames = 0x40000;
constexpr std::uint32_t kExplorer = 0x80000;

Text ProfilesFolder(const Session& session) {
  return Concat({session.HostRoot, u"\\profiles"});
}

Text ProfileFolder(const Session& session) {
  return Concat({ProfilesFolder(session), u"\\", Decimal(session.Index)});
}

ui::FileDialog& Prepare(frmrcBHDGS& dialog, TextView title, TextView filter) {
  ui::FileDialog& question = dialog.cdSettings;
  question.request = {
      .title = Text(title),
      .initial_folder = SettingsFolder(dialog.session()),
      .filter = Text(filter),
      // Or the last answer would be proposed.
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

Text SettingsFolder(const Session& session) {
  return Concat({ProfileFolder(session), u"\\settings"});
}

void MakeSettingsFolders(Session& session) {
  for (const Text& folder :
       {ProfilesFolder(session), ProfileFolder(session), SettingsFolder(session)}) {
    if (!session.files.FolderExists(folder)) session.files.MakeFolder(folder);
  }
}

Text AskForFileToOpen(frmrcBHDGS& dialog, TextView title, TextView filter) {
  Text file = Prepare(dialog, title, filter).ShowOpen();
  if (file.empty() || dialog.session().files.FileExists(file)) return file;
  return WithExtension(std::move(file), filter);
}

Text AskForFileToSave(frmrcBHDGS& dialog, TextView title, TextView filter) {
  Text file = Prepare(dialog, title, filter).ShowSave();
  return file.empty() ? file : WithExtension(std::move(file), filter);
}

}  // namespace quill
