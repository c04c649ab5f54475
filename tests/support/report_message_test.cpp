#include "support/report_message.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "support/base64.h"
#include "tests/doubles/recording_file_kit.h"
#include "tests/doubles/recording_message_boxes.h"

namespace quill {
namespace {

using Box = RecordingMessageBoxes::Box;
using LogEntry = RecordingFileKit::LogEntry;
using Journal = std::vector<std::string>;

class ReportMessageTest : public testing::Test {
 protected:
  ReportMessageTest() {
    auto recording = std::make_unique<RecordingFileKit>();
    kit = recording.get();
    file_kit = std::move(recording);
    kit->journal = boxes.journal = &journal;
  }

  std::unique_ptr<FileKit> file_kit;
  RecordingFileKit* kit;
  RecordingMessageBoxes boxes;
  Journal journal;
  MessageReporter reporter{file_kit, boxes};
  const RuntimeError error{ErrorNumber::kInvalidProcedureCall, u"No good\r\nat all"};
};

TEST_F(ReportMessageTest, TrappedErrorIsLoggedThenSentThenShown) {
  reporter.ReportMessage(MessageKind::kTrappedError, u"cmdStart_Error", &error, 117);

  EXPECT_EQ(journal, (Journal{"LogError", "SendErrorReport", "box"}));
  EXPECT_EQ(kit->log, (std::vector<LogEntry>{
                          {u"kvrrcBHDGS.dll", u"cmdStart_Error", 5, u"No good\r\nat all", 117}}));
  ASSERT_EQ(kit->reports.size(), 1U);
  const ErrorReport& report = kit->reports[0];
  EXPECT_EQ(report.number, u"5");
  EXPECT_EQ(report.description, u"No good\r\nat all");
  EXPECT_EQ(report.library, u"kvrrcBHDGS.dll 1.1.2");
  EXPECT_EQ(report.label, u"cmdStart_Error");
  EXPECT_EQ(report.reserved, u"0");
  EXPECT_EQ(report.line, 117);
  EXPECT_EQ(boxes.boxes, (std::vector<Box>{{u"DLL Error!",
                                            u"Error Line: 117\r\n"
                                            u"Error 5: No good\r\nat all\r\n"
                                            u"DLL: kvrrcBHDGS.dll\r\n"
                                            u"Function/Sub: cmdStart_Error\r\n"
                                            u"\r\n"
                                            u"Error Report Sent: Yes"}}));
}

TEST_F(ReportMessageTest, TrappedKindWithoutAnErrorSendsButLogsNothing) {
  kit->sends = false;
  reporter.ReportMessage(MessageKind::kTrappedError, u"SetMaps", nullptr, -7);

  EXPECT_EQ(journal, (Journal{"SendErrorReport", "box"}));
  const ErrorReport& report = kit->reports.at(0);
  EXPECT_EQ(report.number, u"");
  EXPECT_EQ(report.description, u"");
  EXPECT_EQ(report.label, u"SetMaps");
  EXPECT_EQ(report.reserved, u"0");
  EXPECT_EQ(report.line, -7);
  EXPECT_EQ(boxes.boxes,
            (std::vector<Box>{{u"DLL Error!", u"\r\n\r\nError Report Sent: Failed!"}}));
}

TEST_F(ReportMessageTest, EachKindHasItsCaptionAndTheUnknownOnesNoBox) {
  const TextView captions[] = {u"Error!", u"Success", u"Failed!", u"Action Required!"};
  for (std::uint8_t kind = 0; kind < 4; ++kind) {
    boxes.boxes.clear();
    journal.clear();
    reporter.Show(MessageKind{kind}, u"Server Name is empty!");
    reporter.ReportMessage(MessageKind{kind}, u"Text", &error, 3);
    EXPECT_EQ(boxes.boxes, (std::vector<Box>{{Text(captions[kind]), u"Server Name is empty!"},
                                             {Text(captions[kind]), u"Text"}}));
    EXPECT_EQ(journal, (Journal{"box", "LogError", "box"}));
  }
  journal.clear();
  for (int kind = 5; kind < 256; ++kind) {
    reporter.ReportMessage(MessageKind{static_cast<std::uint8_t>(kind)}, u"Text", &error, 3);
    reporter.Show(MessageKind{static_cast<std::uint8_t>(kind)}, u"Text");
  }
  EXPECT_EQ(journal, Journal(251, "LogError"));
}

TEST_F(ReportMessageTest, FailingLogKeepsNeitherReportNorBoxAway) {
  kit->before = [](const std::string& operation) {
    if (operation == "LogError") throw std::runtime_error("disk full");
  };
  reporter.ReportMessage(MessageKind::kTrappedError, u"SubMain", &error, 1);
  EXPECT_EQ(journal, (Journal{"LogError", "SendErrorReport", "box"}));
  EXPECT_TRUE(boxes.boxes.at(0).text.starts_with(u"Error Line: 1\r\nError 5: No good"));
  EXPECT_TRUE(boxes.boxes.at(0).text.ends_with(u"SubMain\r\n\r\nError Report Sent: Yes"));

  reporter.ReportMessage(MessageKind::kFailed, u"Plain text", &error, 1);
  EXPECT_EQ(boxes.boxes.at(1), (Box{u"Failed!", u"Plain text"}));
}

TEST_F(ReportMessageTest, FailingSendOrMissingKitStillShowsTheBox) {
  kit->before = [](const std::string& operation) {
    if (operation == "SendErrorReport") throw 42;
  };
  reporter.ReportMessage(MessageKind::kTrappedError, u"One", &error, 0);
  EXPECT_EQ(kit->log.size(), 1U);
  file_kit.reset();
  reporter.ReportMessage(MessageKind::kTrappedError, u"Two", &error, 0);
  file_kit = nullptr;
  reporter.ReportMessage(MessageKind::kTrappedError, u"Three", nullptr, 0);
  ASSERT_EQ(boxes.boxes.size(), 3U);
  for (const Box& box : boxes.boxes) {
    EXPECT_EQ(box.caption, u"DLL Error!");
    EXPECT_TRUE(box.text.ends_with(u"\r\n\r\nError Report Sent: Failed!"));
  }
}

TEST_F(ReportMessageTest, EncoderFailureIsReportedOnLineZeroWithAnEmptyResult) {
  // No memory holds the encoding of a text of this length, which is found out before it is read.
  const TextView endless(u"x", std::size_t{1} << (8 * sizeof(std::size_t) - 2));
  EXPECT_EQ(Enc64(endless, CodePage::Windows1252(), reporter), u"");
  EXPECT_EQ(kit->log,
            (std::vector<LogEntry>{{u"kvrrcBHDGS.dll", u"Enc64", 7, u"Out of memory", 0}}));
  EXPECT_EQ(kit->reports.at(0).line, 0);
  EXPECT_TRUE(boxes.boxes.at(0).text.starts_with(u"Error Line: 0\r\nError 7: Out of memory\r\n"));
}

}  // namespace
}  // namespace quill
