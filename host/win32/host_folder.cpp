// The temporary folder, the copy that runs there, and what is in it at the start.
#include "host/win32/host_folder.h"

#include <windows.h>

#include <process.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

#include "host/headless/button_pictures.h"
#include "support/host_environment.h"
#include "support/runtime_error.h"
#include "support/version.h"
#include "win32/native_text.h"
#include "win32/system_services.h"

namespace quill::host {
namespace {

namespace fs = std::filesystem;

constexpr const wchar_t* kProgramName = L"quillhost.exe";
// A file that marks a folder as temporary: no other folder is ever emptied.
constexpr const wchar_t* kMarkName = L"quillhost-throw-away";

fs::path PathOf(TextView text) {
  return {Text(text)};
}

[[noreturn]] void Fail(TextView what, const fs::path& path) {
  throw RuntimeError(ErrorNumber::kPathFileAccessError, Concat({what, u": ", path.u16string()}));
}

// A folder that is removed with all that is in it.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::error_code error;
    // The long form: a short one would not compare equal to what file dialogs answer.
    std::array<wchar_t, 1024> name{};
    const fs::path temporary = fs::temp_directory_path(error);
    const DWORD length = GetLongPathNameW(temporary.c_str(), name.data(), name.size());
    const fs::path parent = length > 0 && length < name.size() ? fs::path(name.data()) : temporary;
    path_ = parent / (L"quillhost-" + std::to_wstring(GetCurrentProcessId()));
    fs::remove_all(path_, error);
    if (!fs::create_directories(path_, error)) Fail(u"This folder cannot be made", path_);
  }
  ~TemporaryFolder() {
    std::error_code error;
    fs::remove_all(path_, error);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  [[nodiscard]] const fs::path& path() const { return path_; }

 private:
  fs::path path_;
};

}  // namespace

Text HostFolderOfProgram() {
  win32::Win32ProcessPaths paths;
  return HostFolder(paths);
}

std::optional<int> RunInHostFolder() {
  const fs::path here = PathOf(HostFolderOfProgram());
  std::error_code error;
  if (fs::exists(here / kMarkName, error)) return std::nullopt;
  win32::Win32ProcessPaths paths;
  const TemporaryFolder folder;
  if (!std::ofstream(folder.path() / kMarkName)) Fail(u"This folder cannot be used", folder.path());
  const fs::path program = PathOf(paths.ExecutablePath(32768));
  const fs::path library = PathOf(kLibraryFileName);
  const auto copy = [&](const fs::path& from, const fs::path& to) {
    if (!fs::copy_file(from, folder.path() / to, error)) Fail(u"This file cannot be copied", from);
  };
  copy(program, kProgramName);
  copy(here / library, library);
  // The system reads it as the program starts.
  const fs::path manifest = program.native() + L".manifest";
  if (fs::exists(manifest, error)) copy(manifest, kProgramName + std::wstring(L".manifest"));
  // The runtime joins arguments by blanks and does not quote them, so that the whole command line
  // is passed as one.
  const std::intptr_t code =
      _wspawnl(_P_WAIT, (folder.path() / kProgramName).c_str(), GetCommandLineW(), nullptr);
  if (code == -1) Fail(u"This program cannot be started", folder.path() / kProgramName);
  return static_cast<int>(code);
}

Text FreshHostFolder() {
  const Text root = HostFolderOfProgram();
  const fs::path folder = PathOf(root);
  std::error_code error;
  if (!fs::exists(folder / kMarkName, error)) throw RuntimeError(ErrorNumber::kPermissionDenied);
  for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
    const fs::path name = entry.path().filename();
    if (name == kMarkName || name == kProgramName || name == PathOf(kLibraryFileName)) continue;
    fs::remove_all(entry.path(), error);
    if (error) Fail(u"This cannot be removed", entry.path());
  }
  PutButtonPictures(root);
  return root;
}

void PutButtonPictures(const Text& root) {
  const std::pair<TextView, std::string_view> pictures[] = {
      {kReleasedPicturePath, kReleasedPicture}, {kPressedPicturePath, kPressedPicture}};
  for (const auto& [name, bytes] : pictures) {
    const fs::path path = PathOf(Concat({root, name}));
    std::error_code error;
    fs::create_directories(path.parent_path(), error);
    std::ofstream file(path, std::ios::binary);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.close();
    if (!file) Fail(u"This cannot be written", path);
  }
}

}  // namespace quill::host
