#include "support/host_environment.h"

#include <gtest/gtest.h>

#include "headless/fixed_process_paths.h"

namespace quill {
namespace {

using headless::FixedProcessPaths;

Text FolderOf(TextView executable) {
  FixedProcessPaths paths{Text(executable)};
  return HostFolder(paths);
}

bool IsDevelopment(TextView executable) {
  FixedProcessPaths paths{Text(executable)};
  return IsDevelopmentHost(paths);
}

TEST(HostEnvironmentTest, HostFolderDropsTheFileNameAndOneBackslash) {
  EXPECT_EQ(FolderOf(u"C:\\Games\\Host\\host.exe"), u"C:\\Games\\Host");
  EXPECT_EQ(FolderOf(u"C:\\host.exe"), u"C:");
  EXPECT_EQ(FolderOf(u"host.exe"), u"");
  EXPECT_EQ(FolderOf(u"C:/Games/host.exe"), u"");
  EXPECT_EQ(FolderOf(u"\\\\server\\share\\\\host.exe"), u"\\\\server\\share\\");
  EXPECT_EQ(FolderOf(u"C:\\Games\\"), u"C:\\Games");
  EXPECT_EQ(FolderOf(u"\\"), u"");
  // Only 260 units of the path are seen.
  const Text folder = u"C:\\" + Text(256, u'a');
  EXPECT_EQ(FolderOf(folder + u"\\b\\host.exe"), folder);
}

TEST(HostEnvironmentTest, DevelopmentHostIsFoundAnywhereInThePath) {
  EXPECT_TRUE(IsDevelopment(u"C:\\Tools\\VB6.EXE"));
  EXPECT_TRUE(IsDevelopment(u"C:\\Tools\\vb6.exe"));
  EXPECT_TRUE(IsDevelopment(u"C:\\my Vb6.exe copy\\host.exe"));
  EXPECT_FALSE(IsDevelopment(u"C:\\Tools\\VB6\\host.exe"));
  EXPECT_FALSE(IsDevelopment(u"C:\\Tools\\VB60EXE"));
  // Beyond the 255 units of the buffer.
  EXPECT_TRUE(IsDevelopment(Text(248, u'a') + u"VB6.EXE"));
  EXPECT_FALSE(IsDevelopment(Text(249, u'a') + u"VB6.EXE"));
}

TEST(HostEnvironmentTest, DevelopmentRootIsThePluginFolderWithoutItsOwnLevels) {
  const auto root = [](Text executable, Text plugin_folder) {
    FixedProcessPaths paths(std::move(executable), std::move(plugin_folder));
    return ResolveHostRoot(paths);
  };
  EXPECT_EQ(root(u"C:\\Host\\host.exe", u"D:\\Plugins"), u"C:\\Host");
  EXPECT_EQ(root(u"C:\\VB6.EXE", u"D:\\Host\\Plugins\\dlls\\Quillstart"), u"D:\\Host");
  EXPECT_EQ(root(u"C:\\VB6.EXE", u"D:\\plugins\\Host\\Plugins"), u"D:\\Host");
  EXPECT_EQ(root(u"C:\\VB6.EXE", u"D:\\PLUGINS\\Dlls\\Quillstart"),
            u"D:\\PLUGINS\\Dlls\\Quillstart");
  // Each removal works on what the one before it left.
  EXPECT_EQ(root(u"C:\\VB6.EXE", u"D:\\dlls\\Plugins\\Quillstart"), u"D:");
  EXPECT_EQ(root(u"C:\\VB6.EXE", u"D:\\plug\\Pluginsins"), u"D:");
}

}  // namespace
}  // namespace quill
