// The record's fields as one table.
#include "host/story/record_field.h"

#include <variant>

#include "headless/shown_words.h"
#include "host/kit/text_line.h"
#include "support/runtime_error.h"

namespace quill::host {
namespace {

using Texts = std::optional<std::vector<Text>>;

struct Field {
  TextView name;
  std::variant<Text PLUGIN::*, bool PLUGIN::*, Texts PLUGIN::*> value;
};
constexpr Field kFields[] = {
    {u"Name", &PLUGIN::Name},
    {u"File", &PLUGIN::File},
    {u"Version", &PLUGIN::Version},
    {u"Author", &PLUGIN::Author},
    {u"Description", &PLUGIN::Description},
    {u"Game", &PLUGIN::Game},
    {u"HasInterface", &PLUGIN::HasInterface},
    {u"ProfileMenu", &PLUGIN::ProfileMenu},
    {u"ServerMenu", &PLUGIN::ServerMenu},
    {u"MainMenu", &PLUGIN::MainMenu},
    {u"ProfileMenuItems", &PLUGIN::ProfileMenuItems},
    {u"ServerMenuItems", &PLUGIN::ServerMenuItems},
    {u"MainMenuItems", &PLUGIN::MainMenuItems},
    {u"MinRCVer", &PLUGIN::MinRCVer},
    {u"MinMemKitVer", &PLUGIN::MinMemKitVer},
    {u"MinFileKitVer", &PLUGIN::MinFileKitVer},
    {u"MinKVRVer", &PLUGIN::MinKVRVer},
    {u"MinRCCVer", &PLUGIN::MinRCCVer},
};

Text Shown(const Text& text) {
  return text;
}

Text Shown(bool value) {
  return Text(headless::TruthWord(value));
}

Text Shown(const Texts& texts) {
  return texts ? Joined(*texts, u"|") : Text(u"empty");
}

}  // namespace

Text RecordField(const PLUGIN& record, TextView field) {
  for (const auto& [name, value] : kFields) {
    if (name != field) continue;
    return std::visit([&](auto member) { return Shown(record.*member); }, value);
  }
  throw RuntimeError(ErrorNumber::kMemberNotFound,
                     Concat({u"the record has no field \"", field, u"\""}));
}

}  // namespace quill::host
