// Plays one story on one stage.
//
// A step that fails is told and the next one is played. What is played from inside the modal
// display, and while a box is open, fails in the same way: nothing is thrown through the plug-in.
#pragma once

#include <functional>
#include <set>
#include <vector>

#include "host/remote/scenario.h"
#include "host/story/stage.h"
#include "host/story/story.h"
#include "host/story/story_sightings.h"

namespace quill::host {

// A machine called "Story Server" with the mods "None" and "Team Sabre", no maps of its own, no
// fixed values, and every other setting at its initial value.
[[nodiscard]] Scenario StoryServer();

class StoryPlayer {
 public:
  // Told of each failure; `step` is null for what is found at the end of the story.
  using OnFailure = std::function<void(const Step* step, const Text& message)>;

  // The story and the stage outlive the player. `differences` are those of this story: their steps
  // must fail.
  StoryPlayer(const Story& story, Stage& stage, std::vector<StoryDifference> differences,
              OnFailure on_failure);

  // Once. Throws nothing that a step throws.
  void Play();

  // --- for the rows of the table of steps ----------------------------------------------------
  Stage& stage;
  StorySightings sightings{stage};
  Scenario reply = StoryServer();  // the machine that the next reply comes from
  std::vector<Right> rights;       // for the next "host sets rights"
  std::int64_t gestures = 0;       // keys and clicks so far

  void PlayAll(const std::vector<Step>& steps);
  // The steps behind the one at hand are played inside the display until it ends.
  void Open(std::int32_t index, const std::vector<Text>& target);
  // Plays the block's steps while the next message box, or file dialog, is open.
  void PlayDuringBox(bool asks_for_file, const Step& block);

 private:
  struct Sequence {
    const std::vector<Step>& steps;
    std::size_t next = 0;
    [[nodiscard]] bool IsOver() const { return next == steps.size(); }
  };

  void PlayNext(Sequence& sequence);
  void PlayStep(const Step& step);
  [[nodiscard]] Step Resolved(const Step& step) const;

  const Story& story_;
  std::vector<StoryDifference> differences_;
  OnFailure on_failure_;
  Sequence* at_hand_ = nullptr;            // of the step that is being played
  std::vector<const Step*> awaiting_box_;  // blocks that no box has come for
  std::set<int> differing_;                // lines of the list whose step has been played
};

}  // namespace quill::host
