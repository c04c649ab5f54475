// Fails the 1st, 2nd, 3rd ... allocation of an operation until it runs through: whatever step is
// hit, the operator sees a box and nothing escapes.
#include <gtest/gtest.h>

#include <optional>
#include <stdexcept>

#include "host/watch/failing_allocations.h"
#include "support/base64.h"
#include "support/trap.h"

namespace quill {
namespace {

using host::FailingAllocations;
using host::FaultPlan;

// Takes notes without allocating.
class FrugalKit final : public FileKit {
 public:
  int logged = 0;
  bool sent = false;
  bool complete = false;

  void LogError(TextView, TextView, const RuntimeError&, std::int32_t) override { ++logged; }
  bool SendErrorReport(const ErrorReport& report) override {
    complete = !report.library.empty() && report.label == u"A label beyond the short ones";
    return sent = true;
  }
  void WriteFile(TextView, TextView) override {}
  Text CompressString(TextView) override { return {}; }
  Text DecompressString(TextView, std::int32_t) override { return {}; }
  std::optional<IniElements> GetIniSection(TextView, TextView) override { return {}; }
  IniEntry ParseIniKey(TextView) override { return {}; }
  Text ParseIniValue(TextView) override { return {}; }
  void WriteIniKey(TextView, TextView, TextView, TextView) override {}
};

class FrugalBoxes final : public MessageBoxes {
 public:
  int shown = 0;
  bool says_sent = false;
  bool says_not_sent = false;
  bool has_label = false;

  void ShowMessage(TextView, TextView text) override {
    ++shown;
    says_sent = text.ends_with(u"\r\nError Report Sent: Yes");
    says_not_sent = text.ends_with(u"\r\nError Report Sent: Failed!");
    has_label = text.find(u"A label beyond the short ones") != TextView::npos;
  }
};

// The failures that a body may raise under a trap.
void RaiseOwn() {
  throw RuntimeError(ErrorNumber::kTypeMismatch, u"a description of its own, not a short one");
}
void RaiseForeign() {
  throw std::runtime_error("a foreign text that is long enough to allocate");
}
void RaiseShortage() {
  throw std::bad_alloc();
}

TEST(ShortMemory, TrapAlwaysLogsOnceShowsOneBoxAndTellsTheTruth) {
  for (auto* raise : {RaiseOwn, RaiseForeign, RaiseShortage}) {
    bool whole = false;
    for (int nth = 1; !whole; ++nth) {
      ASSERT_LT(nth, 100);
      auto kit = std::make_unique<FrugalKit>();
      FrugalKit& notes = *kit;
      const std::unique_ptr<FileKit> kits = std::move(kit);
      FrugalBoxes boxes;
      MessageReporter reporter(kits, boxes);
      std::optional<std::exception_ptr> escaped;
      // Made beforehand, so that the sweep starts inside the trap.
      std::exception_ptr failure;
      try {
        raise();
      } catch (...) {
        failure = std::current_exception();
      }
      {
        FaultPlan plan(nth, FaultPlan::Extent::kFromThereOn);
        const FailingAllocations failing(plan);
        const bool ran = Trapped(
            reporter, u"A label beyond the short ones",
            [&](Line&) { std::rethrow_exception(failure); },
            [](RuntimeError& error) { error.AppendToDescription(u", and more about it"); });
        whole = plan.struck() == 0;
        EXPECT_FALSE(ran);
      }
      SCOPED_TRACE(nth);
      EXPECT_EQ(notes.logged, 1);
      EXPECT_EQ(boxes.shown, 1);
      EXPECT_EQ(boxes.says_sent, notes.sent);
      EXPECT_EQ(boxes.says_not_sent, !notes.sent);
      EXPECT_EQ(notes.complete, notes.sent);
      EXPECT_EQ(boxes.has_label, notes.sent && whole);
    }
  }
}

TEST(ShortMemory, CopyingAnErrorAllocatesNothing) {
  RuntimeError error(ErrorNumber::kOverflow, u"a description that no small buffer holds");
  FaultPlan plan(1, FaultPlan::Extent::kFromThereOn);
  const FailingAllocations failing(plan);
  const RuntimeError copy = error;
  error = copy;
  EXPECT_EQ(plan.struck(), 0);
  EXPECT_EQ(RuntimeError(ErrorNumber::kOutOfMemory).description(), u"Out of memory");
  EXPECT_STREQ(copy.what(), "run-time error");
}

TEST(ShortMemory, Enc64ReportsAndLeavesTheTargetAlone) {
  const std::unique_ptr<FileKit> kits = std::make_unique<FrugalKit>();
  FrugalBoxes boxes;
  MessageReporter reporter(kits, boxes);
  const CodePage& page = CodePage::Windows1252();
  for (std::size_t size : {100U, 100'000U}) {
    const Text text(size, u'x');
    Text target = u"kept";
    boxes.shown = 0;
    {
      FaultPlan plan(1, FaultPlan::Extent::kFromThereOn);
      const FailingAllocations failing(plan);
      AppendEnc64(text, page, reporter, target);
    }
    EXPECT_EQ(target, u"kept");
    EXPECT_EQ(boxes.shown, 1);
  }
}

}  // namespace
}  // namespace quill
