// The request as the system's dialogs take it, and their buffer as paths.
#include "win32/native_file_dialog.h"

#include <commdlg.h>

#include <algorithm>
#include <string>

#include "support/runtime_error.h"
#include "win32/native_text.h"

namespace quill::win32 {
namespace {

// Room for a selection of many files.
constexpr std::size_t kBufferSize = 65536;

std::wstring CurrentFolder() {
  std::wstring folder(GetCurrentDirectoryW(0, nullptr), L'\0');
  if (!folder.empty()) {
    folder.resize(GetCurrentDirectoryW(static_cast<DWORD>(folder.size()), folder.data()));
  }
  return folder;
}

// "description|pattern" as zero-ended strings with a zero behind the last.
std::wstring NativeFilter(TextView filter) {
  if (filter.empty()) return {};
  std::wstring native(filter.begin(), filter.end());
  std::replace(native.begin(), native.end(), L'|', L'\0');
  native.append(2, L'\0');
  return native;
}

}  // namespace

std::vector<Text> PathsIn(std::wstring_view buffer) {
  std::vector<Text> pieces;
  while (!buffer.empty() && buffer.front() != L'\0') {
    const std::size_t end = std::min(buffer.find(L'\0'), buffer.size());
    pieces.push_back(FromWide(buffer.substr(0, end)));
    buffer.remove_prefix(std::min(end + 1, buffer.size()));
  }
  if (pieces.size() <= 1) return pieces;

  Text folder = pieces.front();
  if (!folder.ends_with(u'\\')) folder += u'\\';
  pieces.erase(pieces.begin());
  for (Text& name : pieces) {
    // A name from elsewhere comes as a full path.
    const bool is_full = name.starts_with(u"\\\\") || (name.size() > 1 && name[1] == u':');
    if (!is_full) name.insert(0, folder);
  }
  return pieces;
}

std::vector<Text> AskForFiles(HWND owner, const ui::FileDialogRequest& request) {
  const std::wstring filter = NativeFilter(request.filter);
  std::wstring buffer(kBufferSize, L'\0');
  const std::size_t proposed = std::min(request.file_name.size(), kBufferSize - 2);
  std::copy_n(request.file_name.begin(), proposed, buffer.begin());

  OPENFILENAMEW dialog = {};
  dialog.lStructSize = sizeof dialog;
  dialog.hwndOwner = owner;
  dialog.lpstrFilter = filter.empty() ? nullptr : filter.c_str();
  dialog.nFilterIndex = static_cast<DWORD>(std::max(request.filter_index, 0));
  dialog.lpstrFile = buffer.data();
  dialog.nMaxFile = static_cast<DWORD>(buffer.size());
  dialog.lpstrInitialDir = request.initial_folder.empty() ? nullptr : Wide(request.initial_folder);
  dialog.lpstrTitle = request.title.empty() ? nullptr : Wide(request.title);
  dialog.Flags = request.flags;

  // The dialog's own flag for it, OFN_NOCHANGEDIR, has no effect on opening files.
  const std::wstring folder = CurrentFolder();
  const BOOL picked = request.save ? GetSaveFileNameW(&dialog) : GetOpenFileNameW(&dialog);
  if (!folder.empty()) SetCurrentDirectoryW(folder.c_str());
  if (picked) return PathsIn(buffer);
  const DWORD reason = CommDlgExtendedError();
  if (reason == 0) return {};
  if (reason == FNERR_BUFFERTOOSMALL) {
    throw RuntimeError(ErrorNumber::kInvalidProcedureCall, u"Too many files were picked");
  }
  throw RuntimeError(
      ErrorNumber::kInvalidProcedureCall,
      Concat({u"The file dialog could not be shown (error ", Decimal(reason), u")"}));
}

}  // namespace quill::win32
