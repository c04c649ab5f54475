// The commands behind the command line. Each returns its exit code and throws UsageError for
// arguments that it cannot use.
#pragma once

#include <filesystem>
#include <string>

#include "host/cli/command_line.h"
#include "host/remote/scenario.h"

namespace quill::host {

int RunMainJobCommand(const Arguments& arguments, const CommandLineParts& parts, Console& console);
int RunStoryCommand(const Arguments& arguments, const CommandLineParts& parts, Console& console);
int RunDecodeCommand(const Arguments& arguments, const CommandLineParts& parts, Console& console);
int RunCheckCommand(const Arguments& arguments, const CommandLineParts& parts, Console& console);
int RunCatalogueCommand(const Arguments& arguments, const CommandLineParts& parts,
                        Console& console);

// `text` with blanks up to that width.
[[nodiscard]] Text Padded(TextView text, std::size_t width);

// The path, the bytes and the scenario of a file that an argument names.
[[nodiscard]] std::filesystem::path ArgumentPath(const Text& name);
[[nodiscard]] std::string ReadArgumentFile(const Text& name);
[[nodiscard]] Scenario ReadScenario(const Text& name);

}  // namespace quill::host
