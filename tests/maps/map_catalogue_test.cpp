// The built-in catalogue in its two variants, and the look-ups over catalogue and server maps.
#include <gtest/gtest.h>

#include <array>
#include <set>
#include <utility>

#include "maps/map_lists.h"
#include "support/runtime_error.h"

namespace quill {
namespace {

std::array<int, 9> MapsPerGameType(const MapLists& lists) {
  std::array<int, 9> counts{};
  for (std::int16_t type = 0; type < 9; ++type) {
    lists.ForEachOfGameType(type, [&](TextView, TextView) { ++counts[type]; });
  }
  return counts;
}

TEST(MapCatalogue, IsEmptyUntilLoadedAndHoldsEitherVariantInFull) {
  MapLists lists;
  EXPECT_EQ(lists.TotalMapCount(), 0);
  EXPECT_EQ(lists.GetMapDisplayName(u"DMK_01A.BMS", u"0", false), u"");

  const std::array<int, 9> standard{9, 16, 0, 16, 0, 16, 18, 24, 18};
  const std::array<int, 9> sabre{14, 26, 0, 27, 0, 26, 28, 36, 28};
  lists.catalogue.LoadMapCatalogue(kTeamSabreModFlag);
  EXPECT_EQ(lists.catalogue.Count(), 185);
  EXPECT_EQ(MapsPerGameType(lists), sabre);
  for (const std::uint8_t flag : std::initializer_list<std::uint8_t>{0, 2, 255}) {
    lists.catalogue.LoadMapCatalogue(flag);
    EXPECT_EQ(lists.catalogue.Count(), 117);
    EXPECT_EQ(MapsPerGameType(lists), standard);
  }
  EXPECT_THROW((void)lists.catalogue.MapNames(0), RuntimeError);
  EXPECT_THROW((void)lists.catalogue.MapFiles(118), RuntimeError);
}

TEST(MapCatalogue, FilesBelongToTheirGameTypeAndOccurOnce) {
  // Each file name begins with the letters of its game type.
  const std::array<TextView, 9> prefixes{u"DM", u"TDM", u"",    u"TKH", u"",
                                         u"SD", u"AD",  u"CTF", u"FB"};
  std::set<std::pair<char16_t, TextView>> seen;
  char16_t last_type = u'0';
  for (const CatalogueRow& row : CatalogueRows()) {
    EXPECT_TRUE(seen.insert({row.game_type, row.file}).second) << ToUtf8(row.file);
    ASSERT_GE(row.game_type, last_type);
    last_type = row.game_type;
    const TextView prefix = prefixes.at(static_cast<std::size_t>(row.game_type - u'0'));
    EXPECT_FALSE(prefix.empty());
    EXPECT_TRUE(row.file.starts_with(prefix)) << ToUtf8(row.file);
    EXPECT_TRUE(row.file.ends_with(u".BMS")) << ToUtf8(row.file);
    EXPECT_EQ(TrimBlanks(row.name), row.name);
    // The expansion's maps are the R ones, and two that predate their naming.
    const bool expansion =
        row.file[prefix.size()] == u'R' || row.file == u"CTF_04A.BMS" || row.file == u"CTF_04B.BMS";
    EXPECT_EQ(row.team_sabre_only, expansion) << ToUtf8(row.file);
    // Of a pair of variants, A, E, G, I and K are shown as "A", the letters after them as "B".
    const char16_t variant = row.file[row.file.size() - 5];
    if (row.name.ends_with(u" A") || row.name.ends_with(u" B")) {
      const bool first = variant == u'A' || variant == u'E' || variant == u'G' || variant == u'I' ||
                         variant == u'K';
      EXPECT_EQ(row.name.back(), first ? u'A' : u'B') << ToUtf8(row.file);
    }
  }
}

TEST(MapCatalogue, LooksUpByFileAndGameTypeExactly) {
  MapLists lists;
  lists.catalogue.LoadMapCatalogue(kTeamSabreModFlag);
  EXPECT_EQ(lists.GetMapDisplayName(u"  CTF_04A.BMS ", u"7", false), u"Oil Island A");
  EXPECT_EQ(lists.GetMapDisplayName(u"CTFR_04A.BMS", u"7", false), u"Oil Island A");
  EXPECT_EQ(lists.GetMapDisplayName(u"TKHR_04.BMS", u"3", false), u"TKHR_04");
  EXPECT_EQ(lists.GetMapDisplayName(u"DMR_03A.BMS", u"0", false), u"Smuggler's Run");
  EXPECT_EQ(lists.GetMapDisplayName(u"CTFK_02B.BMS", u"7", false), u"Tug O' War B");
  for (const auto& [file, type] : {std::pair<TextView, TextView>{u"ctf_04a.bms", u"7"},
                                   {u"CTF_04A.BMS", u"07"},
                                   {u"CTF_04A.BMS", u" 7"},
                                   {u"CTF_04A.BMS", u""},
                                   {u"TKHK_01A.BMS", u"1"},
                                   {u"", u"7"}}) {
    EXPECT_EQ(lists.GetMapDisplayName(file, type, false), u"") << ToUtf8(file);
  }
  EXPECT_EQ(lists.GetMapDisplayName(u"CTF_04A.BMS", u"7", true), u"");
  lists.catalogue.LoadMapCatalogue(kStandardModFlag);
  EXPECT_EQ(lists.GetMapDisplayName(u"CTF_04A.BMS", u"7", false), u"");
  EXPECT_EQ(lists.GetMapDisplayName(u"DMK_01A.BMS", u"0", false), u"Road Rage");
}

TEST(MapCatalogue, ServerMapsFollowTheCatalogueWithinAGameType) {
  MapLists lists;
  lists.catalogue.LoadMapCatalogue(kTeamSabreModFlag);
  lists.server.AppendEntry(u"Mine <MINE.BMS>0");
  lists.server.AppendEntry(u"Kitchen <KITCHEN.BMS>2");
  EXPECT_EQ(lists.TotalMapCount(), 187);

  std::vector<Text> rows;
  const auto note = [&](TextView name, TextView file) {
    rows.push_back(Concat({name, u"|", file}));
  };
  lists.ForEachOfGameType(0, note);
  ASSERT_EQ(rows.size(), 15u);
  EXPECT_EQ(rows.front(), u"Crude City Conflict|DMR_01A.BMS");
  EXPECT_EQ(rows[5], u"Road Rage|DMK_01A.BMS");
  EXPECT_EQ(rows.back(), u"Mine|MINE.BMS");
  rows.clear();
  lists.ForEachOfGameType(2, note);
  EXPECT_EQ(rows, std::vector<Text>{u"Kitchen|KITCHEN.BMS"});
  rows.clear();
  for (const std::int16_t type : std::initializer_list<std::int16_t>{-1, 4, 9, 32767})
    lists.ForEachOfGameType(type, note);
  EXPECT_TRUE(rows.empty());

  for (const TextView odd : {u"Odd <ODD.BMS>x", u"Odd <ODD.BMS>-"}) {
    lists.server.Clear();
    lists.server.AppendEntry(odd);
    try {
      lists.ForEachOfGameType(0, note);
      FAIL() << "a code that is no number must fail";
    } catch (const RuntimeError& error) {
      EXPECT_TRUE(error.Is(ErrorNumber::kTypeMismatch));
    }
  }
}

}  // namespace
}  // namespace quill
