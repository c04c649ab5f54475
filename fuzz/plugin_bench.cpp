// Opening, filling and watching the plug-in.
#include "fuzz/plugin_bench.h"

#include <algorithm>

#include "plugin/operator_rights.h"

namespace quill::fuzz {

const host::Scenario& Machine() {
  static const host::Scenario machine = [] {
    host::Scenario made;
    made.has_fixed_values = true;
    made.mods = {u"None", u"Team Sabre"};
    made.maps = {{u"Dune", u"dune.bms", 0}, {u"Dune", u"a.bms", 8}, {u"Valley", u"sv.bms", 5}};
    return made;
  }();
  return machine;
}

PluginBench& PluginBench::OfAll() {
  static PluginBench bench;
  return bench;
}

PluginBench::PluginBench() {
  Reset();
}

void PluginBench::Reset() {
  toolkit.RunDeferred();
  watch.faults.clear();
  clock.Set(1);
  person.now = 0;
  toolkit.while_message_open = nullptr;
  toolkit.while_file_dialog_open = nullptr;
  module.maps = {};
  Open([&] {
    while (toolkit.unused_answers() != 0) (void)toolkit.ShowFileDialog(dialog(), {});
    person.ClickTab(u"Server Settings");
    for (const auto& control : dialog().controls()) control->SetEnabled(true);
    for (const quill::Option& option : Options()) {
      ui::Control& control = dialog().At(option.key);
      if (auto* text = dynamic_cast<ui::TextBox*>(&control)) text->SetText(option.initial_text);
      if (auto* check = dynamic_cast<ui::CheckBox*>(&control))
        check->SetValue(option.initial_state);
      if (auto* list = dynamic_cast<ui::ListBox*>(&control)) {
        list->SetTopIndex(0);
        list->SetListIndex(-1);
      }
    }
    dialog().Get<ui::ComboBox>(u"cboMods").Clear();
    dialog().txtGametype.SetText(u"Deathmatch");
    for (ui::ListBox* const list : {&dialog().lstAvlMaps, &dialog().lstSelMaps}) {
      list->Clear();
      list->tooltip = {};
    }
    dialog().lblMapCnt.caption = u"Number of Maps: 0";
  });
  module.PendingCommand.clear();
  toolkit.SetScreenPointer(ui::Pointer::kDefault);
  static_cast<void>(TakeFailures());
  static_cast<void>(toolkit.TakeFileDialogs());
  watch.files.clear();
  watch.failures.clear();
  watch.reports.clear();
  for (const Text& path : memory.FilePaths()) {
    if (!path.ends_with(u".gif")) memory.RemoveFile(path);
  }
}

void PluginBench::WhileFilled(const std::function<void()>& use) {
  static const Text reply_of_machine = host::SettingsReply(Machine());
  bool used = false;
  Open([&] {
    used = true;
    plug_in().RemoteData(reply_of_machine);
    Claim(toolkit.TakeMessages().empty());
    use();
  });
  Claim(used);
}

void PluginBench::SetRights(unsigned granted_bits) {
  std::vector<host::Right> rights;
  for (const OperatorRight& right : OperatorRights()) {
    const bool is_granted = (granted_bits >> rights.size() & 1) != 0;
    rights.push_back({Text(right.name), host::Right::Form::kText, is_granted ? u"1" : u"0"});
  }
  plug_in().SetPrivis(std::make_shared<host::HostRights>(std::move(rights)), nullptr, false);
}

int PluginBench::TakeFailures() {
  const auto messages = toolkit.TakeMessages();
  return static_cast<int>(
      std::ranges::count(messages, u"DLL Error!", &headless::ShownMessage::caption));
}

void PluginBench::CheckInvariants(const host::Expectations& expected) const {
  const std::vector<Text> broken = host::BrokenInvariants(module, toolkit, expected);
  for (const Text& what : broken) std::fprintf(stderr, "%s\n", ToUtf8(what).c_str());
  Claim(broken.empty());
}

}  // namespace quill::fuzz
