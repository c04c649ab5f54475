// The record's fields, each filled from the portable one of the same name.
#include "server/plugin_object.h"

#include <optional>
#include <vector>

#include "com/bstr.h"
#include "com/com_error.h"

namespace quill::com {
namespace {

void Fill(BSTR& field, const Text& text) {
  field = NewBstr(text);
}
void Fill(VARIANT_BOOL& field, bool truth) {
  field = truth ? VARIANT_TRUE : VARIANT_FALSE;
}
void Fill(VARIANT& field, const std::optional<std::vector<Text>>& texts) {
  // It stays an empty variant.
  if (!texts) return;
  field.parray = ::SafeArrayCreateVector(VT_BSTR, 0, static_cast<ULONG>(texts->size()));
  if (field.parray == nullptr) throw RuntimeError(ErrorNumber::kOutOfMemory);
  field.vt = VT_ARRAY | VT_BSTR;
  LONG place = 0;
  for (const Text& text : *texts) {
    ThrowIfFailed(::SafeArrayPutElement(field.parray, &place, Bstr(text).get()));
    ++place;
  }
}

void Free(BSTR& field) {
  ::SysFreeString(field);
}
void Free(VARIANT_BOOL&) {}
void Free(VARIANT& field) {
  ::VariantClear(&field);
}

// Tells `visit` the places of each field in both records.
template <class Visit>
void ForEachField(const Visit& visit) {
  visit(&PLUGIN::Name, &PluginRecord::Name);
  visit(&PLUGIN::File, &PluginRecord::File);
  visit(&PLUGIN::Version, &PluginRecord::Version);
  visit(&PLUGIN::Author, &PluginRecord::Author);
  visit(&PLUGIN::Description, &PluginRecord::Description);
  visit(&PLUGIN::Game, &PluginRecord::Game);
  visit(&PLUGIN::HasInterface, &PluginRecord::HasInterface);
  visit(&PLUGIN::ProfileMenu, &PluginRecord::ProfileMenu);
  visit(&PLUGIN::ServerMenu, &PluginRecord::ServerMenu);
  visit(&PLUGIN::MainMenu, &PluginRecord::MainMenu);
  visit(&PLUGIN::ProfileMenuItems, &PluginRecord::ProfileMenuItems);
  visit(&PLUGIN::ServerMenuItems, &PluginRecord::ServerMenuItems);
  visit(&PLUGIN::MainMenuItems, &PluginRecord::MainMenuItems);
  visit(&PLUGIN::MinRCVer, &PluginRecord::MinRCVer);
  visit(&PLUGIN::MinMemKitVer, &PluginRecord::MinMemKitVer);
  visit(&PLUGIN::MinFileKitVer, &PluginRecord::MinFileKitVer);
  visit(&PLUGIN::MinKVRVer, &PluginRecord::MinKVRVer);
  visit(&PLUGIN::MinRCCVer, &PluginRecord::MinRCCVer);
}

}  // namespace

void FillRecord(const PLUGIN& data, PluginRecord& record) {
  record = PluginRecord{};
  try {
    ForEachField([&](auto from, auto to) { Fill(record.*to, data.*from); });
  } catch (...) {
    ClearRecord(record);
    throw;
  }
}

void ClearRecord(PluginRecord& record) noexcept {
  ForEachField([&](auto, auto to) { Free(record.*to); });
  record = PluginRecord{};
}

}  // namespace quill::com
