// Both lists have the same items, so that the keys can be learnt from either; what cannot be done
// in a list is grey there and its key is not taken.
#include "dialog/rotation_menu.h"

#include <utility>
#include <vector>

#include "dialog/rotation.h"

namespace quill {
namespace {

enum class Place : std::uint8_t { kAvailable, kSelected, kBoth };

struct Row {
  TextView caption;
  TextView key_name;
  ui::KeyStroke stroke;
  Place place;
  bool begins_group;
  bool (*is_usable)(const frmrcBHDGS& dialog, const ui::ListBox& list);
  void (*choose)(frmrcBHDGS& dialog, ui::ListBox& list);
};

template <RowMove move>
constexpr Row Mover(TextView caption, TextView key_name, char16_t key, bool begins_group = false) {
  return {caption,
          key_name,
          {key, ui::kAltHeld},
          Place::kSelected,
          begins_group,
          [](const frmrcBHDGS& dialog, const ui::ListBox&) { return CanMoveMaps(dialog, move); },
          [](frmrcBHDGS& dialog, ui::ListBox&) { MoveSelectedMaps(dialog, move); }};
}

bool HasRowsToSelect(const frmrcBHDGS&, const ui::ListBox& list) {
  for (int row = 0; row < list.Count(); ++row) {
    if (!list.IsSelected(row)) return true;
  }
  return false;
}

void SelectAll(frmrcBHDGS&, ui::ListBox& list) {
  ui::ListBox::Refill refill(list);
  for (int row = 0; row < list.Count(); ++row) list.SetSelected(row, true);
  refill.Finish();
}

constexpr Row kRows[] = {
    {u"Add",
     u"+",
     {},  // a character, which the list hears anyway
     Place::kAvailable,
     false,
     [](const frmrcBHDGS& dialog, const ui::ListBox&) { return CanAddMaps(dialog); },
     [](frmrcBHDGS& dialog, ui::ListBox&) { AddSelectedMaps(dialog); }},
    {u"Remove",
     u"Del",
     {ui::kDeleteKey},
     Place::kSelected,
     false,
     [](const frmrcBHDGS& dialog, const ui::ListBox&) { return CanRemoveMaps(dialog); },
     [](frmrcBHDGS& dialog, ui::ListBox&) { RemoveSelectedMaps(dialog); }},
    Mover<RowMove::kUp>(u"Move Up", u"Alt+Up", ui::kUpKey, true),
    Mover<RowMove::kDown>(u"Move Down", u"Alt+Down", ui::kDownKey),
    Mover<RowMove::kToTop>(u"Move to Top", u"Alt+Home", ui::kHomeKey),
    Mover<RowMove::kToEnd>(u"Move to End", u"Alt+End", ui::kEndKey),
    {u"Undo",
     u"Ctrl+Z",
     {u'Z', ui::kCtrlHeld},
     Place::kBoth,
     true,
     [](const frmrcBHDGS& dialog, const ui::ListBox&) {
       const MapLists& maps = dialog.session().maps;
       return maps.history.CanUndo(maps.selected);
     },
     [](frmrcBHDGS& dialog, ui::ListBox&) { UndoRotation(dialog); }},
    {u"Redo",
     u"Ctrl+Y",
     {u'Y', ui::kCtrlHeld},
     Place::kBoth,
     false,
     [](const frmrcBHDGS& dialog, const ui::ListBox&) {
       const MapLists& maps = dialog.session().maps;
       return maps.history.CanRedo(maps.selected);
     },
     [](frmrcBHDGS& dialog, ui::ListBox&) { RedoRotation(dialog); }},
    {u"Select All",
     u"Ctrl+A",
     {u'A', ui::kCtrlHeld},
     Place::kBoth,
     true,
     HasRowsToSelect,
     SelectAll},
};

void SetMenuOf(ui::ListBox& list, frmrcBHDGS& dialog, Place place) {
  std::vector<ui::MenuItem> menu;
  menu.reserve(std::size(kRows));
  for (const Row& row : kRows) {
    const bool applies = row.place == place || row.place == Place::kBoth;
    menu.push_back({row.caption, row.key_name, applies ? row.stroke : ui::KeyStroke(),
                    row.begins_group,
                    [&, applies] { return applies && row.is_usable(dialog, list); },
                    [&] { row.choose(dialog, list); }});
  }
  list.menu = std::move(menu);
}

}  // namespace

void ConnectRotationMenus(frmrcBHDGS& dialog) {
  SetMenuOf(dialog.lstAvlMaps, dialog, Place::kAvailable);
  SetMenuOf(dialog.lstSelMaps, dialog, Place::kSelected);
  // After a button of the page has loaded or shuffled, the focus is there.
  std::vector<ui::MenuItem> keys;
  for (const ui::MenuItem& item : dialog.lstSelMaps.menu) {
    const bool steps = item.stroke == ui::KeyStroke{u'Z', ui::kCtrlHeld} ||
                       item.stroke == ui::KeyStroke{u'Y', ui::kCtrlHeld};
    if (steps) keys.push_back(item);
  }
  dialog.fmeMap.menu = std::move(keys);
}

}  // namespace quill
