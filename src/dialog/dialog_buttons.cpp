// The dialog's image buttons.
#include "dialog/dialog_buttons.h"

#include "dialog/map_list_file.h"
#include "dialog/rotation.h"
#include "dialog/settings_file.h"

namespace quill {
namespace {

void StartGame(frmrcBHDGS& dialog) {
  // The command stands in a layer above this one, which may not be included here.
  if (dialog.session().start_game != nullptr) dialog.session().start_game(dialog);
}

void Cancel(frmrcBHDGS& dialog) {
  dialog.Unload();
}

constexpr DialogButton kButtons[] = {
    {u"cmdStart", u"Start Game", u"Frame3", {1440, 240, 1335, 495}, u'S', 12, StartGame},
    {u"cmdSave", u"Save Settings", u"Frame3", {3120, 240, 1335, 495}, u'V', 13, SaveSettings},
    {u"cmdLoad", u"Load Settings", u"Frame3", {4800, 240, 1335, 495}, u'L', 14, LoadSettings},
    {u"cmdCancel", u"Cancel", u"Frame3", {6480, 240, 1335, 495}, u'C', 15, Cancel},
    {u"cmdLeft",
     u"<",
     u"fmeMap",
     {790, 240, 300, 300},
     u'P',
     1,
     ShowPreviousGameType,
     u"Previous Game Type",
     true},
    {u"cmdRight",
     u">",
     u"fmeMap",
     {3500, 240, 300, 300},
     u'N',
     3,
     ShowNextGameType,
     u"Next Game Type",
     true},
    {u"cmdLoadMaps", u"Load Maps", u"fmeMap", {6960, 2640, 1335, 495}, u'M', 9, LoadMapList},
};

ui::ImageButton Describe(frmrcBHDGS& dialog, const DialogButton& button, Text name) {
  return {.bounds = button.bounds,
          .caption = Text(button.caption),
          .name = std::move(name),
          .container = &dialog.At(button.container)};
}

Text FaceName(const DialogButton& button) {
  return Concat({button.name, ui::kFaceSuffix});
}

// A picture that has gone since the dialog was built, or that there is no memory for, leaves the
// old one showing; the operator's press counts all the same.
void ShowState(frmrcBHDGS& dialog, const DialogButton& button, TextView state) {
  try {
    ui::SetButtonState(dialog, FaceName(button), state, dialog.session().HostRoot);
  } catch (...) {
  }
}

// Face and caption answer the mouse alike: the caption covers most of the face.
void ConnectMouse(ui::Control& control, frmrcBHDGS& dialog, const DialogButton& button) {
  control.access_key = button.access_key;
  control.on_mouse_down = [&dialog, &button](const ui::MouseEvent& event) {
    if (event.button == ui::kLeftButton) ShowState(dialog, button, u"Down");
  };
  control.on_mouse_up = [&dialog, &button](const ui::MouseEvent& event) {
    if (event.button == ui::kLeftButton) ShowState(dialog, button, u"Up");
    button.action(dialog);
  };
  // No release will come: the look goes back and nothing is done.
  control.on_mouse_lost = [&dialog, &button] { ShowState(dialog, button, u"Up"); };
}

}  // namespace

std::span<const DialogButton> DialogButtons() noexcept {
  return kButtons;
}

// The face is what the keyboard reaches; it does as the caption does.
void BuildButtonFace(frmrcBHDGS& dialog, const DialogButton& button) {
  ui::Image& face = ui::CreateButtonFace(dialog, Describe(dialog, button, FaceName(button)),
                                         dialog.session().HostRoot);
  face.SetTabIndex(dialog.fmeMap.tab_index() + button.tab_place);
  face.repeats = button.repeats;
  face.accessible_name = button.spoken.empty() ? button.caption : button.spoken;
  ConnectMouse(face, dialog, button);
}

void BuildButtonCaption(frmrcBHDGS& dialog, const DialogButton& button) {
  ConnectMouse(ui::CreateButtonCaption(dialog, Describe(dialog, button, Text(button.name)),
                                       dialog.session().HostRoot),
               dialog, button);
}

}  // namespace quill
