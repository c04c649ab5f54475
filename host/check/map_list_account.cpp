// A map list's lines judged as the dialog judges them, and the dialog's own loading held against
// that.
#include "dialog/map_list_file.h"

#include "dialog/text_lines.h"
#include "host/check/dialog_trial.h"

namespace quill::host {
namespace {

constexpr TextView kMapListTrap = u"cmdLoadMaps";

Text WhySkipped(TextView line) {
  if (line.find(u'\n') != TextView::npos) return u"a line feed alone does not end a line";
  const std::size_t fields = SplitStoredMap(line).size();
  if (fields == 1) return u"it names no map";
  return Concat({u"it has ", Decimal(static_cast<std::int64_t>(fields)), u" fields instead of 3"});
}

// False when loading fails at the line.
bool Judge(const DialogTrial& trial, TextView line, std::size_t number, FileAccount& account) {
  const std::vector<TextView> fields = FieldsOfMapLine(line);
  if (fields.empty()) {
    account.Lose(number, u"LEFT OUT", line, WhySkipped(line));
    return true;
  }
  const TextView code = fields[0];
  const TextView flag = fields[1];
  const TextView file = fields[2];
  try {
    if (const auto map = FindStoredMap(trial.maps(), code, flag, file)) {
      account.Select(number, *map);
    } else {
      account.Lose(number, u"MISSING map", TrimBlanks(file), trial.WhyMissing(code, flag, file));
    }
    return true;
  } catch (const RuntimeError& error) {
    account.Lose(number, u"FAILS at", line,
                 Concat({error.description(), u" (error ", Decimal(error.number()), u")"}));
    return false;
  }
}

// True when loading gets to the end.
bool JudgeLines(DialogTrial& trial, std::string_view bytes, FileAccount& account) {
  TextLines lines(trial.Reader(bytes), trial.code_page());
  Text line;
  bool goes_on = true;
  Text rest;  // the line when it is one
  std::size_t rest_begins = 0;
  std::size_t rest_count = 0;
  for (std::size_t number = 1; lines.Next(line); ++number) {
    if (IsBlank(line)) continue;
    if (goes_on) {
      goes_on = Judge(trial, line, number, account);
    } else if (rest_count++ == 0) {
      rest_begins = number;
      rest = line;
    } else {
      rest = u"what follows";
    }
  }
  if (rest_count != 0) {
    account.Lose(rest_begins, u"LEFT OUT", rest, u"loading has ended before", rest_count);
  }
  return goes_on;
}

}  // namespace

FileAccount AccountOfMapList(std::string_view bytes, const TrialConditions& conditions) {
  FileAccount account;
  DialogTrial trial(conditions);
  trial.WhileOpen([&] {
    const bool is_whole = JudgeLines(trial, bytes, account);
    trial.LoadMapList(bytes);
    if (account.maps != trial.maps().selected.maps() ||
        is_whole != (trial.FailureOf(kMapListTrap) == nullptr)) {
      throw RuntimeError(ErrorNumber::kInternalError,
                         u"the dialog has loaded something else than its rules say");
    }
    trial.Conclude(account);
  });
  return account;
}

}  // namespace quill::host
