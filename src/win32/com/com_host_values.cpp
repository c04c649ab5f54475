#include "win32/com/com_host_values.h"

#include <algorithm>
#include <iterator>

#include "support/runtime_error.h"
#include "win32/com/bstr.h"
#include "win32/com/variant.h"

namespace quill::com {
namespace {

// What collections of different makes raise when they hold no item of a key: the keyed collections
// of scripts and of compiled hosts, "element not found", and the argument and key errors of managed
// collections.
bool IsMissingKey(const RuntimeError& error) {
  constexpr std::int32_t kMissing[] = {
      static_cast<std::int32_t>(ErrorNumber::kInvalidProcedureCall),
      static_cast<std::int32_t>(ErrorNumber::kSubscriptOutOfRange),
      32811,
      static_cast<std::int32_t>(0x80070490u),
      static_cast<std::int32_t>(0x8002802Bu),
      static_cast<std::int32_t>(0x80131577u),
      static_cast<std::int32_t>(0x80131502u),
  };
  return std::ranges::find(kMissing, error.number()) != std::end(kMissing);
}

bool IsNumeric(VARTYPE type) {
  switch (type) {
    case VT_I1:
    case VT_I2:
    case VT_I4:
    case VT_I8:
    case VT_INT:
    case VT_UI1:
    case VT_UI2:
    case VT_UI4:
    case VT_UI8:
    case VT_UINT:
    case VT_R4:
    case VT_R8:
    case VT_CY:
    case VT_DECIMAL:
    case VT_BOOL:
      return true;
    default:
      return false;
  }
}

HostItem ItemOf(const VARIANT& value) {
  const VARIANT& referred = Referred(value);
  const VARTYPE type = static_cast<VARTYPE>(referred.vt & ~VT_BYREF);
  HostItem item;
  IDispatch* object = nullptr;
  if (ReadObject(referred, object)) {
    if (object == nullptr) return item;
    // An object counts as its default value, as long as that is no object again.
    const Variant held = LateBound(object).Call(DISPID_VALUE, {});
    if (!ReadObject(*held.get(), object)) return ItemOf(*held.get());
  } else if (type == VT_BSTR) {
    item.kind = HostItem::Kind::kText;
    item.text = TextOf(referred);
  } else if (IsNumeric(type)) {
    Variant number;
    if (SUCCEEDED(ConvertTo(VT_R8, referred, number))) {
      item.kind = HostItem::Kind::kNumber;
      item.number = number.get()->dblVal;
    }
  }
  return item;
}

}  // namespace

Text ComHostArray::ElementText(std::int32_t index) const {
  const VARIANT& referred = Referred(value_);
  if (SAFEARRAY* array = ArrayOf(referred)) return com::ElementText(array, index);
  IDispatch* object = nullptr;
  if (ReadObject(referred, object) && object != nullptr) {
    const LateBound script_array(object);
    const std::optional<DISPID> element = script_array.Find(Decimal(index));
    if (!element) throw RuntimeError(ErrorNumber::kSubscriptOutOfRange);
    return TextOf(*script_array.Call(*element, {}).get());
  }
  throw RuntimeError(ErrorNumber::kTypeMismatch);
}

std::int64_t ComHostCollection::Count() {
  return Int32Of(*collection_.Call(u"Count", {}).get());
}

std::optional<HostItem> ComHostCollection::Find(TextView key) {
  if (const std::optional<DISPID> keys = collection_.Find(u"Keys")) {
    const Variant listed = collection_.Call(*keys, {});
    if (SAFEARRAY* array = ArrayOf(*listed.get())) return FindListed(array, key);
  }
  try {
    return ItemOf(*Item(key).get());
  } catch (const RuntimeError& error) {
    if (!IsMissingKey(error)) throw;
    return std::nullopt;
  }
}

std::optional<HostItem> ComHostCollection::FindListed(SAFEARRAY* keys, TextView key) {
  LONG lower = 0;
  LONG upper = -1;
  (void)::SafeArrayGetLBound(keys, 1, &lower);
  (void)::SafeArrayGetUBound(keys, 1, &upper);
  std::optional<Text> found;
  for (LONG i = lower; i <= upper; ++i) {
    Text listed = com::ElementText(keys, i);
    if (listed == key) {
      found = std::move(listed);
      break;
    }
    if (!found && EqualIgnoringCase(listed, key)) found = std::move(listed);
  }
  if (!found) return std::nullopt;
  return ItemOf(*Item(*found).get());
}

Variant ComHostCollection::Item(TextView key) {
  const Variant key_argument = Variant::OfText(key);
  const std::optional<DISPID> item = collection_.Find(u"Item");
  return collection_.Call(item.value_or(DISPID_VALUE), {&key_argument});
}

std::shared_ptr<HostCollection> CollectionOf(IDispatch* object) {
  if (object == nullptr) return nullptr;
  return std::make_shared<ComHostCollection>(object);
}

}  // namespace quill::com
