// "quillhost decode": a request file told to a person.
#include "host/cli/commands.h"
#include "host/cli/scenario_argument.h"
#include "host/kit/text_file.h"
#include "host/remote/known_maps.h"
#include "host/remote/request_explanation.h"
#include "host/remote/wire.h"
#include "support/runtime_error.h"

namespace quill::host {

int RunDecodeCommand(const Arguments& arguments, const CommandLineParts&, Console& console) {
  const std::optional<Text> scenario = arguments.Option(u"--scenario");
  const KnownMaps known = scenario ? KnownMaps(ReadScenario(*scenario)) : KnownMaps();
  const Text& name = arguments.positional[0];
  const Text text = DecodeTextFile(ReadArgumentFile(name)).text;
  try {
    const RequestEnvelope envelope = ParseRequestEnvelope(text);
    console.Print(ExplainEnvelope(envelope));
    if (envelope.command != kStartCommand) return kExitGood;
    const StartRequest request = DecodeStartPayload(
        ReadFrame(envelope.frame),
        [&](const SelectedMap& map, TextView mod) { return known.Doubt(map, mod); });
    console.Print(Concat({u"\n", ExplainStartRequest(request)}));
    return request.HasErrors() ? kExitBad : kExitGood;
  } catch (const RuntimeError& error) {
    console.PrintError(Concat({name, u": ", error.description()}));
    return kExitBad;
  }
}

}  // namespace quill::host
