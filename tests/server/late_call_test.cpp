// Calls by name with every form of argument that scripts and compiled clients send.
#include "tests/server/plugin_bench.h"

namespace quill::com {
namespace {

class LateCall : public PluginBench {
 protected:
  LateCall() { Start(); }
  // One call of LoadInterface, by the request that it wrote.
  Text Open(const std::vector<VARIANT>& arguments, const std::vector<DISPID>& names = {}) {
    kit.files.clear();
    outcome_ = Invoke(*plugin.get(), 4, arguments, names);
    return kit.files.empty() ? Text() : kit.files.back().text;
  }

  Outcome outcome_;
};
constexpr TextView kRequest = u"Plugin_kvrBHDGS_GetGameSettingsRem_abc_VB6_3";

TEST_F(LateCall, NamesAreFoundInAnyLetterCase) {
  const Text members[] = {u"dllVersion",    u"GetData",    u"SetPrivis",
                          u"LoadInterface", u"RemoteData", u"HideInterface"};
  for (std::size_t i = 0; i < std::size(members); ++i) {
    for (const Text& spelling : {members[i], ToLower(members[i]), ToUpper(members[i])}) {
      EXPECT_EQ(IdOf(*plugin.get(), spelling), static_cast<DISPID>(i) + 1) << ToUtf8(spelling);
    }
  }
  // Parameters follow their member; the known ones are found beside an unknown one.
  LPOLESTR names[] = {const_cast<LPOLESTR>(L"LOADINTERFACE"), const_cast<LPOLESTR>(L"pdat"),
                      const_cast<LPOLESTR>(L"Nobody"), const_cast<LPOLESTR>(L"INDEX")};
  DISPID ids[4] = {};
  EXPECT_EQ(plugin->GetIDsOfNames(IID_NULL, names, 4, LOCALE_USER_DEFAULT, ids),
            DISP_E_UNKNOWNNAME);
  EXPECT_EQ(std::vector(ids, ids + 4), (std::vector<DISPID>{4, 2, DISPID_UNKNOWN, 0}));
  EXPECT_EQ(plugin->GetIDsOfNames(IID_IUnknown, names, 1, LOCALE_USER_DEFAULT, ids),
            DISP_E_UNKNOWNINTERFACE);
}

TEST_F(LateCall, TakesArgumentsInEveryForm) {
  Variant index = Variant::OfInt32(3);
  Variant short_index = OfType(VT_I2);
  short_index.get()->iVal = 3;
  Variant real_index = OfType(VT_R8);
  real_index.get()->dblVal = 2.5000001;
  const Variant text_index = Variant::OfText(u"3");
  LONG number = 3;
  const Variant index_place = Variant::ByReference(&number);
  const Variant index_variable = ByReference(index);
  const Variant window = Variant::OfInt32(0);
  Variant target = ArrayOfVariants({u"", u"abc"});
  const Variant target_variable = ByReference(target);
  Bstr name(u"profile");
  const Variant name_place = Variant::ByReference(name.address());
  Variant name_text = Variant::OfText(u"profile");
  const Variant name_variable = ByReference(name_text);
  const Variant left_out = LeftOut();

  for (const Variant* form :
       Forms{&index, &short_index, &real_index, &text_index, &index_place, &index_variable}) {
    EXPECT_EQ(Open({*form->get(), *window.get(), *target.get()}), kRequest) << form->type();
    EXPECT_EQ(outcome_.result, S_OK);
    EXPECT_EQ(outcome_.value.type(), VT_EMPTY);
  }
  for (const Variant* form : Forms{&name_place, &name_text, &name_variable, &left_out}) {
    EXPECT_EQ(Open({*index.get(), *window.get(), *target_variable.get(), *form->get()}), kRequest);
  }
  EXPECT_EQ(Open({*index.get(), *target.get(), *window.get()}, {2, 1}), kRequest) << "named";
  EXPECT_EQ(Open({*name_text.get(), *target.get(), *window.get(), *index.get()}, {3, 2, 1, 0}),
            kRequest);
  EXPECT_TRUE(boxes.empty());
}

TEST_F(LateCall, RefusesWhatDoesNotFitBeforeAnythingHappens) {
  const Variant index = Variant::OfInt32(3);
  const Variant window = Variant::OfInt32(0);
  const Variant target = ArrayOfVariants({u"", u"abc"});
  const Variant words = Variant::OfText(u"three");
  const Variant null = OfType(VT_NULL);
  Variant large = OfType(VT_R8);
  large.get()->dblVal = 3e9;
  Variant left_out = LeftOut();
  const Variant left_out_variable = ByReference(left_out);
  const VARIANT i = *index.get(), w = *window.get(), t = *target.get();
  const struct {
    const char* what;
    HRESULT result;
    UINT bad_argument;
    std::vector<VARIANT> arguments;
    std::vector<DISPID> names = {};
  } calls[] = {
      {"too few", DISP_E_BADPARAMCOUNT, 0, {i, w}},
      {"none", DISP_E_BADPARAMCOUNT, 0, {}},
      {"too many", DISP_E_BADPARAMCOUNT, 0, {i, w, t, i, i}},
      {"a word for a number", DISP_E_TYPEMISMATCH, 2, {*words.get(), w, t}},
      {"null for a number", DISP_E_TYPEMISMATCH, 1, {i, *null.get(), t}},
      {"beyond 32 bits", DISP_E_OVERFLOW, 2, {*large.get(), w, t}},
      {"left out", DISP_E_PARAMNOTOPTIONAL, 0, {i, w, *left_out.get()}},
      {"left out in a variable", DISP_E_PARAMNOTOPTIONAL, 1, {i, *left_out_variable.get(), t}},
      {"the wrong one left out", DISP_E_PARAMNOTOPTIONAL, 0, {i, w, *words.get()}, {3}},
      {"named twice", DISP_E_PARAMNOTFOUND, 0, {i, w, t}, {0}},
      {"an unknown name", DISP_E_PARAMNOTFOUND, 0, {i, w, t}, {7}}};
  for (const auto& call : calls) {
    EXPECT_EQ(Open(call.arguments, call.names), u"") << call.what;
    EXPECT_EQ(outcome_.result, call.result) << call.what;
    EXPECT_EQ(outcome_.bad_argument, call.bad_argument) << call.what;
  }
  EXPECT_EQ(robot.FormWindow(), nullptr);
  EXPECT_TRUE(boxes.empty());

  for (const DISPID unknown : {7, 0}) {
    EXPECT_EQ(Invoke(*plugin.get(), unknown, {}).result, DISP_E_MEMBERNOTFOUND);
  }
  for (const int flags : {DISPATCH_PROPERTYPUT, DISPATCH_PROPERTYPUTREF}) {
    EXPECT_EQ(
        Invoke(*plugin.get(), 1, {*words.get()}, {DISPID_PROPERTYPUT}, static_cast<WORD>(flags))
            .result,
        DISP_E_MEMBERNOTFOUND);
  }
  const Variant object = OfObject(nullptr);
  EXPECT_EQ(Invoke(*plugin.get(), 3, {*words.get(), *object.get(), i}).result, DISP_E_TYPEMISMATCH);
  DISPPARAMS nothing{};
  EXPECT_EQ(plugin->Invoke(1, IID_IUnknown, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &nothing, nullptr,
                           nullptr, nullptr),
            DISP_E_UNKNOWNINTERFACE);
}

TEST_F(LateCall, ResultsComeAsMethodOrPropertyAndMayBeIgnored) {
  const Variant name = Variant::OfText(u"host");
  for (const int flags :
       {DISPATCH_METHOD, DISPATCH_PROPERTYGET, DISPATCH_METHOD | DISPATCH_PROPERTYGET}) {
    const Outcome outcome = Invoke(*plugin.get(), 1, {*name.get()}, {}, static_cast<WORD>(flags));
    EXPECT_EQ(outcome.result, S_OK);
    EXPECT_EQ(outcome.value.type(), VT_BSTR);
    EXPECT_EQ(TextOf(*outcome.value.get()), u"1.1.2");
  }
  VARIANT argument = *name.get();
  DISPPARAMS parameters{&argument, nullptr, 1, 0};
  EXPECT_EQ(plugin->Invoke(1, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, nullptr,
                           nullptr, nullptr),
            S_OK);
}

TEST_F(LateCall, RepliesArriveUnchangedInEveryForm) {
  const Text compressed = Concat({u"a", Text{u'\0', char16_t{0xD800}}, u"z"});
  const Text reply = Concat({u"3[-]Scorvane[-]", compressed});
  int arrived = 0;
  kit.before = [&](TextView operation, TextView what) {
    if (operation == u"DecompressString" && what == compressed) ++arrived;
    return true;
  };
  PluginBench::Open([&] {
    Reply(reply);
    Bstr text(reply);
    const Variant by_value = Variant::OfText(reply);
    const Variant place = Variant::ByReference(text.address());
    Variant held = Variant::OfText(reply);
    const Variant variable = ByReference(held);
    for (const Variant* form : Forms{&by_value, &place, &variable}) {
      EXPECT_EQ(Invoke(*plugin.get(), u"RemoteData", {*form->get()}).result, S_OK);
    }
  });
  EXPECT_EQ(arrived, 4);
  // The kit refuses it each time, which is reported, and nothing breaks.
  EXPECT_EQ(TakeReports().size(), 4u);
}

}  // namespace
}  // namespace quill::com
