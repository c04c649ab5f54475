// Reading of files that arguments name.
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>

#include "host/cli/commands.h"
#include "support/runtime_error.h"

namespace quill::host {

std::string ReadArgumentFile(const Text& name) {
  const std::string bytes = ToUtf8(name);
  const std::filesystem::path path(std::u8string(bytes.begin(), bytes.end()));
  std::error_code error;
  const auto status = std::filesystem::status(path, error);
  if (!std::filesystem::exists(status)) {
    throw UsageError(Concat({u"there is no file \"", name, u"\""}));
  }
  std::ifstream stream(path, std::ios::binary);
  if (std::filesystem::is_directory(status) || !stream) {
    throw UsageError(Concat({u"the file \"", name, u"\" cannot be read"}));
  }
  std::string content((std::istreambuf_iterator<char>(stream)), std::istreambuf_iterator<char>());
  if (stream.bad()) throw UsageError(Concat({u"the file \"", name, u"\" cannot be read"}));
  return content;
}

Scenario ReadScenario(const Text& name) try {
  return ParseScenario(ReadArgumentFile(name));
} catch (const RuntimeError& error) {
  throw UsageError(Concat({name, u": ", error.description()}));
}

}  // namespace quill::host
