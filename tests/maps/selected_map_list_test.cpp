// The rotation as a list of whole records.
#include "maps/selected_map_list.h"

#include <gtest/gtest.h>

#include "support/runtime_error.h"

namespace quill {
namespace {

SelectedMapList ThreeMaps() {
  SelectedMapList list;
  list.Append({u"A", u"A.BMS", 0, false});
  list.Append({u"B", u"B.BMS", 7, true});
  list.Append({u"A", u"A.BMS", 0, false});
  return list;
}

TEST(SelectedMapList, RemovesMarkedRowsAndRenumbersTheRest) {
  SelectedMapList list = ThreeMaps();
  list.Remove({});
  EXPECT_EQ(list.maps(), ThreeMaps().maps());
  list.Remove({false, false, false, true, true});
  EXPECT_EQ(list.maps(), ThreeMaps().maps());
  list.Remove({true});
  ASSERT_EQ(list.Count(), 2);
  EXPECT_EQ(list.SelMapNames(1), u"B");
  list = ThreeMaps();
  list.Remove({true, false, true});
  ASSERT_EQ(list.Count(), 1);
  EXPECT_EQ(list.SelMapFiles(1), u"B.BMS");
  EXPECT_EQ(list.SelMapGameTypes(1), 7);
  EXPECT_TRUE(list.SelMapServerFlags(1));
}

TEST(SelectedMapList, RefusesPositionsOutsideIt) {
  const SelectedMapList list = ThreeMaps();
  for (const int position : {-1, 0, 4}) {
    try {
      (void)list.SelMapServerFlags(position);
      ADD_FAILURE() << position;
    } catch (const RuntimeError& error) {
      EXPECT_TRUE(error.Is(ErrorNumber::kInvalidProcedureCall));
    }
  }
}

}  // namespace
}  // namespace quill
