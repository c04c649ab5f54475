// An automation object whose members a test writes as functions, as strict or as odd as the objects
// that scripts and hosts hand over, and a host whose file kit is one. It knows the user's default
// locale only.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <span>
#include <vector>

#include "com/automation.h"
#include "com/class_factory.h"
#include "com/com_error.h"
#include "com/com_ptr.h"
#include "com/object.h"
#include "com/variant.h"
#include "server/registration.h"
#include "tests/server/plugin_bench.h"

namespace quill::com {

class ScriptedObject final : public Object<IDispatchEx> {
 public:
  // Arguments come in calling order; a RuntimeError is raised to the caller.
  using Member = std::function<Variant(std::span<const VARIANT> arguments)>;

  std::map<Text, Member> members;  // in their own spelling; callers may use any letter case
  Member default_member;
  Member enumeration;
  bool answers_extended_only = false;  // both look-up and call
  WORD takes = DISPATCH_METHOD | DISPATCH_PROPERTYGET;
  bool is_strict = false;  // refuses calls that ask for more than it takes
  std::function<HRESULT(EXCEPINFO& raised)> refuses;  // every call, when given

  [[nodiscard]] static ComPtr<ScriptedObject> Make() {
    return ComPtr<ScriptedObject>::Adopt(new ScriptedObject);
  }
  [[nodiscard]] ULONG references() {
    AddRef();
    return Release();
  }

  STDMETHODIMP GetTypeInfoCount(UINT* count) override { return *count = 0, S_OK; }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return DISP_E_BADINDEX; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID locale, DISPID* ids) override {
    if (locale != LOCALE_USER_DEFAULT) return DISP_E_UNKNOWNLCID;
    ids[0] = answers_extended_only ? DISPID_UNKNOWN : Find(names[0]);
    return ids[0] == DISPID_UNKNOWN ? DISP_E_UNKNOWNNAME : S_OK;
  }
  STDMETHODIMP Invoke(DISPID id, REFIID, LCID locale, WORD flags, DISPPARAMS* given,
                      VARIANT* result, EXCEPINFO* raised, UINT*) override {
    if (locale != LOCALE_USER_DEFAULT) return DISP_E_UNKNOWNLCID;
    return answers_extended_only ? E_NOTIMPL : Run(id, flags, *given, result, raised);
  }
  STDMETHODIMP GetDispID(BSTR name, DWORD, DISPID* id) override {
    *id = Find(name);
    return *id == DISPID_UNKNOWN ? DISP_E_UNKNOWNNAME : S_OK;
  }
  STDMETHODIMP InvokeEx(DISPID id, LCID locale, WORD flags, DISPPARAMS* given, VARIANT* result,
                        EXCEPINFO* raised, IServiceProvider*) override {
    if (locale != LOCALE_USER_DEFAULT) return DISP_E_UNKNOWNLCID;
    return Run(id, flags, *given, result, raised);
  }
  STDMETHODIMP DeleteMemberByName(BSTR, DWORD) override { return E_NOTIMPL; }
  STDMETHODIMP DeleteMemberByDispID(DISPID) override { return E_NOTIMPL; }
  STDMETHODIMP GetMemberProperties(DISPID, DWORD, DWORD*) override { return E_NOTIMPL; }
  STDMETHODIMP GetMemberName(DISPID, BSTR*) override { return E_NOTIMPL; }
  STDMETHODIMP GetNextDispID(DWORD, DISPID, DISPID*) override { return E_NOTIMPL; }
  STDMETHODIMP GetNameSpaceParent(IUnknown**) override { return E_NOTIMPL; }

 private:
  [[nodiscard]] DISPID Find(const OLECHAR* name) const {
    DISPID id = 0;
    for (const auto& [spelling, member] : members) {
      ++id;
      if (EqualIgnoringCase(spelling, reinterpret_cast<const char16_t*>(name))) return id;
    }
    return DISPID_UNKNOWN;
  }
  HRESULT Run(DISPID id, WORD flags, const DISPPARAMS& given, VARIANT* result, EXCEPINFO* raised) {
    if (refuses) return refuses(*raised);
    if ((flags & takes) == 0 || (is_strict && (flags & ~takes) != 0)) return DISP_E_MEMBERNOTFOUND;
    Member member = id == DISPID_VALUE     ? default_member
                    : id == DISPID_NEWENUM ? enumeration
                                           : nullptr;
    DISPID next = 0;
    for (const auto& [spelling, candidate] : members) {
      if (++next == id) member = candidate;
    }
    if (!member) return DISP_E_MEMBERNOTFOUND;
    const std::vector<VARIANT> arguments(std::reverse_iterator(given.rgvarg + given.cArgs),
                                         std::reverse_iterator(given.rgvarg));
    const ComPtr<ScriptedObject> kept_alive(this);
    try {
      Variant value = member(arguments);
      if (result != nullptr) *result = value.Detach();
      return S_OK;
    } catch (const RuntimeError& error) {
      return LeaveExcepInfo(error, raised);
    }
  }
};

// Makes one object creatable by name inside this process, as long as it lives.
class NamedClass {
 public:
  NamedClass(TextView prog_id, const ComPtr<ScriptedObject>& object)
      : prog_id_(prog_id), former_id_(ReadProgId(RegistrationScope::kMachine, prog_id)) {
    GUID id{};
    EXPECT_EQ(::CoCreateGuid(&id), S_OK);
    WriteProgId(RegistrationScope::kMachine, prog_id_, GuidText(id));  // throws
    const auto factory = MakeClassFactory(
        [object](REFIID wanted, void** made) { return object->QueryInterface(wanted, made); });
    EXPECT_EQ(::CoRegisterClassObject(id, factory.get(), CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE,
                                      &registered_),
              S_OK);
  }
  ~NamedClass() {
    ::CoRevokeClassObject(registered_);
    WriteProgId(RegistrationScope::kMachine, prog_id_, former_id_);
  }
  NamedClass(const NamedClass&) = delete;
  NamedClass& operator=(const NamedClass&) = delete;

 private:
  const Text prog_id_;
  const Text former_id_;
  DWORD registered_ = 0;
};

// The plug-in on a file kit that another author wrote, and wrote differently.
class ForeignKitBench : public PluginBench {
 public:
  ~ForeignKitBench() override {
    plugin.Reset();
    EXPECT_TRUE(library->CanUnload());
    names_.reset();
    EXPECT_EQ(file_kit->references(), 1u) << "the plug-in still holds the kit";
  }

  const ComPtr<ScriptedObject> file_kit = ScriptedObject::Make();
  std::map<Text, ScriptedObject::Member>& members = file_kit->members;

 private:
  std::optional<NamedClass> names_{std::in_place, u"rcFileKit.clsFileKit", file_kit};
  const NamedClass memory_name_{u"rcMemKit.clsMemKit", ScriptedObject::Make()};
};

}  // namespace quill::com
