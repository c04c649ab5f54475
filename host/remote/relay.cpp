// Polling of the request folder.
#include "host/remote/relay.h"

#include <memory>
#include <optional>
#include <string>

#include "host/kit/text_file.h"
#include "support/runtime_error.h"

namespace quill::host {
namespace {

Text KeptPath(TextView host_root, TextView command) {
  return Concat({host_root, u"\\RCData\\sent_kvrBHDGS_", command, u".txt"});
}

}  // namespace

Relay::Relay(TextView host_root, FileStorage& requests, FileStorage& kept, Scenario scenario,
             Text record_name, Deliver deliver, EventSink tell)
    : host_root_(host_root),
      requests_(requests),
      kept_(kept),
      deliver_(std::move(deliver)),
      tell_(std::move(tell)),
      machine_(std::move(scenario), host_root, kept, std::move(record_name), tell_) {}

bool Relay::Pump() {
  bool happened = false;
  for (Watched& watched : watched_) happened |= TakeRequest(watched);
  return DeliverReply() || happened;
}

bool Relay::TakeRequest(Watched& watched) {
  const Text path = RequestPath(host_root_, watched.command);
  try {
    const std::optional<std::string> bytes = requests_.ReadWhole(path);
    // An empty file is one that the plug-in has made and not filled yet.
    if (!bytes || bytes->empty()) return false;
    kept_.Replace(KeptPath(host_root_, watched.command), *bytes);
    requests_.Remove(path);
    watched.last_error.clear();
    tell_(Concat({u"relay: took a request ", watched.command}));
    machine_.Receive(DecodeTextFile(*bytes).text);
  } catch (const RuntimeError& error) {
    if (watched.last_error == error.description()) return false;
    watched.last_error = error.description();
    tell_(Concat({u"relay: error: ", path, u": ", error.description()}));
  }
  return true;
}

bool Relay::DeliverReply() {
  if (is_delivering_) return false;
  const std::optional<Text> reply = machine_.TakeReply();
  if (!reply) return false;
  tell_(Concat({u"relay: delivering a reply of ", Decimal(static_cast<std::int64_t>(reply->size())),
                u" characters"}));
  is_delivering_ = true;
  const auto end = [](bool* is_delivering) { *is_delivering = false; };
  const std::unique_ptr<bool, decltype(end)> delivering(&is_delivering_, end);
  deliver_(*reply);
  return true;
}

}  // namespace quill::host
