// Map-list files: which lines count, how bytes become lines, and what holds while and after.
#include <gtest/gtest.h>

#include "tests/doubles/plug_in_bench.h"

namespace quill {
namespace {

using Strings = PlugInBench::Strings;

constexpr const char* kLine = "0[-]0[-]DMK_01A.BMS";

class MapListFile : public testing::Test, protected PlugInBench {
 protected:
  // The files of the rotation after loading a map list of these bytes, where it held two maps.
  std::string Loaded(std::string_view bytes) {
    std::string loaded;
    Write(u"list.mpl", bytes);
    OpenFilled([&](frmrcBHDGS& dialog) {
      const SelectedMap road_rage{u"Road Rage", u"DMK_01A.BMS", 0, false};
      Select({road_rage, road_rage});
      person.ClickTab(u"Map Settings");
      Push(u"cmdLoadMaps", u"list.mpl");
      loaded = RotationFiles();
      EXPECT_EQ(dialog.lstSelMaps.Count(), static_cast<int>(rotation().size()));
      EXPECT_EQ(files.open_readers(), 0);
    });
    return loaded;
  }
};

TEST_F(MapListFile, ACarriageReturnEndsALineAndALoneLineFeedDoesNot) {
  const std::string a = kLine;
  const std::string b = "0[-]0[-]DMM_01A.BMS";
  const char* both = "DMK_01A.BMS DMM_01A.BMS ";
  EXPECT_EQ(Loaded(a + "\r\n" + b), both);
  EXPECT_EQ(Loaded(a + "\r" + b + "\r"), both);
  EXPECT_EQ(Loaded(a + "\r\r\n\r\n" + b + "\r\n\r\n"), both);
  EXPECT_EQ(Loaded(a + "\n" + b), "");
  EXPECT_EQ(Loaded(a + "\n\r\n" + b), "DMM_01A.BMS ");
  EXPECT_EQ(Loaded(a + "\r\n\n" + b), "DMK_01A.BMS ");
  EXPECT_EQ(Loaded("\xEF\xBB\xBF" + a + "\r\n\xEF\xBB\xBF" + b), "DMK_01A.BMS ");
  for (const bool low_first : {true, false}) {
    std::string wide;
    for (const char c : "\xFF" + a + "\r\n" + b) {
      const char high = c == '\xFF' ? '\xFE' : '\0';
      wide += low_first ? std::string{c, high} : std::string{high, c};
    }
    EXPECT_EQ(Loaded(wide + "x"), both) << "with half a character at the end";
  }
  // Each byte is a character of the code page; behind its mark the file is UTF-8, valid or not.
  reply.AddMap(u"0", u"Stra\u00DFe", u"\u20AC\u00FF.BMS");
  const std::string name = ToUtf8(u"\u20AC\u00FF.BMS ");
  EXPECT_EQ(Loaded("0[-]1[-]\x80\xFF.BMS"), name);
  EXPECT_EQ(Loaded("\xEF\xBB\xBF" + ("0[-]1[-]" + name)), name);
  EXPECT_EQ(Loaded("\xEF\xBB\xBF\xC3\r\n0[-]1[-]\x80\xFF.BMS\r\n" + a + "\r\xF0\x9F"),
            "DMK_01A.BMS ");
  EXPECT_EQ(Boxes(), Strings{});
}

// Files go beyond what can be added; adding stays refused until there is room again.
TEST_F(MapListFile, MayHoldMoreMapsThanCanBeAdded) {
  std::string bytes;
  for (int i = 0; i < 257; ++i) bytes += std::string(kLine) + "\r\n";
  Write(u"long.mpl", bytes);
  OpenFilled([&](frmrcBHDGS&) {
    person.ClickTab(u"Map Settings");
    Push(u"cmdLoadMaps", u"long.mpl");
    const Strings refused = {"Failed!|You cannot add more than 255 maps!"};
    person.DoubleClickRow(u"lstAvlMaps", 0);
    EXPECT_EQ(Boxes(), refused);
    EXPECT_EQ(rotation().size(), 257u);
    person.SelectRows(u"lstSelMaps", {0, 7, 256});
    person.Key(u"lstSelMaps", u'-');
    person.DoubleClickRow(u"lstAvlMaps", 0);
    EXPECT_EQ(Boxes(), Strings{});
    EXPECT_EQ(rotation().size(), 255u);
  });
}

TEST_F(MapListFile, ALineEndMayLieAnywhereInALongFile) {
  const std::string line = kLine;
  for (std::size_t at = 65'530; at < 65'540; ++at) {
    // The carriage return comes at `at`, its line feed and the next line behind it.
    const std::string bytes = std::string(at - line.size() - 1, 'x') + "\r" + line + "\r\n" + line;
    ASSERT_EQ(Loaded(bytes), "DMK_01A.BMS DMK_01A.BMS ") << at;
  }
}

TEST_F(MapListFile, AFileThatBreaksOffIsClosedAndKeepsWhatWasRead) {
  int reads = 0;
  files.before = [&](TextView operation, TextView) {
    if (operation == u"Read" && ++reads == 2) throw RuntimeError(ErrorNumber::kDeviceIoError);
  };
  toolkit.while_message_open = [&](const auto&) {
    EXPECT_EQ(files.open_readers(), 0);
    EXPECT_TRUE(dialog().enabled());
  };
  Write(u"long.mpl", std::string(kLine) + "\r" + std::string(100'000, 'x'));
  OpenFilled([&](frmrcBHDGS&) {
    person.ClickTab(u"Map Settings");
    Push(u"cmdLoadMaps", u"long.mpl");
    EXPECT_EQ(RotationFiles(), "DMK_01A.BMS ");
    Push(u"cmdLoadMaps", u"gone\\long.mpl");
  });
  EXPECT_EQ(Failures(),
            (Strings{"cmdLoadMaps|57|Device I/O error", "cmdLoadMaps|76|Path not found"}));
}

}  // namespace
}  // namespace quill
