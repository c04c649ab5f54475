// Sorting of a command's words.
#include "host/cli/arguments.h"

#include <algorithm>

#include "host/cli/command_line.h"

namespace quill::host {

std::optional<Text> Arguments::Option(TextView name) const {
  const auto found = options.find(Text(name));
  if (found == options.end()) return std::nullopt;
  return found->second;
}

Arguments ParseArguments(std::span<const Text> words, std::span<const CommandOption> options) {
  Arguments arguments;
  bool takes_options = true;
  for (std::size_t at = 0; at < words.size(); ++at) {
    const TextView word = words[at];
    if (!takes_options || !word.starts_with(u'-') || word == u"-") {
      arguments.positional.emplace_back(word);
      continue;
    }
    if (word == u"--") {
      takes_options = false;
      continue;
    }
    const std::size_t equals = word.find(u'=');
    const TextView name = word.substr(0, equals);
    const bool is_known = std::any_of(options.begin(), options.end(),
                                      [&](const CommandOption& o) { return o.name == name; });
    if (!is_known) throw UsageError(Concat({u"there is no option ", name, u" here"}));
    Text value;
    if (equals != TextView::npos) {
      value = word.substr(equals + 1);
    } else if (at + 1 < words.size()) {
      value = words[++at];
    } else {
      throw UsageError(Concat({u"the option ", name, u" lacks its value"}));
    }
    if (!arguments.options.emplace(name, std::move(value)).second) {
      throw UsageError(Concat({u"the option ", name, u" is given twice"}));
    }
  }
  return arguments;
}

}  // namespace quill::host
