// The simulated remote machine: answers the requests that the relay brings, as its scenario says.
#pragma once

#include <chrono>
#include <functional>
#include <list>
#include <optional>

#include "host/kit/file_storage.h"
#include "host/remote/command_launcher.h"
#include "host/remote/scenario.h"
#include "host/remote/start_request.h"
#include "host/remote/wire.h"
#include "support/text.h"

namespace quill::host {

// Told what happens, one line of text each.
using EventSink = std::function<void(const Text&)>;

// Where the start record lies in the storage for results, under the host's root.
inline constexpr TextView kStartRecordPath = u"\\start-record.txt";

class RemoteMachine {
 public:
  // `results` keeps the start record and outlives the machine; a start command must call the record
  // `record_name`.
  RemoteMachine(Scenario scenario, TextView host_root, FileStorage& results, Text record_name,
                EventSink tell);

  // Takes the text of a request file. A request that is malformed, or a start that cannot be kept,
  // is told as an error and answered with "0"; nothing is started then. A good start request leaves
  // the start record, which replaces an earlier one, and then does what the scenario says; in its
  // command, {record} stands for the record's file name.
  void Receive(TextView request);

  // The next reply that is due, in the order in which replies became due to be looked at.
  [[nodiscard]] std::optional<Text> TakeReply();

  // True while a reply is still to come.
  [[nodiscard]] bool HasOutstandingReplies() const noexcept { return !pending_.empty(); }

 private:
  struct Pending {
    Text reply;
    std::chrono::steady_clock::time_point due;
    CommandOutcome command;  // where there is one, it decides between the reply and "0"
  };

  void Start(const RequestEnvelope& envelope);
  void KeepRecord(const RequestEnvelope& envelope, const StartRequest& request);
  void Begin();
  void Answer(Text reply, std::chrono::milliseconds delay = {});

  Scenario scenario_;
  FileStorage& results_;
  const Text record_path_;
  const Text record_name_;
  EventSink tell_;
  std::list<Pending> pending_;
};

}  // namespace quill::host
