// The limit of a text box, for any edit.
#include "ui/controls.h"

#include <gtest/gtest.h>

#include "tests/ui/form_bench.h"

namespace quill::ui {
namespace {

TEST(TextBoxLimitTest, TakesOfAnEditWhatFits) {
  struct Case {
    TextView before;
    std::size_t from, to;
    TextView after;
    int limit;
    TextView left;
  };
  const Case cases[] = {
      {u"", 0, 0, u"abc", 0, u"abc"},               // no limit
      {u"ab", 2, 2, u"abc", 3, u"abc"},             // fits
      {u"abc", 3, 3, u"abcd", 3, u"abc"},           // typed at the end
      {u"abc", 0, 0, u"xabc", 3, u"abc"},           // typed at the front
      {u"ac", 1, 1, u"a123c", 3, u"a1c"},           // pasted in the middle
      {u"abc", 1, 3, u"aXYZW", 4, u"aXYZ"},         // pasted over a part
      {u"abc", 0, 3, u"Xabc", 3, u"Xab"},           // pasted over all, ending as it did
      {u"abcdef", 6, 6, u"abcde", 3, u"abcde"},     // longer by code: may become shorter
      {u"abcdef", 2, 2, u"abXcdef", 3, u"abcdef"},  // but not longer
      {u"abcdef", 2, 5, u"abXf", 3, u"abf"},        // nor may anything come in beyond the limit
      {u"ab", 2, 2, u"ab\xD83D\xDE00", 3, u"ab"},   // no half of a surrogate pair
      {u"ab", 2, 2, u"ab\xD83D\xDE00", 4, u"ab\xD83D\xDE00"},
      {u"ab", 2, 2, u"ab\xD83Dx", 3, u"ab\xD83D"},  // what is no pair is not split
      {u"ab", 2, 2, u"abc", -5, u"abc"},
      {u"ab", 7, 1, u"abcd", 3, u"abd"},  // a selection that cannot be
  };
  for (const Case& c : cases) {
    const TextEdited edit{Text(c.after), c.from, c.to};
    EXPECT_EQ(ToUtf8(TextBox::ApplyLimit(c.before, edit, c.limit)), ToUtf8(c.left))
        << ToUtf8(c.before) << " -> " << ToUtf8(c.after) << ", at most " << c.limit;
  }
}

TEST(TextBoxTest, CorrectsTheNativeText) {
  FormBench bench;
  auto& box = bench.form->Add<TextBox>(u"txtCountry", nullptr, 2);
  auto& fixed = bench.form->Add<TextBox>(u"txtFixed", nullptr, 0, Alignment::kCentre, true);
  fixed.SetText(u"Deathmatch");
  bench.WhileShown([&] {
    bench.hand.Type(u"txtCountry", u"DEU");
    const std::size_t syncs = headless::MirrorOf(box).syncs();
    bench.hand.EraseLast(u"txtCountry", 1);
    EXPECT_EQ(box.text(), u"D");
    EXPECT_EQ(headless::MirrorOf(box).syncs(), syncs) << "an accepted edit moves no caret";

    EXPECT_EQ(bench.hand.Read(u"txtFixed", u"locked"), u"true");
    // However a text gets into a locked box's window.
    headless::MirrorOf(fixed).ChangeText(u"Flagball");
    fixed.Happened(TextEdited{u"Flagball"});
    EXPECT_EQ(fixed.text(), u"Deathmatch");
    EXPECT_EQ(bench.hand.Read(u"txtFixed", u"text"), u"Deathmatch");
  });
}

}  // namespace
}  // namespace quill::ui
