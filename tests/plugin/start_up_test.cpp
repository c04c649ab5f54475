// Start-up, and letting go of the host.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/doubles/loaded_plug_in.h"

namespace quill {
namespace {

using Strings = std::vector<std::string>;

TEST(StartUp, FindsTheHostAndItsServicesOnce) {
  LoadedPlugIn host;
  EXPECT_EQ(host.module.HostRoot, u"C:\\Host");
  host.before_create = [](TextView call) { FAIL() << ToUtf8(call); };
  const clsPlugin another(host.module);
  EXPECT_NE(host.module.memory_kit, nullptr);
  EXPECT_EQ(host.module.PendingCommand, u"");
  EXPECT_EQ(host.module.dialog, nullptr);
  EXPECT_EQ(host.Boxes(), Strings());
}

TEST(StartUp, TakesTheRootOfADevelopmentHostFromItsOwnFolder) {
  host::HeadlessHost host;
  host.paths = headless::FixedProcessPaths(u"C:\\dev\\vb6.exe",
                                           u"D:\\Work\\dlls\\Quillstart\\Plugins\\plugins");
  host.module.SubMain();
  EXPECT_EQ(host.module.HostRoot, u"D:\\Work");
}

TEST(StartUp, ReportsWhatTheHostDoesNotOffer) {
  const struct {
    const char* missing;
    Strings asked_for;
    const char* report_sent;
  } cases[] = {{"path", {}, "Failed!"},
               {"CreateFileKit", {"CreateFileKit"}, "Failed!"},
               {"CreateMemoryKit", {"CreateFileKit", "CreateMemoryKit"}, "Yes"}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.missing);
    host::HeadlessHost host;
    if (c.missing == std::string("path")) host.paths = headless::FixedProcessPaths(u"");
    Strings asked_for;
    host.before_create = [&](TextView call) {
      asked_for.push_back(ToUtf8(call));
      if (asked_for.back() == c.missing) throw RuntimeError(ErrorNumber::kCannotCreateObject);
    };
    host.module.SubMain();
    EXPECT_EQ(asked_for, c.asked_for);
    ASSERT_EQ(host.toolkit.messages().size(), 1u);
    const auto& [caption, text] = host.toolkit.messages()[0];
    EXPECT_EQ(caption, u"DLL Error!");
    const std::string shown = ToUtf8(text);
    EXPECT_NE(shown.find("Function/Sub: SubMain"), std::string::npos) << shown;
    EXPECT_EQ(shown.find("Error Line: 0"), std::string::npos) << shown;
    EXPECT_TRUE(shown.ends_with(std::string("Error Report Sent: ") + c.report_sent)) << shown;
  }
}

TEST(StartUp, RunsAgainAfterTheHostWasLetGo) {
  LoadedPlugIn host;
  host.plug_in().SetPrivis(std::make_shared<KeyedItems>(KeyedItems({})), nullptr, true);
  host.Open();
  ASSERT_NE(host.module.dialog, nullptr);
  const std::weak_ptr<HostCollection> rights = host.module.NameCol;

  host.module.ReleaseHost();
  EXPECT_TRUE(rights.expired());
  EXPECT_EQ(host.module.memory_kit, nullptr);
  EXPECT_EQ(host.module.dialog, nullptr);
  EXPECT_EQ(host.module.file_kit, nullptr);
  EXPECT_EQ(host.module.PendingCommand, u"LoadForm");

  const clsPlugin later(host.module);
  EXPECT_NE(host.module.memory_kit, nullptr);
  host.Open();
  EXPECT_EQ(host.kit().files.size(), 1u);
}

TEST(StartUp, LetsAShownDialogBe) {
  LoadedPlugIn host;
  host.Open([&] {
    host.module.ReleaseHost();
    ASSERT_NE(host.module.dialog, nullptr);
    EXPECT_TRUE(host.dialog().shown());
  });
}

}  // namespace
}  // namespace quill
