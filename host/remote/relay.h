// The host's relay: takes request files to the remote machine and brings its replies back, all on
// the thread that calls Pump().
#pragma once

#include <array>
#include <functional>

#include "host/kit/file_storage.h"
#include "host/remote/remote_machine.h"
#include "host/remote/wire.h"
#include "support/text.h"

namespace quill::host {

class Relay {
 public:
  using Deliver = std::function<void(const Text& reply)>;

  // Watches `host_root`\RCData among the requests. `requests` and `kept` outlive the relay and may
  // be one; `kept` keeps the machine's results too, see RemoteMachine.
  Relay(TextView host_root, FileStorage& requests, FileStorage& kept, Scenario scenario,
        Text record_name, Deliver deliver, EventSink tell);

  // Takes what lies in the request folder, then delivers at most one reply that is due. True when
  // anything happened. May be called from within a delivery (a reply that opens a message box):
  // requests are then still taken, but replies wait, because they are handled one at a time.
  //
  // A request that was taken is kept as sent_kvrBHDGS_<command word>.txt in the same folder. A
  // request file that cannot be read is told about once and left alone.
  bool Pump();

  // True while a reply is still to come.
  [[nodiscard]] bool AwaitsReply() const noexcept { return machine_.HasOutstandingReplies(); }

 private:
  struct Watched {
    TextView command;
    Text last_error = {};
  };

  bool TakeRequest(Watched& watched);
  bool DeliverReply();

  const Text host_root_;
  FileStorage& requests_;
  FileStorage& kept_;
  Deliver deliver_;
  EventSink tell_;
  RemoteMachine machine_;
  std::array<Watched, 2> watched_ = {Watched{kQueryCommand}, Watched{kStartCommand}};
  bool is_delivering_ = false;
};

}  // namespace quill::host
