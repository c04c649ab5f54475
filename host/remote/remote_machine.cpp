// The remote machine's side of both commands.
#include "host/remote/remote_machine.h"

#include <algorithm>

#include "host/kit/error_journal.h"
#include "host/kit/text_file.h"
#include "host/remote/start_request.h"
#include "support/runtime_error.h"

namespace quill::host {
namespace {

constexpr TextView kFailure = u"0";

}  // namespace

RemoteMachine::RemoteMachine(Scenario scenario, TextView host_root, FileStorage& results,
                             Text record_name, EventSink tell)
    : scenario_(std::move(scenario)),
      results_(results),
      record_path_(Concat({host_root, kStartRecordPath})),
      record_name_(std::move(record_name)),
      tell_(std::move(tell)) {}

void RemoteMachine::Receive(TextView request) try {
  const RequestEnvelope envelope = ParseRequestEnvelope(request);
  if (envelope.target != scenario_.target) {
    tell_(Concat({u"remote: warning: asked as \"", envelope.target, u"\", but is \"",
                  scenario_.target, u"\""}));
  }
  if (envelope.command == kQueryCommand) {
    tell_(u"remote: asked for the game settings, answering");
    Answer(SettingsReply(scenario_));
  } else {
    Start(envelope);
  }
} catch (const RuntimeError& error) {
  tell_(Concat({u"remote: error: ", error.description(), u"; answering 0"}));
  Answer(Text(kFailure));
}

void RemoteMachine::Start(const RequestEnvelope& envelope) {
  const StartRequest request = DecodeStartPayload(ReadFrame(envelope.frame), &scenario_.maps);
  for (const StartFinding& finding : request.findings) {
    tell_(Concat({finding.is_error ? u"remote: error: " : u"remote: warning: ", finding.text}));
  }
  const bool is_installed =
      std::find(scenario_.mods.begin(), scenario_.mods.end(), request.mod) != scenario_.mods.end();
  if (!is_installed) {
    tell_(Concat({u"remote: warning: the mod \"", request.mod, u"\" is not installed"}));
  }
  if (request.HasErrors()) {
    tell_(u"remote: this cannot be started, answering 0");
    return Answer(Text(kFailure));
  }
  KeepRecord(envelope, request);
  Begin();
}

void RemoteMachine::KeepRecord(const RequestEnvelope& envelope, const StartRequest& request) {
  const Text record =
      Concat({u"Start record of the remote machine\n\n", u"Received: ", LogTime(), u"\n",
              ExplainEnvelope(envelope), u"\n", ExplainStartRequest(request)});
  results_.Replace(record_path_, EncodeTextFile(record));
  tell_(Concat({u"remote: start request is good, ",
                Decimal(static_cast<std::int64_t>(request.maps.size())), u" maps; kept in ",
                record_name_}));
}

void RemoteMachine::Begin() {
  const StartBehaviour& start = scenario_.start;
  switch (start.action) {
    case StartAction::kSucceed:
      tell_(Concat({u"remote: starting succeeds, answering ", Decimal(start.number)}));
      return Answer(Decimal(start.number), start.delay);
    case StartAction::kFail:
      tell_(u"remote: starting fails, answering 0");
      return Answer(Text(kFailure), start.delay);
    case StartAction::kNever:
      return tell_(u"remote: never answering");
    case StartAction::kRubbish:
      tell_(u"remote: answering rubbish");
      return Answer(start.text, start.delay);
    case StartAction::kRun: {
      const Text command = ReplaceAll(start.command, u"{record}", QuotedForCommand(record_name_));
      tell_(Concat({u"remote: running ", command}));
      Answer(Decimal(start.number), start.delay);
      pending_.back().command = LaunchCommand(command);
      return;
    }
  }
}

void RemoteMachine::Answer(Text reply, std::chrono::milliseconds delay) {
  pending_.push_back({std::move(reply), std::chrono::steady_clock::now() + delay, nullptr});
}

std::optional<Text> RemoteMachine::TakeReply() {
  const auto now = std::chrono::steady_clock::now();
  for (auto pending = pending_.begin(); pending != pending_.end(); ++pending) {
    if (pending->due > now) continue;
    Text reply = pending->reply;
    if (pending->command) {
      const std::optional<bool> outcome = pending->command();
      if (!outcome) continue;
      // A text moved, not a constant assigned: GCC 12 takes the latter's one character for a copy
      // that overlaps itself (GCC bug 105329) and warns.
      if (!*outcome) reply = Text(kFailure);
      tell_(Concat(
          {u"remote: the command ", *outcome ? u"ended well" : u"failed", u", answering ", reply}));
    }
    pending_.erase(pending);
    return reply;
  }
  return std::nullopt;
}

}  // namespace quill::host
