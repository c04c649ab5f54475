// The dialog's design, its load and unload, its tabs, spin lists and mods, and what it shows of the
// maps.
#include "dialog/frmrcBHDGS.h"

#include <algorithm>
#include <deque>
#include <exception>
#include <utility>
#include <vector>

#include "dialog/dialog_buttons.h"
#include "dialog/option_control.h"
#include "dialog/rotation.h"
#include "maps/map_entry.h"

namespace quill {
namespace {

constexpr TextView kServerPage = u"Server Settings";
constexpr TextView kMapPage = u"Map Settings";
constexpr TextView kMiscPage = u"Misc Options";

constexpr ui::Twips kClientWidth = 9615;
constexpr ui::Twips kClientHeight = 4695;
constexpr ui::Bounds kPage = {120, 480, 9375, 3255};
constexpr ui::Twips kListLabelHeight = 195;
constexpr ui::Twips kLabelGap = 15;
// Red 236, green 233, blue 216, as 0x00BBGGRR.
constexpr ui::Colour kFrameColour = 0x00D8E9EC;

ui::Frame& AddFrame(ui::Form& form, Text name, TextView caption, const ui::Bounds& bounds,
                    bool visible = true) {
  auto& frame = form.Add<ui::Frame>(std::move(name), nullptr, caption);
  frame.SetBounds(bounds);
  frame.SetVisible(visible);
  return frame;
}

// A list of many rows with extended selection, under a label of its own. `label` is not copied.
ui::ListBox& AddMapList(ui::Form& form, ui::Control& container, Text name, Text label_name,
                        TextView label, const ui::Bounds& bounds) {
  auto& caption = form.Add<ui::Label>(std::move(label_name), &container, label);
  caption.SetBounds(
      {bounds.left, bounds.top - kLabelGap - kListLabelHeight, bounds.width, kListLabelHeight});
  auto& list = form.Add<ui::ListBox>(std::move(name), &container, ui::Selection::kExtended,
                                     ui::ListHeight::kManyRows);
  list.SetBounds(bounds);
  list.accessible_name = label;
  return list;
}

// Adds the numbers to all number lists, in the order of the options. Neighbours of the same range
// are filled together, one number at a time.
void FillNumberLists(ui::Form& form) {
  const auto options = Options();
  for (auto first = options.begin(), last = first; first != options.end(); first = last) {
    const NumberRange numbers = first->numbers;
    last = std::ranges::find_if(first, options.end(),
                                [&](const Option& option) { return option.numbers != numbers; });
    if (numbers == NumberRange{}) continue;
    std::vector<ui::ListBox*> lists;
    std::deque<ui::ListBox::Refill> refills;  // a vector would have to move them
    for (const Option& option : std::span(first, last)) {
      refills.emplace_back(*lists.emplace_back(&form.Get<ui::ListBox>(option.key)));
    }
    for (int number = numbers.first; number <= numbers.last; ++number) {
      const Text item = Decimal(number);
      for (ui::ListBox* list : lists) list->AddItem(item);
    }
    for (ui::ListBox::Refill& refill : refills) refill.Finish();
  }
}

void AddMapRow(ui::ListBox& list, TextView name, TextView file, std::int32_t game_type) {
  list.AddItem(JoinMapEntry(name, file));
  list.SetItemData(list.Count() - 1, game_type);
}

void ShowCount(ui::ListBox& list, const MapLists& maps) {
  list.tooltip = Concat({u"Maps: ", Decimal(list.Count()), u" / ", Decimal(maps.TotalMapCount())});
}

}  // namespace

frmrcBHDGS::frmrcBHDGS(Session& session)
    : Form(session.toolkit, u"frmrcBHDGS", u"Select Hosting Options", kClientWidth, kClientHeight),
      tsMain(Add<ui::TabStrip>(u"tsMain", nullptr,
                               std::initializer_list<TextView>{kServerPage, kMapPage, kMiscPage})),
      fmeServer(AddFrame(*this, u"fmeServer", kServerPage, kPage)),
      fmeMap(AddFrame(*this, u"fmeMap", kMapPage, kPage, false)),
      fmeMisc(AddFrame(*this, u"fmeMisc", kMiscPage, kPage, false)),
      Frame3(AddFrame(*this, u"Frame3", u"Options", {120, 3720, 9375, 855})),
      txtGametype(
          Add<ui::TextBox>(u"txtGametype", &fmeMap, 0, ui::Alignment::kCentre, /*locked=*/true)),
      lstAvlMaps(AddMapList(*this, fmeMap, u"lstAvlMaps", u"lblAvlMaps", u"Available Maps",
                            {120, 930, 4440, 2205})),
      lstSelMaps(AddMapList(*this, fmeMap, u"lstSelMaps", u"lblSelMaps", u"Selected Maps",
                            {4815, 495, 4440, 2010})),
      lblMapCnt(Add<ui::Label>(u"lblMapCnt", &fmeMap, u"Number of Maps: 0")),
      lblWaiting(Add<ui::Label>(u"lblWaiting", &Frame3)),
      // The icon is one of win32/resources.rc.
      cmdRandomize(Add<ui::CommandButton>(u"cmdRandomize", &fmeMap, TextView(), u"SHUFFLE")),
      Picture1(Add<ui::PictureBox>(u"Picture1", nullptr, kFrameColour)),
      cdSettings(Add<ui::FileDialog>(u"cdSettings", nullptr)),
      session_(session) {
  tsMain.SetBounds({0, 0, kClientWidth, kClientHeight});
  // The pages' lower edges lie on the frame below them.
  for (ui::Frame* page : {&fmeServer, &fmeMap, &fmeMisc}) page->BringToFront();
  txtGametype.SetBounds({1080, 240, 2415, 300});
  txtGametype.SetText(kGameTypeNames[0]);
  txtGametype.accessible_name = u"Game Type";
  lblMapCnt.SetBounds({4815, 2790, 2025, 195});
  // Right of the last button, as high as its face.
  lblWaiting.SetBounds({7935, 285, 1320, 405});
  lblWaiting.SetVisible(false);
  cmdRandomize.SetBounds({8760, 2640, 495, 495});
  cmdRandomize.tooltip = u"Randomize Current Maps List";
  cmdRandomize.accessible_name = u"Randomize Current Maps List";
  cmdRandomize.access_key = u'R';
  Picture1.SetBounds({0, 0, 495, 495});
  Picture1.SetVisible(false);
  for (const Option& option : Options()) AddOption(*this, option);

  NumberTabOrder();
  // Last, so that the initial values above run no handlers.
  Connect();
}

// The image buttons bring their own places. Those of the map page lie between its other controls,
// those below the pages come last of all that takes the focus. The notes beside the lists come
// behind them, and with them the label of the wait, so that the map page's last control, the
// shuffle button, is number 78.
void frmrcBHDGS::NumberTabOrder() {
  int next = 0;
  const auto number = [&](ui::Control& control) { control.SetTabIndex(next++); };
  const auto comes_last = [&](const ui::Control& control) {
    return &control == &lblWaiting || control.name().ends_with(u"Note");
  };
  number(tsMain);
  for (ui::Frame* frame : {&fmeServer, &fmeMisc, &Frame3}) {
    number(*frame);
    for (ui::Control* control : frame->children()) {
      if (!comes_last(*control)) number(*control);
    }
  }
  number(fmeMap);
  for (ui::Control* control : fmeMap.children()) {
    for (const DialogButton& button : DialogButtons()) {
      if (fmeMap.tab_index() + button.tab_place == next) ++next;
    }
    number(*control);
  }
  number(Picture1);
  for (const DialogButton& button : DialogButtons()) next += &At(button.container) == &Frame3;
  for (const ui::Frame* frame : {&fmeServer, &Frame3}) {
    for (ui::Control* control : frame->children()) {
      if (comes_last(*control)) number(*control);
    }
  }
}

void frmrcBHDGS::Connect() {
  tsMain.on_click = [this] { tsMain_Click(); };
  Get<ui::ComboBox>(u"cboMods").on_click = [this] { cboMods_Click(); };
  cmdRandomize.on_click = [this] { ShuffleRotation(*this); };
  for (const Option& option : Options()) {
    if (option.kind != ui::ControlKind::kListBox) continue;
    auto& list = Get<ui::ListBox>(option.key);
    // The item that was scrolled into view becomes the chosen one.
    list.on_scroll = [&list] { list.SetListIndex(list.TopIndex()); };
  }
  ConnectRotation(*this);

  on_unload = [this] { Form_Unload(); };
  on_unloaded = [this] {
    if (session_.dialog.get() == this) session_.dialog.reset();
  };
  // A handler without a trap notes no lines; the place where the failure was raised stands in for
  // it.
  on_unhandled = [this](const RuntimeError& error, TextView handler) {
    session_.reporter.ReportTrapped(handler, error,
                                    static_cast<std::int32_t>(error.raised_at().line()));
  };
}

void frmrcBHDGS::Form_Load() {
  Trapped(session_.reporter, u"FormLoad_ERROR", [&](Line& at) {
    at(), Picture1.persistent_image = true;
    // It takes its colour from the image that has just been asked for.
    at(), session_.toolkit.HookTabBackground(tsMain, Picture1);
    for (const DialogButton& button : DialogButtons()) at(), BuildButtonFace(*this, button);
    for (const DialogButton& button : DialogButtons()) at(), BuildButtonCaption(*this, button);
    at(), FillNumberLists(*this);
    at(), Get<ui::ComboBox>(u"cboMods").Clear();
    // Last of all: after a load that failed no game type is known, and the list of available maps
    // stays empty.
    at(), game_types_ = kGameTypeNames;
  });
}

int frmrcBHDGS::GameTypeIndex(TextView name) const noexcept {
  const auto found = std::ranges::find(game_types_, name);
  return found == game_types_.end() ? kNoGameType : static_cast<int>(found - game_types_.begin());
}

void frmrcBHDGS::tsMain_Click() {
  const TextView chosen = tsMain.text();
  if (chosen != kServerPage && chosen != kMapPage && chosen != kMiscPage) return;
  // One page that cannot be shown or hidden does not stop the other two.
  std::exception_ptr failure;
  for (ui::Frame* page : {&fmeServer, &fmeMap, &fmeMisc}) {
    try {
      page->SetVisible(page->caption() == chosen);
    } catch (...) {
      failure = std::current_exception();
    }
  }
  if (failure != nullptr) std::rethrow_exception(failure);
}

void frmrcBHDGS::cboMods_Click() {
  const int game_type = GameTypeIndex(txtGametype.text());
  // Exactly "None" is the game alone. Any other text means Team Sabre, also an empty one.
  const bool standard = Get<ui::ComboBox>(u"cboMods").text() == u"None";
  session_.maps.catalogue = LoadMapCatalogue(standard ? kStandardModFlag : kTeamSabreModFlag);
  SetMaps(static_cast<std::int16_t>(game_type));
}

void frmrcBHDGS::SetMaps(std::int16_t Gametype) {
  Trapped(session_.reporter, u"SetMaps", [&](Line& at) {
    {
      ui::ListBox::Refill refill(lstAvlMaps);
      at(), lstAvlMaps.Clear();
      at(), session_.maps.ForEachOfGameType(Gametype, [&](const KnownMap& map) {
        AddMapRow(lstAvlMaps, map.name, map.file, Gametype);
      });
      // Here, so that a failure of the native list is reported with this line.
      at(), refill.Finish();
    }
    at(), ShowCount(lstAvlMaps, session_.maps);
  });
}

void frmrcBHDGS::ShowRotation(Line& at) {
  MapLists& maps = session_.maps;
  ui::ListBox& list = lstSelMaps;
  maps.history.Note(maps.selected);
  const int top = list.TopIndex();
  const int current = list.ListIndex();
  {
    // A failure at its end is dropped: what is pending is told again when the list is shown below.
    const ui::ListBox::Refill refill(list);
    at(), list.Clear();
    at(), list.SetVisible(false);
    for (const SelectedMap& map : maps.selected.maps()) {
      at(), AddMapRow(list, map.name, map.file, map.game_type);
    }
    const int count = list.Count();
    // No row is selected any more, but the keyboard goes on where it was.
    at(), list.SetCurrentRow(std::min(current, count - 1));
    if (count > 0) at(), list.SetTopIndex(std::clamp(count - list.VisibleRows(), 0, top));
  }
  at(), list.SetVisible(true);
  at(), ShowCount(list, maps);
  at(), lblMapCnt.caption = Concat({u"Number of Maps: ", Decimal(list.Count())});
}

void frmrcBHDGS::BuildMapList() {
  Trapped(
      session_.reporter, u"BuildMapList", [&](Line& at) { ShowRotation(at); },
      // A failure in the middle has left it hidden.
      [&](RuntimeError&) { lstSelMaps.SetVisible(true); });
}

void frmrcBHDGS::ShowStartWait() noexcept {
  // Nothing depends on it, so a failure is dropped.
  RunEach([&] {
    const int minute = session_.clock.MinuteOfDay();
    // 10905 for five past nine: behind the first digit the zeros stay.
    const Text digits = Decimal(10000 + minute / 60 * 100 + minute % 60);
    lblWaiting.caption =
        Concat({u"Awaiting reply since ", digits.substr(1, 2), u":", digits.substr(3)});
    lblWaiting.SetVisible(true);
  });
}

void frmrcBHDGS::HideStartWait() noexcept {
  RunEach([&] { lblWaiting.SetVisible(false); });
}

void frmrcBHDGS::Form_Unload() {
  session_.toolkit.SetScreenPointer(ui::Pointer::kDefault);
  session_.toolkit.UnhookTabBackground(tsMain);
}

void Session::RestorePointer() const {
  if (dialog) dialog->pointer = ui::Pointer::kDefault;
}

std::shared_ptr<frmrcBHDGS> TakeDialog(Session& session) {
  if (session.dialog) return session.dialog;
  // It is the session's dialog before it loads: a report of the load shows a box, during which the
  // host may call again.
  auto dialog = std::make_shared<frmrcBHDGS>(session);
  session.dialog = dialog;
  dialog->Form_Load();
  return dialog;
}

}  // namespace quill
