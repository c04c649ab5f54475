// What the remote side makes of requests: any text is taken apart or refused, and what is taken can
// be put together again and told to people.
#include "fuzz/fuzz_target.h"
#include "host/remote/start_request.h"
#include "host/remote/wire.h"

namespace quill::fuzz {
namespace {

void CheckPayload(TextView payload) {
  const host::StartRequest request = host::DecodeStartPayload(payload);
  Claim(!host::ExplainStartRequest(request).empty());
  if (request.HasErrors()) return;
  Claim(request.fields.size() == 26 && !request.flags.empty());
  Claim(!request.maps.empty() && request.maps.size() <= kRotationLimit);
  for (const SelectedMap& map : request.maps) {
    Claim(map.game_type >= 0 && map.game_type <= 8 && !map.file.empty());
  }
}

}  // namespace

void TakeInput(std::string_view input) {
  const Text text = TextOf(input);
  const auto envelope = Attempt([&] { return host::ParseRequestEnvelope(text); });
  if (!envelope) return CheckPayload(text);
  Claim(!host::ExplainEnvelope(*envelope).empty());
  const bool starts = envelope->command == host::kStartCommand;
  Claim(starts != envelope->frame.empty());
  Claim(text == Concat({u"Plugin_kvrBHDGS_", envelope->command, u"_", envelope->target, u"_VB6_",
                        Decimal(envelope->index), starts ? u"_" : u"", envelope->frame}));
  if (!starts) return;
  if (const auto payload = Attempt([&] { return host::ReadFrame(envelope->frame); })) {
    CheckPayload(*payload);
  }
}

}  // namespace quill::fuzz
