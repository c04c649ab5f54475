// The remote machine's own maps: how an entry comes apart, and finding maps again; the
// rotation's ends.
#include "maps/server_map_list.h"

#include <gtest/gtest.h>

#include <utility>

#include "maps/map_entry.h"
#include "maps/map_lists.h"
#include "tests/doubles/failure_of.h"

namespace quill {
namespace {

TEST(MapEntry, SplitsAtTheLastLessThanSign) {
  struct Case {
    TextView entry;
    TextView name;
    TextView file;
  };
  for (const Case& it : {
           Case{u"Crude City Conflict A <TDMR_01A.BMS>", u"Crude City Conflict A", u"TDMR_01A.BMS"},
           Case{u"Bridge <2 <FILE.BMS>", u"Bridge <2", u"FILE.BMS"},
           Case{u"  Wide   < FILE.BMS  >", u"Wide", u"FILE.BMS"},
           // Only the last character falls away, whatever it is.
           Case{u"Open <FILE.BMS", u"Open", u"FILE.BM"},
           Case{u"Twice <F>>", u"Twice", u"F>"},
           // Every occurrence of the tail goes, not only the last.
           Case{u"a<F>b<F>c <F>", u"abc", u"F"},
           Case{u"<><><>", u"", u""},
           // Blanks are taken off after the removal, and only blanks.
           Case{u"\tName\t <F>", u"\tName\t", u"F"},
           // Without a "<" the whole entry is the tail.
           Case{u"NAME.BMS>", u"", u"AME.BMS"},
           Case{u"ab", u"", u""},
       }) {
    const MapEntry entry = SplitMapEntry(it.entry);
    EXPECT_EQ(entry.name, it.name) << ToUtf8(it.entry);
    EXPECT_EQ(entry.file, it.file) << ToUtf8(it.entry);
  }
  for (const TextView entry : {u"", u"a", u"<", u"Name <", u"Name <F><"}) {
    EXPECT_EQ(FailureOf([&] { (void)SplitMapEntry(entry); }), 5) << ToUtf8(entry);
  }
}

TEST(ServerMapList, TakesEntriesApartUpToTheFirstBadOne) {
  const TextView harbour = u"SGFyYm91ciA8SEFSQk9VUi5CTVM+OA==";  // Harbour <HARBOUR.BMS>8
  const TextView twice = u"PEE+b25lPEE+dHdvPEE+MA==";            // <A>one<A>two<A>0
  const TextView euro = u"gCA8Ri5CTVMgPjE=";                     // \u20AC <F.BMS >1
  const TextView no_map = u"YTg=";                               // a8
  struct Case {
    Text field;
    std::size_t taken;
    bool fails;
  };
  for (const Case& it : {Case{Concat({harbour, u"| ||", twice, u"|", euro}), 3, false},
                         Case{Concat({harbour, u"|", no_map, u"|*"}), 1, true},
                         Case{Concat({harbour, u"|", twice, u"|A*=="}), 2, true},
                         Case{Concat({u"Yg==|", harbour}), 0, true}, Case{u"", 0, false}}) {
    ServerMapList list;
    list.AppendEntry(u"First <1.BMS>1");
    EXPECT_THROW(list.AppendEntry(u"Name <8"), RuntimeError);
    EXPECT_THROW(list.AppendEntry(u""), RuntimeError);
    bool failed = false;
    try {
      list.AppendField(it.field, CodePage::Windows1252());
    } catch (const RuntimeError& error) {
      failed = true;
      // The first bad entry speaks, not one behind it.
      EXPECT_EQ(error.description().find(u"Base64") != Text::npos, it.taken == 2);
    }
    EXPECT_EQ(failed, it.fails);
    list.AppendEntry(u"Last <2.BMS>x");
    std::vector<Text> wanted = {u"First/1.BMS/1", u"Harbour/HARBOUR.BMS/8", u"onetwo/A/0",
                                u"\u20AC/F.BMS/1"};
    wanted.resize(1 + it.taken);
    wanted.emplace_back(u"Last/2.BMS/x");
    std::vector<Text> got;
    for (const KnownMap& map : list.maps()) {
      got.push_back(Concat({map.name, u"/", map.file, u"/", {&map.game_type, 1}}));
    }
    EXPECT_EQ(got, wanted);
  }
}

TEST(ServerMapList, TheFirstOfEqualMapsIsFoundAfterEveryKindOfChange) {
  MapLists lists;
  const auto found = [&](TextView file, TextView type) {
    return lists.GetMapDisplayName(file, type, true);
  };
  EXPECT_EQ(found(u"A.BMS", u"1"), u"");
  lists.server.AppendEntry(u"First <A.BMS>1");
  lists.server.AppendEntry(u"Second <A.BMS>1");
  lists.server.AppendEntry(u"Other type <A.BMS>11");  // file "A.BMS>", code 1
  lists.server.AppendEntry(u"Third <A.BMS>2");
  EXPECT_EQ(found(u" A.BMS ", u"1"), u"First");
  EXPECT_EQ(found(u"A.BMS", u"2"), u"Third");
  EXPECT_EQ(found(u"A.BM", u"S1"), u"");
  EXPECT_EQ(found(u"A.BMS", u""), u"");
  EXPECT_EQ(found(u"a.bms", u"1"), u"");
  EXPECT_TRUE(lists.server.HasName(u"Second"));
  EXPECT_FALSE(lists.server.HasName(u"second"));

  lists.server.AppendEntry(u"Late <B.BMS>1");
  EXPECT_EQ(found(u"B.BMS", u"1"), u"Late");
  EXPECT_TRUE(lists.server.HasName(u"Late"));

  ServerMapList former = std::move(lists.server);
  lists.server.Clear();
  lists.server.AppendEntry(u"Fresh <A.BMS>1");
  EXPECT_EQ(found(u"A.BMS", u"1"), u"Fresh");
  EXPECT_FALSE(lists.server.HasName(u"Late"));
  std::swap(former, lists.server);
  EXPECT_EQ(found(u"B.BMS", u"1"), u"Late");
  EXPECT_TRUE(former.HasName(u"Fresh"));
  former.Clear();
  EXPECT_FALSE(former.HasName(u"Fresh"));
}

TEST(SelectedMapList, RefusesPositionsAndOrdersBeyondItsEnd) {
  SelectedMapList list;
  const std::vector<SelectedMap> two = {{u"A", u"A.BMS", 0, false}, {u"B", u"B.BMS", 7, true}};
  list.Replace(two);
  for (const int position : {-1, 0, 3}) EXPECT_THROW((void)list.At(position), RuntimeError);
  EXPECT_THROW(list.Reorder({0, 2}), RuntimeError);
  EXPECT_EQ(list.maps(), two);
}

}  // namespace
}  // namespace quill
