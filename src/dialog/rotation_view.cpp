// Fills the map lists from the catalogue, the server maps and the rotation.
#include "dialog/rotation_view.h"

#include <algorithm>

#include "dialog/frmrcBHDGS.h"
#include "maps/map_entry.h"
#include "support/trap.h"

namespace quill {
namespace {

void AddMapRow(ui::ListBox& list, TextView name, TextView file, std::int32_t game_type) {
  list.AddItem(JoinMapEntry(name, file));
  list.SetItemData(list.Count() - 1, game_type);
}

void ShowCount(ui::ListBox& list, const MapLists& maps) {
  list.tooltip = Concat({u"Maps: ", Decimal(list.Count()), u" / ", Decimal(maps.TotalMapCount())});
}

}  // namespace

void frmrcBHDGS::SetMaps(std::int16_t Gametype) {
  Trapped(session_.reporter, u"SetMaps", [&](Line& at) {
    {
      ui::ListBox::Refill refill(lstAvlMaps);
      at(), lstAvlMaps.Clear();
      at(), session_.maps.ForEachOfGameType(Gametype, [&](TextView name, TextView file) {
        AddMapRow(lstAvlMaps, name, file, Gametype);
      });
      at(), refill.Finish();
    }
    at(), ShowCount(lstAvlMaps, session_.maps);
  });
}

void ShowRotation(frmrcBHDGS& dialog, Line& at) {
  MapLists& maps = dialog.session().maps;
  ui::ListBox& list = dialog.lstSelMaps;
  maps.history.Note(maps.selected);
  const int top = list.TopIndex();
  const int current = list.ListIndex();
  {
    const ui::ListBox::Refill refill(list);
    at(), list.Clear();
    at(), list.SetVisible(false);
    for (const SelectedMap& map : maps.selected.maps()) {
      at(), AddMapRow(list, map.name, map.file, map.game_type);
    }
    const int count = list.Count();
    at(), list.SetCurrentRow(std::min(current, count - 1));
    if (count > 0) at(), list.SetTopIndex(std::clamp(count - list.VisibleRows(), 0, top));
  }
  at(), list.SetVisible(true);
  at(), ShowCount(list, maps);
  at(), dialog.lblMapCnt.caption = Concat({u"Number of Maps: ", Decimal(list.Count())});
}

void frmrcBHDGS::BuildMapList() {
  Trapped(
      session_.reporter, u"BuildMapList", [&](Line& at) { ShowRotation(*this, at); },
      [&](RuntimeError&) { lstSelMaps.SetVisible(true); });
}

}  // namespace quill
