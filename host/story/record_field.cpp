// The record's fields as one table.
#include "host/story/record_field.h"

#include "support/runtime_error.h"

namespace quill::host {
namespace {

using Texts = std::optional<std::vector<Text>>;

struct TextField {
  TextView name;
  Text PLUGIN::*value;
};
constexpr TextField kTexts[] = {
    {u"Name", &PLUGIN::Name},
    {u"File", &PLUGIN::File},
    {u"Version", &PLUGIN::Version},
    {u"Author", &PLUGIN::Author},
    {u"Description", &PLUGIN::Description},
    {u"MinRCVer", &PLUGIN::MinRCVer},
    {u"MinMemKitVer", &PLUGIN::MinMemKitVer},
    {u"MinFileKitVer", &PLUGIN::MinFileKitVer},
    {u"MinKVRVer", &PLUGIN::MinKVRVer},
    {u"MinRCCVer", &PLUGIN::MinRCCVer},
};

struct TruthField {
  TextView name;
  bool PLUGIN::*value;
};
constexpr TruthField kTruths[] = {
    {u"HasInterface", &PLUGIN::HasInterface},
    {u"ProfileMenu", &PLUGIN::ProfileMenu},
    {u"ServerMenu", &PLUGIN::ServerMenu},
    {u"MainMenu", &PLUGIN::MainMenu},
};

struct ArrayField {
  TextView name;
  Texts PLUGIN::*value;
};
constexpr ArrayField kArrays[] = {
    {u"Game", &PLUGIN::Game},
    {u"ProfileMenuItems", &PLUGIN::ProfileMenuItems},
    {u"ServerMenuItems", &PLUGIN::ServerMenuItems},
    {u"MainMenuItems", &PLUGIN::MainMenuItems},
};

Text Joined(const Texts& texts) {
  if (!texts) return u"empty";
  Text joined;
  for (const Text& text : *texts) {
    if (&text != texts->data()) joined += u'|';
    joined += text;
  }
  return joined;
}

}  // namespace

Text RecordField(const PLUGIN& record, TextView field) {
  for (const TextField& text : kTexts) {
    if (text.name == field) return record.*text.value;
  }
  for (const TruthField& truth : kTruths) {
    if (truth.name == field) return record.*truth.value ? u"true" : u"false";
  }
  for (const ArrayField& array : kArrays) {
    if (array.name == field) return Joined(record.*array.value);
  }
  throw RuntimeError(ErrorNumber::kMemberNotFound,
                     Concat({u"the record has no field \"", field, u"\""}));
}

}  // namespace quill::host
