// Splitting and checking of host paths.
#include "headless/host_path.h"

#include <algorithm>

namespace quill::headless {
namespace {

bool IsDrive(TextView name) {
  return name.size() == 2 && name[1] == u':' &&
         ((name[0] >= u'A' && name[0] <= u'Z') || (name[0] >= u'a' && name[0] <= u'z'));
}

bool IsAllowedInNames(char16_t unit) {
  return unit >= 0x20 && TextView(u"<>:\"|?*").find(unit) == TextView::npos;
}

void CheckName(TextView name, TextView path) {
  const bool ends_well = name.back() != u'.' && name.back() != u' ';
  if (!ends_well || !std::all_of(name.begin(), name.end(), IsAllowedInNames)) {
    throw RuntimeError(ErrorNumber::kPathFileAccessError,
                       Concat({u"\"", name, u"\" is no file name, in the path \"", path, u"\""}));
  }
}

TextView FolderOf(TextView path) {
  const std::size_t name_end = path.find_last_not_of(u"\\/") + 1;
  return path.substr(0, std::min(path.substr(0, name_end).find_last_of(u"\\/"), path.size()));
}

}  // namespace

std::vector<TextView> SplitHostPath(TextView path) {
  std::vector<TextView> pieces;
  for (std::size_t begin = 0; begin <= path.size();) {
    const std::size_t end = std::min(path.find_first_of(u"\\/", begin), path.size());
    const TextView name = path.substr(begin, end - begin);
    if (pieces.empty()) {
      if (!IsDrive(name)) {
        throw RuntimeError(ErrorNumber::kPathNotFound,
                           Concat({u"The path \"", path, u"\" does not begin with a drive"}));
      }
      pieces.push_back(name);
    } else if (!name.empty()) {
      CheckName(name, path);
      pieces.push_back(name);
    }
    begin = end + 1;
  }
  return pieces;
}

Text HostPathKey(const std::vector<TextView>& pieces) {
  Text key;
  for (const TextView piece : pieces) {
    if (!key.empty()) key += u'\\';
    key += ToLower(piece);
  }
  return key;
}

bool HostPathFileSystem::Has(TextView path, Entry entry) const try {
  return EntryAt(path) == entry;
} catch (const RuntimeError&) {
  return false;
}

void HostPathFileSystem::CheckFile(TextView path) const {
  if (Has(path, Entry::kFile)) return;
  if (Has(path, Entry::kFolder)) FailAt(ErrorNumber::kPathFileAccessError, path);
  // In the usual words, as a native file system says it: whoever reports it adds the path.
  throw RuntimeError(Has(FolderOf(path), Entry::kFolder) ? ErrorNumber::kFileNotFound
                                                         : ErrorNumber::kPathNotFound);
}

void HostPathFileSystem::CheckRoomForFile(TextView path) const {
  if (EntryAt(path) == Entry::kFolder) FailAt(ErrorNumber::kPathFileAccessError, path);
  if (!Has(FolderOf(path), Entry::kFolder)) FailAt(ErrorNumber::kPathNotFound, path);
}

void FailAt(ErrorNumber number, TextView path) {
  throw RuntimeError(number,
                     Concat({DefaultDescription(static_cast<std::int32_t>(number)), u": ", path}));
}

}  // namespace quill::headless
