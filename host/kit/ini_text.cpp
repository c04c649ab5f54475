// One pass over the lines of an INI text.
#include "host/kit/ini_text.h"

#include <algorithm>
#include <utility>

#include "host/kit/text_line.h"
#include "support/runtime_error.h"

namespace quill::host {
namespace {

bool IsComment(TextView stripped) {
  return !stripped.empty() && (stripped[0] == u';' || stripped[0] == u'#');
}

// The name between the brackets; nothing for a line that begins no section.
std::optional<TextView> SectionName(TextView stripped) {
  if (stripped.empty() || stripped[0] != u'[') return std::nullopt;
  const std::size_t end = stripped.find(u']');
  if (end == TextView::npos) return std::nullopt;
  return WithoutBlanks(stripped.substr(1, end - 1));
}

TextView KeyOf(TextView line) {
  return WithoutBlanks(line.substr(0, line.find(u'=')));
}

[[noreturn]] void Refuse(TextView what, TextView text, TextView why) {
  throw RuntimeError(ErrorNumber::kInvalidProcedureCall,
                     Concat({what, u" \"", text, u"\" cannot be stored: it ", why}));
}

bool HasLineBreak(TextView text) {
  return text.find_first_of(u"\r\n") != TextView::npos;
}

void CheckEntry(TextView section, TextView key, TextView value) {
  if (HasLineBreak(section)) Refuse(u"The section name", section, u"has a line break in it");
  if (WithoutBlanks(section).empty()) Refuse(u"The section name", section, u"is blank");
  if (section.find(u']') != TextView::npos) {
    Refuse(u"The section name", section, u"has a bracket in it");
  }
  if (HasLineBreak(key)) Refuse(u"The key", key, u"has a line break in it");
  if (WithoutBlanks(key).empty()) Refuse(u"The key", key, u"is blank");
  if (WithoutBlanks(key) != key) Refuse(u"The key", key, u"has blanks at its ends");
  if (key.find(u'=') != TextView::npos) Refuse(u"The key", key, u"has an equals sign in it");
  if (IsComment(key) || key[0] == u'[') Refuse(u"The key", key, u"would not be read as a key");
  if (HasLineBreak(value)) Refuse(u"The value", value, u"has a line break in it");
}

}  // namespace

IniOutline OutlineIni(TextView text, TextView section) {
  const TextView wanted = WithoutBlanks(section);
  IniOutline outline;
  bool in_section = false;
  for (std::size_t number = 1; !text.empty(); ++number) {
    const TextView line = TakeLine(text).content;
    const TextView stripped = WithoutBlanks(line);
    if (stripped.empty() || IsComment(stripped)) continue;
    if (const auto name = SectionName(stripped)) {
      in_section = !outline.has_section && EqualIgnoringCase(*name, wanted);
      outline.has_section = outline.has_section || in_section;
      continue;
    }
    const std::size_t equals = line.find(u'=');
    const TextView value = equals == TextView::npos ? TextView() : line.substr(equals);
    outline.entries.push_back({number, in_section, Concat({KeyOf(line), value})});
  }
  return outline;
}

std::optional<std::vector<Text>> IniSection(TextView text, TextView section) {
  IniOutline outline = OutlineIni(text, section);
  if (!outline.has_section) return std::nullopt;
  std::vector<Text> entries;
  for (IniOutline::Entry& entry : outline.entries) {
    if (entry.in_section) entries.push_back(std::move(entry.text));
  }
  return entries;
}

IniEntry SplitIniEntry(TextView entry) {
  const std::size_t equals = entry.find(u'=');
  if (equals == TextView::npos) return {Text(entry), Text()};
  return {Text(entry.substr(0, equals)), Text(entry.substr(equals + 1))};
}

Text WithIniEntry(TextView text, TextView section, TextView key, TextView value) {
  CheckEntry(section, key, value);
  const TextView wanted = WithoutBlanks(section);
  Text changed;
  changed.reserve(text.size() + section.size() + key.size() + value.size() + 16);
  TextView line_end;  // of the first line
  std::size_t insert_at = Text::npos;
  bool in_section = false;
  bool is_placed = false;
  for (TextView rest = text; !rest.empty();) {
    const TextLine line = TakeLine(rest);
    if (line_end.empty()) line_end = line.end;
    const TextView stripped = WithoutBlanks(line.content);
    const bool counts = !stripped.empty() && !IsComment(stripped);
    const auto name = counts ? SectionName(stripped) : std::nullopt;
    if (name) {
      in_section = insert_at == Text::npos && EqualIgnoringCase(*name, wanted);
    } else if (in_section && counts && EqualIgnoringCase(KeyOf(line.content), key)) {
      if (is_placed) continue;
      is_placed = true;
      changed += Concat({key, u"=", value, line.end});
      insert_at = changed.size();
      continue;
    }
    changed += line.content;
    changed += line.end;
    if (in_section && counts) insert_at = changed.size();
  }
  if (is_placed) return changed;

  if (line_end.empty()) line_end = kLineBreak;
  const bool is_new_section = insert_at == Text::npos;
  if (is_new_section) insert_at = changed.size();
  Text added;
  const bool follows_open_line =
      insert_at != 0 && TextView(u"\r\n").find(changed[insert_at - 1]) == TextView::npos;
  if (follows_open_line) added += line_end;
  if (is_new_section) {
    if (insert_at != 0) added += line_end;
    added += Concat({u"[", section, u"]", line_end});
  }
  added += Concat({key, u"=", value, line_end});
  changed.insert(insert_at, added);
  return changed;
}

}  // namespace quill::host
