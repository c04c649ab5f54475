// "quillhost check": what loading settings files and map lists would do.
#include <vector>

#include "host/check/file_account.h"
#include "host/cli/commands.h"
#include "support/runtime_error.h"

namespace quill::host {
namespace {

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
