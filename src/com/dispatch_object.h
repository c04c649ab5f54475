// The plumbing of automation objects that are called by name: what they say about themselves, and
// the look-up of their members' names.
#pragma once

#include <algorithm>
#include <functional>
#include <iterator>
#include <ranges>

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

// The identifier of the first row in `rows` whose name (as `projection` gives it) equals `name`
// without regard to letter case, counted from `first`; DISPID_UNKNOWN when there is none.
template <std::ranges::forward_range Rows, class Projection = std::identity>
[[nodiscard]] DISPID FindName(const Rows& rows, const OLECHAR* name, DISPID first,
                              Projection projection = {}) {
  if (name == nullptr) return DISPID_UNKNOWN;
  const TextView wanted(reinterpret_cast<const char16_t*>(name));
  const auto found = std::ranges::find_if(
      rows, [&](TextView known) { return EqualIgnoringCase(known, wanted); }, projection);
  if (found == std::ranges::end(rows)) return DISPID_UNKNOWN;
  return first + static_cast<DISPID>(std::ranges::distance(std::ranges::begin(rows), found));
}

// What GetIDsOfNames answers: the first name is a member's, looked up with `find`; the others are
// those of its parameters, looked up with `find_parameter`, which takes the member's identifier
// too.
template <class Find, class FindParameter>
[[nodiscard]] HRESULT FindNames(REFIID reserved, LPOLESTR* names, UINT count, DISPID* ids,
                                const Find& find, const FindParameter& find_parameter) noexcept {
  if (!IsEqualIID(reserved, IID_NULL)) return DISP_E_UNKNOWNINTERFACE;
  if (names == nullptr || ids == nullptr || count == 0) return E_INVALIDARG;
  ids[0] = find(names[0]);
  for (UINT i = 1; i < count; ++i) {
    ids[i] = ids[0] == DISPID_UNKNOWN ? DISPID_UNKNOWN : find_parameter(ids[0], names[i]);
  }
  return std::count(ids, ids + count, DISPID_UNKNOWN) == 0 ? S_OK : DISP_E_UNKNOWNNAME;
}

// The same for members that take no named arguments.
template <class Find>
[[nodiscard]] HRESULT FindNames(REFIID reserved, LPOLESTR* names, UINT count, DISPID* ids,
                                const Find& find) noexcept {
  return FindNames(reserved, names, count, ids, find,
                   [](DISPID, const OLECHAR*) { return DISPID{DISPID_UNKNOWN}; });
}

}  // namespace quill::com
