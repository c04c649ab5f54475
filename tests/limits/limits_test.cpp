// One below, at and one above what the plug-in takes, and what its largest reply costs in memory.
// (255 maps stand in tests/dialog/rotation_test.cpp, the edges of 16- and 32-bit numbers as texts
// in tests/support/number_text_test.cpp.)
#include <gtest/gtest.h>
#include <malloc.h>

#include <cstdlib>
#include <new>

#include "dialog/option_table.h"
#include "tests/dialog/dialog_bench.h"
#include "tests/doubles/loaded_plug_in.h"
#include "tests/doubles/settings_reply.h"

namespace {

std::size_t held_bytes = 0;
std::size_t most_held_bytes = 0;

}  // namespace

void* operator new(std::size_t size) {
  void* const block = std::malloc(size == 0 ? 1 : size);
  if (block == nullptr) throw std::bad_alloc();
  held_bytes += malloc_usable_size(block);
  most_held_bytes = std::max(most_held_bytes, held_bytes);
  return block;
}
void operator delete(void* block) noexcept {
  if (block != nullptr) held_bytes -= malloc_usable_size(block);
  std::free(block);
}
void operator delete(void* block, std::size_t) noexcept {
  operator delete(block);
}

namespace quill {
namespace {

// How the failure that is reported when a fresh dialog takes the reply begins; "" when there is
// none.
std::string Answer(const SettingsReply& reply) {
  LoadedPlugIn host;
  host.module.PendingCommand = kLoadFormCommand;
  host.plug_in().RemoteData(reply.Frame());
  const std::vector<std::string> reports = host.Reports();
  if (reports.empty()) return "";
  return reports.front().substr(reports.front().find('|') + 1, 3);
}

TEST(Limits, NumbersOfFields) {
  const std::pair<std::size_t, std::string> cases[] = {{25, "9|S"}, {26, ""}, {27, "9|S"},
                                                       {32, "9|S"}, {33, ""}, {34, ""}};
  for (const auto& [count, answer] : cases) {
    EXPECT_EQ(Answer(SettingsReply().Keep(count)), answer) << count;
  }
}

TEST(Limits, EndsOfListsAndOf16BitNumbers) {
  // The last position that a reply's field can choose; the first is none at all.
  struct Field {
    std::size_t number;
    int none;
    int last;
  };
  for (const auto& [number, none, last] : {Field{4, 0, 2},
                                           {5, 0, 50},
                                           {6, -1, 3},
                                           {8, 0, 500},
                                           {9, 0, 60},
                                           {10, 0, 121},
                                           {11, 0, 101}}) {
    const auto answer = [&](int value) {
      return Answer(SettingsReply().Set(number, Decimal(value)));
    };
    SCOPED_TRACE(number);
    EXPECT_EQ(answer(none - 1), "380");
    EXPECT_EQ(answer(none), "");
    EXPECT_EQ(answer(none + 1), "");
    EXPECT_EQ(answer(last), "");
    EXPECT_EQ(answer(last + 1), "380");
    EXPECT_EQ(answer(32767), "380");
    EXPECT_EQ(answer(32768), "6|O");
    EXPECT_EQ(answer(-32768), "380");
    EXPECT_EQ(answer(-32769), "6|O");
  }
}

// The frame with the host's text, the payload, the list and its look-ups, and the rows shown. The
// same multiple from one map to a million: nothing grows out of proportion.
TEST(Limits, ServerMapsAndTheMemoryForThem) {
  constexpr std::size_t kMultiple = 4;
  constexpr std::size_t kDialog = 300'000;
  for (const int count : {0, 1, 1'000'000}) {
    Text maps;
    for (int i = 0; i < count; ++i) {
      if (i != 0) maps += u'|';
      const std::string number = std::to_string(i);
      maps += Base64("Map " + number + " <m" + number + ".bms>" + std::to_string(i % 9));
    }
    LoadedPlugIn host;
    const Text frame = SettingsReply().Set(25, std::move(maps)).Frame();
    host.module.PendingCommand = kLoadFormCommand;
    const std::size_t before = held_bytes;
    most_held_bytes = held_bytes;
    host.plug_in().RemoteData(frame);
    const std::size_t grown = most_held_bytes - before;
    const ServerMapList& list = host.module.maps.server;
    ASSERT_EQ(list.Count(), count);
    if (count > 0) {
      EXPECT_EQ(list.ServerMapFiles(count), FromUtf8("m" + std::to_string(count - 1) + ".bms"));
      EXPECT_EQ(host.dialog().lstAvlMaps.Count(), 9 + (count + 8) / 9);
    }
    EXPECT_LT(grown, kDialog + kMultiple * frame.size() * sizeof(char16_t));
    std::printf("%d maps: %zu bytes for a reply of %zu\n", count, grown, 2 * frame.size());
  }
}

}  // namespace
}  // namespace quill
