// A host's least, and the dialog upon it.
#include "bench/plain_host.h"

#include <cstdio>
#include <cstdlib>
#include <utility>

#include "maps/map_catalogue.h"

namespace quill::bench {

std::optional<IniElements> PlainFileKit::GetIniSection(TextView, TextView) {
  std::vector<Text> lines = lines_;
  lines.emplace_back();
  const std::size_t count = lines.size();
  return IniElements{count, [kept = std::move(lines)](std::size_t i) { return kept.at(i); }};
}

IniEntry PlainFileKit::ParseIniKey(TextView line) {
  const std::size_t equals = line.find(u'=');
  return {Text(line.substr(0, equals)), Text(line.substr(equals + 1))};
}

Text PlainFileKit::ParseIniValue(TextView line) {
  return Text(line.substr(line.find(u'=') + 1));
}

void PlainFileKit::WriteIniKey(TextView, TextView key, TextView value, TextView) {
  const auto [at, added] = places_.try_emplace(Text(key), lines_.size());
  if (added) lines_.emplace_back();
  lines_[at->second] = Concat({key, u"=", value});
}

void PlainFileKit::LogError(TextView, TextView label, const RuntimeError& error,
                            std::int32_t line) {
  std::fprintf(stderr, "bench: %s failed at line %d: %s\n", ToUtf8(label).c_str(),
               static_cast<int>(line), ToUtf8(error.description()).c_str());
  std::exit(1);
}

PlainHost::PlainHost() {
  make_file_kit = [this] {
    auto plain = std::make_unique<PlainFileKit>();
    kit = plain.get();
    return plain;
  };
  static_cast<void>(plug_in());
  module.Index = 3;
}

frmrcBHDGS& PlainHost::Dialog() {
  frmrcBHDGS& dialog = *TakeDialog(session);
  auto& mods = dialog.Get<ui::ComboBox>(u"cboMods");
  mods.Clear();
  mods.AddItem(u"None");
  mods.AddItem(u"Team Sabre");
  mods.SetListIndex(1);
  return dialog;
}

void PlainHost::Show(const std::function<void(frmrcBHDGS& dialog)>& script) {
  frmrcBHDGS& dialog = Dialog();
  toolkit.pump = [&] {
    script(dialog);
    return false;
  };
  dialog.ShowModal();
}

void PlainHost::Select(int count) {
  const auto rows = CatalogueRows();
  session.maps.selected.Clear();
  for (int i = 0; i < count; ++i) {
    const KnownMap& row = rows[static_cast<std::size_t>(i) % rows.size()];
    session.maps.selected.Append({Text(row.name), Text(row.file), row.game_type - u'0', false});
  }
  TakeDialog(session)->BuildMapList();
}

}  // namespace quill::bench
