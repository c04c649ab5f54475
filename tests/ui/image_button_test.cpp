// Image buttons: where caption and face lie in either state, and what is done when parts are
// missing.
#include "ui/image_button.h"

#include <gtest/gtest.h>

#include "tests/ui/form_bench.h"
#include "ui/controls.h"

namespace quill::ui {
namespace {

constexpr TextView kRoot = u"C:\\Host";

TEST(NearestTest, SendsAHalfToTheEvenNeighbour) {
  const struct {
    int numerator;
    int denominator;
    int nearest;
  } cases[] = {{1, 2, 0},  {3, 2, 2},  {5, 2, 2},    {975, 2, 488}, {-1, 2, 0}, {-3, 2, -2},
               {10, 7, 1}, {11, 7, 2}, {-10, 7, -1}, {-11, 7, -2},  {6, 4, 2},  {-7, 4, -2}};
  for (const auto& [numerator, denominator, nearest] : cases) {
    EXPECT_EQ(Nearest(numerator, denominator), nearest) << numerator << "/" << denominator;
  }
}

TEST(CaptionPlaceTest, IsComputedFromFaceAndScreen) {
  const auto place = [](const Bounds& face, int dots_per_inch, bool pressed) {
    const CaptionPlace at = PlaceCaption(face, dots_per_inch, pressed);
    return std::pair(at.left, at.top);
  };
  EXPECT_EQ(place({0, 1, 300, 300}, 120, false), std::pair(75, 55));
  EXPECT_EQ(place({0, 0, 300, 245}, 96, false), std::pair(75, 2));
  // 8.57 and 7.5 twips per pixel.
  EXPECT_EQ(place({1440, 240, 1335, 495}, 168, false), std::pair(1515, 419));
  EXPECT_EQ(place({1440, 240, 1335, 495}, 192, true), std::pair(1535, 478));
}

TEST(ImageButtonTest, OnlyTheExactStatePressesAndReleasingRestores) {
  FormBench bench;
  Form& form = *bench.form;
  bench.files.MakeFolders(u"C:\\Host\\imgs");
  bench.files.SetContents(u"C:\\Host\\imgs\\butup.gif", "GIF89a");
  bench.files.SetContents(u"C:\\Host\\imgs\\butdown.gif", "GIF87a");
  ImageButton button{{1440, 240, 1335, 495}, u"Start Game", u"cmdStartImg"};
  CreateButtonFace(form, button, kRoot);
  button.name = u"cmdStart";
  CreateButtonCaption(form, button, kRoot);
  const auto seen = [&](TextView name, TextView property) {
    return FormBench::Seen(form.At(name), property);
  };
  for (const TextView state : {u"Down", u"down", u"Down", u"", u"Down", u"Up"}) {
    SetButtonState(form, u"cmdStartImg", state, kRoot);
    const bool pressed = state == u"Down";
    EXPECT_EQ(seen(u"cmdStart", u"bounds"), pressed ? "1535,418,1185,495" : "1515,368,1185,495");
    EXPECT_EQ(seen(u"cmdStartImg", u"picture"),
              pressed ? "C:\\Host\\imgs\\butdown.gif" : "C:\\Host\\imgs\\butup.gif");
  }
  SetButtonState(form, u"CMDSTARTIMG", u"Down", kRoot);
  SetButtonState(form, u"mg", u"Down", kRoot);
  // Parts of other kinds, and a face without a caption, are left alone.
  form.Add<Label>(u"cmdOddImg", nullptr);
  form.Add<Image>(u"cmdOdd", nullptr);
  form.Add<Image>(u"Img", nullptr);
  for (const TextView face : {u"cmdOddImg", u"Img"}) SetButtonState(form, face, u"Down", kRoot);
  EXPECT_EQ(seen(u"cmdStart", u"left"), "1515") << "names are compared in their letter case";
  EXPECT_EQ(seen(u"cmdStartImg", u"picture"), "C:\\Host\\imgs\\butup.gif");
}

}  // namespace
}  // namespace quill::ui
