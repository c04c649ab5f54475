// The limit of a text box, for any edit.
#include "ui/text_box.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "tests/ui/form_bench.h"

namespace quill::ui {
namespace {

TEST(TextBoxLimitTest, TakesOfAnEditWhatFits) {
  struct Case {
    TextView before, after;
    int limit;
    TextView left;
  };
  const Case cases[] = {
      {u"", u"abc", 0, u"abc"},               // no limit
      {u"ab", u"abc", 3, u"abc"},             // fits
      {u"abc", u"abcd", 3, u"abc"},           // typed at the end
      {u"abc", u"xabc", 3, u"abc"},           // typed at the front
      {u"abc", u"abXc", 3, u"abc"},           // typed in the middle
      {u"ac", u"a123c", 3, u"a1c"},           // pasted in the middle
      {u"abc", u"aXYZWc", 4, u"aXYc"},        // pasted over a part
      {u"abc", u"XYZW", 3, u"XYZ"},           // pasted over all
      {u"aaa", u"aaaa", 3, u"aaa"},           // wherever it was
      {u"abcdef", u"abcde", 3, u"abcde"},     // longer by code: may become shorter
      {u"abcdef", u"abXcdef", 3, u"abcdef"},  // but not longer
      {u"abcdef", u"abXf", 3, u"abf"},        // nor may anything come in beyond the limit
      {u"abcdef", u"Xf", 3, u"Xf"},           //
      {u"ab", u"ab\xD83D\xDE00", 3, u"ab"},   // no half of a surrogate pair
      {u"ab", u"ab\xD83D\xDE00", 4, u"ab\xD83D\xDE00"},
      {u"ab", u"ab\xD83Dx", 3, u"ab\xD83D"},  // what is no pair is not split
      {u"ab", u"abc", -5, u"abc"},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(ToUtf8(TextBox::ApplyLimit(c.before, c.after, c.limit)), ToUtf8(c.left))
        << ToUtf8(c.before) << " -> " << ToUtf8(c.after) << ", at most " << c.limit;
  }
}

// Each unit of the text before is another one, and none of them is inserted: what the edit was is
// then beyond doubt, and so is what it has to leave.
TEST(TextBoxLimitTest, LeavesAllAroundAnyEditAndTheFrontOfWhatWasInserted) {
  std::mt19937 random(20);
  const auto below = [&](std::size_t bound) { return random() % bound; };
  for (int round = 0; round < 20000; ++round) {
    Text before(below(13), u'a');
    for (std::size_t i = 0; i < before.size(); ++i) before[i] = static_cast<char16_t>(u'a' + i);
    const std::size_t from = below(before.size() + 1);
    const std::size_t removed = below(before.size() - from + 1);
    const Text inserted(below(9), u'X');
    const Text front = before.substr(0, from);
    const Text back = before.substr(from + removed);
    const std::size_t limit = 1 + below(10);

    const std::size_t kept = front.size() + back.size();
    const std::size_t room = limit > kept ? limit - kept : 0;
    const Text expected = front + inserted.substr(0, room) + back;
    ASSERT_EQ(TextBox::ApplyLimit(before, front + inserted + back, static_cast<int>(limit)),
              expected)
        << ToUtf8(before) << " -> " << ToUtf8(front + inserted + back) << ", at most " << limit;
  }
}

TEST(TextBoxTest, CorrectsTheNativeTextAndKeepsLongTextsOfCode) {
  FormBench bench;
  auto& box = bench.form->Add<TextBox>(u"txtCountry", nullptr, 2);
  auto& fixed = bench.form->Add<TextBox>(u"txtFixed", nullptr, 0, Alignment::kCentre, true);
  fixed.SetText(u"Deathmatch");
  bench.WhileShown([&] {
    bench.hand.Type(u"txtCountry", u"DEU");
    EXPECT_EQ(box.text(), u"DE");
    EXPECT_EQ(bench.hand.Read(u"txtCountry", u"text"), u"DE");

    const std::size_t syncs = headless::MirrorOf(box).syncs();
    bench.hand.EraseLast(u"txtCountry", 1);
    EXPECT_EQ(box.text(), u"D");
    EXPECT_EQ(headless::MirrorOf(box).syncs(), syncs) << "an accepted edit moves no caret";

    box.SetText(u"GERMANY");
    bench.hand.Type(u"txtCountry", u"!");
    EXPECT_EQ(bench.hand.Read(u"txtCountry", u"text"), u"GERMANY");
    bench.hand.EraseLast(u"txtCountry", 5);
    EXPECT_EQ(box.text(), u"GE");

    // However a text gets into a locked box's window.
    headless::MirrorOf(fixed).ChangeText(u"Flagball");
    fixed.Happened(TextEdited{u"Flagball"});
    EXPECT_EQ(fixed.text(), u"Deathmatch");
    EXPECT_EQ(bench.hand.Read(u"txtFixed", u"text"), u"Deathmatch");
  });
}

}  // namespace
}  // namespace quill::ui
