// Start-up, the information record, and letting go of the host.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/version_text.h"
#include "tests/doubles/loaded_plug_in.h"

namespace quill {
namespace {

using Strings = std::vector<std::string>;

TEST(StartUp, FindsTheHostAndItsServicesOnce) {
  LoadedPlugIn host;
  EXPECT_EQ(host.module.dialog.HostRoot, u"C:\\Host");
  const clsPlugin another(host.module);
  EXPECT_EQ(host.services.journal, (Strings{"file kit", "memory kit"}));
  EXPECT_EQ(host.module.remote.PendingCommand, u"");
  EXPECT_EQ(host.module.dialog.dialog, nullptr);
  EXPECT_EQ(host.Boxes(), Strings());
}

// The module before anything has been asked of it.
struct Unstarted {
  RecordingToolkit toolkit;
  headless::MemoryFileSystem files;
  FixedProcessPaths paths;
  StoppedClock clock;
  RecordingHostServices services;
  mdlBHDGS module{{toolkit, files, paths, clock, CodePage::Windows1252(), services}};
};

TEST(StartUp, TakesTheRootOfADevelopmentHostFromItsOwnFolder) {
  Unstarted host;
  host.paths.executable = u"C:\\dev\\vb6.exe";
  host.paths.plugin_folder = u"D:\\Work\\dlls\\Quillstart\\Plugins\\plugins";
  host.module.SubMain();
  EXPECT_EQ(host.module.dialog.HostRoot, u"D:\\Work");
}

TEST(StartUp, ReportsWhatTheHostDoesNotOffer) {
  const struct {
    const char* missing;
    Strings asked_for;
    const char* report_sent;
  } cases[] = {{"path", {}, "Failed!"},
               {"file kit", {"file kit"}, "Failed!"},
               {"memory kit", {"file kit", "memory kit"}, "Yes"}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.missing);
    Unstarted host;
    if (c.missing == std::string("path")) host.paths.executable = u"";
    host.services.offers_file_kit = c.missing != std::string("file kit");
    host.services.offers_memory_kit = c.missing != std::string("memory kit");
    host.module.SubMain();
    EXPECT_EQ(host.services.journal, c.asked_for);
    ASSERT_EQ(host.toolkit.messages.boxes.size(), 1u);
    const auto& [caption, text] = host.toolkit.messages.boxes[0];
    EXPECT_EQ(caption, u"DLL Error!");
    const std::string shown = ToUtf8(text);
    EXPECT_NE(shown.find("Function/Sub: SubMain"), std::string::npos) << shown;
    EXPECT_EQ(shown.find("Error Line: 0"), std::string::npos) << shown;
    EXPECT_TRUE(shown.ends_with(std::string("Error Report Sent: ") + c.report_sent)) << shown;
  }
}

TEST(StartUp, RunsAgainAfterTheHostWasLetGo) {
  LoadedPlugIn host;
  host.plug_in.SetPrivis(std::make_shared<KeyedItems>(KeyedItems({})), nullptr, true);
  host.Open();
  ASSERT_NE(host.module.dialog.dialog, nullptr);
  const std::weak_ptr<HostCollection> rights = host.module.NameCol;

  host.module.ReleaseHost();
  EXPECT_TRUE(rights.expired());
  EXPECT_EQ(host.module.memory_kit, nullptr);
  EXPECT_EQ(host.module.dialog.dialog, nullptr);
  EXPECT_NE(dynamic_cast<AbsentFileKit*>(host.module.dialog.file_kit.get()), nullptr);
  EXPECT_EQ(host.module.remote.PendingCommand, u"LoadForm");

  const clsPlugin later(host.module);
  EXPECT_NE(host.module.memory_kit, nullptr);
  host.Open();
  EXPECT_EQ(host.kit().files.size(), 1u);
}

TEST(StartUp, LetsAShownDialogBe) {
  LoadedPlugIn host;
  host.Open([&] {
    host.module.ReleaseHost();
    ASSERT_NE(host.module.dialog.dialog, nullptr);
    EXPECT_TRUE(host.dialog().shown());
  });
}

}  // namespace
}  // namespace quill
