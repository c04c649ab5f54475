// The operator's actions on the map page: its lists, their menus and keys, and its buttons.
#include "dialog/rotation.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <optional>
#include <source_location>
#include <utility>
#include <vector>

#include "maps/map_entry.h"
#include "maps/shuffle.h"

namespace quill {
namespace {

void ShowGameType(frmrcBHDGS& dialog, int index) {
  dialog.txtGametype.SetText(kGameTypeNames[index]);
  dialog.SetMaps(static_cast<std::int16_t>(index));
}

bool IsFull(const frmrcBHDGS& dialog) {
  return dialog.session().maps.selected.Count() >= kRotationLimit;
}

void ShowLimitMessage(frmrcBHDGS& dialog) {
  dialog.session().reporter.Show(MessageKind::kFailed, u"You cannot add more than 255 maps!");
}

void AddAvailableRow(frmrcBHDGS& dialog, int row) {
  MapLists& maps = dialog.session().maps;
  MapEntry entry = SplitMapEntry(dialog.lstAvlMaps.Item(row));
  // By the name alone: a map of the catalogue counts as the server's when the server has one so
  // named.
  const bool server_map = maps.server.HasName(entry.name);
  maps.selected.Append({.name = std::move(entry.name),
                        .file = std::move(entry.file),
                        .game_type = dialog.lstAvlMaps.ItemData(row),
                        .server_map = server_map});
}

// The maps of the rotation at the places of those rows of lstSelMaps, whatever the rows show.
template <class IsMarked>
std::vector<bool> MapsOf(const frmrcBHDGS& dialog, IsMarked&& is_marked) {
  std::vector<bool> meant(dialog.session().maps.selected.Count());
  for (int row = 0; row < std::ssize(meant) && row < dialog.lstSelMaps.Count(); ++row) {
    meant[row] = is_marked(row);
  }
  return meant;
}

std::vector<bool> SelectedMaps(const frmrcBHDGS& dialog) {
  return MapsOf(dialog, [&](int row) { return dialog.lstSelMaps.IsSelected(row); });
}

// What was added is to be seen.
void ShowAddedMaps(frmrcBHDGS& dialog) {
  dialog.BuildMapList();
  dialog.lstSelMaps.SetCurrentRow(dialog.lstSelMaps.Count() - 1);
}

void lstAvlMaps_DblClick(frmrcBHDGS& dialog) {
  Trapped(dialog.session().reporter, u"lstAvlMapsDblClick", [&](Line& at) {
    if (IsFull(dialog)) return at(), ShowLimitMessage(dialog);
    const int row = dialog.lstAvlMaps.ListIndex();
    // A double click below the last row.
    if (row < 0) return;
    at(), AddAvailableRow(dialog, row);
    at(), ShowAddedMaps(dialog);
  });
}

void lstAvlMaps_KeyPress(frmrcBHDGS& dialog, char16_t key) {
  // The maps that were added before a failure stay, and are to be seen.
  const auto show_added = [&](RuntimeError&) {
    if (dialog.lstSelMaps.Count() == dialog.session().maps.selected.Count()) return;
    // The report tells the line where adding failed.
    Line unused(std::source_location::current());
    RunEach([&] { dialog.ShowRotation(unused); }, [&] { dialog.lstSelMaps.SetVisible(true); });
  };
  const auto add = [&](Line& at) {
    if (key != u'+' && key != u'=') return;
    if (IsFull(dialog)) return at(), ShowLimitMessage(dialog);
    const int before = dialog.session().maps.selected.Count();
    for (int row = 0; row < dialog.lstAvlMaps.Count(); ++row) {
      if (dialog.lstAvlMaps.IsSelected(row)) at(), AddAvailableRow(dialog, row);
      // As soon as the last map that fits is in, whether or not further rows are selected.
      if (IsFull(dialog)) {
        at(), ShowLimitMessage(dialog);
        break;
      }
    }
    const bool added = dialog.session().maps.selected.Count() != before;
    // Without a new map the list stays where it is.
    at(), added ? ShowAddedMaps(dialog) : dialog.BuildMapList();
  };
  Trapped(dialog.session().reporter, u"lstAvlMaps_KeyPress", add, show_added);
}

void lstSelMaps_DblClick(frmrcBHDGS& dialog) {
  Trapped(dialog.session().reporter, u"lstSelMapsDblClick", [&](Line& at) {
    const int current = dialog.lstSelMaps.ListIndex();
    // Without a current row nothing is marked, and the list is only refreshed.
    const std::vector<bool> marked = MapsOf(dialog, [&](int row) { return row == current; });
    at(), dialog.session().maps.selected.Reorder(OrderAfter(RowMove::kOut, marked));
    at(), dialog.BuildMapList();
  });
}

void lstSelMaps_KeyPress(frmrcBHDGS& dialog, char16_t key) {
  Trapped(dialog.session().reporter, u"lstSelMaps_KeyPress", [&](Line& at) {
    if (key != u'-') return;
    at(), dialog.session().maps.selected.Reorder(OrderAfter(RowMove::kOut, SelectedMaps(dialog)));
    at(), dialog.BuildMapList();
  });
}

// The tooltip names the clicked map's game type until the next refresh.
void lstSelMaps_Click(frmrcBHDGS& dialog) {
  ui::ListBox& list = dialog.lstSelMaps;
  if (list.ListIndex() < 0) return;
  const std::int32_t game_type = list.ItemData(list.ListIndex());
  const auto names = dialog.game_types();
  if (game_type < 0 || game_type >= std::ssize(names)) return;
  list.tooltip = names[game_type];
}

// Moves the selected rows, and leaves them selected.
template <RowMove move>
void MoveSelected(frmrcBHDGS& dialog, ui::ListBox& list) {
  // What the keys do; the menu's items are reported under the same label.
  Trapped(dialog.session().reporter, u"lstSelMaps_KeyDown", [&](Line& at) {
    std::vector<bool> moved;
    at(), moved = SelectedMaps(dialog);
    std::vector<int> order;
    at(), order = OrderAfter(move, moved);
    if (std::ranges::is_sorted(order)) return;
    const int current = list.ListIndex();
    at(), dialog.session().maps.selected.Reorder(order);
    at(), dialog.BuildMapList();
    if (list.Count() != std::ssize(order)) return;  // which has been reported
    // The refresh has emptied the list, and its selection with it.
    ui::ListBox::Refill refill(list);
    for (int row = 0; row < list.Count(); ++row) {
      if (moved[order[row]]) at(), list.SetSelected(row, true);
      if (order[row] == current) at(), list.SetCurrentRow(row);
    }
    at(), refill.Finish();
  });
}

// Undoes or redoes one change of the rotation.
template <bool (RotationHistory::*step)(SelectedMapList&)>
void StepRotation(frmrcBHDGS& dialog, ui::ListBox&) {
  Trapped(dialog.session().reporter, u"lstSelMaps_KeyDown", [&](Line& at) {
    MapLists& maps = dialog.session().maps;
    maps.history.Note(maps.selected);  // a load that failed half-way counts as a change
    bool stepped = false;
    at(), stepped = (maps.history.*step)(maps.selected);
    if (stepped) at(), dialog.BuildMapList();
  });
}

template <bool (RotationHistory::*can_step)(const SelectedMapList&) const>
bool CanStep(const frmrcBHDGS& dialog, const ui::ListBox&) {
  const MapLists& maps = dialog.session().maps;
  return (maps.history.*can_step)(maps.selected);
}

// Whether anything would change.
template <RowMove move>
bool CanMove(const frmrcBHDGS& dialog, const ui::ListBox&) {
  const std::vector<int> order = OrderAfter(move, SelectedMaps(dialog));
  return std::ssize(order) != dialog.session().maps.selected.Count() ||
         !std::ranges::is_sorted(order);
}

bool HasRow(const ui::ListBox& list, bool selected) {
  for (int row = 0; row < list.Count(); ++row) {
    if (list.IsSelected(row) == selected) return true;
  }
  return false;
}

enum class Place : std::uint8_t { kAvailable, kSelected, kBoth };
using enum Place;
using enum RowMove;

// A menu's item. `list` is the one whose menu it is in.
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
  const ui::KeyStroke stroke = {key, ui::kAltHeld};
  return {caption, key_name, stroke, kSelected, begins_group, CanMove<move>, MoveSelected<move>};
}

bool CanAdd(const frmrcBHDGS& dialog, const ui::ListBox& list) {
  return HasRow(list, true) && !IsFull(dialog);
}

void AddSelected(frmrcBHDGS& dialog, ui::ListBox&) {
  lstAvlMaps_KeyPress(dialog, u'+');
}

void RemoveSelected(frmrcBHDGS& dialog, ui::ListBox&) {
  lstSelMaps_KeyPress(dialog, u'-');
}

bool CanSelectMore(const frmrcBHDGS&, const ui::ListBox& list) {
  return HasRow(list, false);
}

void SelectAll(frmrcBHDGS&, ui::ListBox& list) {
  ui::ListBox::Refill refill(list);
  // The native list is told once, not row by row.
  for (int row = 0; row < list.Count(); ++row) list.SetSelected(row, true);
  refill.Finish();
}

constexpr ui::KeyStroke kUndoKey = {u'Z', ui::kCtrlHeld};
constexpr ui::KeyStroke kRedoKey = {u'Y', ui::kCtrlHeld};
constexpr ui::KeyStroke kAllKey = {u'A', ui::kCtrlHeld};
using History = RotationHistory;

// Both lists have the same items, so that the keys can be learnt from either; what cannot be done
// in a list is grey there and its key is not taken.
constexpr Row kRows[] = {
    // "+" is a character, which the list receives anyway.
    {u"Add", u"+", {}, kAvailable, false, CanAdd, AddSelected},
    {u"Remove", u"Del", {ui::kDeleteKey}, kSelected, false, CanMove<kOut>, RemoveSelected},
    Mover<kUp>(u"Move Up", u"Alt+Up", ui::kUpKey, true),
    Mover<kDown>(u"Move Down", u"Alt+Down", ui::kDownKey),
    Mover<kToTop>(u"Move to Top", u"Alt+Home", ui::kHomeKey),
    Mover<kToEnd>(u"Move to End", u"Alt+End", ui::kEndKey),
    {u"Undo", u"Ctrl+Z", kUndoKey, kBoth, true, CanStep<&History::CanUndo>,
     StepRotation<&History::Undo>},
    {u"Redo", u"Ctrl+Y", kRedoKey, kBoth, false, CanStep<&History::CanRedo>,
     StepRotation<&History::Redo>},
    {u"Select All", u"Ctrl+A", kAllKey, kBoth, true, CanSelectMore, SelectAll},
};

void SetMenuOf(ui::ListBox& list, frmrcBHDGS& dialog, Place place) {
  std::vector<ui::MenuItem> menu;
  for (const Row& row : kRows) {
    const bool applies = row.place == place || row.place == kBoth;
    menu.push_back({row.caption, row.key_name, applies ? row.stroke : ui::KeyStroke(),
                    row.begins_group,
                    [&, applies] { return applies && row.is_usable(dialog, list); },
                    [&] { row.choose(dialog, list); }});
  }
  // The items refer to the rows, which are constants, and to the list and the dialog, which own
  // them.
  list.menu = std::move(menu);
}

}  // namespace

void ConnectRotation(frmrcBHDGS& dialog) {
  dialog.lstAvlMaps.on_double_click = [&dialog] { lstAvlMaps_DblClick(dialog); };
  dialog.lstAvlMaps.on_key_press = [&dialog](char16_t key) { lstAvlMaps_KeyPress(dialog, key); };
  dialog.lstSelMaps.on_double_click = [&dialog] { lstSelMaps_DblClick(dialog); };
  dialog.lstSelMaps.on_key_press = [&dialog](char16_t key) { lstSelMaps_KeyPress(dialog, key); };
  dialog.lstSelMaps.on_click = [&dialog] { lstSelMaps_Click(dialog); };
  SetMenuOf(dialog.lstAvlMaps, dialog, kAvailable);
  SetMenuOf(dialog.lstSelMaps, dialog, kSelected);
  // The whole page takes these two keys: after a button of it has loaded or shuffled, the focus is
  // there.
  std::vector<ui::MenuItem> keys;
  std::ranges::copy_if(
      dialog.lstSelMaps.menu, std::back_inserter(keys),
      [](const ui::MenuItem& item) { return item.stroke == kUndoKey || item.stroke == kRedoKey; });
  dialog.fmeMap.menu = std::move(keys);
}

// Each click has a seed of its own, and the new order is taken over when it is complete.
void ShuffleRotation(frmrcBHDGS& dialog) {
  Session& session = dialog.session();
  Trapped(session.reporter, u"cmdRandomize", [&](Line& at) {
    SelectedMapList& rotation = session.maps.selected;
    if (rotation.Count() < 2) return;
    std::optional<RandomSource> random;
    std::vector<SelectedMap> shuffled;
    at(), random.emplace(session.clock.Ticks());
    at(), shuffled = Shuffled(rotation.maps(), std::ref(*random));
    at(), rotation.Replace(std::move(shuffled));
    at(), dialog.BuildMapList();
  });
}

// A text that is no game type has the index behind the last one, so both ways work out.
void ShowPreviousGameType(frmrcBHDGS& dialog) {
  const int index = dialog.GameTypeIndex(dialog.txtGametype.text());
  ShowGameType(dialog, index > 0 ? index - 1 : kNoGameType - 1);
}

void ShowNextGameType(frmrcBHDGS& dialog) {
  const int index = dialog.GameTypeIndex(dialog.txtGametype.text());
  ShowGameType(dialog, index + 1 < kNoGameType ? index + 1 : 0);
}

}  // namespace quill
