// The plumbing of automation objects that are called by name: what they say about themselves, and
// the look-up of their members' names.
#pragma once

#include <algorithm>
#include <iterator>

#include "com/object.h"
#include "support/text.h"

namespace quill::com {

// An object without type information. What is left to write are GetIDsOfNames and Invoke.
class DispatchObject : public Object<IDispatch> {
 public:
  STDMETHODIMP GetTypeInfoCount(UINT* count) override {
    if (count == nullptr) return E_POINTER;
    *count = 0;
    return S_OK;
  }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo** info) override {
    if (info != nullptr) *info = nullptr;
    return DISP_E_BADINDEX;
  }
};

// The identifier of the first row in `rows` whose name equals `name` without regard to letter case,
// counted from `first`; DISPID_UNKNOWN when there is none.
template <class Rows>
[[nodiscard]] DISPID FindName(const Rows& rows, const OLECHAR* name, DISPID first) {
  if (name == nullptr) return DISPID_UNKNOWN;
  DISPID id = first;
  for (const auto& row : rows) {
    if (EqualIgnoringCase(row.name, reinterpret_cast<const char16_t*>(name))) return id;
    ++id;
  }
  return DISPID_UNKNOWN;
}

// What GetIDsOfNames answers for a table of members, which have a name and may have parameters with
// names. The first name is a member's, counted from `first`; the others are those of parameters,
// counted from 0.
template <class Members>
[[nodiscard]] HRESULT FindNames(const Members& members, DISPID first, REFIID reserved,
                                LPOLESTR* names, UINT count, DISPID* ids) noexcept {
  if (!IsEqualIID(reserved, IID_NULL)) return DISP_E_UNKNOWNINTERFACE;
  if (names == nullptr || ids == nullptr || count == 0) return E_INVALIDARG;
  std::fill_n(ids, count, DISPID_UNKNOWN);
  ids[0] = FindName(members, names[0], first);
  if (ids[0] == DISPID_UNKNOWN) return DISP_E_UNKNOWNNAME;
  const auto& member = std::begin(members)[ids[0] - first];
  if constexpr (requires { member.parameters; }) {
    for (UINT i = 1; i < count; ++i) ids[i] = FindName(member.parameters, names[i], 0);
  }
  return std::count(ids, ids + count, DISPID_UNKNOWN) == 0 ? S_OK : DISP_E_UNKNOWNNAME;
}

}  // namespace quill::com
