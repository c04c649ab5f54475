// The calls of an object that is a table of members.
#include "host/win32/member_table.h"

#include <iterator>

#include "com/com_error.h"

namespace quill::host {

com::Variant ArrayOfTexts(std::span<const Text> texts) {
  std::vector<com::Variant> elements;
  elements.reserve(texts.size());
  for (const Text& text : texts) elements.push_back(com::Variant::OfText(text));
  return com::Variant::OfArray(elements);
}

const Member* TableObject::Find(DISPID id) const noexcept {
  const auto place = static_cast<std::size_t>(id);
  return place < members_.size() ? &members_[place] : nullptr;
}

STDMETHODIMP TableObject::GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID,
                                        DISPID* ids) {
  return com::FindNames(members_, 0, reserved, names, count, ids);
}

STDMETHODIMP TableObject::Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* given, VARIANT* result,
                                 EXCEPINFO* raised, UINT*) {
  const Member* const member = Find(id);
  if (member == nullptr) return DISP_E_MEMBERNOTFOUND;
  if (given == nullptr || given->cNamedArgs != 0 || given->cArgs < member->arguments ||
      (given->cArgs > member->arguments && !member->takes_more)) {
    return DISP_E_BADPARAMCOUNT;
  }
  // The call may release the caller's last reference.
  DispatchObject::AddRef();
  HRESULT outcome = S_OK;
  try {
    // The platform hands arguments over from the last to the first.
    const std::vector<VARIANT> arguments(std::reverse_iterator(given->rgvarg + given->cArgs),
                                         std::reverse_iterator(given->rgvarg));
    com::Variant value = member->call(arguments);
    if (result != nullptr) *result = value.Detach();
  } catch (...) {
    outcome = com::LeaveExcepInfo(CurrentRuntimeError(), raised, name_);
  }
  DispatchObject::Release();
  return outcome;
}

}  // namespace quill::host
