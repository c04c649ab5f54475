// Operations of the dialog on a rotation at its limit, seen by an operator without a screen.
#include "bench/dialog_bench.h"

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "bench/measurements.h"
#include "bench/plain_host.h"
#include "maps/shuffle.h"
#include "remote/start_command.h"

namespace quill::bench {
namespace {

constexpr int kFull = kRotationLimit;

void StartPayloadOf(benchmark::State& state, int maps) {
  PlainHost host;
  frmrcBHDGS& dialog = host.Dialog();
  host.Select(maps);
  for (auto _ : state) benchmark::DoNotOptimize(StartPayload(dialog, OptionFlags(dialog)));
}

void SwitchCatalogue(benchmark::State& state) {
  std::uint8_t flag = kStandardModFlag;
  for (auto _ : state) {
    benchmark::DoNotOptimize(LoadMapCatalogue(flag));
    flag ^= kTeamSabreModFlag;
  }
}

void FillAvailableMaps(benchmark::State& state) {
  PlainHost host;
  host.Show([&](frmrcBHDGS& dialog) {
    for (auto _ : state) dialog.SetMaps(0);
  });
}

// Adds maps by the key until the rotation is full, from a list as long as the rotation may be.
void AddByKey(benchmark::State& state) {
  PlainHost host;
  for (int i = 0; i < kFull; ++i) {
    host.session.maps.server.AppendEntry(
        Concat({u"Valley ", Decimal(i), u" <V", Decimal(i), u".BMS>0"}));
  }
  host.Show([&](frmrcBHDGS& dialog) {
    dialog.SetMaps(0);
    std::vector<int> rows(kFull - 1);
    for (int i = 0; i < kFull - 1; ++i) rows[static_cast<std::size_t>(i)] = i;
    host.person.ClickTab(u"Map Settings");
    host.person.SelectRows(u"lstAvlMaps", rows);
    for (auto _ : state) {
      host.session.maps.selected.Clear();
      host.person.Key(u"lstAvlMaps", u'+');
    }
    if (host.session.maps.selected.Count() != kFull - 1) state.SkipWithError("maps are missing");
  });
}

// Every second row of a full rotation, by the key.
void RemoveByKey(benchmark::State& state) {
  PlainHost host;
  host.Show([&](frmrcBHDGS& dialog) {
    host.Select(kFull);
    const std::vector<SelectedMap> full = host.session.maps.selected.maps();
    std::vector<int> rows;
    for (int row = 0; row < kFull; row += 2) rows.push_back(row);
    host.person.ClickTab(u"Map Settings");
    for (auto _ : state) {
      state.PauseTiming();
      host.session.maps.selected.Replace(full);
      dialog.BuildMapList();
      host.person.SelectRows(u"lstSelMaps", rows);
      state.ResumeTiming();
      host.person.Key(u"lstSelMaps", u'-');
    }
    if (host.session.maps.selected.Count() != kFull / 2) state.SkipWithError("maps are left");
  });
}

void Refresh(benchmark::State& state) {
  PlainHost host;
  host.Show([&](frmrcBHDGS& dialog) {
    host.Select(kFull);
    for (auto _ : state) dialog.BuildMapList();
  });
}

std::vector<SelectedMap> FullRotation() {
  PlainHost host;
  host.Select(kFull);
  return host.session.maps.selected.maps();
}

void ShuffleOurs(benchmark::State& state) {
  const std::vector<SelectedMap> maps = FullRotation();
  RandomSource random(1);
  for (auto _ : state) benchmark::DoNotOptimize(Shuffled(maps, std::ref(random)));
}

// It works in place; the copy is what leaves the old rotation alone until the new one is complete.
void ShuffleStandard(benchmark::State& state) {
  const std::vector<SelectedMap> maps = FullRotation();
  std::mt19937 random(1);
  for (auto _ : state) {
    std::vector<SelectedMap> shuffled = maps;
    std::shuffle(shuffled.begin(), shuffled.end(), random);
    benchmark::DoNotOptimize(shuffled);
  }
}

}  // namespace

void RegisterDialog() {
  for (const int maps : {0, kFull}) {
    Measure(Name({"payload", std::to_string(maps)}),
            [maps](benchmark::State& state) { StartPayloadOf(state, maps); });
  }
  Measure("catalogue", SwitchCatalogue);
  Measure("available", FillAvailableMaps);
  Measure("add/255", AddByKey);
  Measure("remove/255", RemoveByKey);
  Measure("refresh/255", Refresh);
  Measure(Name({"shuffle/255", kOurs}), ShuffleOurs);
  Measure("shuffle/255/std::shuffle", ShuffleStandard);
}

}  // namespace quill::bench
