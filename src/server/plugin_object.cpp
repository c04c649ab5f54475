// The object that the host creates. Every member is there twice: bound late, from a table, and
// bound early.
#include "server/plugin_object.h"

#include <span>

#include "com/arguments.h"
#include "com/bstr.h"
#include "com/com_error.h"
#include "com/identifiers.h"
#include "com/object.h"
#include "plugin/clsPlugin.h"
#include "server/com_host_values.h"
#include "server/library.h"

namespace quill::com {
template <>
const IID& IdOf<IPlugin>() noexcept {
  return kInterfaceId;
}

namespace {

constexpr Parameter kVersionParameters[] = {{u"PNAME"}};
constexpr Parameter kRightsParameters[] = {{u"NameCol"}, {u"ValCol"}, {u"IsSuperAdmin"}};
constexpr Parameter kOpenParameters[] = {{u"Index"}, {u"pHwnd"}, {u"PDAT"}, {u"fName", true}};
constexpr Parameter kReplyParameters[] = {{u"Data"}};
constexpr Parameter kHideParameters[] = {{u"fName", true}};

Variant RecordOf(const PLUGIN& data) {
  ComPtr<IRecordInfo> info;
  // Late-bound callers read the record through its description in the type library.
  const ComPtr<ITypeInfo> type = Library::Get().TypeInfo(kRecordId);
  ThrowIfFailed(::GetRecordInfoFromTypeInfo(type.get(), info.Receive()));
  Variant variant;
  void* const memory = info->RecordCreate();
  if (memory == nullptr) throw RuntimeError(ErrorNumber::kOutOfMemory);
  variant.get()->vt = VT_RECORD;
  variant.get()->pvRecord = memory;
  variant.get()->pRecInfo = info.Detach();
  FillRecord(data, *static_cast<PluginRecord*>(memory));
  return variant;
}

struct Member {
  TextView name;
  std::span<const Parameter> parameters;
  Variant (*call)(clsPlugin& plugin, const Arguments& arguments);  // late bound
};
// A member's identifier is its position here, counted from 1.
constexpr Member kMembers[] = {
    {u"dllVersion", kVersionParameters,
     [](clsPlugin& plugin, const Arguments& arguments) {
       Variant converted;
       return Variant::OfText(plugin.dllVersion(arguments.AsText(0, converted)));
     }},
    {u"GetData",
     {},
     [](clsPlugin& plugin, const Arguments&) { return RecordOf(plugin.GetData()); }},
    {u"SetPrivis", kRightsParameters,
     [](clsPlugin& plugin, const Arguments& arguments) {
       const bool is_super_admin = arguments.AsBoolean(2);
       plugin.SetPrivis(CollectionOf(arguments.AsObject(0).get()),
                        CollectionOf(arguments.AsObject(1).get()), is_super_admin);
       return Variant();
     }},
    {u"LoadInterface", kOpenParameters,
     [](clsPlugin& plugin, const Arguments& arguments) {
       const ComHostArray target(arguments.AsVariant(2));
       plugin.LoadInterface(arguments.AsInt32(0), arguments.AsInt32(1), target);
       return Variant();
     }},
    {u"RemoteData", kReplyParameters,
     [](clsPlugin& plugin, const Arguments& arguments) {
       Variant converted;
       plugin.RemoteData(arguments.AsText(0, converted));
       return Variant();
     }},
    {u"HideInterface", kHideParameters,
     [](clsPlugin& plugin, const Arguments&) { return plugin.HideInterface(), Variant(); }},
};

class PluginObject final : public Object<IPlugin, IProvideClassInfo, ISupportErrorInfo> {
 public:
  PluginObject() : plugin_(Library::Get().Module()) {}

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
      *info = Library::Get().TypeInfo(kInterfaceId).Detach();
      return S_OK;
    });
  }
  STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID,
                             DISPID* ids) override {
    return FindNames(kMembers, 1, reserved, names, count, ids);
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
    const ComPtr<IPlugin> kept_alive(this);  // a host may release it while the dialog is open
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
      *info = Library::Get().TypeInfo(kClassId).Detach();
      return S_OK;
    });
  }

  // ISupportErrorInfo
  STDMETHODIMP InterfaceSupportsErrorInfo(REFIID id) override {
    return IsEqualIID(id, kInterfaceId) ? S_OK : S_FALSE;
  }

 private:
  template <class Body>
  [[nodiscard]] HRESULT Call(Body&& body) noexcept {
    // As above: the host may release the object while the dialog is open.
    const ComPtr<IPlugin> kept_alive(this);
    return Guarded(kInterfaceId, [&] {
      body();
      return S_OK;
    });
  }

  clsPlugin plugin_;
};

}  // namespace

HRESULT MakePluginObject(REFIID wanted, void** object) {
  const auto made = ComPtr<IPlugin>::Adopt(new PluginObject);
  return made->QueryInterface(wanted, object);
}

}  // namespace quill::com
