#include "server/com_host_values.h"

#include <algorithm>
#include <vector>

#include "com/bstr.h"
#include "com/variant.h"
#include "support/runtime_error.h"

namespace quill::com {
namespace {

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

// Fails with kTypeMismatch for what cannot be compared with a text.
HostItem ItemOf(const VARIANT& value) {
  const VARIANT& referred = Referred(value);
  HostItem item;
  IDispatch* object = nullptr;
  Variant number;
  if (ReadObject(referred, object)) return ItemOf(*DefaultValue(object).get());
  switch (const auto type = static_cast<VARTYPE>(referred.vt & ~VT_BYREF)) {
    case VT_EMPTY:
    case VT_NULL:
    case VT_DATE:
      return item;
    case VT_BSTR:
      item.kind = HostItem::Kind::kText;
      item.text = TextOf(referred);
      return item;
    default:
      if (!IsNumeric(type) || FAILED(ConvertTo(VT_R8, referred, number))) {
        throw RuntimeError(ErrorNumber::kTypeMismatch);
      }
      item.kind = HostItem::Kind::kNumber;
      item.number = number.get()->dblVal;
      return item;
  }
}

bool IsNothing(const VARIANT& value) {
  const VARIANT& referred = Referred(value);
  IDispatch* object = nullptr;
  return referred.vt == VT_EMPTY || referred.vt == VT_NULL ||
         (ReadObject(referred, object) && object == nullptr);
}

// A key without a text, as an object used as a key, is left out.
template <class Read>
void AddKey(std::vector<Text>& keys, const Read& read) {
  try {
    keys.push_back(read());
  } catch (const RuntimeError&) {
  }
}

std::vector<Text> KeysIn(SAFEARRAY* array) {
  LONG lower = 0;
  LONG upper = -1;
  (void)::SafeArrayGetLBound(array, 1, &lower);
  (void)::SafeArrayGetUBound(array, 1, &upper);
  std::vector<Text> keys;
  for (LONG i = lower; i <= upper; ++i) AddKey(keys, [&] { return com::ElementText(array, i); });
  return keys;
}

// The texts among what the object's enumeration gives; nothing when it has none.
std::optional<std::vector<Text>> Enumerated(IDispatch* object) {
  Variant held;
  try {
    held = LateBound(object).Call(DISPID_NEWENUM, {});
  } catch (const RuntimeError&) {
    return std::nullopt;
  }
  const VARIANT& value = *held.get();
  ComPtr<IEnumVARIANT> enumeration;
  if ((value.vt != VT_UNKNOWN && value.vt != VT_DISPATCH) || value.punkVal == nullptr ||
      FAILED(value.punkVal->QueryInterface(IID_IEnumVARIANT, enumeration.ReceiveVoid()))) {
    return std::nullopt;
  }
  std::vector<Text> keys;
  for (Variant next; enumeration->Next(1, next.get(), nullptr) == S_OK; next = Variant()) {
    AddKey(keys, [&] { return TextOf(*next.get()); });
  }
  return keys;
}

// The listed key that equals `key` without regard to letter case; one that equals it exactly goes
// first.
std::optional<Text> Spelling(const std::vector<Text>& keys, TextView key) {
  auto found = std::ranges::find(keys, key);
  if (found == keys.end()) {
    found = std::ranges::find_if(
        keys, [&](const Text& listed) { return EqualIgnoringCase(listed, key); });
  }
  if (found == keys.end()) return std::nullopt;
  return *found;
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
  std::optional<Variant> item;
  if (const std::optional<std::vector<Text>> keys = Keys()) {
    const std::optional<Text> spelling = Spelling(*keys, key);
    if (!spelling) return std::nullopt;
    item = Item(*spelling);
  } else {
    const std::optional<bool> holds = Holds(key);
    if (holds == false) return std::nullopt;
    item = Item(key);
    if (item && IsNothing(*item->get()) && !holds && !NothingIsAnItem(key)) return std::nullopt;
  }
  if (!item) return std::nullopt;
  return ItemOf(*item->get());
}

std::optional<std::vector<Text>> ComHostCollection::Keys() {
  const std::optional<DISPID> member = collection_.Find(u"Keys");
  if (!member) return std::nullopt;
  Variant listed;
  try {
    listed = collection_.Call(*member, {});
  } catch (const RuntimeError&) {
    return std::nullopt;
  }
  IDispatch* object = nullptr;
  if (ReadObject(*listed.get(), object) && object != nullptr) return Enumerated(object);
  SAFEARRAY* const array = ArrayOf(*listed.get());
  if (array == nullptr) return std::nullopt;
  return KeysIn(array);
}

std::optional<bool> ComHostCollection::Holds(TextView key) {
  const Variant argument = Variant::OfText(key);
  for (const TextView name : {u"ContainsKey", u"Exists", u"Contains"}) {
    const std::optional<DISPID> member = collection_.Find(name);
    if (!member) continue;
    try {
      const Variant answer = collection_.Call(*member, {&argument});
      if (!IsNothing(*answer.get())) return TruthOf(*answer.get());
    } catch (const RuntimeError&) {
      // A member of that name that is asked in another way.
    }
  }
  return std::nullopt;
}

bool ComHostCollection::NothingIsAnItem(TextView key) {
  if (const auto keys = Enumerated(collection_.object()); keys && Spelling(*keys, key)) return true;
  return !Item(Concat({key, u"?"}));
}

std::optional<Variant> ComHostCollection::Item(TextView key) {
  const Variant argument = Variant::OfText(key);
  const std::optional<DISPID> member = collection_.Find(u"Item");
  try {
    return collection_.Call(member.value_or(DISPID_VALUE), {&argument});
  } catch (const RuntimeError& error) {
    // Without any way to look an item up the object is no collection.
    if (!member && error.number() == static_cast<std::int32_t>(ErrorNumber::kMemberNotFound)) throw;
    return std::nullopt;
  }
}

std::shared_ptr<HostCollection> CollectionOf(IDispatch* object) {
  if (object == nullptr) return nullptr;
  return std::make_shared<ComHostCollection>(object);
}

}  // namespace quill::com
