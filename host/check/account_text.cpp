// Wording of accounts.
#include "host/check/account_text.h"

#include <algorithm>

namespace quill::host {
namespace {

using Kind = AccountLine::Kind;

constexpr std::size_t kLongest = 100;

// Control characters, and those that turn the direction of writing.
bool IsTreacherous(char16_t unit) {
  return unit < 0x20 || (unit >= 0x7F && unit < 0xA0) || unit == 0x061C || unit == 0x200E ||
         unit == 0x200F || (unit >= 0x2028 && unit <= 0x202E) ||
         (unit >= 0x2066 && unit <= 0x2069) || unit == 0xFEFF;
}

Text Shown(TextView text) {
  Text shown(text.substr(0, kLongest));
  std::replace_if(shown.begin(), shown.end(), IsTreacherous, u'\uFFFD');
  if (text.size() > kLongest) shown += u"...";
  return shown;
}

Text Quoted(TextView text) {
  return Concat({u"\"", Shown(text), u"\""});
}

Text Count(std::size_t count, TextView one, TextView many) {
  return Concat({Decimal(static_cast<std::int64_t>(count)), u" ", count == 1 ? one : many});
}

// A value with what it shows as.
Text Value(const AccountLine& line) {
  if (line.remark.empty()) return Quoted(line.value);
  return Concat({Shown(line.value), u", that is ", Quoted(line.remark)});
}

}  // namespace

Text AccountLineText(const AccountLine& line) {
  switch (line.kind) {
    case Kind::kOptionSet:
      return Concat({u"sets ", line.subject, u" to ", Value(line)});
    case Kind::kControlSet:
      return Concat({u"sets ", line.subject, u", which is no option, to ", Value(line)});
    case Kind::kMod:
      return Concat({u"maps are looked up in the ", line.value, u" catalogue from here on"});
    case Kind::kMapFound:
      return Concat({u"selects ", Shown(line.subject), u" (", line.value, u")"});
    case Kind::kMapMissing:
      return Concat({u"MISSING map ", Quoted(line.subject), u": ", Shown(line.value)});
    case Kind::kLeftOut:
      return Concat(
          {u"LEFT OUT ", line.count == 1 ? Quoted(line.subject) : line.subject,
           line.count == 1 ? Text() : Concat({u" (", Count(line.count, u"", u"lines"), u")"}),
           u": ", Shown(line.value)});
    case Kind::kFailed:
      return Concat({u"FAILS at ", Quoted(line.subject), u": ", Shown(line.value)});
    case Kind::kNote:
      break;
  }
  return line.subject;
}

Text AccountSummary(const FileAccount& account) {
  const Text options = Concat({Count(account.options, u"option", u"options"), u" set, "});
  const Text lost = Decimal(static_cast<std::int64_t>(account.left_out));
  return Concat({account.has_options ? options : Text(), Count(account.maps, u"map", u"maps"),
                 u" selected from the ", CatalogueName(account.with_team_sabre_maps),
                 u" catalogue (mod ", Quoted(account.mod), u"), ",
                 account.left_out == 0 ? TextView(u"nothing") : lost, u" left out"});
}

}  // namespace quill::host
