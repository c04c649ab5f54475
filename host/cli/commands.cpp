// The commands that need no more than a function, and the files that arguments name.
#include "host/cli/commands.h"

#include <algorithm>
#include <cstdint>
#include <fstream>
#include <iterator>
#include <system_error>
#include <vector>

#include "host/check/file_account.h"
#include "host/kit/text_file.h"
#include "host/remote/start_request.h"
#include "host/story/story_run.h"
#include "maps/map_catalogue.h"
#include "support/runtime_error.h"

namespace quill::host {
namespace {

// True when only the standard catalogue is wanted.
bool WantsStandard(const Arguments& arguments) {
  const Text mod = arguments.Option(u"--mod").value_or(u"Team Sabre");
  if (EqualIgnoringCase(mod, u"none")) return true;
  if (EqualIgnoringCase(mod, u"Team Sabre")) return false;
  throw UsageError(Concat({u"--mod is none or \"Team Sabre\", not \"", mod, u"\""}));
}

struct CheckedFile {
  Text name;
  FileAccount (*account)(std::string_view bytes, const TrialConditions& conditions);
  std::string bytes;
};

CheckedFile OpenChecked(const Text& name) {
  const Text lower = ToLower(name);
  if (lower.ends_with(u".hsf")) return {name, AccountOfSettings, ReadArgumentFile(name)};
  if (lower.ends_with(u".mpl")) return {name, AccountOfMapList, ReadArgumentFile(name)};
  throw UsageError(
      Concat({u"\"", name, u"\" is neither a settings file (.hsf) nor a map list (.mpl)"}));
}

TrialConditions ReadConditions(const Arguments& arguments) {
  TrialConditions conditions;
  conditions.machine.mods = {u"None", u"Team Sabre"};
  if (const auto scenario = arguments.Option(u"--scenario")) {
    conditions.machine = ReadScenario(*scenario);
    conditions.knows_own_maps = true;
  }
  if (const auto wanted = arguments.Option(u"--mod")) {
    Text there;
    for (const Text& mod : conditions.machine.mods) {
      if (EqualIgnoringCase(mod, *wanted)) conditions.mod = mod;
      there += Concat({there.empty() ? u"" : u", ", u"\"", mod, u"\""});
    }
    if (!conditions.mod) {
      throw UsageError(Concat({u"there is no mod \"", *wanted, u"\" but ",
                               there.empty() ? Text(u"none at all") : there}));
    }
  }
  return conditions;
}

bool Check(const CheckedFile& file, const TrialConditions& conditions, Console& console) {
  const FileAccount account = file.account(file.bytes, conditions);
  for (const auto& [number, text] : account.lines) {
    const Text place = number == 0 ? Text() : Concat({Decimal(std::int64_t(number)), u":"});
    console.Print(Concat({file.name, u":", place, u" ", text, u"\n"}));
  }
  console.PrintLine(Concat({file.name, u": ", account.Summary()}));
  return account.left_out == 0;
}

}  // namespace

std::filesystem::path ArgumentPath(const Text& name) {
  const std::string bytes = ToUtf8(name);
  return {std::u8string(bytes.begin(), bytes.end())};
}

std::string ReadArgumentFile(const Text& name) {
  const std::filesystem::path path = ArgumentPath(name);
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

int RunStoryCommand(const Arguments& arguments, const CommandLineParts& parts, Console& console) {
  StoryFile differences;
  if (const auto name = arguments.Option(u"--differences")) {
    differences = {*name, ReadArgumentFile(*name)};
  }
  std::vector<StoryFile> files;
  for (const Text& name : arguments.positional) files.push_back({name, ReadArgumentFile(name)});
  const bool all_passed = RunStories(files, parts.make_stage, differences,
                                     [&](const Text& line) { console.PrintLine(line); });
  return all_passed ? kExitGood : kExitBad;
}

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

int RunCatalogueCommand(const Arguments& arguments, const CommandLineParts&, Console& console) {
  const bool standard_only = WantsStandard(arguments);
  std::optional<int> wanted;
  if (const auto type = arguments.Option(u"--type")) {
    wanted = FindGameType(*type);
    if (!wanted) throw UsageError(Concat({u"there is no game type \"", *type, u"\""}));
  }
  std::int64_t count = 0;
  for (const KnownMap& row : CatalogueRows()) {
    const int code = row.game_type - u'0';
    if ((standard_only && row.team_sabre_only) || (wanted && code != *wanted)) continue;
    ++count;
    console.Print(
        Concat({Decimal(code), u"  ", Padded(kGameTypeNames[static_cast<std::size_t>(code)], 21),
                u"  ", Padded(row.name, 24), u"  ", Padded(row.file, 13), u"  ",
                row.team_sabre_only ? u"Team Sabre only" : u"both", u"\n"}));
  }
  console.PrintLine(Concat({Decimal(count), count == 1 ? u" map" : u" maps"}));
  return kExitGood;
}

int RunCheckCommand(const Arguments& arguments, const CommandLineParts&, Console& console) {
  const TrialConditions conditions = ReadConditions(arguments);
  std::vector<CheckedFile> files;
  for (const Text& name : arguments.positional) files.push_back(OpenChecked(name));
  bool all_whole = true;
  try {
    for (const CheckedFile& file : files) all_whole = Check(file, conditions, console) && all_whole;
  } catch (const RuntimeError& error) {
    const auto scenario = arguments.Option(u"--scenario");
    if (!scenario || error.Is(ErrorNumber::kInternalError)) throw;
    throw UsageError(Concat({*scenario, u": ", error.description()}));
  }
  return all_whole ? kExitGood : kExitBad;
}

}  // namespace quill::host
