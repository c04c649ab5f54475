// "quillhost decode": a request file told to a person.
#include "host/cli/commands.h"
#include "host/kit/text_file.h"
#include "host/remote/request_explanation.h"
#include "host/remote/wire.h"
#include "support/runtime_error.h"

namespace quill::host {

int RunDecodeCommand(const Arguments& arguments, const CommandLineParts&, Console& console) {
  std::optional<Scenario> machine;
  if (const auto scenario = arguments.Option(u"--scenario")) machine = ReadScenario(*scenario);
  const Text& name = arguments.positional[0];
  const Text text = DecodeTextFile(ReadArgumentFile(name)).text;
  try {
    const RequestEnvelope envelope = ParseRequestEnvelope(text);
    console.Print(ExplainEnvelope(envelope));
    if (envelope.command != kStartCommand) return kExitGood;
    const StartRequest request =
        DecodeStartPayload(ReadFrame(envelope.frame), machine ? &machine->maps : nullptr);
    console.Print(Concat({u"\n", ExplainStartRequest(request)}));
    return request.HasErrors() ? kExitBad : kExitGood;
  } catch (const RuntimeError& error) {
    console.PrintError(Concat({name, u": ", error.description()}));
    return kExitBad;
  }
}

}  // namespace quill::host
