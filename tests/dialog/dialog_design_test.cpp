// The dialog as it is designed: everything has its place and its turn.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "tests/dialog/dialog_bench.h"

namespace quill {
namespace {

using ui::Bounds;
using ui::Twips;

constexpr Twips kPixel = 15;

Twips Right(const Bounds& bounds) {
  return bounds.left + bounds.width;
}
Twips Bottom(const Bounds& bounds) {
  return bounds.top + bounds.height;
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
