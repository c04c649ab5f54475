// The kits as tables of their operations, the checks of how the plug-in calls them, and the
// registry entries under which their classes are found.
#include "host/win32/kit_object.h"

#include <array>
#include <atomic>
#include <vector>

#include "com/class_factory.h"
#include "com/com_error.h"
#include "com/late_bound.h"
#include "com/variant.h"
#include "host/win32/member_table.h"
#include "plugin/host_objects.h"
#include "support/runtime_error.h"

namespace quill::host {
namespace {

using com::Variant;

std::atomic<long> living_objects = 0;

Variant SectionOf(FileKit& kit, TextView section, TextView path) {
  const auto found = kit.GetIniSection(section, path);
  if (!found) return {};
  std::vector<Text> elements(found->count);
  for (std::size_t i = 0; i < elements.size(); ++i) elements[i] = found->element(i);
  return ArrayOfTexts(elements);
}

Variant EntryOf(FileKit& kit, TextView line, bool is_key_wanted) {
  if (!is_key_wanted) return Variant::OfText(kit.ParseIniValue(line));
  const IniEntry entry = kit.ParseIniKey(line);
  return ArrayOfTexts(std::array{entry.key, entry.value});
}

// The error is an object with the members of a script's Err.
RuntimeError ErrorIn(const VARIANT& error) {
  const auto object = com::ObjectOf(error);
  if (!object) throw RuntimeError(ErrorNumber::kTypeMismatch);
  const com::LateBound raised(object->get());
  return {com::Int32Of(*raised.Call(u"Number", {}).get()),
          com::TextOf(*raised.Call(u"Description", {}).get())};
}

ErrorReport ReportIn(const VARIANT& elements) {
  SAFEARRAY* const array = com::ArrayOf(elements);
  const Variant line = Variant::OfText(com::ElementText(array, 5));
  return {com::ElementText(array, 0), com::ElementText(array, 1), com::ElementText(array, 2),
          com::ElementText(array, 3), com::ElementText(array, 4), com::Int32Of(*line.get())};
}

constexpr VARTYPE kAnyType = VT_EMPTY;
constexpr VARTYPE kTextByReference = VT_BSTR | VT_BYREF;

std::vector<Member> FileKitMembers(FileKit& kit) {
  return {
      {u"WriteFile",
       [&kit](TextView path, TextView text) { kit.WriteFile(path, text); },
       {kTextByReference, VT_BSTR}},
      {u"CompressString",
       [&kit](TextView text) { return kit.CompressString(text); },
       {kTextByReference}},
      {u"DecompressString",
       [&kit](TextView text, std::int32_t length) { return kit.DecompressString(text, length); },
       {VT_BSTR, VT_I4}},
      {u"GetIniSection",
       [&kit](TextView section, TextView path) { return SectionOf(kit, section, path); },
       {VT_BSTR, kTextByReference}},
      {u"ParseIniKey",
       [&kit](TextView line, bool is_key_wanted) { return EntryOf(kit, line, is_key_wanted); },
       {VT_BSTR, VT_BOOL}},
      {u"WriteIniKey",
       [&kit](TextView section, TextView key, TextView value, TextView path) {
         kit.WriteIniKey(section, key, value, path);
       },
       {VT_BSTR, VT_BSTR, kAnyType, kTextByReference}},
      {u"LogError",
       [&kit](TextView library, TextView label, const VARIANT& error, std::int32_t line) {
         kit.LogError(library, label, ErrorIn(error), line);
       },
       {VT_BSTR, kTextByReference, VT_DISPATCH | VT_BYREF, VT_I4 | VT_BYREF}},
      {u"SendErrorReport",
       [&kit](const VARIANT& elements) { return kit.SendErrorReport(ReportIn(elements)); },
       {VT_ARRAY | VT_VARIANT | VT_BYREF}},
  };
}

class KitObject final : public TableObject {
 public:
  KitObject(const KitServices& services, TextView name, std::vector<Member> members)
      : TableObject(name, std::move(members)), services_(services) {
    ++living_objects;
    if (services_.are_calls_checked) kept.push_back(this);
  }

  STDMETHODIMP_(ULONG) AddRef() override {
    return MayBeCounted(u"AddRef") ? DispatchObject::AddRef() : 0;
  }
  STDMETHODIMP_(ULONG) Release() override {
    return MayBeCounted(u"Release") ? DispatchObject::Release() : 0;
  }
  static void ForgetReleased() noexcept {
    std::erase_if(kept, [](const KitObject* object) {
      const bool is_released = object->is_let_go_;
      if (is_released) delete object;
      return is_released;
    });
  }
  STDMETHODIMP Invoke(DISPID id, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* given,
                      VARIANT* result, EXCEPINFO* raised, UINT* argument) override {
    const Member* const member = Find(id);
    if (member != nullptr && is_let_go_) {
      Breach(member->name, kUsedTooLate);
      return E_UNEXPECTED;
    }
    if (member != nullptr && given != nullptr) CheckCall(*member, *given);
    return TableObject::Invoke(id, reserved, locale, flags, given, result, raised, argument);
  }

 private:
  ~KitObject() override = default;

  void LetGo() override {
    --living_objects;
    is_let_go_ = true;
    if (!services_.are_calls_checked) delete this;
  }

  bool MayBeCounted(TextView member) {
    if (::GetCurrentThreadId() != services_.thread) Breach(member, kWrongThread);
    if (is_let_go_) Breach(member, kUsedTooLate);
    return !is_let_go_;
  }

  void CheckCall(const Member& member, const DISPPARAMS& given) {
    if (::GetCurrentThreadId() != services_.thread) Breach(member.name, kWrongThread);
    if (services_.is_call_running && !services_.is_call_running()) {
      Breach(member.name, "called while the host calls nothing");
    }
    const std::size_t count = member.types.size();
    if (given.cArgs != count || given.cNamedArgs != 0) {
      return Breach(member.name, "called with another number of arguments");
    }
    for (std::size_t i = 0; i < count; ++i) {
      const VARTYPE wanted = member.types[i];
      const VARTYPE came = given.rgvarg[count - 1 - i].vt;
      if (wanted == kAnyType || wanted == came) continue;
      Breach(member.name, "argument " + std::to_string(i) + " came as variant type " +
                              std::to_string(came) + ", not " + std::to_string(wanted));
    }
  }

  void Breach(TextView member, std::string_view what) {
    if (!services_.are_calls_checked) return;
    services_.contract.Note(Side::kPlugin,
                            ToUtf8(Concat({name(), u".", member})) + ": " + std::string(what));
  }

  static constexpr std::string_view kWrongThread = "called on another thread than the host's";
  static constexpr std::string_view kUsedTooLate =
      "called after the object's last reference was released";

  // Those whose calls are checked; each stays after its last release until it is forgotten.
  static inline std::vector<KitObject*> kept;
  std::atomic<bool> is_let_go_ = false;

  const KitServices services_;
};

com::ComPtr<IDispatch> MakeKit(const KitServices& services, TextView name,
                               std::vector<Member> members) {
  return com::ComPtr<IDispatch>::Adopt(new KitObject(services, name, std::move(members)));
}

using com::RegistrationScope;

constexpr KitClass kKits[] = {
    {{kFileKitProgId,
      u"File kit of the Quillstart reference host",
      {0x3D0F6C27, 0x9B1E, 0x4F58, {0x86, 0xC4, 0x52, 0xA7, 0xE0, 0x9D, 0x31, 0x6B}}},
     [](const KitServices& services) {
       return MakeKit(services, kFileKitProgId, FileKitMembers(services.file_kit));
     }},
    {{kMemoryKitProgId,
      u"Memory kit of the Quillstart reference host",
      {0x81B5E94A, 0x6C70, 0x43D2, {0xAF, 0x19, 0xE8, 0x04, 0x7B, 0xC6, 0x25, 0xD3}}},
     [](const KitServices& services) { return MakeKit(services, kMemoryKitProgId, {}); }},
};

}  // namespace

long LivingKitObjects() noexcept {
  return living_objects;
}

void ForgetReleasedKitObjects() noexcept {
  KitObject::ForgetReleased();
}

std::span<const KitClass, 2> KitClassTable() noexcept {
  return kKits;
}

com::ComPtr<IClassFactory> MakeKitFactory(const KitServices& services, const KitClass& kit) {
  return com::MakeClassFactory([services, &kit](REFIID wanted, void** object) {
    if (services.before_creation) services.before_creation(kit.registered.prog_id);
    return kit.make(services)->QueryInterface(wanted, object);
  });
}

// The other constructor has finished by then, so that a failure here runs the destructor, which
// withdraws what was offered.
KitClasses::KitClasses(const KitServices& services) : KitClasses() {
  for (std::size_t i = 0; i < std::size(kKits); ++i) {
    const KitClass& kit = kKits[i];
    com::ThrowIfFailed(::CoRegisterClassObject(
        kit.registered.id, MakeKitFactory(services, kit).get(), CLSCTX_INPROC_SERVER,
        REGCLS_MULTIPLEUSE, &offered_[i].class_object));
    Name(offered_[i], kit);
  }
}

void KitClasses::Name(Offered& offered, const KitClass& kit) {
  const Text id = com::GuidText(kit.registered.id);
  const auto name_for = [&](RegistrationScope scope) {
    offered.former_id = com::ReadProgId(scope, kit.registered.prog_id);
    offered.scope = scope;
    com::WriteProgId(scope, kit.registered.prog_id, id);
    offered.is_named = true;
  };
  try {
    name_for(RegistrationScope::kMachine);
  } catch (const RuntimeError&) {
    name_for(RegistrationScope::kUser);
  }
}

KitClasses::~KitClasses() {
  for (std::size_t i = 0; i < std::size(kKits); ++i) {
    const Offered& offered = offered_[i];
    if (offered.class_object != 0) (void)::CoRevokeClassObject(offered.class_object);
    if (!offered.is_named) continue;
    try {
      com::WriteProgId(offered.scope, kKits[i].registered.prog_id, offered.former_id);
    } catch (const RuntimeError&) {
    }
  }
}

}  // namespace quill::host
