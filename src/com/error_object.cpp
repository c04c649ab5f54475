// What the file kit is told of a failure, and what a script may do with it.
#include "com/error_object.h"

#include "com/arguments.h"
#include "com/bstr.h"
#include "com/com_error.h"
#include "com/object.h"
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
// Raise's parameters have the names of the values that they set.
constexpr Parameter kRaiseParameters[] = {{u"Number"},
                                          {u"Source", true},
                                          {u"Description", true},
                                          {u"HelpFile", true},
                                          {u"HelpContext", true}};
struct MemberNames {
  TextView name;
  std::span<const Parameter> parameters;
};
constexpr MemberNames kMembers[] = {{u"Number", {}},      {u"Source", {}},
                                    {u"Description", {}}, {u"HelpFile", {}},
                                    {u"HelpContext", {}}, {u"LastDllError", {}},
                                    {u"Clear", {}},       {u"Raise", kRaiseParameters}};
constexpr VARTYPE kTypes[] = {VT_I4, VT_BSTR, VT_BSTR, VT_BSTR, VT_I4, VT_I4};

class ErrorObject final : public DispatchObject {
 public:
  explicit ErrorObject(const RuntimeError& error) { Describe(error.number(), error.description()); }

  STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID,
                             DISPID* ids) override {
    return FindNames(kMembers, kNumber, reserved, names, count, ids);
  }
  STDMETHODIMP Invoke(DISPID member, REFIID reserved, LCID, WORD flags, DISPPARAMS* arguments,
                      VARIANT* result, EXCEPINFO* raised, UINT*) override {
    if (!IsEqualIID(reserved, IID_NULL)) return DISP_E_UNKNOWNINTERFACE;
    if (member < kNumber || member > kRaise) return DISP_E_MEMBERNOTFOUND;
    const UINT count = arguments != nullptr ? arguments->cArgs : 0;
    return Guarded(IID_IDispatch, [&]() -> HRESULT {
      // A value is put; scripts read values with either of the two flags.
      if ((flags & (DISPATCH_PROPERTYGET | DISPATCH_METHOD)) == 0) {
        if (member >= kLastDllError) return DISP_E_MEMBERNOTFOUND;
        return count == 1 ? Put(member, arguments->rgvarg[0]) : DISP_E_BADPARAMCOUNT;
      }
      if (member == kRaise) {
        return arguments != nullptr ? Raise(*arguments, raised) : DISP_E_BADPARAMCOUNT;
      }
      if (count != 0) return DISP_E_BADPARAMCOUNT;
      if (result != nullptr) ::VariantInit(result);  // what it held is not the callee's to free
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
  HRESULT Raise(const DISPPARAMS& given, EXCEPINFO* raised) try {
    const Arguments arguments(kRaiseParameters, given);
    const std::int32_t number = arguments.AsInt32(kNumber);
    // Number 0 is no error, and nothing could be raised.
    if (number == 0) return E_INVALIDARG;
    Describe(number, DefaultDescription(number));
    for (DISPID i = kSource; i <= kHelpContext; ++i) {
      const VARIANT* const value = arguments.Given(static_cast<std::size_t>(i));
      if (value == nullptr) continue;
      const HRESULT result = Put(i, *value);
      if (FAILED(result)) return result;
    }
    const HRESULT result =
        LeaveExcepInfo(RuntimeError(number, TextOf(*values_[kDescription].get())), raised,
                       TextOf(*values_[kSource].get()));
    if (raised != nullptr) {  // the caller frees the texts
      raised->bstrHelpFile = ::SysAllocString(values_[kHelpFile].get()->bstrVal);
      raised->dwHelpContext = static_cast<DWORD>(values_[kHelpContext].get()->lVal);
    }
    return result;
  } catch (const ArgumentError& error) {
    return error.result;
  }

  Variant values_[std::size(kTypes)];
};

}  // namespace

ComPtr<IDispatch> MakeErrorObject(const RuntimeError& error) {
  return ComPtr<IDispatch>::Adopt(new ErrorObject(error));
}

}  // namespace quill::com
