// The dialog as it is designed: its options, their initial state, and that everything has its
// place.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "dialog/option_table.h"
#include "tests/dialog/dialog_bench.h"

namespace quill {
namespace {

using ui::Bounds;
using ui::ControlKind;
using ui::Twips;

constexpr Twips kPixel = 15;

Twips Right(const Bounds& bounds) {
  return bounds.left + bounds.width;
}
Twips Bottom(const Bounds& bounds) {
  return bounds.top + bounds.height;
}
Twips MiddleLine(const Bounds& bounds) {
  return bounds.top + bounds.height / 2;
}

// By a pixel or more both ways.
bool Overlap(const Bounds& a, const Bounds& b) {
  return std::min(Right(a), Right(b)) - std::max(a.left, b.left) >= kPixel &&
         std::min(Bottom(a), Bottom(b)) - std::max(a.top, b.top) >= kPixel;
}

bool IsFaceOf(const ui::Control& face, const ui::Control& caption) {
  return face.name() == Concat({caption.name(), u"Img"});
}

std::string Named(const ui::Control& control) {
  return ToUtf8(control.name());
}

class DialogDesign : public ::testing::Test {
 protected:
  DialogBench bench_;
  std::shared_ptr<frmrcBHDGS> dialog_ = TakeDialog(bench_.context);

  ui::ListBox& List(TextView key) { return dialog_->Get<ui::ListBox>(key); }
};

TEST_F(DialogDesign, NothingOverlapsOrSticksOut) {
  for (const ui::Frame* frame :
       {&dialog_->fmeServer, &dialog_->fmeMap, &dialog_->fmeMisc, &dialog_->Frame3}) {
    const auto& children = frame->children();
    for (std::size_t i = 0; i < children.size(); ++i) {
      const Bounds& bounds = children[i]->bounds();
      EXPECT_GT(bounds.width, 0) << Named(*children[i]);
      EXPECT_GT(bounds.height, 0) << Named(*children[i]);
      EXPECT_GE(bounds.left, 2 * kPixel) << Named(*children[i]);
      EXPECT_LE(Right(bounds), frame->bounds().width - 2 * kPixel) << Named(*children[i]);
      // A caption hangs below the top of its face and may reach beyond it.
      const bool is_caption = dialog_->Find(Concat({children[i]->name(), u"Img"})) != nullptr;
      EXPECT_GE(bounds.top, 13 * kPixel) << Named(*children[i]);
      if (!is_caption) {
        EXPECT_LE(Bottom(bounds), frame->bounds().height - 2 * kPixel) << Named(*children[i]);
      }
      for (std::size_t j = 0; j < i; ++j) {
        if (IsFaceOf(*children[i], *children[j]) || IsFaceOf(*children[j], *children[i])) continue;
        EXPECT_FALSE(Overlap(bounds, children[j]->bounds()))
            << Named(*children[i]) << " and " << Named(*children[j]);
      }
    }
  }
  for (const ui::Frame* page : {&dialog_->fmeServer, &dialog_->fmeMap, &dialog_->fmeMisc}) {
    EXPECT_EQ(page->bounds(), (Bounds{120, 480, 9375, 3255}));
    // A frame's line lies below its top, so that a shared pixel does not show.
    EXPECT_LE(Bottom(page->bounds()) - dialog_->Frame3.bounds().top, kPixel);
  }
  EXPECT_EQ(dialog_->Frame3.bounds(), (Bounds{120, 3720, 9375, 855}));
  EXPECT_EQ(dialog_->tsMain.bounds(), (Bounds{0, 0, 9615, 4695}));
  EXPECT_FALSE(dialog_->Picture1.visible());
}

TEST_F(DialogDesign, EachOptionStandsBesideItsLabelAndInItsColumn) {
  for (const Option& option : Options()) {
    const ui::Control& control = dialog_->At(option.key);
    const auto& siblings = control.container()->children();
    const auto place = std::find(siblings.begin(), siblings.end(), &control);
    ASSERT_NE(place, siblings.begin()) << Named(control);
    const ui::Control& label = **(place - 1);
    ASSERT_EQ(label.kind(), ControlKind::kLabel) << Named(control);
    EXPECT_EQ(static_cast<const ui::Label&>(label).caption(), option.label);
    EXPECT_EQ(label.tab_index() + 1, control.tab_index());
    EXPECT_LE(Right(label.bounds()), control.bounds().left) << Named(control);
    EXPECT_NEAR(MiddleLine(label.bounds()), MiddleLine(control.bounds()), kPixel) << Named(control);
    if (option.kind == ControlKind::kListBox) {
      EXPECT_GE(control.bounds().height, bench_.toolkit.GetMetrics().list_row_height + 4 * kPixel);
    }
  }
  const auto left = [&](TextView key) { return dialog_->At(key).bounds().left; };
  const auto row = [&](TextView key) { return MiddleLine(dialog_->At(key).bounds()); };
  EXPECT_EQ(left(u"txtMessage"), left(u"chkLoop"));
  EXPECT_EQ(left(u"lstKills"), left(u"cboMods"));
  EXPECT_EQ(left(u"chkSkins"), left(u"chkDedi"));
  EXPECT_NEAR(row(u"chkNova"), row(u"chkSkins"), 0);
  EXPECT_NEAR(row(u"chkWindow"), row(u"chkDedi"), 0);
  EXPECT_GT(left(u"chkSkins"), left(u"chkNova"));
  EXPECT_GT(left(u"txtMinPing"), left(u"chkMinPing"));
  EXPECT_EQ(left(u"txtMinPing"), left(u"txtMaxPing"));
  EXPECT_GT(row(u"txtMinPing"), row(u"chkMinPing"));
}

TEST_F(DialogDesign, TabOrderNumbersEachControlOnce) {
  std::set<int> seen;
  for (const auto& control : dialog_->controls()) {
    if (control->tab_index() < 0) continue;
    EXPECT_TRUE(seen.insert(control->tab_index()).second) << Named(*control);
  }
  EXPECT_EQ(*seen.begin(), 0);
  EXPECT_EQ(*seen.rbegin(), static_cast<int>(seen.size()) - 1);
  EXPECT_EQ(dialog_->cmdRandomize.tab_index(), 78);
  EXPECT_LT(dialog_->lstAvlMaps.tab_index(), dialog_->lstSelMaps.tab_index());

  std::set<char16_t> keys;
  for (const auto& control : dialog_->controls()) {
    const bool is_caption = dialog_->Find(Concat({control->name(), u"Img"})) != nullptr;
    if (control->access_key() == 0 || is_caption) continue;
    EXPECT_TRUE(keys.insert(control->access_key()).second) << Named(*control);
  }
  EXPECT_EQ(keys.size(), 8u);
}

}  // namespace
}  // namespace quill
