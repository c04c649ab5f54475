// That a story which expects what is not so fails, with the right message, and that nothing makes
// it pass by the way. Played on the stage without a screen.
#include "host/story/story_run.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/story/headless_stage.h"

namespace quill::host {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Outcome {
  bool all_passed = false;
  std::vector<std::string> failures;  // without the file's name
  std::string last_line;
};

Outcome Play(std::string_view steps, std::string_view differences = {}) {
  Outcome outcome;
  const StoryFile file{u"folder/bad.story", "title T\n" + std::string(steps) + "\n"};
  const StoryFile list{u"differences.txt", std::string(differences)};
  outcome.all_passed = RunStories({file}, MakeHeadlessStage, list, [&](const Text& line) {
    if (!outcome.last_line.empty() && !outcome.last_line.starts_with("passed: ") &&
        !outcome.last_line.starts_with("FAILED: ")) {
      outcome.failures.push_back(outcome.last_line);
    }
    outcome.last_line = ToUtf8(line);
  });
  for (std::string& failure : outcome.failures) {
    const std::string name = "folder/bad.story:";
    if (failure.starts_with(name)) failure.erase(0, name.size());
  }
  EXPECT_EQ(outcome.all_passed, outcome.failures.empty());
  EXPECT_EQ(outcome.last_line, outcome.all_passed ? "1 passed, 0 failed" : "0 passed, 1 failed");
  return outcome;
}

std::vector<std::string> FailuresOf(std::string_view steps) {
  return Play(steps).failures;
}

constexpr std::string_view kOpen =
    "host opens profile 1 target t\n"
    "host replies\n";

// Failures of steps that are played on an open dialog with the reply applied.
std::vector<std::string> FailuresOnDialog(const std::string& steps) {
  return FailuresOf(std::string(kOpen) + steps);
}

TEST(StoryRun, TellsExpectedAndActualAndGoesOn) {
  EXPECT_THAT(
      FailuresOnDialog("expect txtName text = \"Other {quote}\"\n"
                       "expect lstMax index = 4\n"
                       "expect lstMax enabled != true\n"
                       "expect txtName text contains x\n"
                       "expect txtName text lacks Story\n"
                       "expect cboMods row 1 = None\n"
                       "expect lstMax data 0 = 1\n"
                       "expect txtPort text = 17479"),
      ElementsAre("4: expect txtName text = \"Other {quote}\": expected \"Other {quote}\", "
                  "actual \"Story Server\"",
                  "5: expect lstMax index = 4: expected \"4\", actual \"15\"",
                  "6: expect lstMax enabled != true: expected != \"true\", actual \"true\"",
                  "7: expect txtName text contains x: expected contains \"x\", actual "
                  "\"Story Server\"",
                  "8: expect txtName text lacks Story: expected lacks \"Story\", actual "
                  "\"Story Server\"",
                  "9: expect cboMods row 1 = None: expected \"None\", actual \"Team Sabre\"",
                  "10: expect lstMax data 0 = 1: expected \"1\", actual \"0\""));
}

TEST(StoryRun, NoticesRowsThatAreOther) {
  EXPECT_THAT(FailuresOnDialog("expect cboMods rows\n| None\n"
                               "expect cboMods rows\n| Team Sabre\n| None\n"
                               "expect cboMods rows in any order\n| Team Sabre\n| None\n"
                               "expect cboMods rows in any order\n| None\n| None\n"
                               "expect cboMods no rows"),
              ElementsAre("4: expect cboMods rows: expected \"None\", actual "
                          "\"None{crlf}Team Sabre\"",
                          "6: expect cboMods rows: expected \"Team Sabre{crlf}None\", actual "
                          "\"None{crlf}Team Sabre\"",
                          "12: expect cboMods rows in any order: expected \"None{crlf}None\", "
                          "actual \"None{crlf}Team Sabre\"",
                          "15: expect cboMods no rows: expected \"\", actual "
                          "\"None{crlf}Team Sabre\""));
}

TEST(StoryRun, NoticesWhatCannotBeReadOrDone) {
  EXPECT_THAT(FailuresOf("expect txtName text = a"),
              ElementsAre("2: expect txtName text = a: it cannot be done: There is no dialog"));
  EXPECT_THAT(
      FailuresOnDialog("expect txtNoName text = a\n"
                       "expect chkLoop text = a\n"
                       "expect cboMods row 2 = a\n"
                       "click chkTeam\n"
                       "choose cboMods Other\n"
                       "key lstAvlMaps ++\n"
                       "tab Elsewhere"),
      ElementsAre(
          "4: expect txtNoName text = a: it cannot be done: Control 'txtNoName' not found",
          "5: expect chkLoop text = a: it cannot be done: 'chkLoop' has no property 'text'",
          "6: expect cboMods row 2 = a: it cannot be done: 'cboMods' has no property 'item 2'",
          "7: click chkTeam: it cannot be done: 'chkTeam' cannot be reached: 'fmeMisc' is hidden",
          "8: choose cboMods Other: it cannot be done: 'cboMods' has no item 'Other'",
          "9: key lstAvlMaps ++: a key is one character",
          "10: tab Elsewhere: it cannot be done: There is no tab 'Elsewhere'"));
}

TEST(StoryRun, NoticesGesturesThatShouldHaveBeenRefused) {
  EXPECT_THAT(
      FailuresOnDialog("cannot click chkLoop\n"
                       "cannot click chkTeam\n"
                       "cannot click chkNowhere"),
      ElementsAre("4: cannot click chkLoop: expected a gesture that cannot be made, actual "
                  "it was made",
                  "6: cannot click chkNowhere: it cannot be done: Control 'chkNowhere' not found"));
}

TEST(StoryRun, NoticesBoxesThatAreOtherMissingOrUnexpected) {
  EXPECT_THAT(
      FailuresOnDialog("push cmdStart\n"
                       "expect box Error! \"You have not selected any maps!\"\n"
                       "push cmdStart\n"
                       "expect box Failed! \"You haven't selected any maps!\"\n"
                       "push cmdStart\n"
                       "expect box Error!\n| You haven't selected any maps!\n"
                       "expect box Error! \"You haven't selected any maps!\"\n"
                       "push cmdStart\n"
                       "expect no box"),
      ElementsAre("5: expect box Error! \"You have not selected any maps!\": expected the box "
                  "\"Error!\" \"You have not selected any maps!\", actual \"Error!\" \"You haven't "
                  "selected any maps!\"",
                  "7: expect box Failed! \"You haven't selected any maps!\": expected the box "
                  "\"Failed!\" \"You haven't selected any maps!\", actual \"Error!\" \"You haven't "
                  "selected any maps!\"",
                  "11: expect box Error! \"You haven't selected any maps!\": expected the box "
                  "\"Error!\" \"You haven't selected any maps!\", actual no box",
                  "13: expect no box: there is an unexpected box \"Error!\" \"You haven't selected "
                  "any maps!\"",
                  " at the end: there is an unexpected box \"Error!\" \"You "
                  "haven't selected any maps!\""));
}

TEST(StoryRun, NoticesEachPartOfATrappedFailure) {
  const auto failures_of = [](const std::string& expectation) {
    return FailuresOnDialog("host replies with x[-]Scorvane[-]\n" + expectation);
  };
  EXPECT_THAT(failures_of("expect trapped RemoteData 13 \"Type mismatch [, ]\""), IsEmpty());
  EXPECT_THAT(failures_of("expect trapped RemoteDatum 13 \"Type mismatch [, ]\""),
              ElementsAre("5: expect trapped RemoteDatum 13 \"Type mismatch [, ]\": expected "
                          "\"kvrrcBHDGS.dll, RemoteDatum, line {line}: error 13, Type mismatch [, "
                          "]\", actual \"" +
                          [&] {
                            const std::string other = failures_of("expect log \"\"").front();
                            const std::size_t at = other.find("actual \"") + 8;
                            return other.substr(at, other.size() - at - 1);
                          }() +
                          "\""));
  EXPECT_EQ(failures_of("expect trapped RemoteData 14 \"Type mismatch [, ]\"").size(), 1U);
  EXPECT_EQ(failures_of("expect trapped RemoteData 13 \"Type mismatch\"").size(), 1U);
  EXPECT_EQ(failures_of("expect trapped RemoteData 13 \"Type mismatch [, ]\" not sent").size(), 1U);
  EXPECT_THAT(
      FailuresOnDialog("expect trapped RemoteData 13 \"Type mismatch [, ]\""),
      ElementsAre("4: expect trapped RemoteData 13 \"Type mismatch [, ]\": expected a trapped "
                  "failure, actual no log entry, no report and no box"));
  // A box alone does not do: log entry and report are left over.
  EXPECT_EQ(failures_of("expect box \"DLL Error!\"\n"
                        "| Error Line: {line}\n"
                        "| Error 13: Type mismatch [, ]\n"
                        "| DLL: kvrrcBHDGS.dll\n"
                        "| Function/Sub: RemoteData\n"
                        "|\n"
                        "| Error Report Sent: Yes")
                .size(),
            2U);
}

// The log shows the name of a mod that is missing, so that any text can stand in it.
TEST(StoryRun, TakesOnlyLineNumbersForLineNumbers) {
  const auto log_failure = [](const std::string& mod, const std::string& pattern) {
    return FailuresOf(
               "right \"Change GS Game Port\" = 1\n"
               "host sets rights\n"
               "host opens profile 1 target t\n"
               "reply fixed Mod = \"" +
               mod +
               "\"\n"
               "host replies\n"
               "expect log \"kvrrcBHDGS.dll, RemoteData, line " +
               pattern + " is not an item of the list\"")
        .front();
  };
  const auto fits = [&](const std::string& mod, const std::string& pattern) {
    return !log_failure(mod, pattern).starts_with("7: ");
  };
  // Where it was trapped, from the failure of an expectation that cannot hold.
  const std::string told = log_failure("m", "x");
  const std::size_t at = told.rfind("line ") + 5;
  const std::string line = told.substr(at, told.find(':', at) - at);

  EXPECT_TRUE(fits("m", "{line}: error 383, 'm'"));
  EXPECT_TRUE(fits("7", line + ": error 383, '{line}'"));
  EXPECT_FALSE(fits("0", line + ": error 383, '{line}'"));
  EXPECT_FALSE(fits("07", line + ": error 383, '{line}'"));
  EXPECT_FALSE(fits("-7", line + ": error 383, '{line}'"));
  EXPECT_FALSE(fits("", line + ": error 383, '{line}'"));
  EXPECT_FALSE(fits("7a", line + ": error 383, '{line}'"));
  // One number for all marks.
  EXPECT_TRUE(fits(line, "{line}: error 383, '{line}'"));
  EXPECT_FALSE(fits(line + "1", "{line}: error 383, '{line}'"));
}

TEST(StoryRun, NoticesFilesRequestsAndPayloadsThatAreOther) {
  EXPECT_THAT(
      FailuresOnDialog("file \"{root}\\a.txt\" = one\n"
                       "expect file \"{root}\\a.txt\" = two\n"
                       "expect file \"{root}\\a.txt\"\n| one\n"
                       "expect file \"{root}\\b.txt\" = two\n"
                       "expect file \"{root}\\a.txt\" missing\n"
                       "expect request GetGameSettingsRem = x\n"
                       "expect no request GetGameSettingsRem\n"
                       "expect payload 4 = 1"),
      ElementsAre("5: expect file \"{root}\\a.txt\" = two: expected \"two\", actual \"one\"",
                  "6: expect file \"{root}\\a.txt\": expected \"one{crlf}\", actual \"one\"",
                  "8: expect file \"{root}\\b.txt\" = two: there is no such file",
                  "9: expect file \"{root}\\a.txt\" missing: there is such a file",
                  "10: expect request GetGameSettingsRem = x: expected \"x\", actual "
                  "\"Plugin_kvrBHDGS_GetGameSettingsRem_t_VB6_1\"",
                  "11: expect no request GetGameSettingsRem: there is a request "
                  "\"Plugin_kvrBHDGS_GetGameSettingsRem_t_VB6_1\"",
                  "12: expect payload 4 = 1: there is no request StartGameRem"));
  EXPECT_THAT(
      FailuresOnDialog("tab \"Map Settings\"\n"
                       "double-click lstAvlMaps 0\n"
                       "push cmdStart\n"
                       "expect request StartGameRem envelope Plugin_kvrBHDGS_StartGameRem_u_VB6_1\n"
                       "expect payload 4 = 2\n"
                       "expect payload 26 = 2\n"
                       "expect payload text 1 = Other\n"
                       "expect payload maps = 2\n"
                       "expect payload map 0 = \"Road Rage <DMK_01A.BMS> 0 True\"\n"
                       "expect payload map 1 = x\n"
                       "expect payload mod = x"),
      ElementsAre(
          "7: expect request StartGameRem envelope Plugin_kvrBHDGS_StartGameRem_u_VB6_1: it begins "
          "with \"Plugin_kvrBHDGS_StartGameRem_t_VB6_1_\"",
          "8: expect payload 4 = 2: expected \"2\", actual \"1\"",
          "9: expect payload 26 = 2: the payload has no field 26, only 26",
          "10: expect payload text 1 = Other: expected \"Other\", actual \"Story Server\"",
          "11: expect payload maps = 2: expected \"2\", actual \"1\"",
          "12: expect payload map 0 = \"Road Rage <DMK_01A.BMS> 0 True\": expected \"Road Rage "
          "<DMK_01A.BMS> 0 True\", actual \"Road Rage <DMK_01A.BMS> 0 False\"",
          "13: expect payload map 1 = x: the payload has no map 1, only 1",
          "14: expect payload mod = x: expected \"x\", actual \"None\""));
}

TEST(StoryRun, NoticesWhatTheStoryLeavesOpen) {
  EXPECT_THAT(FailuresOnDialog("during box\nexpect no box\nend"),
              ElementsAre("4: during box: no box has come"));
  EXPECT_THAT(FailuresOnDialog("answer cancel\npush cmdCancel"),
              ElementsAre(" at the end: no file dialog has come for 1 of the "
                          "answers"));
  EXPECT_THAT(FailuresOnDialog("push cmdSave\nanswer cancel\npush cmdLoad"),
              ElementsAre(" at the end: 1 of the file dialogs had no answer"));
}

TEST(StoryRun, NoticesStatesOfTheDialogThatAreOther) {
  EXPECT_THAT(
      FailuresOf("expect dialog shown\n"
                 "host opens profile 1 target t\n"
                 "expect dialog hidden\n"
                 "expect dialog pointer = default\n"
                 "expect screen pointer = busy\n"
                 "expect pending = StartGame\n"
                 "expect version = 1.0.0\n"
                 "expect record Name = Other\n"
                 "expect record NoField = Other"),
      ElementsAre("2: expect dialog shown: the dialog is not shown",
                  "4: expect dialog hidden: the dialog is shown",
                  "5: expect dialog pointer = default: expected \"default\", actual \"busy\"",
                  "6: expect screen pointer = busy: expected \"busy\", actual \"default\"",
                  "7: expect pending = StartGame: expected \"StartGame\", actual \"LoadForm\"",
                  "8: expect version = 1.0.0: expected \"1.0.0\", actual \"1.1.2\"",
                  "9: expect record Name = Other: expected \"Other\", actual \"Quillstart\"",
                  "10: expect record NoField = Other: it cannot be done: the record has no "
                  "field \"NoField\""));
}

TEST(StoryRun, PlaysStepsInsideTheDisplayUntilItEnds) {
  EXPECT_THAT(FailuresOf("host opens profile 1 target t\n"
                         "expect dialog shown\n"
                         "push cmdCancel\n"
                         "expect dialog hidden\n"
                         "repeat 2 times\n"
                         "  host opens profile 1 target t\n"
                         "  expect dialog shown\n"
                         "end\n"
                         "expect dialog hidden\n"
                         "during box\n"
                         "  expect dialog shown\n"
                         "end\n"
                         "host opens profile 1 target t\n"
                         "push cmdStart\n"
                         "expect box Error! \"Server Name is empty!\""),
              IsEmpty());
}

TEST(StoryRun, StepsThatFailInABlockOrABoxAreTold) {
  EXPECT_THAT(FailuresOnDialog("during box\n"
                               "  expect dialog hidden\n"
                               "end\n"
                               "push cmdStart\n"
                               "expect box Error! \"You haven't selected any maps!\"\n"
                               "repeat 2 times\n"
                               "  click chkTeam\n"
                               "end\n"
                               "repeat 0 times\n"
                               "  click chkTeam\n"
                               "end"),
              ElementsAre("5: expect dialog hidden: the dialog is shown",
                          "10: click chkTeam: it cannot be done: 'chkTeam' cannot be reached: "
                          "'fmeMisc' is hidden",
                          "10: click chkTeam: it cannot be done: 'chkTeam' cannot be reached: "
                          "'fmeMisc' is hidden",
                          "12: repeat 0 times: steps are repeated 1 to 10000 times"));
}

TEST(StoryRun, RepliesThatCannotBeMadeAreTold) {
  EXPECT_THAT(
      FailuresOf("reply \"Server Nam\" = x\n"
                 "reply \"Max Players\" = 51\n"
                 "reply map Chess A a.bms\n"
                 "reply raw -1 = x\n"
                 "reply has 0 fields\n"
                 "file \"{root}\\a.txt\" bytes 0 G1"),
      ElementsAre("2: reply \"Server Nam\" = x: a reply has no setting \"Server Nam\"",
                  "3: reply \"Max Players\" = 51: Max Players must be a number from 1 to 50, "
                  "not \"51\"",
                  "4: reply map Chess A a.bms: there is no game type \"Chess\"",
                  "5: reply raw -1 = x: a reply has no field -1",
                  "6: reply has 0 fields: a reply cannot have 0 fields",
                  "7: file \"{root}\\a.txt\" bytes 0 G1: a byte is two hexadecimal digits, "
                  "not \"0\""));
}

TEST(StoryRun, AStoryThatCannotBeReadIsNotPlayed) {
  EXPECT_THAT(FailuresOf("expect dialog shown\nnonsense"),
              ElementsAre("3: no line begins like this"));
}

TEST(StoryDifferences, AListedStepMustFailAndBePlayed) {
  constexpr std::string_view kSteps = "expect dialog shown\nexpect dialog hidden";
  EXPECT_TRUE(Play(kSteps, "bad.story | expect dialog shown | for the test").all_passed);
  EXPECT_TRUE(Play(kSteps, "# comment\r\n\r\nbad.story | 2 | for the test\r\n").all_passed);
  EXPECT_THAT(Play(kSteps, "other.story | expect dialog shown | for the test").failures,
              ElementsAre("2: expect dialog shown: the dialog is not shown"));
  EXPECT_THAT(
      Play(kSteps,
           "bad.story | 2 | for the test\n"
           "bad.story | expect dialog hidden | was so once\n"
           "bad.story | expect no box | never played\n")
          .failures,
      ElementsAre("3: expect dialog hidden: it is listed as a difference (was so once), but "
                  "it holds now",
                  " at the end: line 3 of the list of differences names a "
                  "step that was not played: expect no box"));
}

TEST(StoryDifferences, AListThatCannotBeReadFailsTheRun) {
  std::vector<std::string> lines;
  const StoryFile good{u"good.story", "title T\nexpect dialog hidden\n"};
  const StoryFile list{u"list.txt",
                       "good.story | 2\n"
                       "good.story | 2 |\n"
                       " | 2 | x\n"
                       "good.story | expect no box | a | b\n"
                       "good.story | expect no box | a | c\n"};
  EXPECT_FALSE(RunStories({good}, MakeHeadlessStage, list,
                          [&](const Text& line) { lines.push_back(ToUtf8(line)); }));
  EXPECT_THAT(lines, ElementsAre("list.txt:1: a difference is written: story file | step or line "
                                 "number | reason",
                                 "list.txt:2: a difference is written: story file | step or line "
                                 "number | reason",
                                 "list.txt:3: a difference is written: story file | step or line "
                                 "number | reason",
                                 "list.txt:5: this difference is listed already"));
}

TEST(StoryRun, CountsStoriesAndTellsStagesThatFail) {
  std::vector<std::string> lines;
  const StoryFile good{u"good.story", "title Good\nexpect dialog hidden\n"};
  const StoryFile bad{u"bad.story", "title Bad\nexpect dialog shown\n"};
  const auto tell = [&](const Text& line) { lines.push_back(ToUtf8(line)); };
  EXPECT_FALSE(RunStories({good, bad, good}, MakeHeadlessStage, {}, tell));
  EXPECT_THAT(lines, ElementsAre("passed: good.story: Good",
                                 "bad.story:2: expect dialog shown: the dialog is not shown",
                                 "FAILED: bad.story: Bad", "passed: good.story: Good",
                                 "2 passed, 1 failed"));
  lines.clear();
  const StageFactory none = []() -> std::unique_ptr<Stage> { throw StageError("no library"); };
  EXPECT_FALSE(RunStories({good}, none, {}, tell));
  EXPECT_THAT(lines, ElementsAre("good.story: there is no stage: no library",
                                 "FAILED: good.story: Good", "0 passed, 1 failed"));
}

}  // namespace
}  // namespace quill::host
