// The host's kits: created by name, called by name, and the many ways in which they can fail.
#include "tests/server/scripted_object.h"

namespace quill::com {
namespace {

using Reports = std::vector<std::string>;
using Answer = std::function<Variant()>;
using Given = std::span<const VARIANT>;

using HostKit = PluginBench;

TEST_F(HostKit, ItsErrorsArriveWithNumberAndDescription) {
  Start();
  const std::pair<RuntimeError, std::string> errors[] = {
      {RuntimeError(ErrorNumber::kPermissionDenied), "70: Permission denied"},
      {RuntimeError(1234, u"The relay is\r\nnot there"), "1234: The relay is"},
      {RuntimeError(static_cast<std::int32_t>(0x80041001), u"Kit failure"),
       "-2147217407: Kit failure"},
      {RuntimeError(65535, u"Last one"), "65535: Last one"},
  };
  for (const auto& [error, told] : errors) {
    kit.Break({u"WriteFile", error.number(), Text(error.description())});
    Open();
    ASSERT_FALSE(kit.failures.empty());
    EXPECT_EQ(kit.failures.back().number, error.number());
    EXPECT_EQ(kit.failures.back().description, error.description());
    ASSERT_EQ(boxes.size(), 1u);
    const Text text = std::exchange(boxes, {})[0].text;
    EXPECT_NE(ToUtf8(text).find("Error " + told), std::string::npos) << ToUtf8(text);
  }
}

class ForeignKit : public ForeignKitBench {
 protected:
  ForeignKit() {
    members[u"WriteFile"] = [this](Given given) {
      EXPECT_EQ(given[0].vt, VT_BSTR | VT_BYREF);
      EXPECT_EQ(given[1].vt, VT_BSTR);
      ++written_;
      // What a callee writes to an argument by reference is freed by the caller.
      ::SysReAllocString(given[0].pbstrVal, L"elsewhere");
      return Variant();
    };
    members[u"LogError"] = [this](Given given) {
      const ComPtr<IDispatch> error = ObjectOf(given[2]).value();
      ++logged_;
      // The default member of the error is its number, as scripts read it.
      EXPECT_EQ(TextOf(*Invoke(*error.get(), u"number", {}).value.get()), TextOf(given[2]));
      (*given[2].ppdispVal)->Release();
      *given[2].ppdispVal = nullptr;
      return Variant();
    };
    members[u"SendErrorReport"] = [](Given) { return Variant(); };
    plugin = Create();
  }

  int written_ = 0;
  int logged_ = 0;
};

// No lambda: 32-bit compilers do not turn one into a function of the system's convention.
HRESULT CALLBACK SayBusy(EXCEPINFO* asked) {
  asked->bstrDescription = ::SysAllocString(L"Busy");
  return S_OK;
}

TEST_F(ForeignKit, IsCalledTheWayItAnswers) {
  file_kit->answers_extended_only = true;
  Open();
  file_kit->answers_extended_only = false;
  file_kit->is_strict = true;
  for (const int takes : {DISPATCH_METHOD, DISPATCH_PROPERTYGET}) {
    file_kit->takes = static_cast<WORD>(takes);
    Open();
  }
  EXPECT_EQ(written_, 3);
  EXPECT_TRUE(boxes.empty());

  members.erase(u"WriteFile");
  Open();
  const Reports missing = TakeReports();
  ASSERT_EQ(missing.size(), 1u);
  EXPECT_TRUE(missing[0].starts_with("LoadInterface: Error 438: ")) << missing[0];
  EXPECT_NE(missing[0].find("WriteFile"), std::string::npos);

  // A small number, and a description that is made when somebody wants to know.
  file_kit->refuses = [](EXCEPINFO& raised) {
    raised.wCode = 1001;
    raised.pfnDeferredFillIn = &SayBusy;
    return DISP_E_EXCEPTION;
  };
  members[u"WriteFile"] = nullptr;
  Open();
  EXPECT_EQ(TakeReports(), Reports({"LoadInterface: Error 1001: Busy, not sent"}));
  int calls = 0;
  file_kit->refuses = [&](EXCEPINFO&) { return ++calls, E_FAIL; };
  Open();
  EXPECT_EQ(calls, 3) << "what was called may have been done: the file, the log, the report";
  file_kit->refuses = nullptr;
  boxes.clear();
}

TEST_F(ForeignKit, IsHandedAnErrorObjectLikeAHostsOwn) {
  ComPtr<IDispatch> error;
  members[u"LogError"] = [&](Given given) {
    error = ComPtr<IDispatch>(*given[2].ppdispVal);
    return Variant();
  };
  members[u"WriteFile"] = [](auto) -> Variant { throw RuntimeError(70, u"Locked"); };
  Open();
  ASSERT_TRUE(error);
  const auto read = [&] {
    Text values;
    for (const char16_t* name :
         {u"Number", u"Description", u"SOURCE", u"HelpFile", u"HelpContext", u"LastDllError"}) {
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
  EXPECT_EQ(raised.help_context, 7u);
  EXPECT_EQ(read(), u"53|File not found|Kit|kit.hlp|7|0|");
  LPOLESTR names[] = {const_cast<LPOLESTR>(L"raise"), const_cast<LPOLESTR>(L"number"),
                      const_cast<LPOLESTR>(L"Description")};
  DISPID ids[3] = {};
  ASSERT_EQ(error->GetIDsOfNames(IID_NULL, names, 3, LOCALE_USER_DEFAULT, ids), S_OK);
  const std::vector<VARIANT> named = {*Variant::OfInt32(70).get(), *help.get()};
  EXPECT_EQ(Invoke(*error.get(), ids[0], named, {ids[1], ids[2]}).description, u"kit.hlp");
  EXPECT_EQ(Invoke(*error.get(), ids[0], named, {ids[1], ids[1]}).result, DISP_E_PARAMNOTFOUND);
  EXPECT_EQ(Invoke(*error.get(), u"Raise", {}).result, DISP_E_BADPARAMCOUNT);
  // It outlives the call that it was made for.
  EXPECT_FALSE(library->CanUnload());
}

TEST_F(ForeignKit, AnswersOfOtherTypesAreTakenOrReported) {
  const auto plain = ScriptedObject::Make();
  const auto with_default = ScriptedObject::Make();
  with_default->default_member = [](Given) { return Variant::OfInt32(5); };
  // An empty answer is an empty text, a number is its digits, an object its default value: texts
  // that hold no settings.
  const char* no_settings =
      "RemoteData: Error 9: Subscript out of range: the reply has no field 25, only 1, not sent";
  const std::pair<Answer, const char*> answers[] = {
      {[] { return OfType(VT_NULL); }, "RemoteData: Error "},
      {[] { return ArrayOfVariants({u"a"}); }, "RemoteData: Error "},
      {[] { return OfObject(nullptr); }, "RemoteData: Error "},
      {[&] { return OfObject(plain.get()); }, "RemoteData: Error "},
      {[] { return Variant(); }, no_settings},
      {[] { return Variant::OfInt32(5); }, no_settings},
      {[&] { return OfObject(with_default.get()); }, no_settings}};
  for (const auto& [answer, told] : answers) {
    members[u"DecompressString"] = [&answer = answer](Given) { return answer(); };
    Open([&] { Reply(u"3[-]Scorvane[-]whatever"); });
    const Reports reports = TakeReports();
    ASSERT_EQ(reports.size(), 1u);
    EXPECT_TRUE(reports[0].starts_with(told)) << reports[0];
  }
  EXPECT_EQ(logged_, 7);
}

TEST_F(ForeignKit, AnElementThatIsNoTextEndsALoadOnlyWhenItIsReached) {
  Variant section = ArrayOfVariants({u"txtName", u"x", u"txtPort", u""});
  LONG place = 1;
  EXPECT_EQ(::SafeArrayPutElement(section.get()->parray, &place, OfType(VT_NULL).get()), S_OK);
  // Only lent, and changed while it is read.
  members[u"GetIniSection"] = [&](Given) { return Variant::ByReference(&section.get()->parray); };
  members[u"ParseIniKey"] = [&](Given given) {
    Variant later = Variant::OfText(u"txtPort");
    EXPECT_EQ(::SafeArrayPutElement(section.get()->parray, &place, later.get()), S_OK);
    return ArrayOfVariants({TextOf(given[0]), u"Taken"});
  };
  picked = {u"C:\\any.hsf"};
  Open([&] {
    Push(u"cmdLoad");
    EXPECT_EQ(robot.Read(u"txtName", u"text"), u"Taken");
    EXPECT_EQ(robot.Read(u"txtPort", u"text"), u"17479");
  });
  EXPECT_EQ(TakeReports(), Reports({"cmdLoad: Error 13: Type mismatch, not sent"}));
}

TEST_F(ForeignKit, OnlyATrueAnswerCountsAsSent) {
  members[u"WriteFile"] = [](Given) -> Variant {
    throw RuntimeError(ErrorNumber::kPermissionDenied);
  };
  const std::pair<Answer, bool> answers[] = {
      {[] { return Variant::OfBoolean(true); }, true},
      {[] { return Variant::OfInt32(1); }, true},
      {[] { return Variant::OfText(u"True"); }, true},
      {[] { return Variant::OfBoolean(false); }, false},
      {[] { return OfType(VT_NULL); }, false},
      {[] { return Variant(); }, false},
      {[] { return Variant::OfText(u"maybe"); }, false},
      {[]() -> Variant { throw RuntimeError(ErrorNumber::kPermissionDenied); }, false},
      {[this]() -> Variant {
         members.erase(u"LogError");
         return Variant::OfBoolean(true);
       },
       true},
      {[] { return Variant::OfBoolean(true); }, true},  // although it can no longer be logged
  };
  for (const auto& [answer, is_sent] : answers) {
    members[u"SendErrorReport"] = [&answer = answer](Given) { return answer(); };
    Open();
    EXPECT_EQ(TakeReports(), Reports({std::string("LoadInterface: Error 70: Permission denied, ") +
                                      (is_sent ? "sent" : "not sent")}));
  }
}

}  // namespace
}  // namespace quill::com
