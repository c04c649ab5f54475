// Objects that other programs' code holds by counted references, the use of the library that they
// are in, and the look-up of their members' names.
#pragma once

#include <algorithm>
#include <atomic>
#include <iterator>
#include <type_traits>

#include "com/automation.h"
#include "support/compiler.h"
#include "support/text.h"

namespace quill::com {

// What keeps the library that this code is linked into loaded: its objects and locks, counted.
class LibraryUse {
 public:
  LibraryUse() noexcept { Begin(); }
  ~LibraryUse() { End(); }
  LibraryUse(const LibraryUse&) = delete;
  LibraryUse& operator=(const LibraryUse&) = delete;

  static void Begin() noexcept { ++count_; }
  static void End() noexcept { --count_; }
  [[nodiscard]] static bool Any() noexcept { return count_ != 0; }

 private:
  inline static std::atomic<long> count_ = 0;
};

// The identifier of an interface.
template <class Interface>
[[nodiscard]] const IID& IdOf() noexcept {
  return QUILL_ID_OF(Interface);
}

// An object with those interfaces and one reference, that of its maker. It deletes itself with the
// last one, and keeps the library in use while it exists.
template <class First, class... Rest>
class Object : public First, public Rest... {
 public:
  Object(const Object&) = delete;
  Object& operator=(const Object&) = delete;

  STDMETHODIMP QueryInterface(REFIID wanted, void** object) override {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    constexpr bool kIsAutomation = std::is_base_of_v<IDispatch, First>;
    if (IsEqualIID(wanted, IID_IUnknown) || IsEqualIID(wanted, IdOf<First>()) ||
        (kIsAutomation && IsEqualIID(wanted, IID_IDispatch))) {
      *object = static_cast<First*>(this);
    }
    ((IsEqualIID(wanted, IdOf<Rest>()) ? void(*object = static_cast<Rest*>(this)) : void()), ...);
    if (*object == nullptr) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
  STDMETHODIMP_(ULONG) Release() override {
    const ULONG left = --references_;
    if (left == 0) LetGo();
    return left;
  }

 protected:
  Object() = default;
  virtual ~Object() = default;
  // Nobody holds the object any more.
  virtual void LetGo() { delete this; }

 private:
  std::atomic<ULONG> references_ = 1;
  const LibraryUse in_use_;
};

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
