#include "host/win32/rights_collection.h"

#include <utility>

#include "com/com_error.h"
#include "com/dispatch_object.h"
#include "com/variant.h"
#include "support/number_text.h"

namespace quill::host {
namespace {

using com::Variant;

constexpr TextView kMembers[] = {u"Item", u"Count"};

class RightsCollection final : public com::DispatchObject {
 public:
  explicit RightsCollection(std::vector<Right> rights) : rights_(std::move(rights)) {}

  STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID,
                             DISPID* ids) override {
    return com::FindNames(reserved, names, count, ids, [](const OLECHAR* name) {
      return com::FindName(kMembers, name, DISPID_VALUE);
    });
  }
  STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* given, VARIANT* result,
                      EXCEPINFO* raised, UINT*) override {
    if (given == nullptr || id < 0 || id > 1) return DISP_E_MEMBERNOTFOUND;
    if (given->cArgs != (id == DISPID_VALUE ? 1u : 0u)) return DISP_E_BADPARAMCOUNT;
    try {
      Variant value = id == DISPID_VALUE
                          ? Item(com::TextOf(given->rgvarg[0]))
                          : Variant::OfInt32(static_cast<std::int32_t>(rights_.size()));
      if (result != nullptr) *result = value.Detach();
      return S_OK;
    } catch (...) {
      return com::LeaveExcepInfo(CurrentRuntimeError(), raised);
    }
  }

 private:
  [[nodiscard]] Variant Item(TextView key) const {
    for (const Right& right : rights_) {
      if (!EqualIgnoringCase(right.name, key)) continue;
      if (right.form == Right::Form::kFails) {
        Variant array;
        array.get()->vt = VT_ARRAY | VT_VARIANT;
        return array;
      }
      return right.form == Right::Form::kNumber ? Variant::OfInt32(ToInt32(right.value))
                                                : Variant::OfText(right.value);
    }
    throw RuntimeError(ErrorNumber::kInvalidProcedureCall);
  }

  const std::vector<Right> rights_;
};

}  // namespace

com::ComPtr<IDispatch> MakeRightsCollection(std::vector<Right> rights) {
  return com::ComPtr<IDispatch>::Adopt(new RightsCollection(std::move(rights)));
}

}  // namespace quill::host
