// A map list's lines judged as the dialog judges them, and the dialog's own loading held against
// that.
#include "dialog/map_list_file.h"

#include "dialog/text_lines.h"
#include "host/check/dialog_trial.h"
#include "host/check/missing_map.h"
#include "maps/map_entry.h"

namespace quill::host {
namespace {

using Kind = AccountLine::Kind;

constexpr TextView kMapListTrap = u"cmdLoadMaps";

Text WhySkipped(TextView line) {
  if (line.find(u'\n') != TextView::npos) return u"a line feed alone does not end a line";
  const std::size_t fields = SplitStoredMap(line).count;
  if (fields == 1) return u"it names no map";
  return Concat({u"it has ", Decimal(static_cast<std::int64_t>(fields)), u" fields instead of 3"});
}

// What the line does; nothing for a blank one.
std::optional<AccountLine> Judge(const DialogTrial& trial, const TrialConditions& conditions,
                                 const Text& line, std::size_t number) {
  if (IsBlank(line)) return std::nullopt;
  const std::optional<StoredMapFields> fields = FieldsOfMapLine(line);
  if (!fields) return AccountLine{Kind::kLeftOut, number, line, WhySkipped(line)};
  const auto& [code, flag, file, unused] = fields->first;
  try {
    // How the dialog keeps a map that is found is told from its own list.
    if (FindStoredMap(trial.maps(), code, flag, file)) {
      return AccountLine{Kind::kMapFound, number, u"", u""};
    }
  } catch (const RuntimeError& error) {
    return AccountLine{Kind::kFailed, number, line,
                       Concat({error.description(), u" (error ", Decimal(error.number()), u")"})};
  }
  return AccountLine{Kind::kMapMissing, number, Text(TrimBlanks(file)),
                     WhyMissing(trial.maps(), conditions, code, flag, file)};
}

void JudgeLines(DialogTrial& trial, const TrialConditions& conditions, std::string_view bytes,
                FileAccount& account) {
  TextLines lines(trial.Reader(bytes), trial.code_page());
  Text line;
  AccountLine rest{Kind::kLeftOut, 0, u"", u"loading has ended before", 0};
  bool has_failed = false;
  for (std::size_t number = 1; lines.Next(line); ++number) {
    if (has_failed) {
      if (IsBlank(line)) continue;
      if (rest.count++ == 0) rest.line = number;
      rest.subject = rest.count == 1 ? line : Text(u"what follows");
      continue;
    }
    if (auto judged = Judge(trial, conditions, line, number)) {
      has_failed = judged->kind == Kind::kFailed;
      account.lines.push_back(std::move(*judged));
    }
  }
  if (rest.count != 0) account.lines.push_back(std::move(rest));
}

// Fills in the maps that the dialog has loaded.
void TakeLoaded(const DialogTrial& trial, FileAccount& account) {
  const SelectedMapList& selected = trial.maps().selected;
  int position = 0;
  bool has_failed = false;
  for (AccountLine& line : account.lines) {
    has_failed = has_failed || line.kind == Kind::kFailed;
    if (line.kind != Kind::kMapFound || ++position > selected.Count()) continue;
    const SelectedMap& map = selected.At(position);
    line.subject = JoinMapEntry(map.name, map.file);
    line.value = MapOrigin(map);
  }
  if (position != selected.Count() || has_failed != (trial.FailureOf(kMapListTrap) != nullptr)) {
    throw RuntimeError(ErrorNumber::kInternalError,
                       u"the dialog has loaded something else than its rules say");
  }
}

}  // namespace

FileAccount AccountOfMapList(std::string_view bytes, const TrialConditions& conditions) {
  FileAccount account;
  DialogTrial trial(conditions);
  trial.WhileOpen([&] {
    JudgeLines(trial, conditions, bytes, account);
    trial.LoadMapList(bytes);
    TakeLoaded(trial, account);
    Conclude(trial, account);
  });
  return account;
}

}  // namespace quill::host
