// The reporter and the traps that use it.
#include "support/report_message.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "host/headless/headless_host.h"
#include "support/base64.h"
#include "support/trap.h"

namespace quill {
namespace {

using Box = headless::ShownMessage;
using Journal = std::vector<std::string>;

std::int32_t LineHere(std::source_location here = std::source_location::current()) {
  return static_cast<std::int32_t>(here.line());
}

void Fail() {
  throw RuntimeError(ErrorNumber::kPathNotFound);
}

class ReportMessage : public testing::Test, protected host::HeadlessHost {
 protected:
  ReportMessage() {
    module.SubMain();
    watch.before = [this](TextView operation, TextView) {
      journal_.push_back(ToUtf8(operation));
      return operation != u"SendErrorReport" || sends_;
    };
    toolkit.before_call = [this](TextView call) {
      journal_.push_back(ToUtf8(call.substr(0, call.find(u' '))));
    };
  }

  Journal journal_;
  bool sends_ = true;
  MessageReporter& reporter_ = module.reporter;
  const RuntimeError error_{ErrorNumber::kInvalidProcedureCall, u"No good\r\nat all"};
};

TEST_F(ReportMessage, TrappedErrorIsLoggedThenSentThenShown) {
  reporter_.ReportMessage(MessageKind::kTrappedError, u"cmdStart_Error", &error_, 117);
  EXPECT_EQ(journal_, (Journal{"LogError", "SendErrorReport", "ShowMessage"}));
  EXPECT_EQ(
      watch.TakeLog(),
      std::vector<Text>{u"kvrrcBHDGS.dll, cmdStart_Error, line 117: error 5, No good\r\nat all"});
  // Without an error nothing is logged.
  sends_ = false;
  reporter_.ReportMessage(MessageKind::kTrappedError, u"SetMaps", nullptr, -7);
  EXPECT_EQ(
      watch.TakeReports(),
      (std::vector<Text>{u"5 | No good\r\nat all | kvrrcBHDGS.dll 1.1.2 | cmdStart_Error | 0 | 117",
                         u" |  | kvrrcBHDGS.dll 1.1.2 | SetMaps | 0 | -7"}));
  EXPECT_EQ(watch.TakeLog(), std::vector<Text>());
  EXPECT_EQ(toolkit.TakeMessages().back(),
            (Box{u"DLL Error!", u"\r\n\r\nError Report Sent: Failed!"}));
}

TEST_F(ReportMessage, EachKindHasItsCaptionAndTheUnknownOnesNoBox) {
  const TextView captions[] = {u"Error!", u"Success", u"Failed!", u"Action Required!"};
  for (std::uint8_t kind = 0; kind < 6; ++kind) {
    if (MessageKind{kind} == MessageKind::kTrappedError) continue;
    reporter_.ReportMessage(MessageKind{kind}, u"Text", &error_, 3);
    std::vector<Box> expected;
    if (kind < 4) expected.push_back({Text(captions[kind]), u"Text"});
    EXPECT_EQ(toolkit.TakeMessages(), expected);
    EXPECT_EQ(watch.TakeLog().size(), 1u);
  }
}

TEST_F(ReportMessage, NoFailureOfTheKitKeepsTheBoxAway) {
  const auto told = [&] {
    reporter_.ReportMessage(MessageKind::kTrappedError, u"SubMain", &error_, 1);
    const std::vector<Box> boxes = toolkit.TakeMessages();
    const Text text = boxes.size() == 1 ? boxes[0].text : u"";
    EXPECT_TRUE(text.starts_with(u"Error Line: 1\r\nError 5: No good")) << ToUtf8(text);
    return ToUtf8(text.substr(text.rfind(u'\n') + 1));
  };
  watch.before = [](TextView operation, TextView) -> bool {
    if (operation == u"LogError") throw std::runtime_error("disk full");
    return true;
  };
  EXPECT_EQ(told(), "Error Report Sent: Yes");
  watch.before = [](TextView operation, TextView) -> bool {
    if (operation == u"SendErrorReport") throw 42;
    return true;
  };
  EXPECT_EQ(told(), "Error Report Sent: Failed!");
}

TEST_F(ReportMessage, EncoderFailureIsReportedOnLineZeroWithAnEmptyResult) {
  // No memory holds the encoding of a text of this length, which is found out before it is read.
  const TextView endless(u"x", std::size_t{1} << (8 * sizeof(std::size_t) - 2));
  EXPECT_EQ(Enc64(endless, CodePage::Windows1252(), reporter_), u"");
  EXPECT_EQ(watch.TakeLog(),
            std::vector<Text>{u"kvrrcBHDGS.dll, Enc64, line 0: error 7, Out of memory"});
}

using Trap = ReportMessage;

TEST_F(Trap, ReportsTheLineOfTheStatementThatFailed) {
  std::int32_t failing = 0;
  int reached = 0;
  const bool ran = Trapped(reporter_, u"LoadInterface", [&](Line& at) {
    at(), reached = 1;
    at(), failing = LineHere(), Fail();
    at(), reached = 2;
  });
  EXPECT_FALSE(ran);
  EXPECT_EQ(reached, 1);
  const std::int32_t begun = LineHere() + 1;
  Trapped(reporter_, u"LoadInterface", [&](Line&) { Fail(); });
  EXPECT_TRUE(Trapped(reporter_, u"LoadInterface", [&](Line& at) { at(), reached = 3; }));
  EXPECT_EQ(reached, 3);
  ASSERT_EQ(watch.failures.size(), 2u);
  EXPECT_EQ(watch.failures[0].label, u"LoadInterface");
  EXPECT_EQ(watch.failures[0].line, failing);
  EXPECT_EQ(watch.failures[1].line, begun);
}

TEST_F(Trap, RestoresBeforeItReportsAndMayExtendTheDescription) {
  bool busy = true;
  toolkit.while_message_open = [&](const Box&) { EXPECT_FALSE(busy); };
  Trapped(
      reporter_, u"cmdSave", [](Line&) { throw RuntimeError(1004, u"Disk is full"); },
      [&](RuntimeError& error) {
        busy = false;
        error.AppendToDescription(u" (a.hsf)");
        throw std::runtime_error("dropped");
      });
  EXPECT_EQ(watch.reports.at(0).description, u"Disk is full (a.hsf)");
  EXPECT_EQ(watch.reports.at(0).number, u"1004");
}

TEST_F(Trap, ErrorNumberZeroEndsTheBodyUnreported) {
  bool cleaned = false;
  const bool ran = Trapped(
      reporter_, u"cmdLoad", [](Line&) { throw RuntimeError(0, u"cancelled"); },
      [&](RuntimeError&) { cleaned = true; });
  EXPECT_FALSE(ran);
  EXPECT_TRUE(cleaned);
  EXPECT_TRUE(journal_.empty());
}

TEST_F(Trap, ForeignExceptionsBecomeRunTimeErrorsAndNoneEscapes) {
  toolkit.while_message_open = [](const Box&) { throw RuntimeError(ErrorNumber::kInternalError); };
  Trapped(reporter_, u"A", [](Line&) { throw std::bad_alloc(); });
  Trapped(reporter_, u"B", [](Line&) { throw std::runtime_error("na\xC3\xAFve"); });
  Trapped(reporter_, u"C", [](Line&) { throw 42; });
  Trapped(reporter_, u"D", [](Line&) { Text().reserve(Text().max_size() + 1); });
  ASSERT_EQ(watch.failures.size(), 4u);
  EXPECT_EQ(watch.failures[0].number, 7);
  EXPECT_EQ(watch.failures[1].number, 51);
  EXPECT_EQ(watch.failures[1].description, u"na\u00EFve");
  EXPECT_EQ(watch.failures[2].number, 51);
  EXPECT_EQ(watch.failures[3].number, 7);
}

TEST(RuntimeErrorTest, KnowsTheUsualWordingAndItsPlace) {
  const RuntimeError usual(ErrorNumber::kTypeMismatch);
  EXPECT_EQ(usual.description(), u"Type mismatch");
  EXPECT_EQ(usual.raised_at().line(), static_cast<unsigned>(LineHere()) - 2);
  EXPECT_EQ(DefaultDescription(-2147467259), u"Application-defined or object-defined error");

  RuntimeError own(ErrorNumber::kOverflow, u"");
  const RuntimeError before = own;
  EXPECT_STREQ(own.what(), "6: ");
  own.AppendToDescription(u"caf\u00E9");
  EXPECT_STREQ(own.what(), "6: caf\xC3\xA9");
  EXPECT_EQ(before.description(), u"");
}

}  // namespace
}  // namespace quill
