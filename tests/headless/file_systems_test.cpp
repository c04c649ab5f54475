// The memory file system and the one rooted in a real folder keep the same contract.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <string>

#include "headless/memory_file_system.h"
#include "headless/rooted_file_system.h"
#include "support/runtime_error.h"

namespace quill::headless {
namespace {

namespace fs = std::filesystem;

class ScratchFolder {
 public:
  // Named after the running test, because test cases run side by side.
  ScratchFolder() {
    const testing::TestInfo& test = *testing::UnitTest::GetInstance()->current_test_info();
    std::string name = std::string(test.test_suite_name()) + "-" + test.name();
    std::replace(name.begin(), name.end(), '/', '-');
    path_ = fs::path(QUILL_BINARY_DIR) / "scratch" / name;
    fs::remove_all(path_);
    fs::create_directories(path_);
  }
  ~ScratchFolder() {
    std::error_code error;
    fs::remove_all(path_, error);
  }
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;

  [[nodiscard]] const fs::path& path() const { return path_; }

 private:
  fs::path path_;
};

void Put(const fs::path& path, const std::string& bytes) {
  std::ofstream(path, std::ios::binary) << bytes;
}

std::string ReadAll(FileSystem& files, TextView path, std::size_t piece) {
  const std::unique_ptr<ByteReader> reader = files.OpenForReading(path);
  std::string whole;
  std::string buffer(piece, '\0');
  while (const std::size_t count = reader->Read(buffer)) whole.append(buffer, 0, count);
  EXPECT_EQ(reader->Read(buffer), 0u) << "reading goes on behind the end";
  return whole;
}

ErrorNumber NumberOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const RuntimeError& error) {
    EXPECT_FALSE(error.description().empty());
    return static_cast<ErrorNumber>(error.number());
  }
  return ErrorNumber::kNone;
}

// A file system and a way to give a file contents, which the seam itself has not.
class FileSystems : public testing::TestWithParam<bool> {
 protected:
  FileSystems() {
    if (GetParam()) {
      files_ = std::make_unique<RootedFileSystem>(u"C:\\Host", folder_.path());
    } else {
      files_ = std::make_unique<MemoryFileSystem>();
    }
  }

  FileSystem& files() { return *files_; }

  void Fill(TextView path, const std::string& bytes) {
    if (auto* memory = dynamic_cast<MemoryFileSystem*>(files_.get())) {
      memory->SetContents(path, bytes);
    } else {
      Put(dynamic_cast<RootedFileSystem&>(*files_).RealPath(path), bytes);
    }
  }

 private:
  ScratchFolder folder_;
  std::unique_ptr<FileSystem> files_;
};

TEST_P(FileSystems, FoldersAreMadeOneByOne) {
  EXPECT_TRUE(files().FolderExists(u"C:\\Host"));
  EXPECT_TRUE(files().FolderExists(u"c:\\HOST\\"));
  EXPECT_FALSE(files().FolderExists(u"C:\\Host\\profiles"));
  EXPECT_EQ(NumberOf([&] { files().MakeFolder(u"C:\\Host\\profiles\\3"); }),
            ErrorNumber::kPathNotFound);
  files().MakeFolder(u"C:\\Host\\profiles");
  files().MakeFolder(u"C:\\Host\\PROFILES\\3");
  EXPECT_TRUE(files().FolderExists(u"C:\\Host\\profiles\\3"));
  EXPECT_FALSE(files().FileExists(u"C:\\Host\\profiles\\3"));
  EXPECT_EQ(NumberOf([&] { files().MakeFolder(u"C:\\Host\\Profiles"); }),
            ErrorNumber::kPathFileAccessError);
}

TEST_P(FileSystems, FilesAreFoundInAnyLetterCase) {
  files().MakeFolder(u"C:\\Host\\RCData");
  files().MakeEmptyFile(u"C:\\Host\\rcdata\\Gr\u00FC\u00DFe.txt");
  EXPECT_TRUE(files().FileExists(u"C:\\Host\\RCDATA\\GR\u00DC\u00DFE.TXT"));
  EXPECT_EQ(files().FileSize(u"C:/Host/RCData//Gr\u00FC\u00DFe.txt"), 0);

  Fill(u"C:\\Host\\RCData\\GR\u00DC\u00DFE.txt", std::string("a\0b\r\n", 5));
  EXPECT_EQ(files().FileSize(u"C:\\Host\\RCData\\Gr\u00FC\u00DFe.txt"), 5);
  for (const std::size_t piece : {1, 4, 5, 64}) {
    EXPECT_EQ(ReadAll(files(), u"C:\\Host\\RCData\\gr\u00FC\u00DFe.txt", piece),
              std::string("a\0b\r\n", 5));
  }
  files().MakeEmptyFile(u"C:\\Host\\RCData\\gr\u00FC\u00DFe.TXT");
  EXPECT_EQ(files().FileSize(u"C:\\Host\\RCData\\gr\u00FC\u00DFe.txt"), 0);
  files().RemoveFile(u"C:\\Host\\RCData\\GR\u00DC\u00DFE.TXT");
  EXPECT_FALSE(files().FileExists(u"C:\\Host\\RCData\\Gr\u00FC\u00DFe.txt"));
}

TEST_P(FileSystems, RenamingReplacesAndRefusesFolders) {
  files().MakeFolder(u"C:\\Host\\x");
  Fill(u"C:\\Host\\x\\a.hsf", "new");
  Fill(u"C:\\Host\\x\\a.hsf.bak", "old");
  files().RenameFile(u"C:\\Host\\x\\A.hsf", u"C:\\Host\\x\\a.HSF.bak");
  EXPECT_FALSE(files().FileExists(u"C:\\Host\\x\\a.hsf"));
  EXPECT_EQ(ReadAll(files(), u"C:\\Host\\x\\a.hsf.bak", 8), "new");
  files().RenameFile(u"C:\\Host\\x\\a.hsf.bak", u"C:\\Host\\x\\A.HSF.BAK");
  EXPECT_EQ(ReadAll(files(), u"C:\\Host\\x\\a.hsf.bak", 8), "new");

  EXPECT_EQ(NumberOf([&] { files().RenameFile(u"C:\\Host\\x\\no", u"C:\\Host\\x\\b"); }),
            ErrorNumber::kFileNotFound);
  EXPECT_EQ(NumberOf([&] { files().RenameFile(u"C:\\Host\\x\\a.hsf.bak", u"C:\\Host\\x"); }),
            ErrorNumber::kPathFileAccessError);
  EXPECT_EQ(NumberOf([&] { files().RenameFile(u"C:\\Host\\x\\a.hsf.bak", u"C:\\Host\\y\\b"); }),
            ErrorNumber::kPathNotFound);
  EXPECT_EQ(ReadAll(files(), u"C:\\Host\\x\\a.hsf.bak", 8), "new");
}

TEST_P(FileSystems, MissingThingsAreNamedByTheirNumbers) {
  files().MakeFolder(u"C:\\Host\\folder");
  EXPECT_EQ(NumberOf([&] { files().FileSize(u"C:\\Host\\no.txt"); }), ErrorNumber::kFileNotFound);
  EXPECT_EQ(NumberOf([&] { files().RemoveFile(u"C:\\Host\\no.txt"); }), ErrorNumber::kFileNotFound);
  EXPECT_EQ(NumberOf([&] { files().OpenForReading(u"C:\\Host\\no.txt"); }),
            ErrorNumber::kFileNotFound);
  EXPECT_EQ(NumberOf([&] { files().OpenForReading(u"C:\\Host\\folder"); }),
            ErrorNumber::kPathFileAccessError);
  EXPECT_EQ(NumberOf([&] { files().MakeEmptyFile(u"C:\\Host\\no\\a.txt"); }),
            ErrorNumber::kPathNotFound);
  EXPECT_EQ(NumberOf([&] { files().MakeEmptyFile(u"C:\\Host\\folder"); }),
            ErrorNumber::kPathFileAccessError);
}

TEST_P(FileSystems, NamesThatCouldLeadElsewhereAreRefused) {
  for (const TextView path :
       {u"C:\\Host\\..\\a.txt", u"C:\\Host\\.\\a.txt", u"C:\\Host\\.. \\a.txt", u"C:\\Host\\a.",
        u"C:\\Host\\a ", u"C:\\Host\\a:b", u"C:\\Host\\a*", u"C:\\Host\\a\tb"}) {
    EXPECT_EQ(NumberOf([&] { files().MakeEmptyFile(path); }), ErrorNumber::kPathFileAccessError);
    EXPECT_FALSE(files().FileExists(path));
    EXPECT_FALSE(files().FolderExists(path));
  }
  for (const TextView path : {u"", u"a.txt", u"\\Host\\a.txt", u"..\\a.txt", u"CC:\\a.txt"}) {
    EXPECT_EQ(NumberOf([&] { files().MakeEmptyFile(path); }), ErrorNumber::kPathNotFound);
    EXPECT_FALSE(files().FileExists(path));
  }
}

INSTANTIATE_TEST_SUITE_P(Memory, FileSystems, testing::Values(false));
INSTANTIATE_TEST_SUITE_P(Disk, FileSystems, testing::Values(true));

TEST(RootedFileSystem, ReachesNothingOutsideItsFolder) {
  const ScratchFolder scratch;
  fs::create_directory(scratch.path() / "host");
  fs::create_directory(scratch.path() / "elsewhere");
  Put(scratch.path() / "elsewhere" / "secret.txt", "secret");
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
            ErrorNumber::kFileNotFound);
  EXPECT_EQ(NumberOf([&] { files.MakeEmptyFile(u"C:\\Host\\link\\secret.txt"); }),
            ErrorNumber::kPathFileAccessError);
  EXPECT_EQ(fs::file_size(scratch.path() / "elsewhere" / "secret.txt"), 6u);
}

TEST(RootedFileSystem, KeepsTheLetterCaseOnTheDisk) {
  const ScratchFolder scratch;
  RootedFileSystem files(u"C:\\Host\\", scratch.path());
  files.MakeFolder(u"C:\\Host\\RCData");
  files.MakeEmptyFile(u"c:\\host\\rcDATA\\Reply.txt");
  EXPECT_TRUE(fs::exists(scratch.path() / "RCData" / "Reply.txt"));
  EXPECT_THROW(RootedFileSystem(u"C:\\Host", scratch.path() / "missing"), RuntimeError);
}

TEST(MemoryFileSystem, OpenReadersKeepWhatTheyOpened) {
  MemoryFileSystem files(u"D:\\Games\\Host");
  files.SetContents(u"D:\\Games\\Host\\a.txt", "first");
  const std::unique_ptr<ByteReader> reader = files.OpenForReading(u"d:\\games\\host\\A.TXT");
  files.AppendContents(u"D:\\Games\\Host\\a.txt", " second");
  files.RemoveFile(u"D:\\Games\\Host\\a.txt");
  char buffer[32];
  EXPECT_EQ(std::string(buffer, reader->Read(buffer)), "first");
  EXPECT_TRUE(files.FilePaths().empty());
}

}  // namespace
}  // namespace quill::headless
