// A dialog in a host without a screen, and an operator at it.
#pragma once

#include <algorithm>
#include <functional>
#include <memory>
#include <vector>

#include "host/headless/headless_host.h"

namespace quill {

struct DialogBench : host::HeadlessHost {
  Session& context = module;
  // The calls of the toolkit so far, for example "Sync txtName".
  std::vector<Text> calls;
  // Told before each of them; the call fails when it throws.
  std::function<void(TextView call)> before_call;

  DialogBench() {
    static_cast<void>(plug_in());
    context.Index = 3;
    toolkit.before_call = [this](TextView call) {
      calls.emplace_back(call);
      if (before_call) before_call(call);
    };
  }
  ~DialogBench() override { toolkit.before_call = nullptr; }

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
