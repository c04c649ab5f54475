#include "com/error_object.h"

#include "com/bstr.h"
#include "com/com_error.h"
#include "com/dispatch_object.h"
#include "com/library_use.h"
#include "com/variant.h"
#include "support/version.h"

namespace quill::com {
namespace {

// The values in the order of Raise's arguments, and then what has none.
enum Member : DISPID {
  kNumber = DISPID_VALUE,
  kSource,
  kDescription,
  kHelpFile,
  kHelpContext,
  kLastDllError,
  kClear,
  kRaise
};
constexpr TextView kMembers[] = {u"Number",      u"Source",       u"Description", u"HelpFile",
                                 u"HelpContext", u"LastDllError", u"Clear",       u"Raise"};
constexpr VARTYPE kTypes[] = {VT_I4, VT_BSTR, VT_BSTR, VT_BSTR, VT_I4, VT_I4};

class ErrorObject final : public DispatchObject {
 public:
  explicit ErrorObject(const RuntimeError& error) { Describe(error.number(), error.description()); }

  STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID,
                             DISPID* ids) override {
    const auto find = [](const OLECHAR* name) { return FindName(kMembers, name, kNumber); };
    HRESULT result = FindNames(reserved, names, count, ids, find);
    if (result != DISP_E_UNKNOWNNAME || ids[0] != kRaise) return result;
    // Raise's arguments have the names of the values that they set.
    result = S_OK;
    for (UINT i = 1; i < count; ++i) {
      ids[i] = find(names[i]);
      if (ids[i] <= kHelpContext && ids[i] != DISPID_UNKNOWN) continue;
      ids[i] = DISPID_UNKNOWN;
      result = DISP_E_UNKNOWNNAME;
    }
    return result;
  }
  STDMETHODIMP Invoke(DISPID member, REFIID reserved, LCID, WORD flags, DISPPARAMS* arguments,
                      VARIANT* result, EXCEPINFO* raised, UINT*) override {
    if (!IsEqualIID(reserved, IID_NULL)) return DISP_E_UNKNOWNINTERFACE;
    if (member < kNumber || member > kRaise) return DISP_E_MEMBERNOTFOUND;
    const UINT count = arguments != nullptr ? arguments->cArgs : 0;
    return Guarded(IID_IDispatch, [&]() -> HRESULT {
      if ((flags & (DISPATCH_PROPERTYGET | DISPATCH_METHOD)) == 0) {
        if (member >= kLastDllError) return DISP_E_MEMBERNOTFOUND;
        return count == 1 ? Put(member, arguments->rgvarg[0]) : DISP_E_BADPARAMCOUNT;
      }
      if (member == kRaise) {
        if (count < 1 || count > kLastDllError) return DISP_E_BADPARAMCOUNT;
        return Raise(*arguments, raised);
      }
      if (count != 0) return DISP_E_BADPARAMCOUNT;
      if (member == kClear) Describe(0, u"");
      return member == kClear || result == nullptr ? S_OK
                                                   : ::VariantCopy(result, values_[member].get());
    });
  }

 private:
  // A new error, of which nothing else is known.
  void Describe(std::int32_t number, TextView description) {
    for (DISPID i = kNumber; i <= kLastDllError; ++i) {
      values_[i] = kTypes[i] == VT_I4 ? Variant::OfInt32(0) : Variant::OfText(u"");
    }
    values_[kNumber] = Variant::OfInt32(number);
    values_[kDescription] = Variant::OfText(description);
    if (number != 0) values_[kSource] = Variant::OfText(kLibraryFileName);
  }
  HRESULT Put(DISPID member, const VARIANT& value) {
    Variant converted;
    const HRESULT result = ConvertTo(kTypes[member], Referred(value), converted);
    if (SUCCEEDED(result)) values_[member] = std::move(converted);
    return result;
  }
  // Fails towards the caller, as the error that its arguments describe.
  HRESULT Raise(const DISPPARAMS& given, EXCEPINFO* raised) {
    const VARIANT* values[kLastDllError] = {};
    for (UINT i = 0; i < given.cArgs; ++i) {
      // Named ones come first, then the others from the last to the first.
      const DISPID place = i < given.cNamedArgs ? given.rgdispidNamedArgs[i]
                                                : static_cast<DISPID>(given.cArgs - 1 - i);
      if (place < kNumber || place > kHelpContext || values[place] != nullptr) {
        return DISP_E_PARAMNOTFOUND;
      }
      values[place] = &Referred(given.rgvarg[i]);
    }
    if (values[kNumber] == nullptr) return DISP_E_PARAMNOTOPTIONAL;
    const std::int32_t number = Int32Of(*values[kNumber]);
    if (number == 0) return E_INVALIDARG;
    Describe(number, DefaultDescription(number));
    for (DISPID i = kSource; i <= kHelpContext; ++i) {
      if (values[i] == nullptr || values[i]->vt == VT_ERROR) continue;  // left out
      const HRESULT result = Put(i, *values[i]);
      if (FAILED(result)) return result;
    }
    const HRESULT result =
        LeaveExcepInfo(RuntimeError(number, TextOf(*values_[kDescription].get())), raised,
                       TextOf(*values_[kSource].get()));
    if (raised != nullptr) {
      raised->bstrHelpFile = ::SysAllocString(values_[kHelpFile].get()->bstrVal);
      raised->dwHelpContext = static_cast<DWORD>(values_[kHelpContext].get()->lVal);
    }
    return result;
  }

  const LibraryUse in_use_;
  Variant values_[std::size(kTypes)];
};

}  // namespace

ComPtr<IDispatch> MakeErrorObject(const RuntimeError& error) {
  return ComPtr<IDispatch>::Adopt(new ErrorObject(error));
}

}  // namespace quill::com
