// Every operation of a foreign file kit going wrong in every way, and every window refused in turn,
// while a whole job runs in the real library. Whatever happens, nothing escapes, what is reported
// bears a known label, and the next job runs undisturbed.
#include <algorithm>
#include <fstream>

#include "host/remote/scenario.h"
#include "host/story/story_player.h"
#include "tests/server/scripted_object.h"
#include "tests/win32/no_more_windows.h"

namespace quill::com {
namespace {

class KitSweep : public ForeignKitBench {
 public:
  using Member = ScriptedObject::Member;

  // What goes wrong, in place of the operation or before it.
  struct Mischief {
    const char* name;
    std::function<Variant(KitSweep& sweep)> answer;  // null: there is no such member
    bool goes_on = false;                            // the operation is then done all the same
  };

  KitSweep() {
    members[u"WriteFile"] = [this](auto given) {
      written_.push_back(TextOf(given[1]));
      return Variant();
    };
    members[u"CompressString"] = [](auto given) { return Variant::OfText(TextOf(given[0])); };
    members[u"DecompressString"] = [this](auto) { return Variant::OfText(payload_); };
    members[u"GetIniSection"] = [this](auto) {
      std::vector<Text> lines;
      for (const auto& [key, value] : ini_) lines.push_back(Concat({key, u"=", value}));
      lines.emplace_back();
      return ArrayOfVariants(lines);
    };
    members[u"ParseIniKey"] = [](auto given) {
      const Text line = TextOf(given[0]);
      const std::size_t equals = std::min(line.find(u'='), line.size() - 1);
      const Text value = line.substr(equals + 1);
      return given[1].boolVal != VARIANT_FALSE ? ArrayOfVariants({line.substr(0, equals), value})
                                               : Variant::OfText(value);
    };
    members[u"WriteIniKey"] = [this](auto given) {
      ini_[TextOf(given[1])] = TextOf(given[2]);
      std::ofstream(std::filesystem::path(TextOf(given[3]))) << "[Settings]";
      return Variant();
    };
    members[u"LogError"] = [](auto) { return Variant(); };
    members[u"SendErrorReport"] = [](auto) { return Variant::OfBoolean(true); };
    plugin = Create();
    picked = {Concat({host::HostFolderOfProgram(), u"\\sweep.hsf"})};
  }

  void Fill() { Reply(frame_); }
  // Opens the dialog, fills it, selects maps, saves, loads and starts, as far as it gets.
  void Job(bool with_bad_reply = false, bool with_files = true) {
    Open([&] {
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
    });
  }
  void ExpectUndisturbedJob() {
    written_.clear();
    ini_.clear();
    Job();
    EXPECT_EQ(TakeReports(), std::vector<std::string>());
    ASSERT_EQ(written_.size(), 2u);
    EXPECT_TRUE(written_[1].starts_with(u"Plugin_kvrBHDGS_StartGameRem_abc_VB6_3_"));
    EXPECT_TRUE(ini_.contains(u"Map1"));
  }
  void ExpectLabels(std::initializer_list<std::string_view> known) {
    for (const std::string& report : TakeReports()) {
      const std::string_view label = std::string_view(report).substr(0, report.find(':'));
      EXPECT_NE(std::ranges::find(known, label), known.end()) << report;
    }
  }

  void Disturb(const Text& operation, const Mischief& mischief) {
    const Member sound = members[operation];
    int calls = 0;
    if (!mischief.answer) {
      members.erase(operation);
    } else {
      members[operation] = [&](std::span<const VARIANT> given) {
        // Inside a call that it has made itself it behaves.
        const bool strikes = (!mischief.goes_on || calls == 0) && !inside_;
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
    members[operation] = sound;
    ExpectLabels(
        {"LoadInterface", "RemoteData", "SetPrivis", "cmdSave", "cmdLoad", "cmdStart_Error"});
  }
  void Sweep(const std::vector<Mischief>& mischiefs) {
    ExpectUndisturbedJob();
    for (const Mischief& mischief : mischiefs) {
      for (const auto& [operation, sound] : std::map(members)) {
        SCOPED_TRACE(ToUtf8(operation) + " " + mischief.name);
        Disturb(operation, mischief);
        if (HasFailure()) return;
      }
      SCOPED_TRACE(mischief.name);
      ExpectUndisturbedJob();
    }
  }

  const Text payload_ = host::SettingsPayload(host::StoryServer());
  const Text frame_ = Concat({Decimal(std::ssize(payload_)), u"[-]Scorvane[-]x"});
  std::vector<Text> written_;
  std::map<Text, Text> ini_;
  bool inside_ = false;
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
      {"hides the dialog", [](KitSweep& s) { return s.Hide(), Variant(); }, true},
      {"opens it again",
       [](KitSweep& s) {
         Variant target = ArrayOfVariants({u"", u"abc"});
         return s.plugin->LoadInterface(3, 0, target.get(), nullptr), Variant();
       },
       true},
      {"sets rights",
       [](KitSweep& s) { return s.plugin->SetPrivis(nullptr, nullptr, VARIANT_FALSE), Variant(); },
       true},
  });
}

TEST_F(KitSweep, WindowsThatCannotBeMade) {
  for (const bool once : {true, false}) {
    for (int allowed = 0;; ++allowed) {
      SCOPED_TRACE(std::to_string(allowed) + (once ? ", then not one" : ", then none"));
      int refused = 0;
      {
        const host::NoMoreWindows none(allowed, once);
        Open();
        refused = none.refused();
      }
      ExpectLabels({"LoadInterface", "FormLoad_ERROR"});
      if (HasFailure() || refused == 0) break;
    }
  }
  ExpectUndisturbedJob();
}

}  // namespace
}  // namespace quill::com
