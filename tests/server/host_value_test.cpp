// The arrays and collections that hosts and scripts hand over, of every make.
#include "com/late_bound.h"
#include "host/win32/plugin_session.h"
#include "tests/server/scripted_object.h"

namespace quill::com {
namespace {

using Answer = std::function<Variant()>;
using Given = std::span<const VARIANT>;

class TargetArray : public PluginBench {
 protected:
  TargetArray() { Start(); }
  // The target that the request named; the number of the failure when none was written.
  std::string Open(const Variant& target) {
    kit.files.clear();
    kit.failures.clear();
    EXPECT_EQ(plugin->LoadInterface(3, 0, const_cast<VARIANT*>(target.get()), nullptr), S_OK);
    EXPECT_EQ(std::exchange(boxes, {}).size(), kit.failures.size());
    if (!kit.failures.empty()) return "error " + std::to_string(kit.failures.back().number);
    const TextView request = kit.files.back().text;
    return ToUtf8(Split(request, u"_")[3]);
  }
};

template <class T>
Variant ArrayOf(VARTYPE type, std::vector<T> values) {
  Variant array = OfType(static_cast<VARTYPE>(VT_ARRAY | type));
  array.get()->parray = ::SafeArrayCreateVector(type, 0, static_cast<ULONG>(values.size()));
  for (LONG i = 0; i < static_cast<LONG>(values.size()); ++i) {
    EXPECT_EQ(::SafeArrayPutElement(array.get()->parray, &i, &values[static_cast<std::size_t>(i)]),
              S_OK);
  }
  return array;
}

TEST_F(TargetArray, MayHoldTextsNumbersOrVariants) {
  EXPECT_EQ(Open(ArrayOfVariants({u"other", u"abc"})), "abc");
  EXPECT_EQ(Open(ArrayOfVariants({u"abc", u"other"}, 1)), "abc") << "counted from 1";
  EXPECT_EQ(Open(ArrayOf<std::int32_t>(VT_I4, {1, -20, 300})), "-20");
  EXPECT_EQ(Open(ArrayOf<std::uint8_t>(VT_UI1, {1, 200})), "200");
  ASSERT_TRUE(::SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, L","));
  EXPECT_EQ(Open(ArrayOf<double>(VT_R8, {0, 0.5})), "0.5") << "whatever the user's own sign is";
  EXPECT_TRUE(::SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, L"."));

  Variant texts = OfType(VT_ARRAY | VT_BSTR);
  texts.get()->parray = ::SafeArrayCreateVector(VT_BSTR, 0, 2);
  LONG place = 1;
  const Bstr text(u"");
  EXPECT_EQ(::SafeArrayPutElement(texts.get()->parray, &place, text.get()), S_OK);
  EXPECT_EQ(Open(texts), "");

  Variant held = ArrayOfVariants({u"other", u"abc"});
  Variant by_reference = OfType(VT_ARRAY | VT_VARIANT | VT_BYREF);
  by_reference.get()->pparray = &held.get()->parray;
  EXPECT_EQ(Open(by_reference), "abc");
  EXPECT_EQ(Open(ByReference(held)), "abc");
}

TEST_F(TargetArray, MayBeAScriptsArrayObject) {
  const auto script_array = ScriptedObject::Make();
  script_array->members[u"0"] = [](auto) { return Variant::OfText(u"other"); };
  script_array->members[u"1"] = [](auto) { return Variant::OfInt32(17); };
  script_array->takes = DISPATCH_PROPERTYGET;
  script_array->is_strict = true;
  EXPECT_EQ(Open(OfObject(script_array.get())), "17");
  script_array->answers_extended_only = true;
  EXPECT_EQ(Open(OfObject(script_array.get())), "17");
  script_array->members.erase(u"1");
  EXPECT_EQ(Open(OfObject(script_array.get())), "error 9");
  EXPECT_EQ(script_array->references(), 1u);
}

TEST_F(TargetArray, WithoutASecondElementStopsTheCall) {
  EXPECT_EQ(Open(ArrayOfVariants({u"abc"})), "error 9");
  EXPECT_EQ(Open(ArrayOfVariants({u"abc", u"other"}, 2)), "error 9");
  EXPECT_EQ(Open(Variant()), "error 13");
  EXPECT_EQ(Open(Variant::OfText(u"abc")), "error 13");
  EXPECT_EQ(Open(OfType(VT_ARRAY | VT_VARIANT)), "error 13") << "an array that was never filled";
  const Variant null_element = ArrayOfVariants({u"", u""});
  LONG place = 1;
  EXPECT_EQ(::SafeArrayPutElement(null_element.get()->parray, &place, OfType(VT_NULL).get()), S_OK);
  EXPECT_EQ(Open(null_element), "error 13");
  SAFEARRAYBOUND bounds[] = {{2, 0}, {2, 0}};
  Variant table = OfType(VT_ARRAY | VT_VARIANT);
  table.get()->parray = ::SafeArrayCreate(VT_VARIANT, 2, bounds);
  EXPECT_EQ(Open(table), "error 9");
  EXPECT_EQ(robot.FormWindow(), nullptr);
}

class OperatorRights : public PluginBench {
 protected:
  OperatorRights() { Start(); }
  // What the operator of the dialog sees with these rights.
  std::string Apply(IDispatch* names, bool is_super_admin = false) {
    EXPECT_EQ(plugin->SetPrivis(names, nullptr, is_super_admin ? VARIANT_TRUE : VARIANT_FALSE),
              S_OK);
    return Seen();
  }
  std::string Apply(const ComPtr<ScriptedObject>& names) { return Apply(names.get()); }
  std::string Seen() {
    std::string enabled;
    Open([&] {
      enabled = Enabled();
      Hide();
    });
    return enabled;
  }
  // The number of the one failure of SetPrivis that was reported meanwhile.
  std::int32_t TakeFailure() {
    const auto failures = std::exchange(kit.failures, {});
    EXPECT_EQ(std::exchange(boxes, {}).size(), 1u);
    EXPECT_EQ(failures.size(), 1u);
    return failures.empty() || failures[0].label != u"SetPrivis" ? 0 : failures[0].number;
  }
};

class ScriptDictionary {
 public:
  void Add(TextView key, Variant value) { Add(Variant::OfText(key), std::move(value)); }
  void Add(Variant key, Variant value) { dictionary_.Call(u"Add", {&key, &value}); }
  [[nodiscard]] const LateBound& bound() const { return dictionary_; }
  [[nodiscard]] IDispatch* object() const { return dictionary_.object(); }

 private:
  const LateBound dictionary_ = LateBound::Create(u"Scripting.Dictionary");
};

TEST_F(OperatorRights, ComeFromAScriptsDictionaryWhichStaysAsItWas) {
  ScriptDictionary rights;
  EXPECT_EQ(Apply(rights.object()), "eeeeeeee") << "empty: nothing changes";
  rights.Add(u"CHANGE GS MAX PLAYERS", Variant::OfText(u"0"));  // the exact spelling goes first
  rights.Add(u"Change GS Max Players", Variant::OfText(u"1"));
  rights.Add(u"CHANGE gs game mod", Variant::OfText(u""));
  rights.Add(u"change gs game port", Variant::OfText(u"yes"));
  rights.Add(u"Change GS Dedicated Mode", Variant::OfInt32(0));
  rights.Add(u"Change GS Windowed Mode", Variant::OfText(u"0"));
  rights.Add(u"Change GS Custom Skins Option", Variant::OfBoolean(true));
  rights.Add(OfObject(ScriptedObject::Make().get()), Variant::OfText(u"a key without a text"));
  EXPECT_EQ(Apply(rights.object(), true), "eeeeeeee");
  EXPECT_EQ(Apply(rights.object()), "-ee--e-e");
  EXPECT_EQ(Int32Of(*rights.bound().Call(u"Count", {}).get()), 8) << "a look-up must not add";
  rights.Add(u"Change GS Session Type", Variant::OfBoolean(false));
  rights.Add(u"Change GS Req Nova Login Option", Variant());
  EXPECT_EQ(Apply(rights.object()), "-ee--eee") << "false is 0, and empty another value";
  EXPECT_TRUE(boxes.empty());
}

// A collection that holds a 1 and an empty item.
ComPtr<ScriptedObject> CollectionWith(Answer missing) {
  const auto rights = ScriptedObject::Make();
  rights->members[u"Count"] = [](auto) { return Variant::OfInt32(2); };
  rights->default_member = [missing](Given given) {
    const Text key = ToLower(TextOf(given[0]));
    if (key == u"change gs max players") return Variant::OfInt32(1);
    return key == u"change gs game port" ? Variant() : missing();
  };
  return rights;
}

TEST_F(OperatorRights, ComeFromCollectionsThatFailForUnknownKeys) {
  for (const std::int32_t number : {5, 9, 1004, static_cast<std::int32_t>(0x80070490)}) {
    SCOPED_TRACE(number);
    const auto rights =
        CollectionWith([number]() -> Variant { throw RuntimeError(number, u"no such key"); });
    EXPECT_EQ(Apply(rights), "-e-----e");
    rights->answers_extended_only = true;
    rights->members[u"Item"] = std::exchange(rights->default_member, nullptr);
    EXPECT_EQ(Apply(rights), "-e-----e");
    // A list of keys that is none, or cannot be had, is of no help, the items are.
    rights->members[u"Keys"] = [](auto) { return OfObject(nullptr); };
    EXPECT_EQ(Apply(rights), "-e-----e");
    rights->members[u"Keys"] = [](auto) -> Variant { throw RuntimeError(450, u"which keys?"); };
    EXPECT_EQ(Apply(rights), "-e-----e");
  }
  EXPECT_TRUE(boxes.empty());
}

TEST_F(OperatorRights, ComeFromCollectionsThatAnswerNothingForUnknownKeys) {
  ScriptDictionary keys;
  keys.Add(u"CHANGE GS max players", Variant());
  keys.Add(u"Change GS Game Port", Variant());
  for (const Answer& nothing :
       {Answer([] { return Variant(); }), Answer([] { return OfType(VT_NULL); }),
        Answer([] { return OfObject(nullptr); })}) {
    const auto rights = CollectionWith(nothing);
    EXPECT_EQ(Apply(rights), "-e------") << "it cannot tell its empty item from none";
    rights->enumeration = [&](auto) { return keys.bound().Call(DISPID_NEWENUM, {}); };
    EXPECT_EQ(Apply(rights), "-e-----e") << "its enumeration gives the keys";
    rights->enumeration = nullptr;
    for (const char16_t* name : {u"Exists", u"Contains", u"ContainsKey"}) {
      auto& member = rights->members[name];
      member = [](Given given) {
        const Text key = TextOf(given[0]);
        return Variant::OfBoolean(key.ends_with(u"Players") || key.ends_with(u"Port"));
      };
      EXPECT_EQ(Apply(rights), "-e-----e") << ToUtf8(name);
      member = [](auto) -> Variant { throw RuntimeError(450, u"which list?"); };
      EXPECT_EQ(Apply(rights), "-e------") << ToUtf8(name);
      rights->members.erase(name);
    }
    rights->members[u"Keys"] = [&](auto) { return OfObject(keys.object()); };
    EXPECT_EQ(Apply(rights), "-e-----e") << "the list of keys is an object itself";
  }
  EXPECT_TRUE(boxes.empty());
}

TEST_F(OperatorRights, AnItemThatCannotBeComparedEndsTheCall) {
  const auto plain = ScriptedObject::Make();
  const auto bottomless = ScriptedObject::Make();
  bottomless->default_member = [&](auto) { return OfObject(bottomless.get()); };
  const auto zero = ScriptedObject::Make();
  zero->default_member = [](auto) { return Variant::OfText(u"0"); };
  const std::pair<Answer, const char*> items[] = {
      {[] { return ArrayOfVariants({u"1"}); }, "--eeeeee"},
      {[&] { return std::move(Invoke(*plugin.get(), 2, {}).value); }, "--eeeeee"},
      {[&] { return OfObject(plain.get()); }, "--eeeeee"},
      {[&] { return OfObject(bottomless.get()); }, "--eeeeee"},
      {[] { return OfObject(nullptr); }, "--eeeeee"},
      {[] { return OfType(VT_ERROR); }, "--eeeeee"},
      {[&] { return OfObject(zero.get()); }, "--------"},
      {[] { return OfType(VT_NULL); }, "--e-----"},
      {[] { return OfType(VT_DATE); }, "--e-----"}};  // of value 0, but no number
  for (const auto& [item, seen] : items) {
    const auto rights = ScriptedObject::Make();
    rights->members[u"Count"] = [](auto) { return Variant::OfInt32(8); };
    rights->members[u"Exists"] = [](auto) { return Variant::OfBoolean(true); };
    rights->members[u"Item"] = [&item = item](Given given) {
      return TextOf(given[0]) == u"Change GS Game Mod" ? item() : Variant::OfText(u"0");
    };
    EXPECT_EQ(Apply(rights), seen);
    EXPECT_TRUE(std::string_view(seen) != "--eeeeee" || TakeFailure() == 13);
  }
  EXPECT_TRUE(boxes.empty());
}

TEST_F(OperatorRights, ComeFromNothingButCollections) {
  const auto rights = ScriptedObject::Make();
  EXPECT_EQ(Apply(rights), "eeeeeeee") << "nothing counts";
  EXPECT_EQ(TakeFailure(), 438);
  rights->members[u"Count"] = [](auto) { return Variant::OfInt32(8); };
  EXPECT_EQ(Apply(rights), "eeeeeeee") << "nothing looks up";
  EXPECT_EQ(TakeFailure(), 438);
  rights->members[u"Count"] = [](auto) -> Variant { throw RuntimeError(1004, u"no connection"); };
  EXPECT_EQ(Apply(rights), "eeeeeeee");
  EXPECT_EQ(TakeFailure(), 1004);
  EXPECT_EQ(Apply(nullptr, false), "eeeeeeee");
  EXPECT_EQ(TakeFailure(), 91);
  EXPECT_EQ(Apply(nullptr, true), "eeeeeeee");
  EXPECT_TRUE(boxes.empty());

  // The plug-in keeps the last collection, and lets go of it with everything else.
  EXPECT_EQ(rights->references(), 1u);
  EXPECT_EQ(Apply(rights.get(), true), "eeeeeeee");
  EXPECT_EQ(rights->references(), 2u);
  plugin.Reset();
  EXPECT_TRUE(library->CanUnload());
  EXPECT_EQ(rights->references(), 1u);
}

TEST_F(OperatorRights, ComeByReferenceAndAsBareObjectsFromLateCallers) {
  const auto names =
      host::MakeRightsCollection({{u"Change GS Max Players", host::Right::Form::kText, u"1"}});
  IDispatch* place = names.get();
  Variant held = OfObject(names.get());
  const Variant by_place = Variant::ByReference(&place);
  const Variant by_variable = ByReference(held);
  Variant bare = OfType(VT_UNKNOWN);
  bare.get()->punkVal = names.get();
  names->AddRef();
  const Variant nothing = OfObject(nullptr);
  const Variant super = Variant::OfInt32(0);
  for (const Variant* form : Forms{&by_place, &by_variable, &bare}) {
    EXPECT_EQ(
        Invoke(*plugin.get(), u"SetPrivis", {*form->get(), *nothing.get(), *super.get()}).result,
        S_OK);
    EXPECT_EQ(Seen(), "-e------");
  }
  EXPECT_EQ(names->AddRef(), 5u) << "here, in two variants, and kept by the plug-in";
  names->Release();
  EXPECT_TRUE(boxes.empty());
}

}  // namespace
}  // namespace quill::com
