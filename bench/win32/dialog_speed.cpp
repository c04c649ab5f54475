// Measures the dialog with its real windows, compiled as the library is, and prints "NAME
// NANOSECONDS" lines for bench_quill, then "measured".
#include <cstdio>
#include <string>

#include "bench/win32/opening_speed.h"
#include "host/kit/error_journal.h"
#include "host/kit/file_kit.h"
#include "host/kit/file_storage.h"
#include "maps/map_catalogue.h"
#include "remote/request_file.h"
#include "remote/start_command.h"

namespace quill {
namespace {

constexpr int kPairs = 61;
constexpr int kRuns = 61;

void Print(const char* name, double value) {
  std::printf("wine/%s %.3f\n", name, value);
}

template <class Work>
void PrintMedian(const char* name, Work work) {
  std::vector<double> times;
  for (int i = 0; i < kRuns; ++i) {
    times.push_back(1e6 * Milliseconds(work));
    DrainMessages();
  }
  Print(name, Median(times));
}

void Fill(SelectedMapList& rotation) {
  const auto rows = CatalogueRows();
  for (int i = 0; i < kRotationLimit; ++i) {
    const KnownMap& row = rows[static_cast<std::size_t>(i) % rows.size()];
    rotation.Append({Text(row.name), Text(row.file), row.game_type - u'0', false});
  }
}

void MeasureActions(NativeBench& bench) {
  host::DiskStorage storage([](TextView path) { return std::filesystem::path(path); });
  host::ErrorJournal journal(bench.session.HostRoot, bench.files, storage);
  bench.session.file_kit = std::make_unique<host::HostFileKit>(storage, journal);

  bench.Show([&](frmrcBHDGS& dialog) {
    auto& mods = dialog.Get<ui::ComboBox>(u"cboMods");
    mods.Clear();
    mods.AddItem(u"None");
    mods.AddItem(u"Team Sabre");
    bench.robot.ClickTab(u"Map Settings");
    DrainMessages();
    int mod = 0;
    PrintMedian("mod_change", [&] { mods.SetListIndex(mod ^= 1); });
    Fill(bench.session.maps.selected);
    PrintMedian("refresh_255", [&] { dialog.BuildMapList(); });
    dialog.Get<ui::TextBox>(u"txtName").SetText(u"Night Server");
    dialog.Get<ui::TextBox>(u"txtMaxPing").SetText(u"900");
    dialog.Get<ui::TextBox>(u"txtPort").SetText(u"17479");
    PrintMedian("start_to_request", [&] { StartGame(dialog); });
    if (!bench.files.FileExists(RequestPath(bench.session.HostRoot, kStartGame))) {
      throw std::runtime_error("there is no request file");
    }
  });
  bench.session.dialog.reset();
  bench.session.file_kit.reset();
}

}  // namespace
}  // namespace quill

int main() try {
  quill::NativeBench bench;
  const quill::OpeningSpeed speed = quill::MeasureOpening(bench, quill::kPairs);
  quill::Print("opening", 1e6 * speed.dialog_ms);
  quill::Print("opening_bare_template", 1e6 * speed.template_ms);
  quill::Print("opening_ratio", speed.ratio);
  quill::MeasureActions(bench);
  std::puts("measured");
  return 0;
} catch (const std::exception& error) {
  std::fprintf(stderr, "dialog_speed: %s\n", error.what());
  return 1;
}
