// The main job, played step by step: the host opens the plug-in, the relay carries the query and
// its reply, the operator composes a rotation and presses Start, the remote machine answers.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "host/kit/file_storage.h"
#include "host/remote/relay.h"
#include "host/story/stage.h"

namespace quill::host {

class MainJob {
 public:
  // Stage and storage outlive the job. `results` keeps the start record and copies of the
  // requests; `record_name` is what a start command calls the record. `tell` is given each step;
  // `look`, where there is one, is that of CommandLineParts.
  MainJob(const Scenario& scenario, Stage& stage, FileStorage& results, Text record_name,
          EventSink tell, std::function<void(Stage& stage, const Text& moment)> look = nullptr);

  // The operator then loads this settings file, as it lies in the profile's settings folder,
  // instead of choosing a mod and maps. Without a folder in its name.
  void LoadSettingsFirst(Text name, std::string bytes);

  // True when the remote machine has started the game.
  bool Run();

  // True when the remote machine has found a start request good and kept it.
  [[nodiscard]] bool has_record() const { return results_.ReadWhole(record_path_).has_value(); }

 private:
  // One step from inside the modal display; false when there is nothing left to do.
  bool GoOn();
  void Receive(const Text& reply);
  void Operate();
  // False when they could not be loaded.
  bool LoadSettings();
  void ChooseMod();
  void ComposeRotation();
  void Push(const Text& button);
  // True when one of them told of a failure inside the plug-in.
  bool TellBoxes();
  void Note(TextView who, TextView what);
  void Look(const Text& moment);
  [[nodiscard]] int Count(const Text& list);

  struct SettingsFile {
    Text name;
    std::string bytes;
  };

  const Scenario& scenario_;
  Stage& stage_;
  FileStorage& results_;
  EventSink tell_;
  std::optional<SettingsFile> settings_;
  std::function<void(Stage& stage, const Text& moment)> look_;
  const Text record_path_;
  Relay relay_;
  enum class Phase { kOpening, kFilled, kStarted, kGivenUp } phase_ = Phase::kOpening;
  bool is_busy_ = false;       // a step is being played; further calls come from within it
  bool is_looked_at_ = false;  // while it is empty
  bool is_started_ = false;
};

}  // namespace quill::host
