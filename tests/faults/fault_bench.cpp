#include "tests/faults/fault_bench.h"

#include <algorithm>

#include "headless/mirror_peer.h"

namespace quill {
namespace {

constexpr TextView kQuery = u"C:\\Host\\RCData\\reply_kvrBHDGS_GetGameSettingsRem.txt";
constexpr TextView kStart = u"C:\\Host\\RCData\\reply_kvrBHDGS_StartGameRem.txt";

// The host's values, whose use may fail.
class WatchedArray final : public HostArray {
 public:
  explicit WatchedArray(std::function<void()> before) : before_(std::move(before)) {}
  [[nodiscard]] Text ElementText(std::int32_t) const override {
    const headless::SparedAllocations spared;
    before_();
    return u"abc";
  }

 private:
  std::function<void()> before_;
};

class WatchedCollection final : public HostCollection {
 public:
  explicit WatchedCollection(std::function<void()> before) : before_(std::move(before)) {}
  [[nodiscard]] std::int64_t Count() override {
    const headless::SparedAllocations spared;
    before_();
    return 1;
  }
  [[nodiscard]] std::optional<HostItem> Find(TextView) override {
    const headless::SparedAllocations spared;
    before_();
    return HostItem{.kind = HostItem::Kind::kText, .text = u"1"};
  }

 private:
  std::function<void()> before_;
};

}  // namespace

FaultBench::FaultBench() {
  reply.AddMap(u"5", u"Shadow Valley", u"sv.bms");
  reply.AddMap(u"0", u"Dune", u"dune.bms");
  reply.Set(u"Game Port", u"17500");
  reply.SetFixed(u"Mod", u"Team Sabre");
  settings_reply = host::SettingsReply(reply);
  rights = std::make_shared<WatchedCollection>([this] { Called(Source::kHost, {u"rights"}); });
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

FaultBench::~FaultBench() {
  toolkit.before_call = nullptr;
  files.before = nullptr;
}

void FaultBench::Called(Source source, std::initializer_list<TextView> call) {
  if (source != failing_source_ || !plan_.Strikes()) return;
  if (first_.empty()) first_ = Concat(call);
  throw error_;
}

FaultBench::Strike FaultBench::RunFailing(Source source, int nth, host::FaultPlan::Extent extent,
                                          RuntimeError error, const std::function<void()>& use) {
  failing_source_ = source;
  error_ = std::move(error);
  first_.clear();
  plan_ = host::FaultPlan(nth, extent);
  if (source == Source::kAllocator) {
    const host::FailingAllocations failing(plan_);
    use();
  } else {
    use();
  }
  return {std::exchange(plan_, {}).struck(), first_};
}

void FaultBench::Open(const std::function<void()>& use) {
  HeadlessHost::Open(3, WatchedArray([this] { Called(Source::kHost, {u"PDAT"}); }), use);
}

void FaultBench::OpenFilled(const std::function<void()>& use) {
  Open([&] {
    plug_in().RemoteData(settings_reply);
    Tell(u"tsMain", ui::ItemChosen{1});
    SelectRows(u"lstAvlMaps", {1, 2, 3});
    Tell(u"lstAvlMaps", ui::KeyPressed{u'+'});
    use();
  });
}

// A native control changes itself and then tells.
void FaultBench::Tell(TextView control, const ui::Fact& fact) {
  if (dialog() == nullptr) return;
  ui::Control& teller = control.empty() ? *dialog() : dialog()->At(control);
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

void FaultBench::Press(TextView button, std::int16_t mouse) {
  ui::MouseEvent event;
  event.button = mouse;
  Tell(button, ui::MousePressed{event});
  Tell(button, ui::MouseReleased{event});
}

void FaultBench::SelectRows(TextView list, std::vector<int> rows) {
  const headless::SparedAllocations spared;
  const int current = rows.empty() ? -1 : rows.back();
  Tell(list, ui::RowsSelected{std::move(rows), current});
}

std::vector<Text> FaultBench::TakeReports() {
  notices.clear();
  all_told_as_sent = true;
  constexpr TextView kLabel = u"Function/Sub: ";
  std::vector<Text> labels;
  for (const headless::ShownMessage& box : toolkit.TakeMessages()) {
    if (box.caption != u"DLL Error!") {
      notices.push_back(Concat({box.caption, u"|", box.text}));
      continue;
    }
    all_told_as_sent = all_told_as_sent && box.text.ends_with(u"Error Report Sent: Yes");
    const std::size_t at = box.text.find(kLabel);
    labels.push_back(
        at == Text::npos
            ? Text(u"(out of memory)")
            : box.text.substr(at + kLabel.size(), box.text.find(u'\r', at) - at - kLabel.size()));
  }
  return labels;
}

std::string FaultBench::WholeJob() {
  std::string wrong;
  const auto check = [&](bool holds, std::string what) {
    if (!holds) wrong += std::move(what) + "; ";
  };
  const auto check_invariants = [&](const char* when) {
    for (const Text& broken : host::BrokenInvariants(module, toolkit)) {
      check(false, std::string(when) + ": " + ToUtf8(broken));
    }
  };
  OpenFilled([&] {
    check(ReadAt(kQuery) == "Plugin_kvrBHDGS_GetGameSettingsRem_abc_VB6_3", "no query");
    check(rotation().size() == 3, "no rotation");
    check_invariants("filled");
    Press(u"cmdStart");
    check(ReadAt(kStart).starts_with("Plugin_kvrBHDGS_StartGameRem_abc_VB6_3_"), "no start");
    check(toolkit.screen_pointer() == ui::Pointer::kBusy, "no busy pointer");
    plug_in().RemoteData(u"1");
    check(dialog() == nullptr, "not closed");
  });
  check_invariants("closed");
  for (const Text& label : TakeReports()) check(false, "report " + ToUtf8(label));
  for (const Text& notice : notices) check(false, "box " + ToUtf8(notice));
  return wrong;
}

}  // namespace quill
