// The remote machine's own maps: taking entries in, and finding them again in a huge list.
#include "maps/server_map_list.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "maps/map_lists.h"
#include "support/runtime_error.h"

namespace quill {
namespace {

TEST(ServerMapList, TakesEntriesApartAndKeepsNothingOfABadOne) {
  ServerMapList list;
  list.AppendEntry(u"Harbour <2 <HARBOUR.BMS>8");
  for (const TextView bad : {u"", u"8", u"a8", u"Name <8"}) {
    EXPECT_THROW(list.AppendEntry(bad), RuntimeError) << ToUtf8(bad);
  }
  list.AppendEntry(u"   < F.BMS >x");
  list.AppendEntry(u"<A>one<A>two<A>0");
  ASSERT_EQ(list.Count(), 3);
  EXPECT_EQ(list.ServerMapNames(1), u"Harbour <2");
  EXPECT_EQ(list.ServerMapFiles(1), u"HARBOUR.BMS");
  EXPECT_EQ(list.ServerMapGameTypes(1), u"8");
  EXPECT_EQ(list.ServerMapNames(2), u"");
  EXPECT_EQ(list.ServerMapFiles(2), u"F.BMS");
  EXPECT_EQ(list.ServerMapGameTypes(2), u"x");
  EXPECT_EQ(list.ServerMapNames(3), u"onetwo");
  EXPECT_THROW((void)list.ServerMapNames(0), RuntimeError);
  EXPECT_THROW((void)list.ServerMapFiles(4), RuntimeError);
}

TEST(ServerMapList, EncodedEntriesAreTakenUpToTheFirstBadOne) {
  const CodePage& page = CodePage::Windows1252();
  const TextView harbour = u"SGFyYm91ciA8SEFSQk9VUi5CTVM+OA==";  // Harbour <HARBOUR.BMS>8
  const TextView twice = u"PEE+b25lPEE+dHdvPEE+MA==";            // <A>one<A>two<A>0
  const TextView euro = u"gCA8Ri5CTVMgPjE=";                     // \u20AC <F.BMS >1
  const TextView no_map = u"YTg=";                               // a8
  struct Case {
    std::vector<TextView> entries;
    int taken;
    bool fails;
  };
  for (const Case& it :
       {Case{{harbour, twice, euro}, 3, false}, Case{{harbour, no_map, u"*"}, 1, true},
        Case{{harbour, twice, u"A*=="}, 2, true}, Case{{u"", harbour}, 0, true},
        Case{{}, 0, false}}) {
    ServerMapList list;
    list.AppendEntry(u"First <1.BMS>1");
    bool failed = false;
    try {
      list.AppendEncodedEntries(it.entries, page);
    } catch (const RuntimeError& error) {
      failed = true;
      // The first bad entry speaks, not one behind it.
      EXPECT_EQ(error.description().find(u"Base64") != Text::npos, it.taken == 2);
    }
    EXPECT_EQ(failed, it.fails);
    list.AppendEntry(u"Last <2.BMS>2");
    const std::vector<Text> all = {u"Harbour/HARBOUR.BMS/8", u"onetwo/A/0", u"\u20AC/F.BMS/1"};
    std::vector<Text> wanted = {u"First/1.BMS/1"};
    wanted.insert(wanted.end(), all.begin(), all.begin() + it.taken);
    wanted.push_back(u"Last/2.BMS/2");
    std::vector<Text> got;
    for (int i = 1; i <= list.Count(); ++i) {
      got.push_back(Concat({list.ServerMapNames(i), u"/", list.ServerMapFiles(i), u"/",
                            list.ServerMapGameTypes(i)}));
    }
    EXPECT_EQ(got, wanted);
  }
}

TEST(ServerMapList, TheFirstOfEqualMapsIsFoundAfterEveryKindOfChange) {
  MapLists lists;
  EXPECT_EQ(lists.GetMapDisplayName(u"A.BMS", u"1", true), u"");
  lists.server.AppendEntry(u"First <A.BMS>1");
  lists.server.AppendEntry(u"Second <A.BMS>1");
  lists.server.AppendEntry(u"Other type <A.BMS>11");  // file "A.BMS>", code 1
  lists.server.AppendEntry(u"Third <A.BMS>2");
  EXPECT_EQ(lists.GetMapDisplayName(u" A.BMS ", u"1", true), u"First");
  EXPECT_EQ(lists.GetMapDisplayName(u"A.BMS", u"2", true), u"Third");
  EXPECT_EQ(lists.GetMapDisplayName(u"A.BM", u"S1", true), u"");
  EXPECT_EQ(lists.GetMapDisplayName(u"A.BMS", u"", true), u"");
  EXPECT_EQ(lists.GetMapDisplayName(u"a.bms", u"1", true), u"");
  EXPECT_TRUE(lists.IsServerMapName(u"Second"));
  EXPECT_FALSE(lists.IsServerMapName(u"second"));

  lists.server.AppendEntry(u"Late <B.BMS>1");
  EXPECT_EQ(lists.GetMapDisplayName(u"B.BMS", u"1", true), u"Late");
  EXPECT_TRUE(lists.IsServerMapName(u"Late"));

  ServerMapList former = std::move(lists.server);
  lists.server.Clear();
  lists.server.AppendEntry(u"Fresh <A.BMS>1");
  EXPECT_EQ(lists.GetMapDisplayName(u"A.BMS", u"1", true), u"Fresh");
  EXPECT_FALSE(lists.IsServerMapName(u"Late"));
  EXPECT_TRUE(former.HasName(u"Late"));
  std::swap(former, lists.server);
  EXPECT_EQ(lists.GetMapDisplayName(u"B.BMS", u"1", true), u"Late");
  EXPECT_TRUE(former.HasName(u"Fresh"));
}

}  // namespace
}  // namespace quill
