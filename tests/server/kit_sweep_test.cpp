// Every operation of a foreign file kit going wrong in every way, and every window refused in turn,
// while a whole job runs in the real library. Whatever happens, nothing escapes, what is reported
// bears a known label, and the next job runs undisturbed.
#include <algorithm>
#include <map>

#include "tests/doubles/settings_reply.h"
#include "tests/server/named_class.h"
#include "tests/server/plugin_bench.h"
#include "tests/server/scripted_object.h"
#include "tests/win32/no_more_windows.h"

namespace quill::com {
namespace {

constexpr const char16_t* kOperations[] = {u"WriteFile",     u"CompressString", u"DecompressString",
                                           u"GetIniSection", u"ParseIniKey",    u"WriteIniKey",
                                           u"LogError",      u"SendErrorReport"};

class KitSweep : public PluginBench {
 public:
  using Member = ScriptedObject::Member;

  // What goes wrong, in place of the operation or before it.
  struct Mischief {
    const char* name;
    std::function<Variant(KitSweep& sweep)> answer;  // null: there is no such member
    bool goes_on = false;                            // the operation is then done all the same
  };

  KitSweep() {
    Members()[u"WriteFile"] = [this](auto given) {
      written_.push_back(TextOf(given[1]));
      return Variant();
    };
    Members()[u"CompressString"] = [](auto given) { return Variant::OfText(TextOf(given[0])); };
    Members()[u"DecompressString"] = [](auto given) { return Variant::OfText(TextOf(given[0])); };
    Members()[u"GetIniSection"] = [this](auto) {
      std::vector<Text> lines;
      for (const auto& [key, value] : ini_) lines.push_back(Concat({key, u"=", value}));
      lines.emplace_back();
      return ArrayOfVariants(lines);
    };
    Members()[u"ParseIniKey"] = [](auto given) {
      const Text line = TextOf(given[0]);
      const std::size_t equals = std::min(line.find(u'='), line.size() - 1);
      const Text value = line.substr(equals + 1);
      return given[1].boolVal != VARIANT_FALSE ? ArrayOfVariants({line.substr(0, equals), value})
                                               : Variant::OfText(value);
    };
    Members()[u"WriteIniKey"] = [this](auto given) {
      ini_[TextOf(given[1])] = TextOf(given[2]);
      std::ofstream(std::filesystem::path(TextOf(given[3]))) << "[Settings]";
      return Variant();
    };
    Members()[u"LogError"] = [](auto) { return Variant(); };
    Members()[u"SendErrorReport"] = [](auto) { return Variant::OfBoolean(true); };
    plugin_ = Create();
    picked = {Concat({host::HostFolderOfProgram(), u"\\sweep.hsf"})};
  }
  ~KitSweep() override {
    plugin_.Reset();
    EXPECT_EQ(library->CanUnload(), S_OK);
    names_.reset();
    memory_name_.reset();
    EXPECT_EQ(file_kit_->references(), 1u) << "the plug-in still holds the kit";
  }

  std::map<Text, Member>& Members() { return file_kit_->members; }

  void Reply(const Text& text) {
    Bstr reply(text);
    EXPECT_EQ(plugin_->RemoteData(reply.address()), S_OK);
  }
  void Fill() {
    const Text payload = Joined(SettingsReply().fields, u"_");
    Reply(Concat({Decimal(static_cast<std::int64_t>(payload.size())), kFrameMarker, payload}));
  }
  void Push(const Text& button) {
    robot.Press(button);
    robot.Release(button);
  }
  // Opens the dialog, fills it, selects maps, saves, loads and starts, as far as it gets.
  void Job(bool with_bad_reply = false, bool with_files = true) {
    while_shown = [this, with_bad_reply, with_files] {
      try {
        if (with_bad_reply) Reply(u"no reply at all");
        Fill();
        robot.ClickTab(u"Map Settings");
        robot.SelectRows(u"lstAvlMaps", {0, 1});
        robot.Key(u"lstAvlMaps", u'+');
        if (with_files) Push(u"cmdSave");
        if (with_files) Push(u"cmdLoad");
        Push(u"cmdStart");
      } catch (const std::exception&) {
        // The dialog has been closed meanwhile, or has no maps.
      }
      Reply(u"1");
      if (robot.FormShown()) robot.CloseForm();
    };
    Variant target = ArrayOfVariants({u"", u"abc"});
    EXPECT_EQ(plugin_->LoadInterface(3, 0, target.get(), nullptr), S_OK);
    while_shown = nullptr;
    EXPECT_FALSE(robot.FormShown());
  }
  // The labels of the failures that were reported.
  std::vector<Text> TakeLabels() {
    constexpr TextView kFunction = u"Function/Sub: ";
    std::vector<Text> labels;
    for (const Box& box : std::exchange(boxes, {})) {
      if (box.caption != u"DLL Error!") continue;
      const std::size_t at = box.text.find(kFunction);
      if (at == Text::npos) {
        ADD_FAILURE() << ToUtf8(box.text);
        continue;
      }
      const std::size_t from = at + kFunction.size();
      labels.push_back(box.text.substr(from, box.text.find(u'\r', from) - from));
    }
    return labels;
  }
  void ExpectUndisturbedJob() {
    written_.clear();
    ini_.clear();
    Job();
    for (const Text& label : TakeLabels()) ADD_FAILURE() << ToUtf8(label);
    ASSERT_EQ(written_.size(), 2u);
    EXPECT_TRUE(written_[1].starts_with(u"Plugin_kvrBHDGS_StartGameRem_abc_VB6_3_"));
    EXPECT_TRUE(ini_.contains(u"Map1"));
  }

  void Disturb(const Text& operation, const Mischief& mischief, bool once) {
    const Member sound = Members()[operation];
    int calls = 0;
    if (!mischief.answer) {
      Members().erase(operation);
    } else {
      Members()[operation] = [&](std::span<const VARIANT> given) {
        // Inside a call that it has made itself it behaves.
        const bool strikes = (!once || calls == 0) && !inside_;
        ++calls;
        if (!strikes) return sound(given);
        inside_ = true;
        const auto back = [this](void*) { inside_ = false; };
        const std::unique_ptr<void, decltype(back)> left(this, back);
        Variant answer = mischief.answer(*this);
        return mischief.goes_on ? sound(given) : std::move(answer);
      };
    }
    Job(/*with_bad_reply=*/true, /*with_files=*/operation.find(u"Ini") != Text::npos);
    Members()[operation] = sound;
    constexpr TextView kKnown[] = {u"LoadInterface", u"RemoteData", u"SetPrivis",
                                   u"cmdSave",       u"cmdLoad",    u"cmdStart_Error"};
    for (const Text& label : TakeLabels()) {
      EXPECT_NE(std::ranges::find(kKnown, TextView(label)), std::end(kKnown)) << ToUtf8(label);
    }
  }
  void Sweep(const std::vector<Mischief>& mischiefs) {
    ExpectUndisturbedJob();
    for (const Mischief& mischief : mischiefs) {
      for (const Text operation : kOperations) {
        SCOPED_TRACE(ToUtf8(operation) + " " + mischief.name);
        Disturb(operation, mischief, mischief.goes_on);
        if (HasFailure()) return;
      }
      SCOPED_TRACE(mischief.name);
      ExpectUndisturbedJob();
    }
  }

  const ComPtr<ScriptedObject> file_kit_ = ScriptedObject::Make();
  std::vector<Text> written_;
  std::map<Text, Text> ini_;
  bool inside_ = false;
  ComPtr<IPlugin> plugin_;

 private:
  std::optional<NamedClass> names_{std::in_place, u"rcFileKit.clsFileKit",
                                   ComPtr<IDispatch>(file_kit_.get())};
  std::optional<NamedClass> memory_name_{std::in_place, u"rcMemKit.clsMemKit",
                                         ComPtr<IDispatch>::Adopt(ScriptedObject::Make().Detach())};
};

TEST_F(KitSweep, AnswersThatAreNoneOrOfOtherTypes) {
  Sweep({
      {"raises", [](KitSweep&) -> Variant { throw RuntimeError(1234, u"The kit is broken"); }},
      {"is missing", nullptr},
      {"answers null", [](KitSweep&) { return OfType(VT_NULL); }},
      {"answers nothing", [](KitSweep&) { return Variant(); }},
      {"answers no object", [](KitSweep&) { return OfObject(nullptr); }},
      {"answers an object", [](KitSweep&) { return OfObject(ScriptedObject::Make().get()); }},
      {"answers an array",
       [](KitSweep&) {
         return ArrayOfVariants({u"a", u"b", u"c"}, -1);
       }},
  });
}

TEST_F(KitSweep, CallsBackIntoThePlugIn) {
  Sweep({
      {"hands in a reply", [](KitSweep& s) { return s.Fill(), Variant(); }, true},
      {"hides the dialog", [](KitSweep& s) { return s.plugin_->HideInterface(nullptr), Variant(); },
       true},
      {"opens it again",
       [](KitSweep& s) {
         Variant target = ArrayOfVariants({u"", u"abc"});
         return s.plugin_->LoadInterface(3, 0, target.get(), nullptr), Variant();
       },
       true},
      {"sets rights",
       [](KitSweep& s) { return s.plugin_->SetPrivis(nullptr, nullptr, VARIANT_FALSE), Variant(); },
       true},
  });
}

TEST_F(KitSweep, WindowsThatCannotBeMade) {
  for (const bool once : {true, false}) {
    for (int allowed = 0;; ++allowed) {
      SCOPED_TRACE(std::to_string(allowed) + (once ? ", then not one" : ", then none"));
      int refused = 0;
      while_shown = [this] { robot.CloseForm(); };
      {
        const host::NoMoreWindows none(allowed, once);
        Variant target = ArrayOfVariants({u"", u"abc"});
        EXPECT_EQ(plugin_->LoadInterface(3, 0, target.get(), nullptr), S_OK);
        refused = none.refused();
      }
      while_shown = nullptr;
      for (const Text& label : TakeLabels()) {
        EXPECT_TRUE(label == u"LoadInterface" || label == u"FormLoad_ERROR") << ToUtf8(label);
      }
      EXPECT_FALSE(robot.FormShown());
      if (HasFailure() || refused == 0) break;
    }
  }
  ExpectUndisturbedJob();
}

}  // namespace
}  // namespace quill::com
