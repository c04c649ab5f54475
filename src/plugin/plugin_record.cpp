// The values of the information record.
#include "plugin/plugin_record.h"

#include "support/version.h"

namespace quill {

PLUGIN PluginRecord() {
  return {
      .Name = u"Quillstart",
      .File = Text(kLibraryFileName),
      .Version = Text(kVersionText),
      .Author = u"Tobin Marsh (Aka Kestrel)",
      .Description = u"This Plugin adds the ability to Start and Stop DFBHD via the Trackmoor.",
      .Game = {{u"Delta Force,  V1.5.0.5"}},
      .HasInterface = false,
      .ProfileMenu = true,
      .ServerMenu = false,
      .MainMenu = false,
      .ProfileMenuItems = {},
      .ServerMenuItems = {{u"Start Game", u"Stop Game"}},
      .MainMenuItems = {},
      .MinRCVer = u"1403",
      .MinMemKitVer = u"1004",
      .MinFileKitVer = u"1107",
      .MinKVRVer = u"31001",
      .MinRCCVer = u"3505",
  };
}

}  // namespace quill
