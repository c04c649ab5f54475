// The shuffle button: a fresh seed for each click, whole records, and nothing lost on a failure.
#include <gtest/gtest.h>

#include <functional>
#include <set>

#include "maps/shuffle.h"
#include "tests/dialog/file_actions_bench.h"

namespace quill {
namespace {

using Strings = std::vector<std::string>;

std::vector<SelectedMap> Rotation(int count) {
  std::vector<SelectedMap> maps;
  for (int i = 0; i < count; ++i) {
    maps.push_back({Decimal(i), Concat({u"F", Decimal(i)}), i % 9, i % 2 == 0});
  }
  return maps;
}

class BrokenClock final : public Clock {
 public:
  std::uint64_t Ticks() override { throw RuntimeError(ErrorNumber::kInternalError); }
  int MinuteOfDay() override { return 0; }
};

TEST(ShuffleRotation, AFailureKeepsTheRotationWhole) {
  FileActionsBench bench;
  BrokenClock clock;
  Session context(bench.toolkit, bench.files, clock, CodePage::Windows1252());
  host::KitWatch watched;
  context.file_kit = std::make_unique<host::WatchedFileKit>(bench.host_kit, watched);
  context.HostRoot = u"C:\\Host";
  const std::shared_ptr<frmrcBHDGS> dialog = TakeDialog(context);
  context.maps.selected.Replace(Rotation(9));
  dialog->cmdRandomize.on_click();
  EXPECT_EQ(context.maps.selected.maps(), Rotation(9));
  ASSERT_EQ(watched.failures.size(), 1u);
  EXPECT_EQ(watched.failures[0].label, u"cmdRandomize");
  EXPECT_EQ(watched.failures[0].number, 51);
  EXPECT_GT(watched.failures[0].line, 0);
  context.dialog.reset();
}

}  // namespace
}  // namespace quill
