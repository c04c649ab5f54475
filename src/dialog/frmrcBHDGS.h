// The dialog "Select Hosting Options": its controls, what it does by itself, and the handlers of
// its events, named control, underscore, event.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <utility>

#include "dialog/session.h"
#include "maps/map_catalogue.h"
#include "support/text.h"
#include "support/trap.h"
#include "ui/controls.h"
#include "ui/form.h"
#include "ui/list_box.h"

namespace quill {

class frmrcBHDGS final : public ui::Form {
 public:
  // The controls of the design, with their initial values; Form_Load adds the rest. `session`
  // lives until the dialog is unloaded.
  explicit frmrcBHDGS(Session& session);

  // Builds the dialog: tab background, image buttons, number lists, game types. Trapped.
  void Form_Load();

  // Fills lstAvlMaps with the maps of a game type (0 to 8; others leave it empty). Trapped.
  void SetMaps(std::int16_t Gametype);
  // Refreshes lstSelMaps and lblMapCnt from the rotation. Trapped.
  void BuildMapList();
  // The same without a trap; `at` notes the step. The list keeps its place, and the history takes
  // note of the change. A failure can leave the list hidden.
  void ShowRotation(Line& at);

  // What the operator sees while the answer to a start is awaited: since when, beside the buttons.
  // Where that cannot be shown the wait goes on unseen.
  void ShowStartWait() noexcept;
  void HideStartWait() noexcept;

  // The game types by index; empty until Form_Load has come to them.
  [[nodiscard]] std::span<const TextView> game_types() const noexcept { return game_types_; }
  // Index of the first game type of exactly this name, kNoGameType when there is none.
  [[nodiscard]] int GameTypeIndex(TextView name) const noexcept;

  [[nodiscard]] Session& session() const noexcept { return session_; }

  // Controls that code names; every option is found by its key (Form::Get).
  ui::TabStrip& tsMain;
  ui::Frame& fmeServer;
  ui::Frame& fmeMap;
  ui::Frame& fmeMisc;
  ui::Frame& Frame3;
  ui::TextBox& txtGametype;
  ui::ListBox& lstAvlMaps;
  ui::ListBox& lstSelMaps;
  ui::Label& lblMapCnt;
  ui::Label& lblWaiting;
  ui::CommandButton& cmdRandomize;
  ui::PictureBox& Picture1;
  ui::FileDialog& cdSettings;

 private:
  void NumberTabOrder();
  void Connect();
  void tsMain_Click();
  void cboMods_Click();
  void Form_Unload();

  Session& session_;
  std::span<const TextView> game_types_;
};

// The one dialog, created hidden when there is none, and held in memory while a host call works
// with it, because what the call sets off may unload it.
class DialogInUse {
 public:
  explicit DialogInUse(Session& session) : DialogInUse(TakeDialog(session)) {}

  [[nodiscard]] frmrcBHDGS& operator*() const noexcept { return dialog_; }
  [[nodiscard]] frmrcBHDGS* operator->() const noexcept { return &dialog_; }

 private:
  explicit DialogInUse(std::shared_ptr<frmrcBHDGS> dialog)
      : dialog_(*dialog), keep_alive_(std::move(dialog)) {}

  frmrcBHDGS& dialog_;
  ui::KeepAlive keep_alive_;
};

}  // namespace quill
