#include "support/trap.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

#include "tests/doubles/recording_file_kit.h"
#include "tests/doubles/recording_message_boxes.h"

namespace quill {
namespace {

class TrapTest : public testing::Test {
 protected:
  TrapTest() {
    auto recording = std::make_unique<RecordingFileKit>();
    kit = recording.get();
    file_kit = std::move(recording);
  }

  std::unique_ptr<FileKit> file_kit;
  RecordingFileKit* kit;
  RecordingMessageBoxes boxes;
  MessageReporter reporter{file_kit, boxes};
};

std::int32_t LineHere(std::source_location here = std::source_location::current()) {
  return static_cast<std::int32_t>(here.line());
}

void Fail() {
  throw RuntimeError(ErrorNumber::kPathNotFound);
}

TEST_F(TrapTest, ReportsTheLineOfTheStatementThatFailed) {
  std::int32_t failing = 0;
  int reached = 0;
  const bool ran = Trapped(reporter, u"LoadInterface", [&](Line& at) {
    at(), reached = 1;
    at(), failing = LineHere(), Fail();
    at(), reached = 2;
  });
  EXPECT_FALSE(ran);
  EXPECT_EQ(reached, 1);
  EXPECT_EQ(kit->log, (std::vector<RecordingFileKit::LogEntry>{
                          {u"kvrrcBHDGS.dll", u"LoadInterface", 76, u"Path not found", failing}}));

  const std::int32_t begun = LineHere() + 1;
  Trapped(reporter, u"LoadInterface", [&](Line&) { Fail(); });
  EXPECT_EQ(kit->log.at(1).line, begun);

  EXPECT_TRUE(Trapped(reporter, u"LoadInterface", [&](Line& at) { at(), reached = 3; }));
  EXPECT_EQ(reached, 3);
  EXPECT_EQ(boxes.boxes.size(), 2U);
}

TEST_F(TrapTest, RestoresBeforeItReportsAndMayExtendTheDescription) {
  bool busy = true;
  boxes.while_open = [&] { EXPECT_FALSE(busy); };
  Trapped(
      reporter, u"cmdSave", [](Line&) { throw RuntimeError(1004, u"Disk is full"); },
      [&](RuntimeError& error) {
        busy = false;
        error.AppendToDescription(u" (a.hsf)");
        throw std::runtime_error("dropped");
      });
  EXPECT_EQ(kit->reports.at(0).description, u"Disk is full (a.hsf)");
  EXPECT_EQ(kit->reports.at(0).number, u"1004");
}

TEST_F(TrapTest, ErrorNumberZeroEndsTheBodyUnreported) {
  bool cleaned = false;
  const bool ran = Trapped(
      reporter, u"cmdLoad", [](Line&) { throw RuntimeError(0, u"cancelled"); },
      [&](RuntimeError&) { cleaned = true; });
  EXPECT_FALSE(ran);
  EXPECT_TRUE(cleaned);
  EXPECT_TRUE(boxes.boxes.empty());
  EXPECT_TRUE(kit->log.empty());
}

TEST_F(TrapTest, ForeignExceptionsBecomeRunTimeErrors) {
  Trapped(reporter, u"A", [](Line&) { throw std::bad_alloc(); });
  Trapped(reporter, u"B", [](Line&) { throw std::runtime_error("na\xC3\xAFve"); });
  Trapped(reporter, u"C", [](Line&) { throw 42; });
  Trapped(reporter, u"D", [](Line&) { Text().reserve(Text().max_size() + 1); });
  ASSERT_EQ(kit->log.size(), 4U);
  EXPECT_EQ(kit->log[0].number, 7);
  EXPECT_EQ(kit->log[1].number, 51);
  EXPECT_EQ(kit->log[1].description, u"na\u00EFve");
  EXPECT_EQ(kit->log[2].number, 51);
  EXPECT_EQ(kit->log[3].number, 7);
}

TEST_F(TrapTest, BoxThatCannotBeShownDoesNotEscape) {
  boxes.while_open = [] { throw RuntimeError(ErrorNumber::kInternalError); };
  EXPECT_FALSE(Trapped(reporter, u"SetPrivis", [](Line&) { Fail(); }));
  EXPECT_EQ(kit->log.size(), 1U);
}

TEST(RuntimeErrorTest, KnowsTheUsualWordingAndItsPlace) {
  const RuntimeError usual(ErrorNumber::kTypeMismatch);
  EXPECT_EQ(usual.description(), u"Type mismatch");
  EXPECT_EQ(usual.raised_at().line(), static_cast<unsigned>(LineHere()) - 2);
  EXPECT_EQ(DefaultDescription(-2147467259), u"Application-defined or object-defined error");

  RuntimeError own(ErrorNumber::kOverflow, u"");
  EXPECT_EQ(own.description(), u"");
  const RuntimeError before = own;
  EXPECT_STREQ(own.what(), "6: ");
  EXPECT_EQ(own.what(), own.what());
  own.AppendToDescription(u"caf\u00E9");
  EXPECT_STREQ(own.what(), "6: caf\xC3\xA9");
  EXPECT_EQ(before.description(), u"");
}

}  // namespace
}  // namespace quill
