// Finds the host's root folder by taking paths apart; the platform only tells them.
#include "support/host_environment.h"

#include "support/runtime_error.h"

namespace quill {
namespace {

// The first is the platform's MAX_PATH. Of a longer path only that many units count.
constexpr std::size_t kFolderBufferSize = 260;
constexpr std::size_t kDevelopmentTestBufferSize = 255;
constexpr TextView kDevelopmentHostName = u"VB6.EXE";

}  // namespace

Text HostFolder(ProcessPaths& paths) {
  const Text executable = paths.ExecutablePath(kFolderBufferSize);
  // A path without any piece has no file name to take off.
  if (executable.empty()) throw RuntimeError(ErrorNumber::kSubscriptOutOfRange);
  // Only the backslash before the file name goes; one that precedes it stays.
  const std::size_t last_backslash = executable.rfind(u'\\');
  return last_backslash == Text::npos ? Text() : executable.substr(0, last_backslash);
}

bool IsDevelopmentHost(ProcessPaths& paths) {
  return ToUpper(paths.ExecutablePath(kDevelopmentTestBufferSize)).find(kDevelopmentHostName) !=
         Text::npos;
}

Text ResolveHostRoot(ProcessPaths& paths) {
  if (!IsDevelopmentHost(paths)) return HostFolder(paths);
  Text root = paths.PluginFolder();
  // There the process is not the host, so its folder says nothing. The replacement tells letter
  // cases apart, hence the two spellings.
  for (TextView level : {u"\\Plugins", u"\\plugins", u"\\dlls\\Quillstart"}) {
    root = ReplaceAll(root, level, {});
  }
  return root;
}

}  // namespace quill
