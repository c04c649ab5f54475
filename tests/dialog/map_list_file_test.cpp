// Map-list files: which lines count, how bytes become lines, and what holds while and after.
#include <gtest/gtest.h>

#include "tests/dialog/file_actions_bench.h"

namespace quill {
namespace {

using Strings = std::vector<std::string>;

const SelectedMap kStandardMap{u"Road Rage", u"DMK_01A.BMS", 0, false};

// The files of the rotation after loading a map list of these bytes.
std::string Loaded(FileActionsBench& bench, std::string_view bytes) {
  std::string loaded;
  bench.Write(u"list.mpl", bytes);
  bench.Show([&](frmrcBHDGS& dialog) {
    bench.Select({kStandardMap, kStandardMap});
    bench.LoadMaps(u"list.mpl");
    loaded = bench.RotationFiles();
    EXPECT_EQ(dialog.lstSelMaps.Count(), static_cast<int>(bench.rotation().size()));
    EXPECT_EQ(bench.files.open_readers(), 0);
  });
  return loaded;
}

TEST(MapListFile, ACarriageReturnEndsALineAndALoneLineFeedDoesNot) {
  FileActionsBench bench;
  const std::string a = "0[-]0[-]DMK_01A.BMS";
  const std::string b = "0[-]0[-]DMM_01A.BMS";
  const char* both = "DMK_01A.BMS DMM_01A.BMS ";
  EXPECT_EQ(Loaded(bench, a + "\r\n" + b), both);
  EXPECT_EQ(Loaded(bench, a + "\r" + b + "\r"), both);
  EXPECT_EQ(Loaded(bench, a + "\r\r\n\r\n" + b + "\r\n\r\n"), both);
  EXPECT_EQ(Loaded(bench, a + "\n" + b), "");
  EXPECT_EQ(Loaded(bench, a + "\n\r\n" + b), "DMM_01A.BMS ");
  EXPECT_EQ(Loaded(bench, a + "\r\n\n" + b), "DMK_01A.BMS ");
  EXPECT_EQ(Loaded(bench, "\xEF\xBB\xBF" + a + "\r\n\xEF\xBB\xBF" + b), "DMK_01A.BMS ");
  for (const bool low_first : {true, false}) {
    std::string wide;
    for (const char c : "\xFF" + a + "\r\n" + b) {
      const char high = c == '\xFF' ? '\xFE' : '\0';
      wide += low_first ? std::string{c, high} : std::string{high, c};
    }
    EXPECT_EQ(Loaded(bench, wide), both);
    EXPECT_EQ(Loaded(bench, wide + "x"), both);  // half a character at the end
  }
  EXPECT_EQ(bench.Boxes(), Strings{});
  // Each byte is a character of the code page.
  bench.context.maps.server.AppendEntry(u"Stra\u00DFe <\u20AC\u00FF.BMS>0");
  const std::string name = ToUtf8(u"\u20AC\u00FF.BMS ");
  EXPECT_EQ(Loaded(bench, "0[-]1[-]\x80\xFF.BMS"), name);
  // Behind its mark the file is UTF-8, valid or not.
  EXPECT_EQ(Loaded(bench, "\xEF\xBB\xBF" + ("0[-]1[-]" + name)), name);
  EXPECT_EQ(Loaded(bench, "\xEF\xBB\xBF\xC3\r\n0[-]1[-]\x80\xFF.BMS\r\n" + a + "\r\xF0\x9F"),
            "DMK_01A.BMS ");
}

// Files go beyond what can be added; adding stays refused until there is room again.
TEST(MapListFile, MayHoldMoreMapsThanCanBeAdded) {
  FileActionsBench bench;
  std::string bytes;
  for (int i = 0; i < 257; ++i) bytes += "0[-]0[-]DMK_01A.BMS\r\n";
  bench.Write(u"long.mpl", bytes);
  bench.Show([&](frmrcBHDGS&) {
    bench.LoadMaps(u"long.mpl");
    const auto add = [&] { bench.person.DoubleClickRow(u"lstAvlMaps", 0); };
    const Strings refused = {"Failed!|You cannot add more than 255 maps!"};
    add();
    EXPECT_EQ(bench.Boxes(), refused);
    EXPECT_EQ(bench.rotation().size(), 257u);
    bench.person.SelectRows(u"lstSelMaps", {0, 7, 256});
    bench.person.Key(u"lstSelMaps", u'-');
    add();
    EXPECT_EQ(bench.Boxes(), Strings{});
    EXPECT_EQ(bench.rotation().size(), 255u);
    add();
    EXPECT_EQ(bench.Boxes(), refused);
  });
}

TEST(MapListFile, ALineEndMayLieAnywhereInALongFile) {
  FileActionsBench bench;
  const std::string line = "0[-]0[-]DMK_01A.BMS";
  for (std::size_t at = 65'530; at < 65'540; ++at) {
    // The carriage return comes at `at`, its line feed and the next line behind it.
    const std::string bytes = std::string(at - line.size() - 1, 'x') + "\r" + line + "\r\n" + line;
    ASSERT_EQ(Loaded(bench, bytes), "DMK_01A.BMS DMK_01A.BMS ") << at;
  }
}

TEST(MapListFile, AFileThatBreaksOffIsClosedAndKeepsWhatWasRead) {
  FileActionsBench bench;
  bench.Write(u"long.mpl", "0[-]0[-]DMM_01A.BMS\r" + std::string(100'000, 'x'));
  int reads = 0;
  bench.files.before = [&](TextView operation, TextView) {
    if (operation == u"Read" && ++reads == 2) throw RuntimeError(ErrorNumber::kDeviceIoError);
  };
  bench.Show([&](frmrcBHDGS& dialog) {
    bench.toolkit.while_message_open = [&](const auto&) {
      EXPECT_EQ(bench.files.open_readers(), 0);
      EXPECT_TRUE(dialog.enabled());
    };
    bench.LoadMaps(u"long.mpl");
  });
  EXPECT_EQ(bench.RotationFiles(), "DMM_01A.BMS ");
  EXPECT_EQ(bench.Failures(), Strings{"cmdLoadMaps|57|Device I/O error"});
}

}  // namespace
}  // namespace quill
