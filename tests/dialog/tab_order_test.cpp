// The numbers of the dialog's controls in the tab order.
#include <set>

#include <gtest/gtest.h>

#include "tests/doubles/plug_in_bench.h"

namespace quill {
namespace {

TEST(TabOrder, GivesEachNumberOnceAndTheShuffleButton78) {
  PlugInBench bench;
  bench.OpenFilled([](frmrcBHDGS& dialog) {
    std::set<int> taken;
    for (const auto& control : dialog.controls()) {
      const int number = control->tab_index();
      EXPECT_TRUE(number == -1 || taken.insert(number).second) << ToUtf8(control->name());
    }
    EXPECT_EQ(dialog.At(u"cmdRandomize").tab_index(), 78);
  });
}

}  // namespace
}  // namespace quill
