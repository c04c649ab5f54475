// The table of commands, their help, the sorting of their words and the dispatch.
#include "host/cli/command_line.h"

#include <algorithm>
#include <exception>
#include <limits>

#include "host/cli/commands.h"
#include "support/runtime_error.h"

namespace quill::host {
namespace {

struct Command {
  TextView name;
  TextView usage;    // what follows the name
  TextView summary;  // one line
  TextView details;  // further lines, each ended
  std::span<const CommandOption> options;
  std::size_t fewest = 0;  // positional arguments
  std::size_t most = 0;
  int (*run)(const Arguments& arguments, const CommandLineParts& parts, Console& console);
};

constexpr std::size_t kAnyNumber = std::numeric_limits<std::size_t>::max();

constexpr CommandOption kRunOptions[] = {
    {u"--folder", u"FOLDER", u"keeps the start record and the requests there (quillhost-run)"},
    {u"--settings", u"FILE", u"the operator loads this settings file instead of choosing maps"}};
constexpr CommandOption kStoryOptions[] = {
    {u"--differences", u"FILE", u"the list of what is known to fail on this layer, with reasons"}};
constexpr CommandOption kDecodeOptions[] = {
    {u"--scenario", u"SCENARIO", u"also looks for the maps that this machine has of its own"}};
constexpr CommandOption kCheckOptions[] = {
    {u"--scenario", u"SCENARIO",
     u"the machine whose mods and own maps count; otherwise one with\n"
     u"                          None, Team Sabre and no own maps"},
    {u"--mod", u"MOD", u"the mod chosen before loading; otherwise the machine's first one"}};
constexpr CommandOption kCatalogueOptions[] = {
    {u"--mod", u"MOD", u"none: the standard catalogue; \"Team Sabre\": the larger one"},
    {u"--type", u"TYPE", u"maps of one game type only, by its name or its code (0 to 8)"}};

constexpr Command kCommands[] = {
    {u"run", u"SCENARIO", u"plays the whole job against a simulated remote machine",
     u"The host opens the plug-in, the remote machine tells its settings, the operator composes a\n"
     u"rotation and starts the game, the remote machine answers. Each step is printed; the last\n"
     u"line says where the start record is. Exit code 1: the game was not started.\n",
     kRunOptions, 1, 1, RunMainJobCommand},
    {u"story", u"FILE...", u"plays operator stories and checks what they expect",
     u"Exit code 1: an expectation failed.\n", kStoryOptions, 1, kAnyNumber, RunStoryCommand},
    {u"decode", u"FILE", u"explains a request file field by field",
     u"Exit code 1: something is wrong with the request.\n", kDecodeOptions, 1, 1,
     RunDecodeCommand},
    {u"check", u"FILE...", u"tells what loading settings files and map lists would do",
     u"Settings files end in .hsf, map lists in .mpl. Each is loaded into a dialog that a "
     u"machine's\n"
     u"reply has filled; a line is told by its number, and the last line sums it up.\n"
     u"Exit code 1: something in a file would be left out.\n",
     kCheckOptions, 1, kAnyNumber, RunCheckCommand},
    {u"catalogue", u"", u"lists the maps of the game", u"", kCatalogueOptions, 0, 0,
     RunCatalogueCommand},
};

bool IsHelp(const Text& word) {
  return word == u"--help" || word == u"-h";
}

void PrintHelp(Console& console) {
  console.Print(
      u"Usage: quillhost COMMAND [ARGUMENT...]\n\n"
      u"The reference host of the Quillstart plug-in.\n\nCommands:\n");
  for (const Command& command : kCommands) {
    const Text call = Concat({command.name, command.usage.empty() ? u"" : u" ", command.usage});
    console.Print(Concat({u"  ", Padded(call, 18), command.summary, u"\n"}));
  }
  console.Print(
      u"\n\"quillhost COMMAND --help\" explains a command. Exit codes: 0 good, 1 bad outcome,\n"
      u"2 wrong argument.\n");
}

void PrintHelp(const Command& command, Console& console) {
  Text usage = Concat({u"Usage: quillhost ", command.name});
  for (const CommandOption& option : command.options) {
    usage += Concat({u" [", option.name, u" ", option.value, u"]"});
  }
  if (!command.usage.empty()) usage += Concat({u" ", command.usage});
  console.Print(
      Concat({usage, u"\n\n", command.name, u": ", command.summary, u"\n", command.details}));
  if (!command.options.empty()) console.Print(u"\nOptions:\n");
  for (const CommandOption& option : command.options) {
    const Text call = Concat({option.name, u" ", option.value});
    console.Print(Concat({u"  ", Padded(call, 22), option.help, u"\n"}));
  }
}

int Run(const Command& command, std::span<const Text> words, const CommandLineParts& parts,
        Console& console) {
  const auto options_end = std::find(words.begin(), words.end(), u"--");
  if (std::any_of(words.begin(), options_end, IsHelp)) {
    PrintHelp(command, console);
    return kExitGood;
  }
  const Arguments arguments = ParseArguments(words, command.options);
  if (arguments.positional.size() < command.fewest) {
    throw UsageError(Concat({command.name, u" lacks ", command.usage}));
  }
  if (arguments.positional.size() > command.most) {
    throw UsageError(
        Concat({command.name, u" cannot use \"", arguments.positional[command.most], u"\""}));
  }
  return command.run(arguments, parts, console);
}

int Dispatch(std::span<const Text> words, const CommandLineParts& parts, Console& console) {
  if (words.empty()) throw UsageError(u"a command is missing; see quillhost --help");
  if (IsHelp(words[0])) {
    PrintHelp(console);
    return kExitGood;
  }
  for (const Command& command : kCommands) {
    if (command.name == words[0]) return Run(command, words.subspan(1), parts, console);
  }
  throw UsageError(Concat({u"there is no command \"", words[0], u"\"; see quillhost --help"}));
}

}  // namespace

int RunCommandLine(std::span<const Text> words, const CommandLineParts& parts,
                   Console& console) try {
  return Dispatch(words, parts, console);
} catch (const UsageError& error) {
  console.PrintError(error.message());
  return kExitUsage;
} catch (const RuntimeError& error) {
  console.PrintError(error.description());
  return kExitBad;
} catch (const std::exception& error) {
  console.PrintError(FromUtf8(error.what()));
  return kExitBad;
}

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

Text Padded(TextView text, std::size_t width) {
  Text padded(text);
  padded.resize(std::max(width, text.size()), u' ');
  return padded;
}

}  // namespace quill::host
