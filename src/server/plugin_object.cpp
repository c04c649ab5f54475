#include "server/plugin_object.h"

#include <atomic>
#include <span>

#include "com/arguments.h"
#include "com/automation.h"
#include "com/bstr.h"
#include "com/com_error.h"
#include "com/dispatch_object.h"
#include "com/identifiers.h"
#include "com/library_use.h"
#include "plugin/clsPlugin.h"
#include "server/com_host_values.h"
#include "server/library.h"
#include "server/plugin_interface.h"
#include "server/record.h"

namespace quill::com {
namespace {

constexpr Parameter kVersionParameters[] = {{u"PNAME"}};
constexpr Parameter kRightsParameters[] = {{u"NameCol"}, {u"ValCol"}, {u"IsSuperAdmin"}};
constexpr Parameter kOpenParameters[] = {{u"Index"}, {u"pHwnd"}, {u"PDAT"}, {u"fName", true}};
constexpr Parameter kReplyParameters[] = {{u"Data"}};
constexpr Parameter kHideParameters[] = {{u"fName", true}};

// Each is a late-bound call of one member.
Variant CallVersion(clsPlugin& plugin, const Arguments& arguments) {
  Variant converted;
  return Variant::OfText(plugin.dllVersion(arguments.AsText(0, converted)));
}

Variant CallGetData(clsPlugin& plugin, const Arguments&) {
  const ComPtr<IRecordInfo> info = Library::Get().RecordInfo();
  const PLUGIN data = plugin.GetData();
  Variant variant;
  void* memory = info->RecordCreate();
  if (memory == nullptr) throw RuntimeError(ErrorNumber::kOutOfMemory);
  variant.get()->vt = VT_RECORD;
  variant.get()->pvRecord = memory;
  variant.get()->pRecInfo = info.get();
  info->AddRef();
  FillRecord(data, *static_cast<PluginRecord*>(memory));
  return variant;
}

Variant CallSetPrivis(clsPlugin& plugin, const Arguments& arguments) {
  const bool is_super_admin = arguments.AsBoolean(2);
  plugin.SetPrivis(CollectionOf(arguments.AsObject(0)), CollectionOf(arguments.AsObject(1)),
                   is_super_admin);
  return Variant();
}

Variant CallLoadInterface(clsPlugin& plugin, const Arguments& arguments) {
  const ComHostArray target(arguments.AsVariant(2));
  plugin.LoadInterface(arguments.AsInt32(0), arguments.AsInt32(1), target);
  return Variant();
}

Variant CallRemoteData(clsPlugin& plugin, const Arguments& arguments) {
  Variant converted;
  plugin.RemoteData(arguments.AsText(0, converted));
  return Variant();
}

Variant CallHideInterface(clsPlugin& plugin, const Arguments&) {
  plugin.HideInterface();
  return Variant();
}

struct Member {
  TextView name;
  std::span<const Parameter> parameters;
  Variant (*call)(clsPlugin& plugin, const Arguments& arguments);
};
// A member's identifier is its position here, counted from 1.
constexpr Member kMembers[] = {
    {u"dllVersion", kVersionParameters, CallVersion},
    {u"GetData", {}, CallGetData},
    {u"SetPrivis", kRightsParameters, CallSetPrivis},
    {u"LoadInterface", kOpenParameters, CallLoadInterface},
    {u"RemoteData", kReplyParameters, CallRemoteData},
    {u"HideInterface", kHideParameters, CallHideInterface},
};

bool SameName(TextView name, const OLECHAR* given) {
  return given != nullptr &&
         EqualIgnoringCase(name, TextView(reinterpret_cast<const char16_t*>(given)));
}

class PluginObject final : public IPlugin, public IProvideClassInfo, public ISupportErrorInfo {
 public:
  PluginObject() : plugin_(Library::Get().Module()) {}

  // IUnknown
  STDMETHODIMP QueryInterface(REFIID wanted, void** object) override {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (IsEqualIID(wanted, IID_IUnknown) || IsEqualIID(wanted, IID_IDispatch) ||
        IsEqualIID(wanted, kInterfaceId)) {
      *object = static_cast<IPlugin*>(this);
    } else if (IsEqualIID(wanted, IID_IProvideClassInfo)) {
      *object = static_cast<IProvideClassInfo*>(this);
    } else if (IsEqualIID(wanted, IID_ISupportErrorInfo)) {
      *object = static_cast<ISupportErrorInfo*>(this);
    } else {
      return E_NOINTERFACE;
    }
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
  STDMETHODIMP_(ULONG) Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }

  // IDispatch
  STDMETHODIMP GetTypeInfoCount(UINT* count) override {
    if (count == nullptr) return E_POINTER;
    *count = 1;
    return S_OK;
  }
  STDMETHODIMP GetTypeInfo(UINT index, LCID, ITypeInfo** info) override {
    if (info == nullptr) return E_POINTER;
    *info = nullptr;
    if (index != 0) return DISP_E_BADINDEX;
    return Guarded(kInterfaceId, [&] {
      *info = Library::Get().InterfaceInfo().Detach();
      return S_OK;
    });
  }
  STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID,
                             DISPID* ids) override {
    if (!IsEqualIID(reserved, IID_NULL)) return DISP_E_UNKNOWNINTERFACE;
    if (names == nullptr || ids == nullptr || count == 0) return E_INVALIDARG;
    for (UINT i = 0; i < count; ++i) ids[i] = DISPID_UNKNOWN;
    const Member* member = nullptr;
    for (const Member& candidate : kMembers) {
      if (SameName(candidate.name, names[0])) member = &candidate;
    }
    if (member == nullptr) return DISP_E_UNKNOWNNAME;
    ids[0] = static_cast<DISPID>(member - kMembers) + 1;
    HRESULT result = S_OK;
    for (UINT i = 1; i < count; ++i) {
      for (std::size_t p = 0; p < member->parameters.size(); ++p) {
        if (SameName(member->parameters[p].name, names[i])) ids[i] = static_cast<DISPID>(p);
      }
      if (ids[i] == DISPID_UNKNOWN) result = DISP_E_UNKNOWNNAME;
    }
    return result;
  }
  STDMETHODIMP Invoke(DISPID id, REFIID reserved, LCID, WORD flags, DISPPARAMS* given,
                      VARIANT* result, EXCEPINFO* raised, UINT* bad_argument) override {
    if (!IsEqualIID(reserved, IID_NULL)) return DISP_E_UNKNOWNINTERFACE;
    if (id < 1 || static_cast<std::size_t>(id) > std::size(kMembers)) {
      return DISP_E_MEMBERNOTFOUND;
    }
    // Scripts may ask for a property where they mean a call with a result; nothing can be put.
    if ((flags & (DISPATCH_METHOD | DISPATCH_PROPERTYGET)) == 0) return DISP_E_MEMBERNOTFOUND;
    if (result != nullptr) ::VariantInit(result);
    const Member& member = kMembers[id - 1];
    const ComPtr<IPlugin> kept_alive(this);
    const DISPPARAMS nothing{};
    try {
      Variant value =
          member.call(plugin_, Arguments(member.parameters, given != nullptr ? *given : nothing));
      if (result != nullptr) *result = value.Detach();
      return S_OK;
    } catch (const ArgumentError& error) {
      if (bad_argument != nullptr) *bad_argument = error.argument;
      return error.result;
    } catch (...) {
      try {
        return LeaveExcepInfo(CurrentRuntimeError(), raised);
      } catch (...) {
        return E_OUTOFMEMORY;
      }
    }
  }

  // The interface, bound early
  STDMETHODIMP dllVersion(BSTR PNAME, BSTR* result) override {
    if (result == nullptr) return E_POINTER;
    *result = nullptr;
    return Call([&] { *result = NewBstr(plugin_.dllVersion(ViewOf(PNAME))); });
  }
  STDMETHODIMP GetData(PluginRecord* result) override {
    if (result == nullptr) return E_POINTER;
    return Call([&] { FillRecord(plugin_.GetData(), *result); });
  }
  STDMETHODIMP SetPrivis(IDispatch* NameCol, IDispatch* ValCol,
                         VARIANT_BOOL IsSuperAdmin) override {
    return Call([&] {
      plugin_.SetPrivis(CollectionOf(NameCol), CollectionOf(ValCol), IsSuperAdmin != VARIANT_FALSE);
    });
  }
  STDMETHODIMP LoadInterface(LONG Index, LONG pHwnd, VARIANT* PDAT, BSTR*) override {
    if (PDAT == nullptr) return E_POINTER;
    return Call([&] { plugin_.LoadInterface(Index, pHwnd, ComHostArray(*PDAT)); });
  }
  STDMETHODIMP RemoteData(BSTR* Data) override {
    if (Data == nullptr) return E_POINTER;
    return Call([&] { plugin_.RemoteData(ViewOf(*Data)); });
  }
  STDMETHODIMP HideInterface(BSTR*) override {
    return Call([&] { plugin_.HideInterface(); });
  }

  // IProvideClassInfo
  STDMETHODIMP GetClassInfo(ITypeInfo** info) override {
    if (info == nullptr) return E_POINTER;
    *info = nullptr;
    return Guarded(IID_IProvideClassInfo, [&] {
      *info = Library::Get().ClassInfo().Detach();
      return S_OK;
    });
  }

  // ISupportErrorInfo
  STDMETHODIMP InterfaceSupportsErrorInfo(REFIID id) override {
    return IsEqualIID(id, kInterfaceId) ? S_OK : S_FALSE;
  }

 private:
  ~PluginObject() = default;

  template <class Body>
  [[nodiscard]] HRESULT Call(Body&& body) noexcept {
    const ComPtr<IPlugin> kept_alive(this);
    return Guarded(kInterfaceId, [&] {
      body();
      return S_OK;
    });
  }

  std::atomic<ULONG> references_ = 1;
  const LibraryUse in_use_;
  clsPlugin plugin_;
};

}  // namespace

HRESULT MakePluginObject(REFIID wanted, void** object) {
  const auto made = ComPtr<IPlugin>::Adopt(new PluginObject);
  return made->QueryInterface(wanted, object);
}

}  // namespace quill::com
