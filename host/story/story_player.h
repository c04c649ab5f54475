// Plays one story on one stage.
//
// A step that fails is told and the next one is played. What is played from inside the modal
// display, and while a box is open, fails in the same way: nothing is thrown through the plug-in.
#pragma once

#include <functional>
#include <set>
#include <vector>

#include "host/story/reply_draft.h"
#include "host/story/stage.h"
#include "host/story/story.h"
#include "host/story/story_differences.h"
#include "host/story/story_expectations.h"

namespace quill::host {

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

 private:
  struct Sequence {
    const std::vector<Step>& steps;
    std::size_t next = 0;
    [[nodiscard]] bool IsOver() const { return next == steps.size(); }
  };

  void PlayAll(Sequence sequence);
  // Plays it in `sequence`, which the modal display that it may open goes on with.
  void PlayStep(const Step& step, Sequence& sequence);
  void Perform(const Step& step, Sequence& sequence);
  // Each returns false when the step is none of its kind.
  bool SetUp(const Step& step);
  bool ChangeReply(const Step& step);
  bool CallHost(const Step& step, Sequence& sequence);
  void Gesture(const Step& step);
  void MakeRefused(const Step& step);
  void Open(std::int32_t index, const std::vector<Text>& target, Sequence& sequence);
  void PlayDuringBox(const Step& step);
  void Repeat(const Step& step);
  void SelectRows(const Step& step);
  [[nodiscard]] Step Resolved(const Step& step) const;

  const Story& story_;
  Stage& stage_;
  std::vector<StoryDifference> differences_;
  OnFailure on_failure_;
  StoryExpectations expectations_;
  std::int64_t gestures_ = 0;
  ReplyDraft reply_;
  std::vector<Right> rights_;
  std::vector<const Step*> awaiting_box_;  // blocks that no box has come for
  std::set<int> differing_;                // lines of the list whose step has been played
};

}  // namespace quill::host
