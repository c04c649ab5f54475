// How a row of the map lists comes apart.
#include "maps/map_entry.h"

#include <gtest/gtest.h>

#include "support/runtime_error.h"

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
           Case{u"<F> and <F>", u"and", u"F"},
           Case{u"a<F>b<F>c <F>", u"abc", u"F"},
           Case{u"<><><>", u"", u""},
           // Blanks are taken off after the removal, and only blanks.
           Case{u"\tName\t <F>", u"\tName\t", u"F"},
           // Without a "<" the whole entry is the tail.
           Case{u"NAME.BMS>", u"", u"AME.BMS"},
           Case{u"ab", u"", u""},
           Case{u"<>", u"", u""},
       }) {
    const MapEntry entry = SplitMapEntry(it.entry);
    EXPECT_EQ(entry.name, it.name) << ToUtf8(it.entry);
    EXPECT_EQ(entry.file, it.file) << ToUtf8(it.entry);
  }
}

TEST(MapEntry, FailsWhereNothingCanFollowTheSplit) {
  for (const TextView entry : {u"", u"a", u"<", u"Name <", u"Name <F><"}) {
    try {
      (void)SplitMapEntry(entry);
      ADD_FAILURE() << ToUtf8(entry);
    } catch (const RuntimeError& error) {
      EXPECT_TRUE(error.Is(ErrorNumber::kInvalidProcedureCall));
    }
  }
}

}  // namespace
}  // namespace quill
