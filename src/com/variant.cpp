// Makes variants, and reads and converts their values. The platform converts; the locale is chosen
// here.
#include "com/variant.h"

#include <utility>

#include "com/bstr.h"
#include "com/com_error.h"
#include "com/late_bound.h"
#include "support/runtime_error.h"

namespace quill::com {
namespace {

Variant Converted(const VARIANT& value, VARTYPE type) {
  Variant converted;
  ThrowIfFailed(ConvertTo(type, value, converted));
  return converted;
}

}  // namespace

HRESULT ConvertTo(VARTYPE type, const VARIANT& value, Variant& converted) {
  Variant held;
  const VARIANT* source = &value;
  if (const auto object = ObjectOf(value)) {
    // The platform would ask the object for its value in the locale of the conversion, which many
    // objects refuse to know.
    try {
      held = DefaultValue(object->get());
    } catch (const RuntimeError&) {
      return DISP_E_TYPEMISMATCH;
    }
    source = &Referred(*held.get());
  }
  // Invariant, so that a decimal point means the same on every machine; truth values become the
  // words True and False, not -1 and 0.
  // The platform declares its source writable but only reads it.
  return ::VariantChangeTypeEx(converted.get(), const_cast<VARIANT*>(source), LOCALE_INVARIANT,
                               VARIANT_ALPHABOOL, type);
}

// One failure stands for all that can be wrong with an object where a value is wanted.
Variant DefaultValue(IDispatch* object) {
  Variant held;
  try {
    held = LateBound(object).Call(DISPID_VALUE, {});
  } catch (const RuntimeError&) {
    throw RuntimeError(ErrorNumber::kTypeMismatch);
  }
  if (ObjectOf(*held.get())) throw RuntimeError(ErrorNumber::kTypeMismatch);
  return held;
}

Variant& Variant::operator=(Variant&& other) noexcept {
  std::swap(value_, other.value_);
  return *this;
}

Variant Variant::OfText(TextView text) {
  Variant variant;
  variant.value_.bstrVal = NewBstr(text);
  variant.value_.vt = VT_BSTR;
  return variant;
}

Variant Variant::OfInt32(std::int32_t number) noexcept {
  Variant variant;
  variant.value_.vt = VT_I4;
  variant.value_.lVal = number;
  return variant;
}

Variant Variant::OfBoolean(bool truth) noexcept {
  Variant variant;
  variant.value_.vt = VT_BOOL;
  variant.value_.boolVal = truth ? VARIANT_TRUE : VARIANT_FALSE;
  return variant;
}

Variant Variant::OfArray(std::span<Variant> elements) {
  Variant variant;
  variant.value_.parray =
      ::SafeArrayCreateVector(VT_VARIANT, 0, static_cast<ULONG>(elements.size()));
  if (variant.value_.parray == nullptr) throw RuntimeError(ErrorNumber::kOutOfMemory);
  variant.value_.vt = VT_ARRAY | VT_VARIANT;
  LONG place = 0;
  for (Variant& element : elements) {
    // Which copies the element.
    ThrowIfFailed(::SafeArrayPutElement(variant.value_.parray, &place, element.get()));
    ++place;
  }
  return variant;
}

Variant Variant::Refer(VARTYPE type, void* place) noexcept {
  Variant variant;
  variant.value_.vt = static_cast<VARTYPE>(type | VT_BYREF);
  variant.value_.byref = place;
  return variant;
}

VARIANT Variant::Detach() noexcept {
  const VARIANT value = value_;
  ::VariantInit(&value_);
  return value;
}

const VARIANT& Referred(const VARIANT& value) noexcept {
  // Automation allows a reference to a reference; a few more are followed, but no circle.
  constexpr int kMostReferences = 8;
  const VARIANT* referred = &value;
  for (int i = 0; i < kMostReferences && referred->vt == (VT_BYREF | VT_VARIANT) &&
                  referred->pvarVal != nullptr;
       ++i) {
    referred = referred->pvarVal;
  }
  return *referred;
}

std::optional<ComPtr<IDispatch>> ObjectOf(const VARIANT& value) noexcept {
  const VARIANT& referred = Referred(value);
  const int type = referred.vt & ~VT_BYREF;
  if (type != VT_DISPATCH && type != VT_UNKNOWN) return std::nullopt;
  IUnknown* unknown = referred.punkVal;
  if (type != referred.vt) unknown = referred.ppunkVal != nullptr ? *referred.ppunkVal : nullptr;
  if (type == VT_DISPATCH) return ComPtr(static_cast<IDispatch*>(unknown));
  ComPtr<IDispatch> object;
  // The reference is kept: an object may make this interface for whoever asks, and only for so
  // long.
  const bool is_object =
      unknown == nullptr || SUCCEEDED(unknown->QueryInterface(IID_IDispatch, object.ReceiveVoid()));
  return is_object ? std::optional(std::move(object)) : std::nullopt;
}

Text TextOf(const VARIANT& value) {
  const VARIANT& referred = Referred(value);
  if (referred.vt == VT_BSTR) return Text(ViewOf(referred.bstrVal));
  if (referred.vt == (VT_BSTR | VT_BYREF)) {
    return referred.pbstrVal == nullptr ? Text() : Text(ViewOf(*referred.pbstrVal));
  }
  const Variant converted = Converted(referred, VT_BSTR);
  return Text(ViewOf(converted.get()->bstrVal));
}

std::int32_t Int32Of(const VARIANT& value) {
  return Converted(Referred(value), VT_I4).get()->lVal;
}

bool TruthOf(const VARIANT& value) {
  return Converted(Referred(value), VT_BOOL).get()->boolVal != VARIANT_FALSE;
}

SAFEARRAY* ArrayOf(const VARIANT& value) noexcept {
  const VARIANT& referred = Referred(value);
  if ((referred.vt & VT_ARRAY) == 0) return nullptr;
  if ((referred.vt & VT_BYREF) == 0) return referred.parray;
  return referred.pparray != nullptr ? *referred.pparray : nullptr;
}

Text ElementText(SAFEARRAY* array, std::int32_t index) {
  VARTYPE type = VT_EMPTY;
  LONG place = index;
  LONG lower = 0;
  LONG upper = -1;
  if (array == nullptr || ::SafeArrayGetDim(array) != 1 ||
      FAILED(::SafeArrayGetVartype(array, &type)) ||
      FAILED(::SafeArrayGetLBound(array, 1, &lower)) ||
      FAILED(::SafeArrayGetUBound(array, 1, &upper)) || place < lower || place > upper) {
    throw RuntimeError(ErrorNumber::kSubscriptOutOfRange);
  }
  Variant element;
  // That of a record, which needs its description, and of a decimal, which covers a whole variant.
  HRESULT result = E_INVALIDARG;
  if (type == VT_VARIANT) {
    result = ::SafeArrayGetElement(array, &place, element.get());
  } else if (type != VT_RECORD && type != VT_DECIMAL) {
    // The element lies in the variant's value field, whose type is noted once it is there.
    result = ::SafeArrayGetElement(array, &place, &element.get()->byref);
    if (SUCCEEDED(result)) element.get()->vt = type;
  }
  ThrowIfFailed(result == E_INVALIDARG ? DISP_E_TYPEMISMATCH : result);
  return TextOf(*element.get());
}

}  // namespace quill::com
