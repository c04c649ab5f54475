// The memory file system and the one rooted in a real folder: both find files in any letter case,
// and the second reaches nothing outside its folder.
#include <gtest/gtest.h>

#include <functional>

#include "headless/memory_file_system.h"
#include "headless/rooted_file_system.h"
#include "support/runtime_error.h"
#include "tests/doubles/scratch_folder.h"

namespace quill::headless {
namespace {

namespace fs = std::filesystem;

ErrorNumber NumberOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const RuntimeError& error) {
    return static_cast<ErrorNumber>(error.number());
  }
  return ErrorNumber::kNone;
}

TEST(FileSystems, KeepOneContract) {
  const ScratchFolder scratch;
  MemoryFileSystem memory;
  RootedFileSystem disk(u"C:\\Host", scratch.path());
  for (FileSystem* const files : std::initializer_list<FileSystem*>{&memory, &disk}) {
    const auto number = [&](void (FileSystem::*act)(TextView), TextView path) {
      return NumberOf([&] { (files->*act)(path); });
    };
    for (const TextView path :
         {u"C:\\Host\\..\\a.txt", u"C:\\Host\\.\\a.txt", u"C:\\Host\\.. \\a.txt", u"C:\\Host\\a.",
          u"C:\\Host\\a ", u"C:\\Host\\a:b", u"C:\\Host\\a*", u"C:\\Host\\a\tb"}) {
      EXPECT_EQ(number(&FileSystem::MakeEmptyFile, path), ErrorNumber::kPathFileAccessError);
      EXPECT_FALSE(files->FileExists(path) || files->FolderExists(path));
    }
    for (const TextView path :
         {u"", u"a.txt", u"\\Host\\a.txt", u"..\\a.txt", u"CC:\\a.txt", u"C:\\Host\\no\\a.txt"}) {
      EXPECT_EQ(number(&FileSystem::MakeEmptyFile, path), ErrorNumber::kPathNotFound);
      EXPECT_EQ(number(&FileSystem::RemoveFile, path), ErrorNumber::kPathNotFound);
      EXPECT_EQ(NumberOf([&] { files->OpenForReading(path); }), ErrorNumber::kPathNotFound);
      EXPECT_FALSE(files->FileExists(path));
    }
    files->MakeFolder(u"C:\\Host\\RCData");
    files->MakeEmptyFile(u"C:\\Host\\rcdata\\Gr\u00FC\u00DFe.txt");
    EXPECT_EQ(files->FileSize(u"C:/Host/RCDATA//GR\u00DC\u00DFE.TXT"), 0);
    EXPECT_EQ(number(&FileSystem::MakeEmptyFile, u"C:\\Host\\RCData"),
              ErrorNumber::kPathFileAccessError);
    files->MakeEmptyFile(u"C:\\Host\\RCData\\b.bak");
    files->RenameFile(u"C:\\Host\\rcdata\\gr\u00FC\u00DFe.txt", u"C:\\Host\\RCData\\B.bak");
    EXPECT_FALSE(files->FileExists(u"C:\\Host\\RCData\\Gr\u00FC\u00DFe.txt"));
    EXPECT_EQ(NumberOf([&] { files->RenameFile(u"C:\\Host\\RCData\\b.bak", u"C:\\Host\\RCData"); }),
              ErrorNumber::kPathFileAccessError);
    files->RemoveFile(u"C:\\Host\\RCData\\b.BAK");
    EXPECT_EQ(number(&FileSystem::RemoveFile, u"C:\\Host\\RCData\\b.bak"),
              ErrorNumber::kFileNotFound);
  }
}

TEST(RootedFileSystem, ReachesNothingOutsideItsFolder) {
  const ScratchFolder scratch;
  fs::create_directory(scratch.path() / "host");
  fs::create_directory(scratch.path() / "elsewhere");
  static_cast<void>(scratch.Put("elsewhere/secret.txt", "secret"));
  RootedFileSystem files(u"C:\\Host", scratch.path() / "host");

  EXPECT_EQ(NumberOf([&] { files.MakeEmptyFile(u"C:\\Hostess\\a.txt"); }),
            ErrorNumber::kPathNotFound);
  EXPECT_EQ(NumberOf([&] { files.MakeEmptyFile(u"D:\\Host\\a.txt"); }), ErrorNumber::kPathNotFound);
  EXPECT_EQ(NumberOf([&] { files.MakeEmptyFile(u"C:\\a.txt"); }), ErrorNumber::kPathNotFound);

  std::error_code error;
  fs::create_directory_symlink(scratch.path() / "elsewhere", scratch.path() / "host" / "link",
                               error);
  if (error) GTEST_SKIP() << "this system makes no links: " << error.message();
  EXPECT_FALSE(files.FileExists(u"C:\\Host\\link\\secret.txt"));
  EXPECT_EQ(NumberOf([&] { files.RemoveFile(u"C:\\Host\\link\\secret.txt"); }),
            ErrorNumber::kPathNotFound);
  EXPECT_EQ(NumberOf([&] { files.MakeEmptyFile(u"C:\\Host\\link\\secret.txt"); }),
            ErrorNumber::kPathFileAccessError);
  EXPECT_EQ(fs::file_size(scratch.path() / "elsewhere" / "secret.txt"), 6u);
}

}  // namespace
}  // namespace quill::headless
