// The information record that the host reads to list the plug-in, with what this one tells about
// itself.
#pragma once

#include <optional>
#include <vector>

#include "support/text.h"
#include "support/version.h"

namespace quill {

// Texts; arrays of texts (index 0 first) where the host sees a variant; nothing for an empty
// variant.
struct PLUGIN {
  Text Name = u"Quillstart";
  Text File{kLibraryFileName};
  Text Version{kVersionText};
  Text Author = u"Tobin Marsh (Aka Kestrel)";
  Text Description = u"This Plugin adds the ability to Start and Stop DFBHD via the Trackmoor.";
  std::optional<std::vector<Text>> Game = {{u"Delta Force,  V1.5.0.5"}};
  bool HasInterface = false;
  bool ProfileMenu = true;
  bool ServerMenu = false;
  bool MainMenu = false;
  std::optional<std::vector<Text>> ProfileMenuItems;
  std::optional<std::vector<Text>> ServerMenuItems = {{u"Start Game", u"Stop Game"}};
  std::optional<std::vector<Text>> MainMenuItems;
  Text MinRCVer = u"1403";
  Text MinMemKitVer = u"1004";
  Text MinFileKitVer = u"1107";
  Text MinKVRVer = u"31001";
  Text MinRCCVer = u"3505";
};

}  // namespace quill
