// The whole plug-in on doubles whose calls fail by plan.
#pragma once

#include <algorithm>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "headless/mirror_peer.h"
#include "host/watch/fault_plan.h"
#include "tests/doubles/plug_in_bench.h"

namespace quill {

// Whose calls fail.
enum class Source : std::uint8_t { kFileKit, kFileSystem, kToolkit, kAllocator, kHost };

class FaultBench final : public PlugInBench {
 public:
  FaultBench() {
    reply.AddMap(u"5", u"Shadow Valley", u"sv.bms");
    reply.AddMap(u"0", u"Dune", u"dune.bms");
    reply.Set(u"Game Port", u"17500");
    reply.SetFixed(u"Mod", u"Team Sabre");
    settings_reply = host::SettingsReply(reply);
    files.before = [this](TextView operation, TextView path) {
      Called(Source::kFileSystem, {operation, u" ", path});
    };
    watch.before = [this](TextView operation, TextView what) {
      Called(Source::kFileKit, {operation, u" ", what});
      return true;
    };
    toolkit.before_call = [this](TextView call) {
      // The end of a display is the one request that a toolkit may not refuse.
      if (!call.starts_with(u"EndModal")) Called(Source::kToolkit, {call});
    };
    before_create = [this](TextView call) { Called(Source::kHost, {call}); };
  }
  ~FaultBench() override {
    toolkit.before_call = nullptr;
    files.before = nullptr;
  }

  // Runs `use` with the calls of `source` failing by plan; tells how many did, and the first one,
  // for example "WriteIniKey txtName".
  struct Strike {
    int count = 0;
    Text first;
  };
  Strike RunFailing(Source source, int nth, host::FaultPlan::Extent extent, RuntimeError error,
                    const std::function<void()>& use) {
    failing_source_ = source;
    error_ = std::move(error);
    first_.clear();
    plan_ = host::FaultPlan(nth, extent);
    {
      std::optional<host::FailingAllocations> failing;
      if (source == Source::kAllocator) failing.emplace(plan_);
      use();
    }
    return {std::exchange(plan_, {}).struck(), first_};
  }

  // As PlugInBench's, with a target whose use may fail.
  void Open(const std::function<void()>& use) { HeadlessHost::Open(3, Target(*this), use); }
  // With the remote side's settings, the map page in front and three maps selected.
  void OpenFilled(const std::function<void()>& use) {
    Open([&] {
      plug_in().RemoteData(settings_reply);
      person.ClickTab(u"Map Settings");
      person.SelectRows(u"lstAvlMaps", {1, 2, 3});
      person.Key(u"lstAvlMaps", u'+');
      use();
    });
  }
  // What a native control tells that has changed itself; nothing without a dialog.
  void Tell(TextView control, const ui::Fact& fact) {
    if (dialog() == nullptr) return;
    ui::Control& teller = dialog()->At(control);
    {
      const headless::SparedAllocations spared;
      auto& mirror = headless::MirrorOf(teller);
      if (const auto* edited = std::get_if<ui::TextEdited>(&fact)) mirror.ChangeText(edited->text);
      if (const auto* chosen = std::get_if<ui::ItemChosen>(&fact))
        mirror.ChangeCurrent(chosen->index);
      if (const auto* scrolled = std::get_if<ui::ScrolledTo>(&fact))
        mirror.ChangeTopRow(scrolled->top);
      if (const auto* rows = std::get_if<ui::RowsSelected>(&fact)) {
        if (std::ranges::all_of(rows->rows,
                                [&](int row) { return row < std::ssize(mirror.rows()); })) {
          mirror.ChangeSelection(rows->rows, rows->current);
        }
      }
    }
    teller.Happened(fact);
  }
  void Press(TextView button) {
    const ui::MouseEvent event{ui::kLeftButton};
    Tell(button, ui::MousePressed{event});
    Tell(button, ui::MouseReleased{event});
  }

  // The labels in the boxes of trapped failures since the last call.
  [[nodiscard]] std::vector<Text> TakeReports() {
    all_told_as_sent = true;
    constexpr TextView kLabel = u"Function/Sub: ";
    std::vector<Text> labels;
    for (const auto& [caption, text] : toolkit.TakeMessages()) {
      if (caption != u"DLL Error!") continue;
      all_told_as_sent = all_told_as_sent && text.ends_with(u"Error Report Sent: Yes");
      const std::size_t at = text.find(kLabel);
      labels.push_back(at == Text::npos ? Text(u"(out of memory)")
                                        : text.substr(at + kLabel.size(),
                                                      text.find(u'\r', at) - at - kLabel.size()));
    }
    return labels;
  }
  [[nodiscard]] frmrcBHDGS* dialog() { return module.dialog.get(); }

  Text settings_reply;
  std::shared_ptr<HostCollection> rights = std::make_shared<Rights>(*this);
  bool all_told_as_sent = true;

 private:
  // The host's values, whose use may fail.
  struct Target final : HostArray {
    explicit Target(FaultBench& owner) : bench(owner) {}
    [[nodiscard]] Text ElementText(std::int32_t) const override {
      bench.Called(Source::kHost, {u"PDAT"});
      return u"abc";
    }
    FaultBench& bench;
  };
  struct Rights final : HostCollection {
    explicit Rights(FaultBench& owner) : bench(owner) {}
    [[nodiscard]] std::int64_t Count() override {
      bench.Called(Source::kHost, {u"rights"});
      return 1;
    }
    [[nodiscard]] std::optional<HostItem> Find(TextView) override {
      bench.Called(Source::kHost, {u"rights"});
      return HostItem{.kind = HostItem::Kind::kText, .text = u"1"};
    }
    FaultBench& bench;
  };

  void Called(Source source, std::initializer_list<TextView> call) {
    if (source != failing_source_ || !plan_.Strikes()) return;
    if (first_.empty()) first_ = Concat(call);
    throw error_;
  }

  Source failing_source_ = Source::kFileKit;
  host::FaultPlan plan_;
  RuntimeError error_{ErrorNumber::kAutomationError};
  Text first_;
};

}  // namespace quill
