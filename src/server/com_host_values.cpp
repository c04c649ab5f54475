// Reads the host's arrays and collections. Hosts write collections in many ways; each is asked in
// the way that changes nothing in it.
#include "server/com_host_values.h"

#include <algorithm>
#include <vector>

#include "com/bstr.h"
#include "com/com_ptr.h"
#include "com/late_bound.h"
#include "com/variant.h"
#include "support/runtime_error.h"

namespace quill::com {
namespace {

// Fails with kTypeMismatch for what cannot be compared with a text.
HostItem ItemOf(const VARIANT& value) {
  const VARIANT& referred = Referred(value);
  HostItem item;
  Variant number;
  if (const auto object = ObjectOf(referred)) return ItemOf(*DefaultValue(object->get()).get());
  switch (referred.vt & ~VT_BYREF) {
    case VT_EMPTY:
    case VT_NULL:
    case VT_DATE:
      break;
    case VT_BSTR:
      item.kind = HostItem::Kind::kText;
      item.text = TextOf(referred);
      break;
    default:  // a number, or nothing that the platform would convert to one
      if (FAILED(ConvertTo(VT_R8, referred, number))) {
        throw RuntimeError(ErrorNumber::kTypeMismatch);
      }
      item.kind = HostItem::Kind::kNumber;
      item.number = number.get()->dblVal;
  }
  return item;
}

bool IsNothing(const VARIANT& value) {
  const VARIANT& referred = Referred(value);
  if (referred.vt == VT_EMPTY || referred.vt == VT_NULL) return true;
  const auto object = ObjectOf(referred);
  return object && !*object;
}

// What `attempt` gives; nothing when it fails.
template <class Attempt>
auto Tried(const Attempt& attempt) -> std::optional<decltype(attempt())> {
  try {
    return attempt();
  } catch (const RuntimeError&) {
    return std::nullopt;
  }
}

// A key without a text, as an object used as a key, is left out.
template <class Read>
void AddKey(std::vector<Text>& keys, const Read& read) {
  if (std::optional<Text> key = Tried(read)) keys.push_back(std::move(*key));
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
  const auto held = Tried([&] { return LateBound(object).Call(DISPID_NEWENUM, {}); });
  if (!held) return std::nullopt;
  const VARIANT& value = *held->get();
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
  const auto is_alike = [&](const Text& listed) { return EqualIgnoringCase(listed, key); };
  if (found == keys.end()) found = std::ranges::find_if(keys, is_alike);
  return found != keys.end() ? std::optional(*found) : std::nullopt;
}

// Whether a collection holds a key is asked before its item is, because some add the key that they
// are asked for: of the list in Keys, or of ContainsKey, Exists or Contains. Without these a key is
// missing when the look-up fails, or when it answers with nothing as it does for keys that nobody
// has.
class ComHostCollection final : public HostCollection {
 public:
  explicit ComHostCollection(IDispatch* collection) noexcept : collection_(collection) {}
  [[nodiscard]] std::int64_t Count() override {
    return Int32Of(*collection_.Call(u"Count", {}).get());
  }

  [[nodiscard]] std::optional<HostItem> Find(TextView key) override {
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

 private:
  // The collection's keys as it spells them; nothing when it does not list them.
  [[nodiscard]] std::optional<std::vector<Text>> Keys() {
    const std::optional<DISPID> member = collection_.Find(u"Keys");
    if (!member) return std::nullopt;
    const auto listed = Tried([&] { return collection_.Call(*member, {}); });
    if (!listed) return std::nullopt;
    if (const auto object = ObjectOf(*listed->get()); object && *object) {
      return Enumerated(object->get());
    }
    SAFEARRAY* const array = ArrayOf(*listed->get());
    if (array == nullptr) return std::nullopt;
    return KeysIn(array);
  }

  // Nothing when the collection cannot tell.
  [[nodiscard]] std::optional<bool> Holds(TextView key) {
    const Variant argument = Variant::OfText(key);
    for (const TextView name : {u"ContainsKey", u"Exists", u"Contains"}) {
      const std::optional<DISPID> member = collection_.Find(name);
      if (!member) continue;
      // A member of that name may be asked in another way.
      const auto answer = Tried([&] { return collection_.Call(*member, {&argument}); });
      if (!answer || IsNothing(*answer->get())) continue;
      if (const auto truth = Tried([&] { return TruthOf(*answer->get()); })) return truth;
    }
    return std::nullopt;
  }

  // True when an answer of nothing for that key means an item.
  [[nodiscard]] bool NothingIsAnItem(TextView key) {
    if (const auto keys = Enumerated(collection_.object()); keys && Spelling(*keys, key))
      return true;
    // Where the look-up of a key that nobody has fails, an answer is an item.
    return !Item(Concat({key, u"?"}));
  }

  // Nothing when the look-up fails.
  [[nodiscard]] std::optional<Variant> Item(TextView key) {
    const Variant argument = Variant::OfText(key);
    const std::optional<DISPID> member = collection_.Find(u"Item");
    try {
      return collection_.Call(member.value_or(DISPID_VALUE), {&argument});
    } catch (const RuntimeError& error) {
      // Without any way to look an item up the object is no collection.
      if (!member && error.number() == static_cast<std::int32_t>(ErrorNumber::kMemberNotFound))
        throw;
      return std::nullopt;
    }
  }

  LateBound collection_;
};

}  // namespace

Text ComHostArray::ElementText(std::int32_t index) const {
  const VARIANT& referred = Referred(value_);
  if (SAFEARRAY* array = ArrayOf(referred)) return com::ElementText(array, index);
  if (const auto object = ObjectOf(referred); object && *object) {
    const LateBound script_array(object->get());
    const std::optional<DISPID> element = script_array.Find(Decimal(index));
    if (!element) throw RuntimeError(ErrorNumber::kSubscriptOutOfRange);
    return TextOf(*script_array.Call(*element, {}).get());
  }
  throw RuntimeError(ErrorNumber::kTypeMismatch);
}

std::shared_ptr<HostCollection> CollectionOf(IDispatch* object) {
  if (object == nullptr) return nullptr;
  return std::make_shared<ComHostCollection>(object);
}

}  // namespace quill::com
