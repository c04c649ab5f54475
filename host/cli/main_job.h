// The main job, played step by step: the host opens the plug-in, the relay carries the query and
// its reply, the operator composes a rotation and presses Start, the remote machine answers.
#pragma once

#include <string>

#include "host/kit/file_storage.h"
#include "host/remote/relay.h"
#include "host/remote/remote_machine.h"
#include "host/story/stage.h"

namespace quill::host {

// Where a stage's host lives, and where the start record lies in the storage for results.
inline constexpr TextView kStageRoot = u"C:\\Host";
inline constexpr TextView kStartRecordPath = u"C:\\Host\\start-record.txt";

class MainJob {
 public:
  // Stage, storage and launcher outlive the job. `results` keeps the start record and copies of the
  // requests; `record_name` is what a start command calls the record. `tell` is given each step.
  MainJob(const Scenario& scenario, Stage& stage, FileStorage& results, CommandLauncher& launcher,
          std::string record_name, EventSink tell);

  // True when the remote machine has started the game.
  bool Run();

  // True when the remote machine has found a start request good and kept it.
  [[nodiscard]] bool has_record() const { return results_.ReadWhole(kStartRecordPath).has_value(); }

 private:
  // The stage's files as the relay takes and keeps them; what it keeps goes to the results.
  class StageFiles final : public FileStorage {
   public:
    StageFiles(Stage& stage, FileStorage& results) : stage_(stage), results_(results) {}
    std::optional<std::string> ReadWhole(TextView path) override;
    void Replace(TextView path, std::string_view bytes) override;
    void Append(TextView path, std::string_view bytes) override;
    void Remove(TextView path) override;

   private:
    Stage& stage_;
    FileStorage& results_;
  };

  // One step from inside the modal display; false when there is nothing left to do.
  bool GoOn();
  void Receive(const Text& reply);
  void Operate();
  void ChooseMod();
  void ComposeRotation();
  void PressAndRelease(const Text& control);
  void TellBoxes();
  void Note(TextView who, TextView what);
  [[nodiscard]] int Count(const Text& list);

  const Scenario& scenario_;
  Stage& stage_;
  FileStorage& results_;
  EventSink tell_;
  StageFiles files_;
  RemoteMachine machine_;
  Relay relay_;
  enum class Phase { kOpening, kFilled, kStarted, kGivenUp } phase_ = Phase::kOpening;
  bool is_busy_ = false;  // a step is being played; further calls come from within it
  bool is_started_ = false;
};

}  // namespace quill::host
