// The plumbing of small automation objects that are called by name and have no type information:
// counting, and the look-up of member names.
#pragma once

#include <atomic>
#include <cstdint>

#include "com/automation.h"
#include "support/text.h"

namespace quill::com {

// An object with one reference, that of its maker; it deletes itself with the last one. What is
// left to write are GetIDsOfNames and Invoke.
class DispatchObject : public IDispatch {
 public:
  DispatchObject(const DispatchObject&) = delete;
  DispatchObject& operator=(const DispatchObject&) = delete;

  STDMETHODIMP QueryInterface(REFIID wanted, void** object) override {
    if (object == nullptr) return E_POINTER;
    const bool known = IsEqualIID(wanted, IID_IUnknown) || IsEqualIID(wanted, IID_IDispatch);
    *object = known ? static_cast<IDispatch*>(this) : nullptr;
    if (!known) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
  STDMETHODIMP_(ULONG) Release() override {
    const ULONG left = --references_;
    if (left == 0) LetGo();
    return left;
  }
  STDMETHODIMP GetTypeInfoCount(UINT* count) override {
    if (count == nullptr) return E_POINTER;
    *count = 0;
    return S_OK;
  }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo** info) override {
    if (info != nullptr) *info = nullptr;
    return DISP_E_BADINDEX;
  }

 protected:
  DispatchObject() = default;
  virtual ~DispatchObject() = default;
  // Nobody holds the object any more.
  virtual void LetGo() { delete this; }

 private:
  std::atomic<ULONG> references_ = 1;
};

// The identifier of the first name in `names` that equals `name` without regard to letter case,
// counted from `first`; DISPID_UNKNOWN when there is none.
template <std::size_t kCount>
[[nodiscard]] DISPID FindName(const TextView (&names)[kCount], const OLECHAR* name, DISPID first) {
  if (name == nullptr) return DISPID_UNKNOWN;
  const TextView wanted(reinterpret_cast<const char16_t*>(name));
  for (std::size_t i = 0; i < kCount; ++i) {
    if (EqualIgnoringCase(names[i], wanted)) return first + static_cast<DISPID>(i);
  }
  return DISPID_UNKNOWN;
}

// The GetIDsOfNames of an object whose members take no named arguments: the first name is looked up
// with `find`, further names are unknown.
template <class Find>
[[nodiscard]] HRESULT FindNames(REFIID reserved, LPOLESTR* names, UINT count, DISPID* ids,
                                Find&& find) noexcept {
  if (!IsEqualIID(reserved, IID_NULL)) return DISP_E_UNKNOWNINTERFACE;
  if (names == nullptr || ids == nullptr || count == 0) return E_INVALIDARG;
  ids[0] = find(names[0]);
  HRESULT result = ids[0] == DISPID_UNKNOWN ? DISP_E_UNKNOWNNAME : S_OK;
  for (UINT i = 1; i < count; ++i) {
    ids[i] = DISPID_UNKNOWN;
    result = DISP_E_UNKNOWNNAME;
  }
  return result;
}

}  // namespace quill::com
