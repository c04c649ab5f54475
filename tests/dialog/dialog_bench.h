// A dialog with all that it works with, without a screen, and an operator at it.
#pragma once

#include <algorithm>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "dialog/frmrcBHDGS.h"
#include "headless/headless_operator.h"
#include "headless/headless_toolkit.h"
#include "headless/memory_file_system.h"
#include "headless/settable_clock.h"
#include "tests/doubles/recording_file_kit.h"

namespace quill {

struct DialogBench {
  headless::MemoryFileSystem files;
  headless::HeadlessToolkit toolkit{files};
  headless::SettableClock clock{1};
  DialogContext context{toolkit, files, clock, CodePage::Windows1252()};
  RecordingFileKit* kit = nullptr;
  headless::HeadlessOperator person{toolkit, [this] { return context.dialog.get(); }};

  // The calls of the toolkit so far, for example "Sync txtName".
  std::vector<Text> calls;
  // Told before each of them; the call fails when it throws.
  std::function<void(TextView call)> before_call;

  DialogBench() {
    auto recording = std::make_unique<RecordingFileKit>();
    kit = recording.get();
    context.file_kit = std::move(recording);
    context.HostRoot = u"C:\\Host";
    context.Index = 3;
    files.MakeFolders(u"C:\\Host\\imgs");
    files.SetContents(u"C:\\Host\\imgs\\butup.gif", "GIF89a");
    files.SetContents(u"C:\\Host\\imgs\\butdown.gif", "GIF89a");
    toolkit.before_call = [this](TextView call) {
      calls.emplace_back(call);
      if (before_call) before_call(call);
    };
  }
  ~DialogBench() {
    context.dialog.reset();
    toolkit.RunDeferred();
    toolkit.before_call = nullptr;
  }

  // Shows the dialog, made when there is none, for as long as `script` runs.
  void Show(const std::function<void(frmrcBHDGS& dialog)>& script) {
    const auto dialog = TakeDialog(context);
    toolkit.pump = [&] {
      script(*dialog);
      return false;
    };
    dialog->ShowModal();
    toolkit.pump = nullptr;
  }

  // Fills the list of mods as a reply of the remote side does; the operator picks one.
  void PickMod(TextView mod) {
    auto& mods = context.dialog->Get<ui::ComboBox>(u"cboMods");
    mods.Clear();
    mods.AddItem(mod);
    person.Choose(u"cboMods", mod);
  }
  void Select(int count, const SelectedMap& map = {u"Somewhere", u"SW.BMS", 0, false}) {
    for (int i = 0; i < count; ++i) context.maps.selected.Append(map);
  }

  [[nodiscard]] std::ptrdiff_t CallsOf(TextView call) const {
    return std::count(calls.begin(), calls.end(), call);
  }
};

}  // namespace quill
