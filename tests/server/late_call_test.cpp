// Calls by name with every form of argument that scripts and compiled clients send.
#include <algorithm>

#include "tests/server/plugin_bench.h"

namespace quill::com {
namespace {

using LateCall = PluginBench;

TEST_F(LateCall, NamesAreFoundInAnyLetterCase) {
  OfferKits();
  const auto plugin = Create();
  const Text members[] = {u"dllVersion",    u"GetData",    u"SetPrivis",
                          u"LoadInterface", u"RemoteData", u"HideInterface"};
  for (std::size_t i = 0; i < std::size(members); ++i) {
    for (const Text& spelling : {members[i], ToLower(members[i]), ToUpper(members[i])}) {
      EXPECT_EQ(IdOf(*plugin.get(), spelling), static_cast<DISPID>(i) + 1) << ToUtf8(spelling);
    }
  }
  EXPECT_EQ(IdOf(*plugin.get(), u"Version"), DISPID_UNKNOWN);

  // Parameters follow their member; the known ones are found beside an unknown one.
  LPOLESTR names[] = {const_cast<LPOLESTR>(L"LOADINTERFACE"), const_cast<LPOLESTR>(L"pdat"),
                      const_cast<LPOLESTR>(L"Nobody"), const_cast<LPOLESTR>(L"INDEX")};
  DISPID ids[4] = {};
  EXPECT_EQ(plugin->GetIDsOfNames(IID_NULL, names, 4, LOCALE_USER_DEFAULT, ids),
            DISP_E_UNKNOWNNAME);
  EXPECT_EQ(ids[0], 4);
  EXPECT_EQ(ids[1], 2);
  EXPECT_EQ(ids[2], DISPID_UNKNOWN);
  EXPECT_EQ(ids[3], 0);
  EXPECT_EQ(plugin->GetIDsOfNames(IID_IUnknown, names, 1, LOCALE_USER_DEFAULT, ids),
            DISP_E_UNKNOWNINTERFACE);
}

// One call of LoadInterface, by the request that it wrote.
class OpeningCall : public LateCall {
 protected:
  OpeningCall() {
    OfferKits();
    plugin_ = Create();
  }
  Text Open(const std::vector<VARIANT>& arguments, const std::vector<DISPID>& names = {}) {
    kit.files.clear();
    outcome_ = Invoke(*plugin_.get(), 4, arguments, names);
    return kit.files.empty() ? Text() : kit.files.back().text;
  }

  ComPtr<IPlugin> plugin_;
  Outcome outcome_;
};
constexpr TextView kRequest = u"Plugin_kvrBHDGS_GetGameSettingsRem_abc_VB6_3";

TEST_F(OpeningCall, TakesArgumentsInEveryForm) {
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
  Variant left_out = LeftOut();

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

TEST_F(OpeningCall, RefusesWhatDoesNotFitBeforeAnythingHappens) {
  const Variant index = Variant::OfInt32(3);
  const Variant window = Variant::OfInt32(0);
  const Variant target = ArrayOfVariants({u"", u"abc"});
  const Variant words = Variant::OfText(u"three");
  Variant large = OfType(VT_R8);
  large.get()->dblVal = 3e9;
  Variant left_out = LeftOut();
  const Variant left_out_variable = ByReference(left_out);

  const auto expect = [&](const char* what, HRESULT result, UINT bad_argument,
                          const std::vector<VARIANT>& arguments,
                          const std::vector<DISPID>& names = {}) {
    EXPECT_EQ(Open(arguments, names), u"") << what;
    EXPECT_EQ(outcome_.result, result) << what;
    EXPECT_EQ(outcome_.bad_argument, bad_argument) << what;
  };
  const VARIANT i = *index.get(), w = *window.get(), t = *target.get();
  expect("too few", DISP_E_BADPARAMCOUNT, 0, {i, w});
  expect("none", DISP_E_BADPARAMCOUNT, 0, {});
  expect("too many", DISP_E_BADPARAMCOUNT, 0, {i, w, t, i, i});
  expect("a word for a number", DISP_E_TYPEMISMATCH, 2, {*words.get(), w, t});
  expect("null for a number", DISP_E_TYPEMISMATCH, 1, {i, *OfType(VT_NULL).get(), t});
  expect("beyond 32 bits", DISP_E_OVERFLOW, 2, {*large.get(), w, t});
  expect("left out", DISP_E_PARAMNOTOPTIONAL, 0, {i, w, *left_out.get()});
  expect("left out in a variable", DISP_E_PARAMNOTOPTIONAL, 1, {i, *left_out_variable.get(), t});
  expect("the wrong one left out", DISP_E_PARAMNOTOPTIONAL, 0, {i, w, *words.get()}, {3});
  expect("named twice", DISP_E_PARAMNOTFOUND, 0, {i, w, t}, {0});
  expect("an unknown name", DISP_E_PARAMNOTFOUND, 0, {i, w, t}, {7});
  EXPECT_EQ(robot.FormWindow(), nullptr);
  EXPECT_TRUE(boxes.empty());

  EXPECT_EQ(Invoke(*plugin_.get(), 7, {}).result, DISP_E_MEMBERNOTFOUND);
  EXPECT_EQ(Invoke(*plugin_.get(), 0, {}).result, DISP_E_MEMBERNOTFOUND);
  for (const int flags : {DISPATCH_PROPERTYPUT, DISPATCH_PROPERTYPUTREF}) {
    const DISPID put = DISPID_PROPERTYPUT;
    EXPECT_EQ(Invoke(*plugin_.get(), 1, {*words.get()}, {put}, static_cast<WORD>(flags)).result,
              DISP_E_MEMBERNOTFOUND);
  }
  const Variant object = OfObject(nullptr);
  const Variant truth = Variant::OfBoolean(true);
  EXPECT_EQ(Invoke(*plugin_.get(), 3, {*words.get(), *object.get(), *truth.get()}).result,
            DISP_E_TYPEMISMATCH);
  DISPPARAMS nothing{};
  EXPECT_EQ(plugin_->Invoke(1, IID_IUnknown, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &nothing,
                            nullptr, nullptr, nullptr),
            DISP_E_UNKNOWNINTERFACE);
}

TEST_F(LateCall, ResultsComeAsMethodOrPropertyAndMayBeIgnored) {
  OfferKits();
  const auto plugin = Create();
  const Variant name = Variant::OfText(u"host");
  const Variant number = Variant::OfInt32(7);
  for (const int flags :
       {DISPATCH_METHOD, DISPATCH_PROPERTYGET, DISPATCH_METHOD | DISPATCH_PROPERTYGET}) {
    const Outcome outcome = Invoke(*plugin.get(), 1, {*name.get()}, {}, static_cast<WORD>(flags));
    EXPECT_EQ(outcome.result, S_OK);
    EXPECT_EQ(outcome.value.type(), VT_BSTR);
    EXPECT_EQ(TextOf(*outcome.value.get()), u"1.1.2");
  }
  EXPECT_EQ(TextOf(*Invoke(*plugin.get(), 1, {*number.get()}).value.get()), u"1.1.2");
  VARIANT argument = *name.get();
  DISPPARAMS parameters{&argument, nullptr, 1, 0};
  EXPECT_EQ(plugin->Invoke(1, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, nullptr,
                           nullptr, nullptr),
            S_OK);
}

TEST_F(LateCall, RepliesArriveUnchangedInEveryForm) {
  OfferKits();
  const auto plugin = Create();
  std::vector<Text> decompressed;
  const Text reply = Concat({u"3[-]Scorvane[-]compressed:a", Text{u'\0', char16_t{0xD800}}});
  kit.before = [&](const std::string& operation) { decompressed.push_back(FromUtf8(operation)); };
  while_shown = [&] {
    Bstr text(reply);
    EXPECT_EQ(plugin->RemoteData(text.address()), S_OK);
    EXPECT_EQ(text.view(), reply) << "the host's text is only read";
    const Variant by_value = Variant::OfText(reply);
    const Variant place = Variant::ByReference(text.address());
    Variant held = Variant::OfText(reply);
    const Variant variable = ByReference(held);
    for (const Variant* form : Forms{&by_value, &place, &variable}) {
      EXPECT_EQ(Invoke(*plugin.get(), u"RemoteData", {*form->get()}).result, S_OK);
    }
    robot.CloseForm();
  };
  Variant target = ArrayOfVariants({u"", u"abc"});
  ASSERT_EQ(plugin->LoadInterface(3, 0, target.get(), nullptr), S_OK);
  EXPECT_EQ(std::ranges::count(decompressed, u"DecompressString"), 4);
  // Three units come out, which are no settings; the failure is reported and nothing breaks.
  EXPECT_EQ(boxes.size(), 4u);
  for (const Box& box : boxes) {
    EXPECT_EQ(box.caption, u"DLL Error!");
    EXPECT_NE(box.text.find(u"Function/Sub: RemoteData"), Text::npos) << ToUtf8(box.text);
  }
}

}  // namespace
}  // namespace quill::com
