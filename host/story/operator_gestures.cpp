// The arguments of gestures.
#include "host/story/operator_gestures.h"

#include <cstdlib>

namespace quill::host {
namespace {

// More rows than any list of a story has.
constexpr std::int32_t kMostRows = 10'000;

struct NamedKey {
  TextView name;
  ui::KeyStroke stroke;
};
constexpr NamedKey kKeys[] = {{u"Enter", {ui::kEnterKey}}, {u"Up", {ui::kUpKey}},
                              {u"Down", {ui::kDownKey}},   {u"Home", {ui::kHomeKey}},
                              {u"End", {ui::kEndKey}},     {u"Del", {ui::kDeleteKey}}};

bool IsRange(TextView rows) {
  return rows.find(u'-') != TextView::npos;
}

}  // namespace

std::int16_t ButtonOf(TextView name) {
  if (name == u"right") return ui::kRightButton;
  return name == u"middle" ? ui::kMiddleButton : ui::kLeftButton;
}

ui::KeyStroke KeyStrokeOf(TextView name) {
  if (name.starts_with(u"Alt+")) {
    ui::KeyStroke inner = KeyStrokeOf(name.substr(4));
    inner.shift = static_cast<std::int16_t>(inner.shift | ui::kAltHeld);
    return inner;
  }
  if (name.size() == 6 && name.starts_with(u"Ctrl+")) return {ToUpper(name[5]), ui::kCtrlHeld};
  const auto* key = std::ranges::find(kKeys, name, &NamedKey::name);
  if (key == std::end(kKeys)) throw StoryFailure({u"there is no key ", QuotedForStory(name)});
  return key->stroke;
}

char16_t CharacterOf(TextView text) {
  if (text.size() != 1) throw StoryFailure({u"a key is one character"});
  return text[0];
}

int TimesOf(TextView held) {
  return held.empty() ? 1 : 5;
}

std::vector<int> RowsOf(const Words& words, int row_count) {
  std::vector<int> rows;
  for (std::size_t at = 1; at < words.size(); ++at) {
    const TextView word = words[at];
    if (word == u"none") continue;
    const std::size_t dash = word.find(u'-');
    const bool is_all = word == u"all";
    const int first = is_all ? 0 : ToInt32(word.substr(0, dash));
    const int last = is_all                   ? row_count - 1
                     : dash == TextView::npos ? first
                                              : ToInt32(word.substr(dash + 1));
    if (last - first >= kMostRows) throw StoryFailure({u"the range is too long"});
    for (int row = first; row <= last; ++row) rows.push_back(row);
  }
  return rows;
}

std::int64_t KeysOf(const Words& words) {
  return std::ssize(words[1]);
}

std::int64_t StepsOf(const Words& words) {
  return std::abs(std::int64_t{ToInt32(words[1])});
}

// A range takes a click on each of its ends.
std::int64_t ClicksOn(const Words& words) {
  return std::ssize(words) - 1 + std::count_if(words.begin() + 1, words.end(), IsRange);
}

}  // namespace quill::host
