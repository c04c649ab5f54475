#include "win32/com/error_object.h"

#include "support/version.h"
#include "win32/com/bstr.h"
#include "win32/com/com_error.h"
#include "win32/com/dispatch_object.h"
#include "win32/com/library_use.h"
#include "win32/com/variant.h"

namespace quill::com {
namespace {

constexpr TextView kMembers[] = {u"Number", u"Description", u"Source"};

class ErrorObject final : public DispatchObject {
 public:
  explicit ErrorObject(const RuntimeError& error) : error_(error) {}

  STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID,
                             DISPID* ids) override {
    return FindNames(reserved, names, count, ids,
                     [](const OLECHAR* name) { return FindName(kMembers, name, DISPID_VALUE); });
  }
  STDMETHODIMP Invoke(DISPID member, REFIID reserved, LCID, WORD flags, DISPPARAMS* arguments,
                      VARIANT* result, EXCEPINFO*, UINT*) override {
    if (!IsEqualIID(reserved, IID_NULL)) return DISP_E_UNKNOWNINTERFACE;
    if ((flags & (DISPATCH_PROPERTYGET | DISPATCH_METHOD)) == 0) return DISP_E_MEMBERNOTFOUND;
    if (arguments != nullptr && arguments->cArgs != 0) return DISP_E_BADPARAMCOUNT;
    return Guarded(IID_IDispatch, [&]() -> HRESULT {
      Variant value;
      switch (member) {
        case 0:
          value = Variant::OfInt32(error_.number());
          break;
        case 1:
          value = Variant::OfText(error_.description());
          break;
        case 2:
          value = Variant::OfText(kLibraryFileName);
          break;
        default:
          return DISP_E_MEMBERNOTFOUND;
      }
      if (result != nullptr) *result = value.Detach();
      return S_OK;
    });
  }

 private:
  const LibraryUse in_use_;
  const RuntimeError error_;
};

}  // namespace

ComPtr<IDispatch> MakeErrorObject(const RuntimeError& error) {
  return ComPtr<IDispatch>::Adopt(new ErrorObject(error));
}

}  // namespace quill::com
