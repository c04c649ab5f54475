// The operator's actions on the map page.
#include "dialog/rotation.h"

#include <algorithm>
#include <functional>
#include <optional>
#include <source_location>
#include <utility>
#include <vector>

#include "dialog/rotation_menu.h"
#include "dialog/rotation_view.h"
#include "maps/map_entry.h"
#include "maps/shuffle.h"
#include "support/trap.h"

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
  const bool server_map = maps.IsServerMapName(entry.name);
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

bool HasSelection(const ui::ListBox& list) {
  for (int row = 0; row < list.Count(); ++row) {
    if (list.IsSelected(row)) return true;
  }
  return false;
}

// What was added is to be seen.
void ShowAddedMaps(frmrcBHDGS& dialog) {
  dialog.BuildMapList();
  dialog.lstSelMaps.SetCurrentRow(dialog.lstSelMaps.Count() - 1);
}

void StepRotation(frmrcBHDGS& dialog, bool (RotationHistory::*step)(SelectedMapList&)) {
  Trapped(dialog.session().reporter, u"lstSelMaps_KeyDown", [&](Line& at) {
    MapLists& maps = dialog.session().maps;
    maps.history.Note(maps.selected);  // a load that failed half-way counts as a change
    bool stepped = false;
    at(), stepped = (maps.history.*step)(maps.selected);
    if (stepped) at(), dialog.BuildMapList();
  });
}

void lstAvlMaps_DblClick(frmrcBHDGS& dialog) {
  Trapped(dialog.session().reporter, u"lstAvlMapsDblClick", [&](Line& at) {
    if (IsFull(dialog)) {
      at(), ShowLimitMessage(dialog);
      return;
    }
    const int row = dialog.lstAvlMaps.ListIndex();
    if (row < 0) return;
    at(), AddAvailableRow(dialog, row);
    at(), ShowAddedMaps(dialog);
  });
}

void lstAvlMaps_KeyPress(frmrcBHDGS& dialog, char16_t key) {
  // The maps that were added before a failure stay, and are to be seen.
  const auto show_added = [&](RuntimeError&) {
    if (dialog.lstSelMaps.Count() == dialog.session().maps.selected.Count()) return;
    Line unused(std::source_location::current());
    RunEach([&] { ShowRotation(dialog, unused); }, [&] { dialog.lstSelMaps.SetVisible(true); });
  };
  const auto add = [&](Line& at) {
    if (key != u'+' && key != u'=') return;
    if (IsFull(dialog)) {
      at(), ShowLimitMessage(dialog);
      return;
    }
    const int before = dialog.session().maps.selected.Count();
    for (int row = 0; row < dialog.lstAvlMaps.Count(); ++row) {
      if (dialog.lstAvlMaps.IsSelected(row)) at(), AddAvailableRow(dialog, row);
      if (IsFull(dialog)) {
        at(), ShowLimitMessage(dialog);
        break;
      }
    }
    if (dialog.session().maps.selected.Count() == before) {
      at(), dialog.BuildMapList();
    } else {
      at(), ShowAddedMaps(dialog);
    }
  };
  Trapped(dialog.session().reporter, u"lstAvlMaps_KeyPress", add, show_added);
}

void lstSelMaps_DblClick(frmrcBHDGS& dialog) {
  Trapped(dialog.session().reporter, u"lstSelMapsDblClick", [&](Line& at) {
    const int current = dialog.lstSelMaps.ListIndex();
    at(), dialog.session().maps.selected.Remove(
              MapsOf(dialog, [&](int row) { return row == current; }));
    at(), dialog.BuildMapList();
  });
}

void lstSelMaps_KeyPress(frmrcBHDGS& dialog, char16_t key) {
  Trapped(dialog.session().reporter, u"lstSelMaps_KeyPress", [&](Line& at) {
    if (key != u'-') return;
    at(), dialog.session().maps.selected.Remove(SelectedMaps(dialog));
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

}  // namespace

void ConnectRotation(frmrcBHDGS& dialog) {
  dialog.lstAvlMaps.on_double_click = [&dialog] { lstAvlMaps_DblClick(dialog); };
  dialog.lstAvlMaps.on_key_press = [&dialog](char16_t key) { lstAvlMaps_KeyPress(dialog, key); };
  dialog.lstSelMaps.on_double_click = [&dialog] { lstSelMaps_DblClick(dialog); };
  dialog.lstSelMaps.on_key_press = [&dialog](char16_t key) { lstSelMaps_KeyPress(dialog, key); };
  dialog.lstSelMaps.on_click = [&dialog] { lstSelMaps_Click(dialog); };
  ConnectRotationMenus(dialog);
}

void AddSelectedMaps(frmrcBHDGS& dialog) {
  lstAvlMaps_KeyPress(dialog, u'+');
}

void RemoveSelectedMaps(frmrcBHDGS& dialog) {
  lstSelMaps_KeyPress(dialog, u'-');
}

void MoveSelectedMaps(frmrcBHDGS& dialog, RowMove move) {
  Trapped(dialog.session().reporter, u"lstSelMaps_KeyDown", [&](Line& at) {
    ui::ListBox& list = dialog.lstSelMaps;
    std::vector<bool> moved;
    at(), moved = SelectedMaps(dialog);
    std::vector<int> order;
    at(), order = OrderAfter(move, moved);
    if (std::ranges::is_sorted(order)) return;
    const int current = list.ListIndex();
    at(), dialog.session().maps.selected.Reorder(order);
    at(), dialog.BuildMapList();
    if (list.Count() != std::ssize(order)) return;  // which has been reported
    ui::ListBox::Refill refill(list);
    for (int row = 0; row < list.Count(); ++row) {
      if (moved[order[row]]) at(), list.SetSelected(row, true);
      if (order[row] == current) at(), list.SetCurrentRow(row);
    }
    at(), refill.Finish();
  });
}

bool CanAddMaps(const frmrcBHDGS& dialog) {
  return HasSelection(dialog.lstAvlMaps) && !IsFull(dialog);
}

bool CanRemoveMaps(const frmrcBHDGS& dialog) {
  return HasSelection(dialog.lstSelMaps);
}

bool CanMoveMaps(const frmrcBHDGS& dialog, RowMove move) {
  return !std::ranges::is_sorted(OrderAfter(move, SelectedMaps(dialog)));
}

void UndoRotation(frmrcBHDGS& dialog) {
  StepRotation(dialog, &RotationHistory::Undo);
}

void RedoRotation(frmrcBHDGS& dialog) {
  StepRotation(dialog, &RotationHistory::Redo);
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
