// What an operator story is played on: a host with the plug-in in it, an operator at its dialog,
// and everything that either can see. There is one stage over the headless layer and one over the
// real library and its native windows; a story cannot tell them apart.
//
// Controls are named as in the dialog; rows and positions are 0-based. A gesture that a real
// operator could not make (the control is hidden, disabled, not there) fails with a RuntimeError,
// and so does the reading of something that the stage cannot see.
//
// A new stage's host has its two button pictures, no other files, and offers both service objects.
// The plug-in is loaded by the first host call.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/headless/host_objects.h"
#include "host/kit/file_storage.h"
#include "host/story/story_words.h"
#include "host/watch/watched_file_kit.h"
#include "support/text.h"

namespace quill::host {

// A message box as the operator saw it; of a file dialog its title and the folder it began in.
struct SeenBox {
  Text caption;
  Text text;
  friend bool operator==(const SeenBox&, const SeenBox&) = default;
};

class Stage {
 public:
  virtual ~Stage() = default;
  [[nodiscard]] virtual std::string Name() const = 0;  // "headless" or "native"

  // --- set-up, before and between host calls -------------------------------------------------
  // The host's root folder, without a trailing backslash.
  [[nodiscard]] virtual Text HostRoot() = 0;
  // The files under the host's root, by their host paths.
  [[nodiscard]] virtual FileStorage& storage() = 0;
  // A file with these bytes; missing folders are made.
  virtual void PutFile(const Text& path, std::string_view bytes) = 0;
  // How the host's file kit fails, and what the plug-in handed to its error log and report store.
  [[nodiscard]] virtual KitWatch& kit_watch() = 0;
  virtual void SetClock(std::uint64_t ticks) = 0;

  // --- host calls ----------------------------------------------------------------------------
  virtual Text DllVersion() = 0;
  // Field by name, as text; arrays as their elements joined by "|", "empty" for an empty variant.
  virtual Text PluginField(const Text& field) = 0;
  virtual void SetPrivis(const std::vector<Right>& rights, bool super_admin) = 0;
  // `target` is the array of texts that the host hands over. Returns when the dialog is hidden or
  // closed. While it is shown, and no message box or file dialog is open, the stage calls `go_on`
  // from inside again and again; it plays the next step and returns false when the story has none
  // left (the stage then hides the dialog). The stage itself closes the boxes, and the file dialogs
  // with the operator's answers.
  virtual void LoadInterface(std::int32_t index, const std::vector<Text>& target,
                             const std::function<bool()>& go_on) = 0;
  virtual void RemoteData(const Text& data) = 0;
  virtual void HideInterface() = 0;

  // --- the operator --------------------------------------------------------------------------
  // Makes the gesture with that pattern (see operator_gestures.h); `words` are what its words in
  // capitals stand for.
  virtual void Make(TextView pattern, const Words& words) = 0;
  // What the operator does in the next file dialog that has no answer yet: picks these full paths
  // (none: cancels). A file dialog without an answer is cancelled. By a double click it closes
  // while the left mouse button is down, which goes up with the next release.
  virtual void AnswerFileDialog(const std::vector<Text>& paths, bool by_double_click) = 0;
  // Plays `step` while the next message box, or the next file dialog, is open, before it is closed.
  // A box that `step` itself brings up is another one.
  virtual void DuringNextBox(bool asks_for_file, const std::function<void()>& step) = 0;

  // --- what can be seen ----------------------------------------------------------------------
  // A property by its name in docs/story-language.md; also "item N", "data N", and "pointer" of the
  // dialog. Truth values and pointers are named as in headless/shown_words.h.
  [[nodiscard]] virtual Text Read(const Text& control, const Text& property) = 0;
  [[nodiscard]] virtual bool DialogShown() = 0;
  [[nodiscard]] virtual Text ScreenPointer() = 0;
  // The items of the menu opened last: "CAPTION | KEY", in parentheses when grey; "-" for a line.
  [[nodiscard]] virtual std::vector<Text> LastMenu() = 0;
  // Those shown since the last call, in order; taking empties the list.
  [[nodiscard]] virtual std::vector<SeenBox> TakeBoxes() = 0;
  [[nodiscard]] virtual std::vector<SeenBox> TakeFileDialogs() = 0;
  // What of the plug-in does not hold that always does, in words; nothing where that cannot be
  // seen.
  [[nodiscard]] virtual std::vector<Text> Broken() { return {}; }
  // The command whose reply the plug-in awaits; nothing where that cannot be seen from outside.
  [[nodiscard]] virtual std::optional<Text> PendingCommand() { return std::nullopt; }
};

// A stage without a screen: the plug-in over mirrors, with the host's files in memory.
[[nodiscard]] std::unique_ptr<Stage> MakeHeadlessStage();

}  // namespace quill::host
