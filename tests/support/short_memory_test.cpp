// Fails the 1st, 2nd, 3rd ... allocation of an operation until it runs through: whatever step is
// hit, the operator sees a box and nothing escapes.
#include <gtest/gtest.h>

#include <stdexcept>

#include "host/headless/headless_host.h"
#include "host/watch/fault_plan.h"
#include "support/base64.h"
#include "support/trap.h"

namespace quill {
namespace {

using host::FailingAllocations;
using host::FaultPlan;

constexpr TextView kLabel = u"A label beyond the short ones";

// A failure as a body raises it under a trap.
std::exception_ptr Made(int kind) {
  try {
    if (kind == 0) throw RuntimeError(ErrorNumber::kTypeMismatch, u"a description of its own");
    if (kind == 1) throw std::runtime_error("a foreign text that is long enough to allocate");
    throw std::bad_alloc();
  } catch (...) {
    return std::current_exception();
  }
}

TEST(ShortMemory, TrapAlwaysLogsOnceShowsOneBoxAndTellsTheTruth) {
  for (const int kind : {0, 1, 2}) {
    bool whole = false;
    for (int nth = 1; !whole; ++nth) {
      ASSERT_LT(nth, 100);
      SCOPED_TRACE(nth);
      host::HeadlessHost host;
      host.module.SubMain();
      const std::exception_ptr failure = Made(kind);
      {
        FaultPlan plan(nth, FaultPlan::Extent::kFromThereOn);
        const FailingAllocations failing(plan);
        const bool ran = Trapped(
            host.module.reporter, kLabel, [&](Line&) { std::rethrow_exception(failure); },
            [](RuntimeError& error) { error.AppendToDescription(u", and more about it"); });
        whole = plan.struck() == 0;
        EXPECT_FALSE(ran);
      }
      EXPECT_EQ(host.watch.failures.size(), 1u);
      ASSERT_EQ(host.toolkit.messages().size(), 1u);
      const TextView text = host.toolkit.messages()[0].text;
      const bool sent = !host.watch.reports.empty();
      EXPECT_TRUE(
          text.ends_with(sent ? u"\r\nError Report Sent: Yes" : u"\r\nError Report Sent: Failed!"));
      EXPECT_EQ(text.find(kLabel) != TextView::npos, whole);
      for (const ErrorReport& report : host.watch.reports) EXPECT_EQ(report.label, kLabel);
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

TEST(ShortMemory, Enc64ReportsAndGivesNothing) {
  for (std::size_t size : {100U, 100'000U}) {
    host::HeadlessHost host;
    const Text text(size, u'x');
    Text encoded;
    {
      FaultPlan plan(1, FaultPlan::Extent::kFromThereOn);
      const FailingAllocations failing(plan);
      encoded = Enc64(text, CodePage::Windows1252(), host.module.reporter);
    }
    EXPECT_EQ(encoded, u"");
    EXPECT_EQ(host.toolkit.messages().size(), 1u);
  }
}

}  // namespace
}  // namespace quill
