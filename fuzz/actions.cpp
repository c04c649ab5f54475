// Random actions of operator, host and file kit on the whole plug-in, with what always holds looked
// at after each. Every action is one byte and the bytes that choose what it works on.
#include <algorithm>
#include <filesystem>

#include "fuzz/plugin_bench.h"
#include "host/remote/scenario.h"
#include "host/remote/wire.h"

namespace quill::fuzz {
namespace {

constexpr std::size_t kMostBytes = 32;
constexpr int kMostOpenBoxes = 3;

constexpr TextView kTextBoxes[] = {u"txtMessage", u"txtName",    u"txtCountry", u"txtBlue",
                                   u"txtMinPing", u"txtMaxPing", u"txtPort",    u"txtGametype"};
constexpr TextView kCheckBoxes[] = {u"chkLoop", u"chkNova", u"chkWindow", u"chkFFTags",
                                    u"chkClays"};
constexpr TextView kLists[] = {u"lstAvlMaps", u"lstSelMaps", u"lstMax",
                               u"lstTime",    u"lstDelay",   u"lstSession"};
constexpr TextView kButtons[] = {u"cmdStart",   u"cmdSave",    u"cmdLoad",       u"cmdCancel",
                                 u"cmdLeft",    u"cmdRight",   u"cmdLoadMaps",   u"cmdStartImg",
                                 u"cmdSaveImg", u"cmdLoadImg", u"cmdLoadMapsImg"};
constexpr TextView kTabs[] = {u"Server Settings", u"Map Settings", u"Misc Settings"};
constexpr TextView kTexts[] = {
    u"a", u"", u"70000", u"-1", u"x_|[-]\u20AC\u0416", u"12345678901234567"};
constexpr TextView kFiles[] = {u"C:\\Host\\a.hsf", u"C:\\Host\\b.mpl", u"C:\\Host\\none", u"",
                               u"C:\\Host\\profiles\\3\\settings\\new.hsf"};
constexpr TextView kOperations[] = {u"WriteFile",     u"CompressString", u"DecompressString",
                                    u"GetIniSection", u"ParseIniKey",    u"ParseIniValue",
                                    u"WriteIniKey",   u"LogError",       u"SendErrorReport"};

constexpr ui::KeyStroke kStrokes[] = {{ui::kUpKey, ui::kAltHeld},
                                      {ui::kDownKey, ui::kAltHeld},
                                      {ui::kHomeKey, ui::kAltHeld},
                                      {ui::kEndKey, ui::kAltHeld},
                                      {ui::kDeleteKey},
                                      {u'Z', ui::kCtrlHeld},
                                      {u'Y', ui::kCtrlHeld},
                                      {u'A', ui::kCtrlHeld}};
constexpr TextView kMenuItems[] = {u"",     u"Add",  u"Remove",    u"Move Up", u"Move to End",
                                   u"Undo", u"Redo", u"Select All"};

// Inputs that are named one by one are run again, with each step looked at.
bool is_replay = false;

std::vector<Text> Replies() {
  host::Scenario machine = Machine();
  std::vector<Text> replies = {host::SettingsReply(machine)};
  machine.raw_fields[5] = u"60";
  replies.push_back(host::SettingsReply(machine));
  machine.raw_fields[25] = host::EncodeField(u"Odd <odd.bms>x");
  machine.raw_fields.erase(5);
  replies.push_back(host::SettingsReply(machine));
  machine.mods.clear();
  replies.push_back(host::SettingsReply(machine));
  replies.insert(replies.end(), {u"1", u"0", u"", u"4[-]Scorvane[-]AAAA"});
  return replies;
}

class Play {
 public:
  explicit Play(std::string_view input) : input_(input) {
    bench_.memory.SetContents(kFiles[0],
                              "[Settings]\ncboMods=Team Sabre\ntxtGametype=Nowhere\nlstMax=7\n"
                              "Map0=0[-]0[-]DMK_01A.BMS\nMap1=5[-]1[-]sv.bms\nMap2=0[-]0[-]x\n");
    bench_.memory.SetContents(kFiles[1], "0[-]0[-]DMK_01A.BMS\r8[-]1[-]a.bms\r1[-]x[-]y\r");
    bench_.toolkit.while_message_open = [this](const headless::ShownMessage&) {
      if (host_calls_in_ == 0 || boxes_ == kMostOpenBoxes) return;
      --host_calls_in_;
      ++boxes_;
      HostCall();
      --boxes_;
    };
    bench_.toolkit.while_file_dialog_open = [this](const ui::FileDialogRequest&) {
      bench_.toolkit.while_message_open({});
    };
  }

  void Run() {
    while (!AtEnd()) Step();
    bench_.Reset();
  }

 private:
  [[nodiscard]] bool AtEnd() const { return next_ == input_.size(); }
  unsigned Byte() { return AtEnd() ? 0U : static_cast<std::uint8_t>(input_[next_++]); }
  template <class Table>
  auto& Pick(Table&& table) {
    return table[Byte() % std::size(table)];
  }

  void Step() {
    // A gesture that nobody could make is refused and changes nothing.
    Attempt([&] { return Byte() % 3 == 0 ? HostCall() : Gesture(), true; });
    // While the engine searches, every beginning of an input is an input too.
    if (boxes_ == 0 && (is_replay || AtEnd())) Check();
  }

  void Gesture() {
    auto& person = bench_.person;
    // The last ones came later; the seeds keep their meaning.
    const unsigned kind = Byte();
    switch (kind < 225 ? kind % 15 : 15 + kind % 4) {
      case 0:
        return person.Type(Pick(kTextBoxes), Pick(kTexts));
      case 1:
        return person.Paste(Pick(kTextBoxes), Pick(kTexts));
      case 2:
        return person.EraseLast(Pick(kTextBoxes), static_cast<int>(Byte() % 9));
      case 3:
        return person.Choose(u"cboMods", Pick(Machine().mods));
      case 4:
        return person.Click(Pick(kCheckBoxes));
      case 5:
        return person.Click(u"cmdRandomize");
      case 6:
        return person.ClickTab(Pick(kTabs));
      case 7:
        return person.ScrollTo(Pick(kLists), static_cast<int>(Byte()));
      case 8:
        return person.ClickRow(Pick(kLists), static_cast<int>(Byte()));
      case 9: {
        std::vector<int> rows;
        const TextView list = Pick(kLists);
        for (unsigned row = Byte() % 64, last = row + Byte() % 64; row <= last; row += 1) {
          rows.push_back(static_cast<int>(row));
        }
        return person.SelectRows(list, rows);
      }
      case 10:
        return person.DoubleClickRow(Pick(kLists), static_cast<int>(Byte()) - 1);
      case 11:
        return person.Key(Pick(kLists), Pick(TextView(u"+=-a")));
      case 12:
        return person.Press(Pick(kButtons), ui::kLeftButton);
      case 13:
        return person.CloseForm();
      case 15:
        person.now += Byte() * 8;
        return person.Key(Pick(kLists), Pick(TextView(u"r2d\b")));
      case 16:
        return person.Strike(Pick(kLists), Pick(kStrokes));
      case 17:
        return person.ChooseFromMenu(Pick(kLists), static_cast<int>(Byte()) - 1, Pick(kMenuItems));
      case 18:
        person.Press(u"lblChkNova", ui::kLeftButton);
        return person.Release(u"lblChkNova", ui::kLeftButton);
      default: {
        bench_.toolkit.AnswerNextFileDialog({Text(Pick(kFiles))});
        const TextView button = Pick(kButtons);
        person.Press(button, ui::kLeftButton);
        return person.Release(button, ui::kLeftButton);
      }
    }
  }

  void HostCall() {
    static const std::vector<Text> replies = Replies();
    switch (Byte() % 9) {
      case 0:
        is_older_ = true;  // the rotation is emptied, not its view
        return bench_.Display(3, host::HostTexts({u"", u"abc"}), [this] {
          if (AtEnd()) return false;
          Step();
          return true;
        });
      case 1:
      case 2:
        return bench_.plug_in().RemoteData(Pick(replies));
      case 3:
        return bench_.plug_in().HideInterface();
      case 4:
        return bench_.SetRights(Byte());
      case 5:
        return bench_.clock.Set(Byte());
      case 6:
        return bench_.watch.Break({Text(Pick(kOperations)), 75, u"broken", Byte() % 2 == 0});
      case 7:
        return bench_.watch.faults.clear();
      default:
        host_calls_in_ = Byte() % 4;
    }
  }

  // What may be older than it should stays so until it is seen to agree again.
  void Check() {
    const auto messages = bench_.toolkit.TakeMessages();
    is_older_ = is_older_ || !bench_.toolkit.TakeFileDialogs().empty() || host_calls_in_ != 0 ||
                std::ranges::any_of(
                    messages, [](const auto& message) { return message.caption == u"DLL Error!"; });
    bench_.CheckInvariants(
        {.rotation_is_shown = !is_older_, .available_maps_are_shown = !is_older_});
    if (!is_older_) return;
    // A server map whose game type is no number cannot be looked for.
    is_older_ = Attempt([&] {
                  return !host::BrokenInvariants(bench_.module, bench_.toolkit).empty();
                }).value_or(true);
  }

  std::string_view input_;
  std::size_t next_ = 0;
  PluginBench& bench_ = PluginBench::OfAll();
  unsigned host_calls_in_ = 0;  // for the boxes to come
  int boxes_ = 0;               // open, with a host call in them
  bool is_older_ = false;
};

}  // namespace

void TakeInput(std::string_view input) {
  Play(input.substr(0, kMostBytes)).Run();
}

}  // namespace quill::fuzz

extern "C" int LLVMFuzzerInitialize(int* count, char*** words);

extern "C" int LLVMFuzzerInitialize(int* count, char*** words) {
  quill::fuzz::is_replay = std::any_of(*words + 1, *words + *count, [](const char* word) {
    return std::filesystem::is_regular_file(word);
  });
  return 0;
}
