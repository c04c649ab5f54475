// What the parser makes of lines, and that it says what is wrong with them.
#include "host/story/story_parser.h"

#include <gtest/gtest.h>

#include "host/story/story_words.h"

namespace quill::host {
namespace {

// The faults of a story with these lines below a title and above a step, as "line: message".
std::vector<std::string> FaultsOf(std::string_view lines) {
  std::vector<std::string> faults;
  const std::string bytes = "title T\n" + std::string(lines) + "\nexpect no box\n";
  for (const StoryFault& fault : ParseStory(bytes).faults) {
    faults.push_back(std::to_string(fault.line) + ": " + ToUtf8(fault.message));
  }
  return faults;
}

using Faults = std::vector<std::string>;

TEST(StoryParser, TakesLinesWithArgumentsBlocksAndNesting) {
  const ParsedStory parsed = ParseStory(
      "\xEF\xBB\xBF# a comment\r\n"
      "  title \"Two \xC3\xA9ggs\"   # and one behind\r"
      "# a lone CR ends a line\n"
      "type txtName \"a {quote}b{quote} \\ # c\"\n"
      "expect lstMax rows\n"
      "  | one\n"
      "  |  two \t\n"
      "  |\n"
      "repeat 2 times\n"
      "  during box\n"
      "    cannot click chkLoop\n"
      "  end\n"
      "end\n"
      "select lstAvlMaps 0 2-4 all");
  EXPECT_TRUE(parsed.faults.empty()) << ToUtf8(parsed.faults.front().message);
  EXPECT_EQ(parsed.story.title, u"Two éggs");
  const auto& steps = parsed.story.steps;
  ASSERT_EQ(steps.size(), 4U);
  EXPECT_EQ(steps[0].kind, StepKind::kType);
  EXPECT_EQ(steps[0].line, 4);
  EXPECT_EQ(steps[0].arguments, (std::vector<Text>{u"txtName", u"a \"b\" \\ # c"}));
  EXPECT_EQ(steps[1].block, (std::vector<Text>{u"one", u" two", u""}));
  ASSERT_EQ(steps[2].steps.size(), 1U);
  ASSERT_EQ(steps[2].steps[0].steps.size(), 1U);
  EXPECT_TRUE(steps[2].steps[0].steps[0].must_be_refused);
  EXPECT_EQ(steps[2].steps[0].steps[0].source, u"cannot click chkLoop");
  EXPECT_EQ(steps[3].arguments, (std::vector<Text>{u"lstAvlMaps", u"0", u"2-4", u"all"}));
}

TEST(StoryParser, SaysWhatIsWrongWithALineAndReadsOn) {
  EXPECT_EQ(FaultsOf("jump high\nclick\nend"),
            (Faults{"2: no line begins like this", "3: this line is none of: click NAME",
                    "4: there is nothing to end here"}));
  EXPECT_EQ(FaultsOf("scroll lstMax by far"), (Faults{"2: a whole number is wanted, not \"far\""}));
  EXPECT_EQ(FaultsOf("scroll lstMax by 3.5"), (Faults{"2: a whole number is wanted, not \"3.5\""}));
  EXPECT_EQ(FaultsOf("click \"chkLoop\""), (Faults{"2: a name is wanted, not \"chkLoop\""}));
  EXPECT_EQ(FaultsOf("push cmdStart both"),
            (Faults{"2: left, right or middle is wanted, not \"both\""}));
  EXPECT_EQ(FaultsOf("select lstAvlMaps 5-3"),
            (Faults{"2: a row, a range of rows, \"none\" or \"all\" is wanted, not \"5-3\""}));
  EXPECT_EQ(FaultsOf("expect txtName text == a"),
            (Faults{"2: =, !=, contains or lacks is wanted, not \"==\""}));
  EXPECT_EQ(FaultsOf("cannot host hides"),
            (Faults{"2: \"cannot\" takes a gesture of the operator"}));
  EXPECT_EQ(FaultsOf("cannot"), (Faults{"2: no line begins like this"}));
  EXPECT_EQ(FaultsOf("title Again"), (Faults{"2: the story has a title already"}));
}

TEST(StoryParser, SaysWhatIsWrongWithQuotesAndBraces) {
  EXPECT_EQ(FaultsOf("tab \"Map Settings"), (Faults{"2: a quote is not closed"}));
  EXPECT_EQ(FaultsOf("tab Map\"Settings\""),
            (Faults{"2: a quote stands inside a word; write {quote} for one"}));
  EXPECT_EQ(FaultsOf("tab \"Map\"Settings"),
            (Faults{"2: a blank is missing behind a quote; write {quote} inside of one"}));
  EXPECT_EQ(FaultsOf("tab {nothing}"), (Faults{"2: {nothing} stands for nothing"}));
  EXPECT_EQ(FaultsOf("tab {u+12345}"), (Faults{"2: {u+12345} stands for nothing"}));
  EXPECT_EQ(FaultsOf("tab {u+E001}"), (Faults{"2: {u+E001} cannot be used in a story"}));
  EXPECT_EQ(FaultsOf("tab \xEE\x80\x80"),
            (Faults{"2: the characters U+E000 and U+E001 cannot be used in a story"}));
  EXPECT_EQ(FaultsOf("tab {"),
            (Faults{"2: a brace is not closed; write {brace} for one that stands for itself"}));
}

TEST(StoryParser, KeepsLineNumbersOutOfTextsThatCouldNeverFit) {
  const Faults refused{"2: {line} can stand in expected boxes, log and report entries only"};
  EXPECT_EQ(FaultsOf("expect txtName text = {line}"), refused);
  EXPECT_EQ(FaultsOf("type txtName {line}"), refused);
  EXPECT_EQ(FaultsOf("expect box A {line}\nexpect log {line}\nexpect box B\n| {line}"), Faults());
  EXPECT_EQ(FaultsOf("file a\n| {line}").size(), 2U);
}

TEST(StoryParser, NoticesBlocksThatAreEmptyOrOpen) {
  EXPECT_EQ(FaultsOf("expect lstMax rows"),
            (Faults{"2: lines that begin with \"|\" are missing below this one"}));
  EXPECT_EQ(FaultsOf("click chkLoop\n| text"), (Faults{"3: no line above takes lines with \"|\""}));
  EXPECT_EQ(FaultsOf("repeat 2 times\nend"), (Faults{"2: the block is empty"}));
  EXPECT_EQ(FaultsOf("repeat 2 times"), (Faults{"2: \"end\" is missing"}));
  std::string deep;
  for (int depth = 0; depth < 9; ++depth) deep += "during box\n";
  EXPECT_EQ(FaultsOf(deep).front(), "10: blocks lie too deep in one another");
}

TEST(StoryParser, NoticesStoriesWithoutTitleOrSteps) {
  const std::vector<StoryFault> faults = ParseStory("").faults;
  ASSERT_EQ(faults.size(), 2U);
  EXPECT_EQ(faults[0].message, u"the story has no title");
  EXPECT_EQ(faults[1].message, u"the story has no steps");
}

TEST(StoryWords, QuotedTextReadsBackAsItWas) {
  const Text text = {u'a',  u'"', u'{', u'}',   u'\r',  u'\n', u'\r',
                     u'\t', 0,    0x7F, 0xD800, 0x20AC, u' '};
  const std::vector<StoryWord> words = SplitStoryWords(QuotedForStory(text));
  ASSERT_EQ(words.size(), 1U);
  EXPECT_EQ(words[0].text, text);
}

}  // namespace
}  // namespace quill::host
