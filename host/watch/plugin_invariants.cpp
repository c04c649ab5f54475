// Looking through the lists, the dialog and its mirrors.
#include "host/watch/plugin_invariants.h"

#include <algorithm>

#include "dialog/dialog_buttons.h"
#include "dialog/frmrcBHDGS.h"
#include "headless/mirror_peer.h"
#include "maps/map_catalogue.h"
#include "maps/map_entry.h"
#include "remote/request_file.h"
#include "support/runtime_error.h"

namespace quill::host {
namespace {

class Inspection {
 public:
  Inspection(const mdlBHDGS& module, const headless::HeadlessToolkit& toolkit,
             const Expectations& expected)
      : module_(module), maps_(module.maps), toolkit_(toolkit), expected_(expected) {}

  std::vector<Text> Run() {
    Modules();
    Catalogue();
    ServerMaps();
    if (const frmrcBHDGS* dialog = module_.dialog.get()) {
      Dialog(*dialog);
    } else {
      Holds(toolkit_.ModalForm() == nullptr, {u"A dialog is shown that the plug-in does not know"});
      if (expected_.toolkit_is_whole) {
        Holds(toolkit_.screen_pointer() == ui::Pointer::kDefault,
              {u"The pointer is busy without a dialog"});
      }
    }
    return std::move(broken_);
  }

 private:
  void Holds(bool holds, std::initializer_list<TextView> what) {
    if (!holds) broken_.push_back(Concat(what));
  }

  void Modules() {
    const Text& pending = module_.PendingCommand;
    Holds(pending.empty() || pending == kLoadFormCommand || pending == kStartGameCommand,
          {u"PendingCommand is '", pending, u"'"});
  }

  void Catalogue() {
    const auto rows = CatalogueRows();
    const auto standard = std::ranges::count(rows, false, &KnownMap::team_sabre_only);
    const auto count = std::ssize(maps_.catalogue);
    if (count == 0) return;
    const bool is_whole = count == std::ssize(rows) || count == standard;
    Holds(is_whole, {u"The catalogue has ", Decimal(count), u" maps"});
    if (!is_whole) return;
    auto map = maps_.catalogue.begin();
    for (const KnownMap& row : rows) {
      if (row.team_sabre_only && count == standard) continue;
      Holds(map->name == row.name && map->file == row.file && map->game_type == row.game_type,
            {u"The catalogue holds '", map->name, u"' in the place of '", row.name, u"'"});
      ++map;
    }
  }

  void ServerMaps() {
    const ServerMapList& server = maps_.server;
    for (const KnownMap& map : server.maps()) {
      const KnownMap* const found = server.Find(map.file, {&map.game_type, 1});
      Holds(TrimBlanks(map.name) == map.name && TrimBlanks(map.file) == map.file &&
                server.HasName(map.name) && found != nullptr && found <= &map &&
                found->file == map.file && found->game_type == map.game_type,
            {u"Server map '", map.name, u"' cannot be found again"});
    }
  }

  void Dialog(const frmrcBHDGS& dialog) {
    Holds(!dialog.unloaded(), {u"The plug-in holds a dialog that is unloaded"});
    Holds(dialog.shown() == (toolkit_.ModalForm() == &dialog),
          {u"The dialog takes itself for ", dialog.shown() ? u"shown" : u"hidden"});
    Holds(dialog.enabled(), {u"The dialog is disabled"});
    for (const auto& control : dialog.controls()) Control(*control);
    Pages(dialog);
    if (!dialog.game_types().empty()) LoadedDialog(dialog);
    Holds(dialog.lstSelMaps.visible() && dialog.lstAvlMaps.visible(), {u"A map list is hidden"});
    if (expected_.rotation_is_shown) Rotation(dialog);
    if (expected_.available_maps_are_shown) AvailableMaps(dialog);
    if (expected_.toolkit_is_whole) Mirror(dialog);
  }

  void Control(const ui::Control& control) {
    const Text& name = control.name();
    const ui::Control* container = control.container();
    Holds(container != nullptr && std::ranges::count(container->children(), &control) == 1,
          {name, u": it does not lie in its container once"});

    if (const auto* list = dynamic_cast<const ui::ListBox*>(&control)) {
      Holds(list->ListIndex() >= -1 && list->ListIndex() < list->Count(),
            {name, u": the chosen row ", Decimal(list->ListIndex()), u" does not exist"});
      Holds(list->TopIndex() >= 0 && list->TopIndex() <= std::max(list->Count() - 1, 0),
            {name, u": the first visible row ", Decimal(list->TopIndex()), u" does not exist"});
    } else if (const auto* combo = dynamic_cast<const ui::ComboBox*>(&control)) {
      Holds(combo->ListIndex() >= -1 && combo->ListIndex() < combo->Count(),
            {name, u": the chosen item ", Decimal(combo->ListIndex()), u" does not exist"});
    } else if (const auto* box = dynamic_cast<const ui::CheckBox*>(&control)) {
      Holds(box->value() >= 0 && box->value() <= 2,
            {name, u": the state is ", Decimal(box->value())});
    }
    if (expected_.toolkit_is_whole && control.kind() != ui::ControlKind::kFileDialog) {
      Mirror(control);
    }
  }

  void Mirror(const ui::Control& control) {
    const auto* mirror = dynamic_cast<const headless::MirrorPeer*>(control.peer());
    if (mirror == nullptr) return Holds(false, {control.name(), u": it has no native counterpart"});
    const TextView side = mirror->StaleSide();
    Holds(side.empty(), {control.name(), u": another ", side, u" is shown than the model holds"});
  }

  void Pages(const frmrcBHDGS& dialog) {
    for (const ui::Frame* page : {&dialog.fmeServer, &dialog.fmeMap, &dialog.fmeMisc}) {
      Holds(page->visible() == (page->caption() == dialog.tsMain.text()),
            {page->name(), u": shown without its tab, or not shown with it"});
    }
  }

  // A dialog whose load has come to its end.
  void LoadedDialog(const frmrcBHDGS& dialog) {
    Holds(std::ranges::equal(dialog.game_types(), kGameTypeNames), {u"The game types are others"});
    if (expected_.toolkit_is_whole) {
      Holds(toolkit_.TabBackgroundOf(dialog.tsMain) == &dialog.Picture1,
            {u"The tab strip's background is not drawn"});
    }
    for (const DialogButton& button : DialogButtons()) {
      const auto* face = dynamic_cast<ui::Image*>(dialog.Find(Concat({button.name, u"Img"})));
      const auto* caption = dynamic_cast<ui::Label*>(dialog.Find(button.name));
      if (face == nullptr || caption == nullptr) {
        Holds(false, {button.name, u": a part of the button is missing"});
        continue;
      }
      const auto& siblings = face->container()->children();
      Holds(face->container() == caption->container() &&
                face->container()->name() == button.container &&
                std::ranges::find(siblings, caption) > std::ranges::find(siblings, face),
            {button.name, u": the caption does not lie on the face"});
      const auto is_at = [&](bool pressed) {
        const auto place =
            ui::PlaceCaption(face->bounds(), toolkit_.GetMetrics().dots_per_inch, pressed);
        return caption->bounds().left == place.left && caption->bounds().top == place.top;
      };
      Holds(is_at(false) || is_at(true),
            {button.name, u": the caption is neither pressed nor released"});
    }
  }

  void Rotation(const frmrcBHDGS& dialog) {
    const ui::ListBox& list = dialog.lstSelMaps;
    const auto& rotation = maps_.selected.maps();
    Holds(std::ssize(rotation) == list.Count(),
          {u"lstSelMaps: ", Decimal(list.Count()), u" rows for ",
           Decimal(static_cast<std::int64_t>(rotation.size())), u" maps"});
    const int rows = std::min(list.Count(), maps_.selected.Count());
    for (int row = 0; row < rows; ++row) {
      const SelectedMap& map = rotation[static_cast<std::size_t>(row)];
      Holds(
          list.Item(row) == JoinMapEntry(map.name, map.file) && list.ItemData(row) == map.game_type,
          {u"lstSelMaps: row ", Decimal(row), u" is not what the rotation holds"});
    }
    Holds(maps_.history.IsNoted(maps_.selected), {u"A change of the rotation cannot be undone"});
    const Text count = Concat({u"Number of Maps: ", Decimal(list.Count())});
    Holds(dialog.lblMapCnt.caption() == count,
          {u"lblMapCnt: '", dialog.lblMapCnt.caption(), u"' instead of '", count, u"'"});
  }

  void AvailableMaps(const frmrcBHDGS& dialog) {
    const ui::ListBox& list = dialog.lstAvlMaps;
    if (list.tooltip().empty()) return Holds(list.Count() == 0, {u"lstAvlMaps: filled early"});
    const int game_type = dialog.GameTypeIndex(dialog.txtGametype.text());
    int row = 0;
    bool agrees = true;
    maps_.ForEachOfGameType(static_cast<std::int16_t>(game_type), [&](const KnownMap& map) {
      agrees = agrees && row < list.Count() && list.Item(row) == JoinMapEntry(map.name, map.file) &&
               list.ItemData(row) == game_type;
      ++row;
    });
    Holds(agrees && row == list.Count(), {u"lstAvlMaps: not the maps of the game type shown"});
    Holds(list.tooltip() ==
              Concat({u"Maps: ", Decimal(list.Count()), u" / ", Decimal(maps_.TotalMapCount())}),
          {u"lstAvlMaps: '", list.tooltip(), u"' is not the count"});
  }

  const mdlBHDGS& module_;
  const MapLists& maps_;
  const headless::HeadlessToolkit& toolkit_;
  const Expectations& expected_;
  std::vector<Text> broken_;
};

}  // namespace

std::vector<Text> BrokenInvariants(const mdlBHDGS& module, const headless::HeadlessToolkit& toolkit,
                                   const Expectations& expected) {
  return Inspection(module, toolkit, expected).Run();
}

}  // namespace quill::host
