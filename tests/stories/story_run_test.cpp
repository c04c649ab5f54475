// A story that expects what is not so fails, with the right message: one failing example of each
// kind, played on the stage without a screen.
#include "host/story/story_run.h"

#include <gtest/gtest.h>

#include "host/story/stage.h"

namespace quill::host {
namespace {

// What the run says about a story with these steps, without the file's name, one line each.
std::string Played(const std::string& steps, std::string_view differences = {}) {
  std::string told;
  const StoryFile file{u"bad.story", "title T\n" + steps + "\n"};
  const StoryFile list{u"differences.txt", std::string(differences)};
  const bool passed = RunStories({file}, MakeHeadlessStage, list, [&](const Text& line) {
    std::string text = ToUtf8(line);
    if (text.starts_with("bad.story:")) text.erase(0, 10);
    told += text + "\n";
  });
  const std::string end = passed ? "passed: bad.story: T\n1 passed, 0 failed\n"
                                 : "FAILED: bad.story: T\n0 passed, 1 failed\n";
  EXPECT_TRUE(told.ends_with(end)) << told;
  return told.substr(0, told.size() - end.size());
}

// The failure of steps from line 4 on, played on an open dialog with the reply applied.
std::string OnDialog(const std::string& steps) {
  return Played("host opens profile 1 target t\nhost replies\n" + steps);
}

TEST(StoryRun, NoticesEachKindOfFalseExpectation) {
  const struct {
    std::string steps, told;
  } cases[] = {
      {"expect txtName text = \"Other {quote}\"",
       "expected \"Other {quote}\", actual \"Story Server\""},
      {"expect lstMax enabled != true", "expected != \"true\", actual \"true\""},
      {"expect txtName text lacks Story", "expected lacks \"Story\", actual \"Story Server\""},
      {"expect cboMods rows\n| Team Sabre\n| None", "actual \"None{crlf}Team Sabre\""},
      {"expect cboMods rows in any order\n| None\n| None", "actual \"None{crlf}Team Sabre\""},
      {"click chkTeam", "'chkTeam' cannot be reached: 'fmeMisc' is hidden"},
      {"cannot click chkLoop", "expected a gesture that cannot be made, actual it was made"},
      {"expect box Error! x", "actual no box"},
      {"push cmdStart", " at the end: there is an unexpected box"},
      {"host replies with x[-]Scorvane[-]\nexpect trapped RemoteDatum 13 \"Type mismatch [, ]\"",
       "actual \"kvrrcBHDGS.dll, RemoteData, line "},
      {"file \"{root}\\a.txt\" = one\nexpect file \"{root}\\a.txt\"\n| one",
       "expected \"one{crlf}\", actual \"one\""},
      {"expect no request GetGameSettingsRem", "there is a request"},
      {"tab \"Map Settings\"\ndouble-click lstAvlMaps 0\npush cmdStart\nexpect payload 4 = 2",
       "expected \"2\", actual \"1\""},
      {"during box\nexpect no box\nend", "no box has come"},
      {"answer cancel", "no file dialog has come for 1 of the answers"},
      {"push cmdSave\nanswer cancel\npush cmdLoad", "1 of the file dialogs had no answer"},
      {"expect dialog hidden", "the dialog is shown"},
      {"expect pending = StartGame", "expected \"StartGame\", actual \"LoadForm\""},
      {"expect record NoField = x", "the record has no field \"NoField\""},
      {"reply \"Max Players\" = 51", "Max Players must be a number from 1 to 50, not \"51\""},
      {"nonsense", "4: no line begins like this"},
      {"repeat 2 times", "\"end\" is missing"},
  };
  for (const auto& [steps, told] : cases) {
    const std::string failure = OnDialog(steps);
    EXPECT_NE(failure.find(told), std::string::npos) << steps << "\n  gave: " << failure;
    EXPECT_EQ(failure.find('\n'), failure.size() - 1) << "one failure, not: " << failure;
  }
}

TEST(StoryRun, LineNumbersAreOneNumberThatIsNotNull) {
  for (const std::string mod : {"0", "1", "m"}) {
    EXPECT_TRUE(Played("right \"Change GS Game Port\" = 1\nhost sets rights\n"
                       "host opens profile 1 target t\nreply fixed Mod = " +
                       mod +
                       "\nhost replies\nexpect log \"kvrrcBHDGS.dll, RemoteData, line {line}: "
                       "error 383, '{line}' is not an item of the list\"")
                    .starts_with("7: "));
  }
}

TEST(StoryDifferences, AListedStepMustFailAndBePlayed) {
  const std::string steps = "expect dialog shown\nexpect dialog hidden";
  EXPECT_EQ(Played(steps, "bad.story | 2 | why"), "");
  EXPECT_EQ(Played(steps,
                   "bad.story | 2 | why\nbad.story | expect dialog hidden | was so once\n"
                   "bad.story | expect no box | never played\n"),
            "3: expect dialog hidden: it is listed as a difference (was so once), but it holds "
            "now\n at the end: line 3 of the list of differences names a step that was not "
            "played: expect no box\n");
}

}  // namespace
}  // namespace quill::host
