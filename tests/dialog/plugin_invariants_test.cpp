// What always holds: a plug-in that is broken on purpose is noticed, each time by its own line.
#include "host/watch/plugin_invariants.h"

#include <gtest/gtest.h>

#include "headless/mirror_peer.h"
#include "tests/doubles/plug_in_bench.h"

namespace quill {
namespace {

TEST(PluginInvariants, EachBreachIsNoticed) {
  const struct {
    const char* told;
    void (*breach)(PlugInBench& bench, frmrcBHDGS& dialog);
  } cases[] = {
      {"", [](auto&, auto&) {}},
      {"PendingCommand is 'x'", [](auto& b, auto&) { b.module.PendingCommand = u"x"; }},
      {"lstSelMaps: 0 rows for 2 maps",
       [](auto& b, auto&) { b.module.maps.selected.Replace(std::vector<SelectedMap>(2)); }},
      {"A change of the rotation cannot be undone",
       [](auto& b, auto&) { b.module.maps.selected.Replace(std::vector<SelectedMap>(2)); }},
      {"lstAvlMaps: not the maps of the game type shown",
       [](auto&, auto& d) { d.txtGametype.SetText(u"Flagball"); }},
      {"lstAvlMaps: 'x' is not the count", [](auto&, auto& d) { d.lstAvlMaps.tooltip = u"x"; }},
      {"lblMapCnt: 'x' instead of", [](auto&, auto& d) { d.lblMapCnt.caption = u"x"; }},
      {"fmeMap: shown without its tab", [](auto&, auto& d) { d.fmeMap.SetVisible(true); }},
      {"A map list is hidden", [](auto&, auto& d) { d.lstSelMaps.SetVisible(false); }},
      {"The dialog is disabled", [](auto&, auto& d) { d.SetEnabled(false); }},
      {"The tab strip's background is not drawn",
       [](auto& b, auto& d) { b.toolkit.UnhookTabBackground(d.tsMain); }},
      {"cmdStart: the caption is neither pressed nor released",
       [](auto&, auto& d) { d.At(u"cmdStart").SetPlace(1, 1); }},
      {"txtName: another text is shown than the model holds",
       [](auto&, auto& d) { headless::MirrorOf(d.At(u"txtName")).ChangeText(u"x"); }},
      {"lstAvlMaps: another rows is shown than the model holds",
       [](auto&, auto& d) { headless::MirrorOf(d.lstAvlMaps).ChangeSelection({3}, -1); }},
      {"lstAvlMaps: another index is shown than the model holds",
       [](auto&, auto& d) { headless::MirrorOf(d.lstAvlMaps).ChangeSelection({}, 3); }},
  };
  for (const auto& [told, breach] : cases) {
    PlugInBench bench;
    bench.OpenFilled([&, breach = breach, told = told](frmrcBHDGS& dialog) {
      breach(bench, dialog);
      std::string all;
      for (const Text& what : host::BrokenInvariants(bench.module, bench.toolkit)) {
        all += ToUtf8(what) + "\n";
      }
      EXPECT_NE(all.find(told), std::string::npos) << told << "\n  gave: " << all;
      EXPECT_EQ(all.empty(), *told == '\0') << all;
      dialog.SetEnabled(true);
    });
  }
}

}  // namespace
}  // namespace quill
