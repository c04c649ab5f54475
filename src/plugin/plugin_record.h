// The information record that the host reads to list the plug-in.
#pragma once

#include <optional>
#include <vector>

#include "support/text.h"

namespace quill {

// Texts; arrays of texts (index 0 first) where the host sees a variant; nothing for an empty
// variant.
struct PLUGIN {
  Text Name;
  Text File;
  Text Version;
  Text Author;
  Text Description;
  std::optional<std::vector<Text>> Game;
  bool HasInterface = false;
  bool ProfileMenu = false;
  bool ServerMenu = false;
  bool MainMenu = false;
  std::optional<std::vector<Text>> ProfileMenuItems;
  std::optional<std::vector<Text>> ServerMenuItems;
  std::optional<std::vector<Text>> MainMenuItems;
  Text MinRCVer;
  Text MinMemKitVer;
  Text MinFileKitVer;
  Text MinKVRVer;
  Text MinRCCVer;
};

// What this plug-in tells about itself.
[[nodiscard]] PLUGIN PluginRecord();

}  // namespace quill
