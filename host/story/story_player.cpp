// The order in which the steps of a story are played, and what becomes of their failures.
#include "host/story/story_player.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "host/story/story_steps.h"
#include "support/runtime_error.h"

namespace quill::host {
namespace {

// What went wrong; to be called inside a catch block.
Text Reason() {
  try {
    throw;
  } catch (const StoryFailure& failure) {
    return failure.message();
  } catch (...) {
    return Text(CurrentRuntimeError().description());
  }
}

}  // namespace

Scenario StoryServer() {
  Scenario machine;
  machine.Set(u"Server Name", u"Story Server");
  machine.mods = {u"None", u"Team Sabre"};
  return machine;
}

StoryPlayer::StoryPlayer(const Story& story, Stage& played_on,
                         std::vector<StoryDifference> differences, OnFailure on_failure)
    : stage(played_on),
      story_(story),
      differences_(std::move(differences)),
      on_failure_(std::move(on_failure)) {}

void StoryPlayer::Play() {
  PlayAll(story_.steps);
  try {
    sightings.CheckEnd([&](const Text& message) { on_failure_(nullptr, message); });
  } catch (...) {
    on_failure_(nullptr, Reason());
  }
  for (const Step* block : awaiting_box_) on_failure_(block, u"no box has come");
  for (const StoryDifference& difference : differences_) {
    if (differing_.contains(difference.listed_at)) continue;
    on_failure_(nullptr, Concat({u"line ", Decimal(difference.listed_at),
                                 u" of the list of differences names a step that was not played: ",
                                 difference.step}));
  }
}

void StoryPlayer::PlayAll(const std::vector<Step>& steps) {
  Sequence sequence{steps};
  while (!sequence.IsOver()) PlayNext(sequence);
}

void StoryPlayer::PlayNext(Sequence& sequence) {
  const Step& step = sequence.steps[sequence.next++];
  Sequence* const outer = std::exchange(at_hand_, &sequence);
  PlayStep(step);
  at_hand_ = outer;
}

void StoryPlayer::PlayStep(const Step& step) {
  const StepKind kind = step.form->kind;
  std::optional<Text> failure;
  try {
    if (kind == StepKind::kBlock) {
      // Its own steps are resolved one by one, later perhaps: a copy would be gone by then.
      step.form->play(*this, step);
    } else {
      step.form->play(*this, Resolved(step));
      if (kind != StepKind::kExpectation) {
        for (const Text& broken : stage.Broken()) throw StoryFailure({broken});
      }
    }
  } catch (...) {
    failure = Reason();
  }
  const auto listed = std::ranges::find_if(
      differences_, [&](const StoryDifference& difference) { return difference.Means(step); });
  if (listed != differences_.end()) {
    differing_.insert(listed->listed_at);
    if (failure) return;
    failure = Concat({u"it is listed as a difference (", listed->reason, u"), but it holds now"});
  }
  if (failure) on_failure_(&step, *failure);
}

Step StoryPlayer::Resolved(const Step& step) const {
  Step resolved = step;
  for (auto* texts : {&resolved.words, &resolved.block}) {
    for (Text& text : *texts) {
      if (text.find(kRootMark) == Text::npos) continue;
      text = ReplaceAll(text, TextView(&kRootMark, 1), stage.HostRoot());
    }
  }
  return resolved;
}

void StoryPlayer::Open(std::int32_t index, const std::vector<Text>& target) {
  Sequence& sequence = *at_hand_;
  bool is_playing = false;
  stage.LoadInterface(index, target, [&] {
    // A step that runs a message loop of its own brings the stage here again.
    if (is_playing) return true;
    if (sequence.IsOver()) return false;
    is_playing = true;
    PlayNext(sequence);
    is_playing = false;
    return true;
  });
}

void StoryPlayer::PlayDuringBox(bool asks_for_file, const Step& block) {
  awaiting_box_.push_back(&block);
  stage.DuringNextBox(asks_for_file, [this, &block] {
    std::erase(awaiting_box_, &block);
    PlayAll(block.steps);
  });
}

}  // namespace quill::host
