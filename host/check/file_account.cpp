// Wording of accounts.
#include "host/check/file_account.h"

#include <algorithm>

#include "maps/map_catalogue.h"
#include "maps/map_entry.h"

namespace quill::host {
namespace {

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

}  // namespace

void FileAccount::Set(std::size_t line, TextView what, TextView value, TextView meaning) {
  Note(line, Concat({u"sets ", what, u" to ",
                     meaning.empty() ? Quoted(value)
                                     : Concat({Shown(value), u", that is ", Quoted(meaning)})}));
}

void FileAccount::Select(std::size_t line, const SelectedMap& map) {
  const bool has_name = map.game_type >= 0 && map.game_type < std::ssize(kGameTypeNames);
  Note(line, Concat({u"selects ", Shown(JoinMapEntry(map.name, map.file)), u" (",
                     has_name ? Text(kGameTypeNames.at(static_cast<std::size_t>(map.game_type)))
                              : Concat({u"game type ", Decimal(map.game_type)}),
                     map.server_map ? u", the machine's own)" : u")"}));
  maps.push_back(map);
}

void FileAccount::Lose(std::size_t line, TextView how, TextView what, TextView why,
                       std::size_t count) {
  Note(line,
       Concat({how, u" ",
               count == 1 ? Quoted(what) : Concat({what, u" (", Count(count, {}, u"lines"), u")"}),
               u": ", Shown(why)}));
  left_out += count;
}

Text FileAccount::Summary() const {
  const Text set = options ? Concat({Count(*options, u"option", u"options"), u" set, "}) : Text();
  return Concat({set, Count(maps.size(), u"map", u"maps"), u" selected from the ",
                 CatalogueName(with_team_sabre_maps), u" catalogue (mod ", Quoted(mod), u"), ",
                 left_out == 0 ? Text(u"nothing") : Decimal(std::int64_t(left_out)), u" left out"});
}

}  // namespace quill::host
