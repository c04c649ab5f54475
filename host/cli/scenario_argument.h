// Scenarios named by an argument.
#pragma once

#include "host/cli/commands.h"
#include "host/remote/scenario.h"
#include "support/runtime_error.h"

namespace quill::host {

// Throws UsageError, naming file and line, for one that cannot be read or understood.
[[nodiscard]] inline Scenario ReadScenario(const Text& name) try {
  return ParseScenario(ReadArgumentFile(name));
} catch (const RuntimeError& error) {
  throw UsageError(Concat({name, u": ", error.description()}));
}

}  // namespace quill::host
