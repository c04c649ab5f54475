// The two variants of the built-in catalogue, and the look-ups over catalogue and server maps.
// What the catalogue holds stands in tests/golden/catalogue.txt.
#include <gtest/gtest.h>

#include "maps/map_lists.h"
#include "support/runtime_error.h"

namespace quill {
namespace {

TEST(MapCatalogue, IsEmptyUntilLoadedAndHasTwoVariants) {
  MapLists lists;
  EXPECT_EQ(lists.TotalMapCount(), 0);
  EXPECT_EQ(lists.GetMapDisplayName(u"DMK_01A.BMS", u"0", false), u"");
  lists.catalogue = LoadMapCatalogue(kTeamSabreModFlag);
  EXPECT_EQ(lists.catalogue.size(), 185u);
  for (const std::uint8_t flag : std::initializer_list<std::uint8_t>{0, 2, 255}) {
    EXPECT_EQ(LoadMapCatalogue(flag).size(), 117u);
  }
}

TEST(MapCatalogue, LooksUpByFileAndGameTypeExactly) {
  MapLists lists;
  const struct {
    TextView file, type;
    bool is_server;
    TextView name, standard_name;
  } cases[] = {{u"  CTF_04A.BMS ", u"7", false, u"Oil Island A", u""},
               {u"CTFR_04A.BMS", u"7", false, u"Oil Island A", u""},
               {u"DMK_01A.BMS", u"0", false, u"Road Rage", u"Road Rage"},
               {u"CTFK_02B.BMS", u"7", false, u"Tug O' War B", u"Tug O' War B"},
               {u"CTFK_02B.BMS", u"7", true, u"", u""},
               {u"ctfk_02b.bms", u"7", false, u"", u""},
               {u"CTFK_02B.BMS", u"07", false, u"", u""},
               {u"CTFK_02B.BMS", u" 7", false, u"", u""},
               {u"CTFK_02B.BMS", u"", false, u"", u""},
               {u"TKHK_01A.BMS", u"1", false, u"", u""},
               {u"", u"7", false, u"", u""}};
  for (const auto& it : cases) {
    SCOPED_TRACE(ToUtf8(it.file) + " " + ToUtf8(it.type));
    lists.catalogue = LoadMapCatalogue(kTeamSabreModFlag);
    EXPECT_EQ(lists.GetMapDisplayName(it.file, it.type, it.is_server), it.name);
    lists.catalogue = LoadMapCatalogue(kStandardModFlag);
    EXPECT_EQ(lists.GetMapDisplayName(it.file, it.type, it.is_server), it.standard_name);
  }
}

TEST(MapCatalogue, ServerMapsFollowTheCatalogueWithinAGameType) {
  MapLists lists;
  lists.catalogue = LoadMapCatalogue(kTeamSabreModFlag);
  lists.server.AppendEntry(u"Mine <MINE.BMS>0");
  lists.server.AppendEntry(u"Kitchen <KITCHEN.BMS>2");
  EXPECT_EQ(lists.TotalMapCount(), 187);
  std::vector<Text> rows;
  const auto note = [&](const KnownMap& map) {
    rows.push_back(Concat({map.name, u"|", map.file}));
  };
  lists.ForEachOfGameType(0, note);
  ASSERT_EQ(rows.size(), 15u);
  EXPECT_EQ(rows.front(), u"Crude City Conflict|DMR_01A.BMS");
  EXPECT_EQ(rows.back(), u"Mine|MINE.BMS");
  rows.clear();
  for (const std::int16_t type : std::initializer_list<std::int16_t>{-1, 2, 4, 9, 32767}) {
    lists.ForEachOfGameType(type, note);
  }
  EXPECT_EQ(rows, std::vector<Text>{u"Kitchen|KITCHEN.BMS"});

  for (const TextView odd : {u"Odd <ODD.BMS>x", u"Odd <ODD.BMS>-"}) {
    lists.server.Clear();
    lists.server.AppendEntry(odd);
    EXPECT_THROW(lists.ForEachOfGameType(0, note), RuntimeError) << "a code that is no number";
  }
}

}  // namespace
}  // namespace quill
