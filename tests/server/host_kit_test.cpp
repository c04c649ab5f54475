// The host's kits: created by name, called by name, and the many ways in which they can fail.
#include "tests/doubles/settings_reply.h"
#include "tests/server/named_class.h"
#include "tests/server/plugin_bench.h"
#include "tests/server/scripted_object.h"

namespace quill::com {
namespace {

class HostKit : public PluginBench {
 protected:
  // Opens the dialog, lets `step` happen while it is shown, and closes it.
  void Open(const std::function<void()>& step = nullptr) {
    while_shown = [this, step] {
      if (step) step();
      robot.CloseForm();
    };
    Variant target = ArrayOfVariants({u"", u"abc"});
    EXPECT_EQ(plugin_->LoadInterface(3, 0, target.get(), nullptr), S_OK);
  }
  void Reply(Text text) {
    Bstr reply(text);
    EXPECT_EQ(plugin_->RemoteData(reply.address()), S_OK);
  }
  // The boxes that were shown, each as "label: second line".
  std::vector<std::string> Reports() {
    std::vector<std::string> reports;
    for (const Box& box : boxes) {
      EXPECT_EQ(box.caption, u"DLL Error!");
      const auto lines = Split(box.text, kLineBreak);
      EXPECT_GE(lines.size(), 4u);
      if (lines.size() < 4) continue;
      EXPECT_EQ(lines[2], u"DLL: kvrrcBHDGS.dll");
      constexpr TextView kFunction = u"Function/Sub: ";
      EXPECT_TRUE(lines[3].starts_with(kFunction));
      reports.push_back(ToUtf8(Concat({lines[3].substr(kFunction.size()), u": ", lines[1]})) +
                        (box.text.ends_with(u"Error Report Sent: Yes") ? ", sent" : ", not sent"));
    }
    boxes.clear();
    return reports;
  }
  using Reported = std::vector<std::string>;

  ComPtr<IPlugin> plugin_;
};

TEST_F(HostKit, ItsErrorsArriveWithNumberAndDescription) {
  OfferKits();
  plugin_ = Create();
  const std::pair<RuntimeError, std::string> errors[] = {
      {RuntimeError(ErrorNumber::kPermissionDenied), "70: Permission denied"},
      {RuntimeError(1234, u"The relay is\r\nnot there"), "1234: The relay is"},
      {RuntimeError(static_cast<std::int32_t>(0x80041001), u"Kit failure"),
       "-2147217407: Kit failure"},
      {RuntimeError(65535, u"Last one"), "65535: Last one"},
  };
  for (const auto& [error, told] : errors) {
    kit.FailAt("WriteFile", error);
    Variant target = ArrayOfVariants({u"", u"abc"});
    EXPECT_EQ(plugin_->LoadInterface(3, 0, target.get(), nullptr), S_OK);
    ASSERT_FALSE(kit.log.empty());
    EXPECT_EQ(kit.log.back().number, error.number());
    EXPECT_EQ(kit.log.back().description, error.description());
    const Text text = boxes.empty() ? Text() : boxes.back().text;
    EXPECT_NE(ToUtf8(text).find("Error " + told), std::string::npos) << ToUtf8(text);
    boxes.clear();
  }
  EXPECT_FALSE(robot.FormShown());
}

// Kits that another author wrote, and wrote differently.
class ForeignKit : public HostKit {
 protected:
  ForeignKit() {
    file_kit_->members[u"WriteFile"] = [this](std::span<const VARIANT> given) {
      EXPECT_EQ(given[0].vt, VT_BSTR | VT_BYREF);
      EXPECT_EQ(given[1].vt, VT_BSTR);
      written_.push_back(TextOf(given[1]));
      // What a callee writes to an argument by reference is freed by the caller.
      ::SysReAllocString(given[0].pbstrVal, L"elsewhere");
      return Variant();
    };
    file_kit_->members[u"LogError"] = [this](std::span<const VARIANT> given) {
      IDispatch* error = nullptr;
      EXPECT_TRUE(ReadObject(given[2], error));
      logged_.push_back(Concat({TextOf(given[1]), u" ", TextOf(given[2])}));
      // The default member of the error is its number, as scripts read it.
      EXPECT_EQ(TextOf(*Invoke(*error, u"number", {}).value.get()), TextOf(given[2]));
      EXPECT_EQ(TextOf(*Invoke(*error, u"SOURCE", {}).value.get()), u"kvrrcBHDGS.dll");
      error->Release();
      *given[2].ppdispVal = nullptr;
      return Variant();
    };
    file_kit_->members[u"SendErrorReport"] = [this](std::span<const VARIANT>) {
      return sent_ ? sent_() : Variant();
    };
    file_kit_->members[u"DecompressString"] = [this](std::span<const VARIANT>) {
      return decompressed_ ? decompressed_() : Variant();
    };
  }
  void Start() {
    plugin_ = Create();
    EXPECT_TRUE(Reports().empty());
  }
  ~ForeignKit() override {
    plugin_.Reset();
    EXPECT_EQ(library->CanUnload(), S_OK);
    names_.reset();
    memory_name_.reset();
    EXPECT_EQ(file_kit_->references(), 1u) << "the plug-in still holds the kit";
  }

  const ComPtr<ScriptedObject> file_kit_ = ScriptedObject::Make();
  std::function<Variant()> sent_;
  std::function<Variant()> decompressed_;
  std::vector<Text> written_;
  std::vector<Text> logged_;

 private:
  std::optional<NamedClass> names_{std::in_place, u"rcFileKit.clsFileKit",
                                   ComPtr<IDispatch>(file_kit_.get())};
  std::optional<NamedClass> memory_name_{std::in_place, u"rcMemKit.clsMemKit",
                                         ComPtr<IDispatch>::Adopt(ScriptedObject::Make().Detach())};
};

TEST_F(ForeignKit, IsCalledTheWayItAnswers) {
  Start();
  file_kit_->answers_extended_only = true;
  Open();
  file_kit_->answers_extended_only = false;
  file_kit_->is_strict = true;
  for (const int takes : {DISPATCH_METHOD, DISPATCH_PROPERTYGET}) {
    file_kit_->takes = static_cast<WORD>(takes);
    Open();
  }
  EXPECT_EQ(written_.size(), 3u);
  EXPECT_TRUE(Reports().empty());

  file_kit_->members.erase(u"WriteFile");
  Open();
  const Reported missing = Reports();
  ASSERT_EQ(missing.size(), 1u);
  EXPECT_TRUE(missing[0].starts_with("LoadInterface: Error 438: ")) << missing[0];
  EXPECT_NE(missing[0].find("WriteFile"), std::string::npos);
}

TEST_F(ForeignKit, IsHandedAnErrorObjectLikeAHostsOwn) {
  Start();
  ComPtr<IDispatch> error;
  file_kit_->members[u"LogError"] = [&](std::span<const VARIANT> given) {
    error = ComPtr<IDispatch>(*given[2].ppdispVal);
    return Variant();
  };
  file_kit_->members[u"WriteFile"] = [](auto) -> Variant { throw RuntimeError(70, u"Locked"); };
  Open();
  EXPECT_EQ(Reports().size(), 1u);
  ASSERT_TRUE(error);
  const auto read = [&] {
    Text values;
    for (const char16_t* name :
         {u"Number", u"Description", u"Source", u"HelpFile", u"HelpContext", u"LastDllError"}) {
      values += Concat({TextOf(*Invoke(*error.get(), name, {}).value.get()), u"|"});
    }
    return values;
  };
  EXPECT_EQ(read(), u"70|Locked|kvrrcBHDGS.dll||0|0|");

  const auto put = [&](const Text& name, const Variant& value) {
    return Invoke(*error.get(), IdOf(*error.get(), name), {*value.get()}, {DISPID_PROPERTYPUT},
                  DISPATCH_PROPERTYPUT)
        .result;
  };
  EXPECT_EQ(put(u"Description", Variant::OfText(u"Locked by another")), S_OK);
  EXPECT_EQ(put(u"Number", Variant::OfText(u"no number")), DISP_E_TYPEMISMATCH);
  EXPECT_EQ(put(u"LastDllError", Variant::OfInt32(1)), DISP_E_MEMBERNOTFOUND);
  EXPECT_EQ(read(), u"70|Locked by another|kvrrcBHDGS.dll||0|0|");
  EXPECT_EQ(Invoke(*error.get(), u"Clear", {}).result, S_OK);
  EXPECT_EQ(read(), u"0||||0|0|");

  // A kit may raise it to its own caller, with what it knows better.
  const Variant number = Variant::OfInt32(53);
  const Variant help = Variant::OfText(u"kit.hlp");
  const Outcome raised = Invoke(*error.get(), u"Raise",
                                {*number.get(), *Variant::OfText(u"Kit").get(), *LeftOut().get(),
                                 *help.get(), *Variant::OfInt32(7).get()});
  EXPECT_EQ(raised.result, DISP_E_EXCEPTION);
  EXPECT_EQ(raised.raised, static_cast<HRESULT>(0x800A0035u));
  EXPECT_EQ(raised.source, u"Kit");
  EXPECT_EQ(raised.description, u"File not found");
  EXPECT_EQ(read(), u"53|File not found|Kit|kit.hlp|7|0|");
  LPOLESTR names[] = {const_cast<LPOLESTR>(L"raise"), const_cast<LPOLESTR>(L"number"),
                      const_cast<LPOLESTR>(L"Description")};
  DISPID ids[3] = {};
  ASSERT_EQ(error->GetIDsOfNames(IID_NULL, names, 3, LOCALE_USER_DEFAULT, ids), S_OK);
  const std::vector<VARIANT> named = {*Variant::OfInt32(70).get(), *help.get()};
  EXPECT_EQ(Invoke(*error.get(), ids[0], named, {ids[1], ids[2]}).description, u"kit.hlp");
  EXPECT_EQ(read(), u"70|kit.hlp|kvrrcBHDGS.dll||0|0|");
  EXPECT_EQ(Invoke(*error.get(), ids[0], named, {ids[1], ids[1]}).result, DISP_E_PARAMNOTFOUND);
  EXPECT_EQ(Invoke(*error.get(), u"Raise", {}).result, DISP_E_BADPARAMCOUNT);
  // It outlives the call that it was made for.
  EXPECT_EQ(library->CanUnload(), S_FALSE);
}

TEST_F(ForeignKit, AnswersOfOtherTypesAreTakenOrReported) {
  Start();
  const auto answering = [&](std::function<Variant()> answer) {
    decompressed_ = std::move(answer);
    Open([&] { Reply(u"3[-]Scorvane[-]whatever"); });
    const Reported told = Reports();
    EXPECT_EQ(told.size(), 1u);
    return told.empty() ? std::string() : told.front();
  };
  const auto plain = ScriptedObject::Make();
  const auto with_default = ScriptedObject::Make();
  with_default->default_member = [](std::span<const VARIANT>) { return Variant::OfInt32(5); };

  for (const auto& answer : {std::function<Variant()>([] { return OfType(VT_NULL); }),
                             std::function<Variant()>([] { return ArrayOfVariants({u"a"}); }),
                             std::function<Variant()>([] { return OfObject(nullptr); }),
                             std::function<Variant()>([&] { return OfObject(plain.get()); })}) {
    const std::string told = answering(answer);
    EXPECT_TRUE(told.starts_with("RemoteData: Error ")) << told;
  }
  // An empty answer is an empty text, a number is its digits, an object its default value: texts
  // that hold no settings.
  const std::string no_settings =
      "RemoteData: Error 9: Subscript out of range: the reply has no field 25, only 1, not sent";
  for (const auto& answer :
       {std::function<Variant()>([] { return Variant(); }),
        std::function<Variant()>([] { return Variant::OfInt32(5); }),
        std::function<Variant()>([&] { return OfObject(with_default.get()); })}) {
    EXPECT_EQ(answering(answer), no_settings);
  }
  EXPECT_EQ(logged_.size(), 7u);
}

TEST_F(ForeignKit, AnElementThatIsNoTextEndsALoadOnlyWhenItIsReached) {
  Start();
  file_kit_->members[u"GetIniSection"] = [](std::span<const VARIANT>) {
    Variant section = ArrayOfVariants({u"txtName", u"x", u"txtPort", u""});
    LONG place = 1;
    EXPECT_EQ(::SafeArrayPutElement(section.get()->parray, &place, OfType(VT_NULL).get()), S_OK);
    return section;
  };
  file_kit_->members[u"ParseIniKey"] = [](std::span<const VARIANT> given) {
    return ArrayOfVariants({TextOf(given[0]), u"Taken"});
  };
  picked = {u"C:\\any.hsf"};
  Open([&] {
    robot.Press(u"cmdLoad");
    robot.Release(u"cmdLoad");
    EXPECT_EQ(robot.Read(u"txtName", u"text"), u"Taken");
    EXPECT_EQ(robot.Read(u"txtPort", u"text"), u"17479");
  });
  EXPECT_EQ(Reports(), Reported({"cmdLoad: Error 13: Type mismatch, not sent"}));
}

TEST_F(ForeignKit, OnlyATrueAnswerCountsAsSent) {
  Start();
  file_kit_->members[u"WriteFile"] = [](std::span<const VARIANT>) -> Variant {
    throw RuntimeError(ErrorNumber::kPermissionDenied);
  };
  const std::pair<std::function<Variant()>, bool> answers[] = {
      {[] { return Variant::OfBoolean(true); }, true},
      {[] { return Variant::OfInt32(1); }, true},
      {[] { return Variant::OfText(u"True"); }, true},
      {[] { return Variant::OfBoolean(false); }, false},
      {[] { return OfType(VT_NULL); }, false},
      {[] { return Variant(); }, false},
      {[] { return Variant::OfText(u"maybe"); }, false},
      {[]() -> Variant { throw RuntimeError(ErrorNumber::kPermissionDenied); }, false},
      {[this]() -> Variant {
         file_kit_->members.erase(u"LogError");
         return Variant::OfBoolean(true);
       },
       true},
      {[] { return Variant::OfBoolean(true); }, true},  // although it can no longer be logged
  };
  for (const auto& [answer, is_sent] : answers) {
    sent_ = answer;
    Open();
    EXPECT_EQ(Reports(), Reported({std::string("LoadInterface: Error 70: Permission denied, ") +
                                   (is_sent ? "sent" : "not sent")}));
  }
}

}  // namespace
}  // namespace quill::com
