#include "server/record.h"

#include <optional>
#include <vector>

#include "com/bstr.h"
#include "com/com_error.h"
#include "support/runtime_error.h"

namespace quill::com {
namespace {

struct TextField {
  const Text PLUGIN::*from;
  BSTR PluginRecord::*to;
};
constexpr TextField kTextFields[] = {
    {&PLUGIN::Name, &PluginRecord::Name},
    {&PLUGIN::File, &PluginRecord::File},
    {&PLUGIN::Version, &PluginRecord::Version},
    {&PLUGIN::Author, &PluginRecord::Author},
    {&PLUGIN::Description, &PluginRecord::Description},
    {&PLUGIN::MinRCVer, &PluginRecord::MinRCVer},
    {&PLUGIN::MinMemKitVer, &PluginRecord::MinMemKitVer},
    {&PLUGIN::MinFileKitVer, &PluginRecord::MinFileKitVer},
    {&PLUGIN::MinKVRVer, &PluginRecord::MinKVRVer},
    {&PLUGIN::MinRCCVer, &PluginRecord::MinRCCVer},
};

struct FlagField {
  const bool PLUGIN::*from;
  VARIANT_BOOL PluginRecord::*to;
};
constexpr FlagField kFlagFields[] = {
    {&PLUGIN::HasInterface, &PluginRecord::HasInterface},
    {&PLUGIN::ProfileMenu, &PluginRecord::ProfileMenu},
    {&PLUGIN::ServerMenu, &PluginRecord::ServerMenu},
    {&PLUGIN::MainMenu, &PluginRecord::MainMenu},
};

struct ListField {
  const std::optional<std::vector<Text>> PLUGIN::*from;
  VARIANT PluginRecord::*to;
};
constexpr ListField kListFields[] = {
    {&PLUGIN::Game, &PluginRecord::Game},
    {&PLUGIN::ProfileMenuItems, &PluginRecord::ProfileMenuItems},
    {&PLUGIN::ServerMenuItems, &PluginRecord::ServerMenuItems},
    {&PLUGIN::MainMenuItems, &PluginRecord::MainMenuItems},
};

void FillWithTexts(const std::vector<Text>& texts, VARIANT& variant) {
  SAFEARRAY* array = ::SafeArrayCreateVector(VT_BSTR, 0, static_cast<ULONG>(texts.size()));
  if (array == nullptr) throw RuntimeError(ErrorNumber::kOutOfMemory);
  variant.vt = VT_ARRAY | VT_BSTR;
  variant.parray = array;
  LONG place = 0;
  for (const Text& text : texts) {
    const Bstr element(text);
    const HRESULT result = ::SafeArrayPutElement(array, &place, element.get());
    if (FAILED(result)) throw ErrorOf(result);
    ++place;
  }
}

}  // namespace

void FillRecord(const PLUGIN& data, PluginRecord& record) {
  record = PluginRecord{};
  try {
    for (const TextField& field : kTextFields) record.*field.to = NewBstr(data.*field.from);
    for (const FlagField& field : kFlagFields) {
      record.*field.to = data.*field.from ? VARIANT_TRUE : VARIANT_FALSE;
    }
    for (const ListField& field : kListFields) {
      ::VariantInit(&(record.*field.to));
      if (data.*field.from) FillWithTexts(*(data.*field.from), record.*field.to);
    }
  } catch (...) {
    ClearRecord(record);
    throw;
  }
}

void ClearRecord(PluginRecord& record) noexcept {
  for (const TextField& field : kTextFields) ::SysFreeString(record.*field.to);
  for (const ListField& field : kListFields) ::VariantClear(&(record.*field.to));
  record = PluginRecord{};
}

}  // namespace quill::com
