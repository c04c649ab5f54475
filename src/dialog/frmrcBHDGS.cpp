// The dialog's design, its load and unload, its tabs, spin lists and mods.
#include "dialog/frmrcBHDGS.h"

#include <algorithm>
#include <exception>
#include <iterator>

#include "dialog/dialog_buttons.h"
#include "dialog/dialog_design.h"
#include "dialog/option_table.h"
#include "dialog/rotation.h"
#include "support/trap.h"
#include "ui/tab_background.h"

namespace quill {
namespace {

constexpr TextView kServerPage = u"Server Settings";
constexpr TextView kMapPage = u"Map Settings";
constexpr TextView kMiscPage = u"Misc Options";

constexpr ui::Twips kClientWidth = 9615;
constexpr ui::Twips kClientHeight = 4695;
constexpr ui::Bounds kPage = {120, 480, 9375, 3255};
constexpr ui::Colour kFrameColour = 0x00D8E9EC;

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
      cmdRandomize(Add<ui::CommandButton>(u"cmdRandomize", &fmeMap, TextView(), u"SHUFFLE")),
      Picture1(Add<ui::PictureBox>(u"Picture1", nullptr, kFrameColour)),
      cdSettings(Add<ui::FileDialog>(u"cdSettings", nullptr)),
      session_(session),
      start_wait_(*this, Frame3, session.clock) {
  tsMain.SetBounds({0, 0, kClientWidth, kClientHeight});
  // The pages' lower edges lie on the frame below them.
  for (ui::Frame* page : {&fmeServer, &fmeMap, &fmeMisc}) page->BringToFront();
  txtGametype.SetBounds({1080, 240, 2415, 300});
  txtGametype.SetText(kGameTypeNames[0]);
  txtGametype.accessible_name = u"Game Type";
  lblMapCnt.SetBounds({4815, 2790, 2025, 195});
  cmdRandomize.SetBounds({8760, 2640, 495, 495});
  cmdRandomize.tooltip = u"Randomize Current Maps List";
  cmdRandomize.accessible_name = u"Randomize Current Maps List";
  cmdRandomize.access_key = u'R';
  Picture1.SetBounds({0, 0, 495, 495});
  Picture1.SetVisible(false);
  for (const Option& option : Options()) AddOption(*this, option);

  NumberTabOrder();
  Connect();
}

// The image buttons bring their own numbers. Those of the map page lie between its other controls,
// those below the pages come last. The notes beside the lists make room for the former, so that the
// map page's last control, the shuffle button, is number 78.
void frmrcBHDGS::NumberTabOrder() {
  int next = 0;
  const auto number = [&](ui::Control& control) { control.SetTabIndex(next++); };
  const auto is_note = [](const ui::Control& control) { return control.name().ends_with(u"Note"); };
  number(tsMain);
  for (ui::Frame* frame : {&fmeServer, &fmeMisc, &Frame3}) {
    number(*frame);
    for (ui::Control* control : frame->children()) {
      if (!is_note(*control)) number(*control);
    }
  }
  number(fmeMap);
  for (ui::Control* control : fmeMap.children()) {
    for (const DialogButton& button : DialogButtons()) next += button.tab_index == next ? 1 : 0;
    number(*control);
  }
  number(Picture1);
  for (ui::Control* control : fmeServer.children()) {
    if (is_note(*control)) number(*control);
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
  on_unhandled = [this](const RuntimeError& error, TextView handler) {
    ReportTrapped(session_.reporter, handler, error,
                  static_cast<std::int32_t>(error.raised_at().line()));
  };
}

void frmrcBHDGS::Form_Load() {
  Trapped(session_.reporter, u"FormLoad_ERROR", [&](Line& at) {
    at(), ui::AttachTabBackground(tsMain, Picture1);
    for (const DialogButton& button : DialogButtons()) at(), BuildButtonFace(*this, button);
    for (const DialogButton& button : DialogButtons()) at(), BuildButtonCaption(*this, button);
    at(), FillNumberLists(*this);
    at(), Get<ui::ComboBox>(u"cboMods").Clear();
    at(), game_types_ = kGameTypeNames;
  });
}

int frmrcBHDGS::GameTypeIndex(TextView name) const noexcept {
  const auto found = std::find(game_types_.begin(), game_types_.end(), name);
  return found == game_types_.end() ? kNoGameType
                                    : static_cast<int>(std::distance(game_types_.begin(), found));
}

void frmrcBHDGS::tsMain_Click() {
  const TextView chosen = tsMain.text();
  if (chosen != kServerPage && chosen != kMapPage && chosen != kMiscPage) return;
  // One that cannot be shown or hidden does not keep the others from it.
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
  const bool standard = Get<ui::ComboBox>(u"cboMods").text() == u"None";
  session_.maps.catalogue.LoadMapCatalogue(standard ? kStandardModFlag : kTeamSabreModFlag);
  SetMaps(static_cast<std::int16_t>(game_type));
}

void frmrcBHDGS::Form_Unload() {
  session_.toolkit.SetScreenPointer(ui::Pointer::kDefault);
  ui::DetachTabBackground(tsMain);
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
