// Automation variants: owned, made from the values that cross the boundary, and read back.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "com/automation.h"
#include "com/com_ptr.h"
#include "support/text.h"

namespace quill::com {

class Variant {
 public:
  Variant() noexcept { ::VariantInit(&value_); }
  ~Variant() { ::VariantClear(&value_); }
  Variant(Variant&& other) noexcept : value_(other.value_) { ::VariantInit(&other.value_); }
  Variant& operator=(Variant&& other) noexcept;
  Variant(const Variant&) = delete;
  Variant& operator=(const Variant&) = delete;

  [[nodiscard]] static Variant OfText(TextView text);
  [[nodiscard]] static Variant OfInt32(std::int32_t number) noexcept;
  [[nodiscard]] static Variant OfBoolean(bool truth) noexcept;  // -1 or 0, 16-bit
  // A new array of variants, with copies of those.
  [[nodiscard]] static Variant OfArray(std::span<Variant> elements);
  // By reference: what is referred to must outlive the variant, which does not own it.
  [[nodiscard]] static Variant ByReference(BSTR* text) noexcept { return Refer(VT_BSTR, text); }
  [[nodiscard]] static Variant ByReference(LONG* number) noexcept { return Refer(VT_I4, number); }
  [[nodiscard]] static Variant ByReference(IDispatch** object) noexcept {
    return Refer(VT_DISPATCH, object);
  }
  [[nodiscard]] static Variant ByReference(SAFEARRAY** variants) noexcept {
    return Refer(VT_ARRAY | VT_VARIANT, variants);
  }

  [[nodiscard]] VARIANT* get() noexcept { return &value_; }
  [[nodiscard]] const VARIANT* get() const noexcept { return &value_; }
  [[nodiscard]] VARTYPE type() const noexcept { return value_.vt; }
  // Hands the value over; the variant is empty afterwards.
  [[nodiscard]] VARIANT Detach() noexcept;

 private:
  [[nodiscard]] static Variant Refer(VARTYPE type, void* place) noexcept;

  VARIANT value_;
};

// `value` as automation converts it to `type`, independent of the user's locale; an object counts
// as its default value. Returns the platform's result; `converted` is left empty on failure.
[[nodiscard]] HRESULT ConvertTo(VARTYPE type, const VARIANT& value, Variant& converted);

// The value of the object's default member, asked for in the user's default locale. Fails with
// kTypeMismatch when there is none, or when it is an object again.
[[nodiscard]] Variant DefaultValue(IDispatch* object);

// The value behind references to variants; never null. References to other types stay.
[[nodiscard]] const VARIANT& Referred(const VARIANT& value) noexcept;

// The object that a variant holds, by value or by reference; null for Nothing. No value when it
// holds something that is no object.
[[nodiscard]] std::optional<ComPtr<IDispatch>> ObjectOf(const VARIANT& value) noexcept;

// Text of a value as automation converts it, independent of the user's locale: an empty value gives
// an empty text. Fails with kTypeMismatch for null, arrays, and objects without a default value.
[[nodiscard]] Text TextOf(const VARIANT& value);

// 32-bit number of a value: kTypeMismatch, or kOverflow out of range.
[[nodiscard]] std::int32_t Int32Of(const VARIANT& value);

// Truth of a value; empty is false. Fails with kTypeMismatch.
[[nodiscard]] bool TruthOf(const VARIANT& value);

// The array in a value or behind its reference, of whatever type and dimensions. Null when the
// value is no array.
[[nodiscard]] SAFEARRAY* ArrayOf(const VARIANT& value) noexcept;

// Text of one element. kSubscriptOutOfRange when there is none, or the array has not exactly one
// dimension; kTypeMismatch for an element that has no text.
[[nodiscard]] Text ElementText(SAFEARRAY* array, std::int32_t index);

}  // namespace quill::com
