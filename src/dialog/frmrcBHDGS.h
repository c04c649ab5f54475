// The dialog "Select Hosting Options": its controls, what it does by itself, and the handlers of
// its events, named control, underscore, event.
#pragma once

#include <cstdint>
#include <span>

#include "dialog/game_types.h"
#include "dialog/session.h"
#include "dialog/start_wait.h"
#include "support/text.h"
#include "ui/controls.h"
#include "ui/form.h"
#include "ui/list_box.h"

namespace quill {

class frmrcBHDGS final : public ui::Form {
 public:
  // The controls of the design, with their initial values; Form_Load adds the rest. `session`
  // outlives the dialog.
  explicit frmrcBHDGS(Session& session);

  // Builds the dialog: tab background, image buttons, number lists, game types. Trapped.
  void Form_Load();

  // Fills lstAvlMaps with the maps of a game type (0 to 8; others leave it empty). Trapped.
  void SetMaps(std::int16_t Gametype);
  // Refreshes lstSelMaps and lblMapCnt from the rotation. Trapped.
  void BuildMapList();

  // The game types by index; empty until Form_Load has come to them.
  [[nodiscard]] std::span<const TextView> game_types() const noexcept { return game_types_; }
  // Index of the first game type of exactly this name, kNoGameType when there is none.
  [[nodiscard]] int GameTypeIndex(TextView name) const noexcept;

  [[nodiscard]] Session& session() const noexcept { return session_; }
  [[nodiscard]] StartWait& start_wait() noexcept { return start_wait_; }

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
  StartWait start_wait_;
};

}  // namespace quill
