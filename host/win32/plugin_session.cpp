// The calls with their arguments in the forms that a host in a script language sends, and what of
// the contract is checked at the beginning of each call and at the end.
#include "host/win32/plugin_session.h"

#include <filesystem>
#include <string>

#include "com/bstr.h"
#include "com/com_error.h"
#include "com/variant.h"
#include "headless/shown_words.h"
#include "host/kit/text_line.h"
#include "host/win32/member_table.h"
#include "plugin/host_objects.h"
#include "server/plugin_object.h"
#include "support/number_text.h"
#include "support/runtime_error.h"

namespace quill::host {
namespace {

using com::Variant;

Variant ItemIn(const std::vector<Right>& rights, TextView key) {
  for (const Right& right : rights) {
    if (!EqualIgnoringCase(right.name, key)) continue;
    if (right.form == Right::Form::kFails) return ArrayOfTexts({});
    return right.form == Right::Form::kNumber ? Variant::OfInt32(ToInt32(right.value))
                                              : Variant::OfText(right.value);
  }
  throw RuntimeError(ErrorNumber::kInvalidProcedureCall);
}

// The record in a variant, taken out of it: when Wine clears such a variant, it gives back neither
// the record's memory nor what the variants inside hold.
class TakenRecord {
 public:
  explicit TakenRecord(Variant variant) : variant_(variant.Detach()) {
    ULONG size = 0;
    if (variant_.vt == VT_RECORD && SUCCEEDED(variant_.pRecInfo->GetSize(&size)) &&
        size == sizeof(com::PluginRecord)) {
      return;
    }
    ::VariantClear(&variant_);
    throw RuntimeError(ErrorNumber::kTypeMismatch);
  }
  ~TakenRecord() {
    com::ClearRecord(*static_cast<com::PluginRecord*>(variant_.pvRecord));
    variant_.pRecInfo->RecordDestroy(variant_.pvRecord);
    variant_.pRecInfo->Release();
  }
  TakenRecord(const TakenRecord&) = delete;
  TakenRecord& operator=(const TakenRecord&) = delete;

  [[nodiscard]] const VARIANT& get() const noexcept { return variant_; }

 private:
  VARIANT variant_;
};

BOOL CALLBACK CountDialog(HWND window, LPARAM count) {
  if (::GetPropW(window, L"ControlName") != nullptr) ++*reinterpret_cast<int*>(count);
  return TRUE;
}

}  // namespace

com::ComPtr<IDispatch> MakeRightsCollection(std::vector<Right> rights) {
  const auto count = static_cast<std::int32_t>(rights.size());
  std::vector<Member> members = {
      {u"Item", [rights = std::move(rights)](TextView key) { return ItemIn(rights, key); }},
      {u"Count", [count] { return count; }}};
  return com::ComPtr<IDispatch>::Adopt(new TableObject(u"rcRights", std::move(members)));
}

Text PluginClient::DllVersion() {
  const Variant name = Variant::OfText(u"host");
  return com::TextOf(*plugin_.Call(u"dllVersion", {&name}).get());
}

Text PluginClient::Field(const Text& name) {
  const TakenRecord taken(plugin_.Call(u"GetData", {}));
  const VARIANT& record = taken.get();
  Variant field;
  void* array = nullptr;
  com::ThrowIfFailed(
      record.pRecInfo->GetFieldNoCopy(record.pvRecord, com::WideOf(name), field.get(), &array));
  // What came refers into the record, which stays the owner.
  const VARIANT inside = field.Detach();
  const VARIANT& value = com::Referred(inside);
  if ((value.vt & VT_TYPEMASK) == VT_EMPTY) return u"empty";
  if ((value.vt & VT_TYPEMASK) == VT_BOOL) {
    return Text(headless::TruthWord(com::TruthOf(value)));
  }
  SAFEARRAY* elements = com::ArrayOf(value);
  if (elements == nullptr) return com::TextOf(value);
  std::vector<Text> texts;
  LONG upper = -1;
  (void)::SafeArrayGetUBound(elements, 1, &upper);
  for (LONG i = 0; i <= upper; ++i) texts.push_back(com::ElementText(elements, i));
  return Joined(texts, u"|");
}

void PluginClient::SetPrivis(const std::vector<Right>& rights, bool is_super_admin) {
  const auto names = MakeRightsCollection(rights);
  const auto values = MakeRightsCollection({});
  IDispatch* objects[] = {names.get(), values.get()};
  const Variant name_argument = Variant::ByReference(&objects[0]);
  const Variant value_argument = Variant::ByReference(&objects[1]);
  const Variant super = Variant::OfBoolean(is_super_admin);
  plugin_.Call(u"SetPrivis", {&name_argument, &value_argument, &super});
}

void PluginClient::LoadInterface(std::int32_t index, const std::vector<Text>& target) {
  Variant array = ArrayOfTexts(target);
  Variant by_reference;
  by_reference.get()->vt = VT_VARIANT | VT_BYREF;
  by_reference.get()->pvarVal = array.get();
  const Variant index_argument = Variant::OfInt32(index);
  const Variant window_argument = Variant::OfInt32(0);
  plugin_.Call(u"LoadInterface", {&index_argument, &window_argument, &by_reference});
}

void PluginClient::RemoteData(const Text& data) {
  com::Bstr text(data);
  const Variant argument = Variant::ByReference(text.address());
  plugin_.Call(u"RemoteData", {&argument});
}

void PluginClient::HideInterface() {
  plugin_.Call(u"HideInterface", {});
}

void PluginSession::BeginCall() {
  if (::GetCurrentThreadId() != thread_) {
    contract_.Note(Side::kHost, "called the plug-in on another thread than its own");
  }
  ++running_calls_;
}

PluginSession::PluginSession(const LoadedLibrary& library, ContractLog& contract, const Text& root)
    : library_(library),
      contract_(contract),
      storage_([](TextView path) { return std::filesystem::path(Text(path)); }),
      journal_(root, files_, storage_),
      classes_({watched_kit_, contract, thread_, [this](TextView kit) { KitIsCreated(kit); },
                [this] { return running_calls_ != 0; }}) {}

PluginSession::~PluginSession() {
  if (running_calls_ != 0) {
    contract_.Note(Side::kHost, "let the plug-in go while a call of it was running");
  }
  plugin_.reset();
  if (!library_.CanUnload()) {
    contract_.Note(Side::kPlugin, "the library cannot be unloaded after its last object was freed");
  }
  if (const long left = LivingKitObjects(); left != 0) {
    contract_.Note(Side::kPlugin,
                   "holds " + std::to_string(left) + " of the host's service objects at the end");
  }
  int windows = 0;
  ::EnumThreadWindows(thread_, &CountDialog, reinterpret_cast<LPARAM>(&windows));
  if (windows != 0) contract_.Note(Side::kPlugin, "leaves its dialog behind");
  ForgetReleasedKitObjects();
}

PluginClient& PluginSession::Plugin() {
  if (!plugin_) plugin_.emplace(library_.MakePlugin());
  return *plugin_;
}

void PluginSession::KitIsCreated(TextView prog_id) {
  if (running_calls_ == 0) {
    contract_.Note(Side::kPlugin, "creates " + ToUtf8(prog_id) + " while the host calls nothing");
  }
  const bool is_memory_kit = prog_id == kMemoryKitProgId;
  if (created_kits_.size() != (is_memory_kit ? 1u : 0u)) {
    contract_.Note(Side::kPlugin, "creates " + ToUtf8(prog_id) +
                                      " out of turn: the file kit comes first, each comes once");
  }
  created_kits_.emplace_back(prog_id);
  if (kit_watch_.TakeFault(is_memory_kit ? u"CreateMemoryKit" : u"CreateFileKit")) {
    throw RuntimeError(ErrorNumber::kCannotCreateObject);
  }
}

}  // namespace quill::host
