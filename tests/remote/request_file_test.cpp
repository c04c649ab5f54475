// Request files: their names, their one line, and the order in which they come to be.
#include "remote/request_file.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "tests/doubles/loaded_plug_in.h"

namespace quill {
namespace {

// Notes each operation, with the last piece of its path, and fails the one it is told to.
class JournalingFileSystem final : public FileSystem {
 public:
  headless::MemoryFileSystem files;
  std::vector<std::string> journal;
  std::string failing;

  bool FolderExists(TextView path) override {
    Note("FolderExists", path);
    return files.FolderExists(path);
  }
  void MakeFolder(TextView path) override {
    Note("MakeFolder", path);
    files.MakeFolder(path);
  }
  bool FileExists(TextView path) override {
    Note("FileExists", path);
    return files.FileExists(path);
  }
  void RemoveFile(TextView path) override {
    Note("RemoveFile", path);
    files.RemoveFile(path);
  }
  void MakeEmptyFile(TextView path) override {
    Note("MakeEmptyFile", path);
    files.MakeEmptyFile(path);
  }
  std::int64_t FileSize(TextView path) override { return files.FileSize(path); }
  void RenameFile(TextView from, TextView to) override { files.RenameFile(from, to); }
  std::unique_ptr<ByteReader> OpenForReading(TextView path) override {
    return files.OpenForReading(path);
  }

 private:
  void Note(const std::string& operation, TextView path) {
    journal.push_back(operation + " " + ToUtf8(path.substr(path.rfind(u'\\') + 1)));
    if (operation == failing) throw RuntimeError(ErrorNumber::kPathFileAccessError);
  }
};

struct RequestFile : testing::Test {
  JournalingFileSystem files;
  RecordingToolkit toolkit;
  StoppedClock clock;
  DialogContext context{toolkit, files, clock, CodePage::Windows1252()};
  RemoteContext remote{context};
  RecordingFileKit* kit = nullptr;

  RequestFile() {
    auto recording = std::make_unique<RecordingFileKit>();
    kit = recording.get();
    kit->journal = &files.journal;
    context.file_kit = std::move(recording);
    context.HostRoot = u"C:\\Host";
  }
};

constexpr TextView kQueryPath = u"C:\\Host\\RCData\\reply_kvrBHDGS_GetGameSettingsRem.txt";

TEST_F(RequestFile, EnvelopeNamesCommandTargetAndProfile) {
  remote.TargetId = u"abc";
  context.Index = 3;
  EXPECT_EQ(RequestEnvelope(remote, kGameSettingsQuery),
            u"Plugin_kvrBHDGS_GetGameSettingsRem_abc_VB6_3");
  EXPECT_EQ(RequestEnvelope(remote, kStartGame, u"120[-]Scorvane[-]x"),
            u"Plugin_kvrBHDGS_StartGameRem_abc_VB6_3_120[-]Scorvane[-]x");
  remote.TargetId = u"a_b ";
  context.Index = -12;
  EXPECT_EQ(RequestEnvelope(remote, kGameSettingsQuery),
            u"Plugin_kvrBHDGS_GetGameSettingsRem_a_b _VB6_-12");
}

TEST_F(RequestFile, IsMadeInItsFolderWhichIsMadeFirst) {
  WriteRequest(context, kGameSettingsQuery, u"line");
  const std::vector<std::string> expected = {"FolderExists RCData", "MakeFolder RCData",
                                             "FileExists reply_kvrBHDGS_GetGameSettingsRem.txt",
                                             "MakeEmptyFile reply_kvrBHDGS_GetGameSettingsRem.txt",
                                             "WriteFile"};
  EXPECT_EQ(files.journal, expected);
  ASSERT_EQ(kit->files.size(), 1u);
  EXPECT_EQ(kit->files[0].path, kQueryPath);
  EXPECT_EQ(kit->files[0].text, u"line");
}

TEST_F(RequestFile, OfAnEarlierRequestIsDeletedFirst) {
  files.files.MakeFolder(u"C:\\Host\\RCData");
  files.files.SetContents(u"C:\\Host\\RCData\\reply_kvrBHDGS_StartGameRem.txt", "an old request");
  std::string at_hand_over = "not handed over";
  kit->before = [&](const std::string&) {
    at_hand_over = files.files.Contents(u"C:\\Host\\RCData\\reply_kvrBHDGS_StartGameRem.txt");
  };
  WriteRequest(context, kStartGame, u"new");
  const std::vector<std::string> expected = {
      "FolderExists RCData", "FileExists reply_kvrBHDGS_StartGameRem.txt",
      "RemoveFile reply_kvrBHDGS_StartGameRem.txt", "MakeEmptyFile reply_kvrBHDGS_StartGameRem.txt",
      "WriteFile"};
  EXPECT_EQ(files.journal, expected);
  EXPECT_EQ(at_hand_over, "");
}

TEST_F(RequestFile, StopsAtTheOperationThatFails) {
  for (const char* operation :
       {"FolderExists", "MakeFolder", "FileExists", "RemoveFile", "MakeEmptyFile"}) {
    SCOPED_TRACE(operation);
    files.files = headless::MemoryFileSystem();
    if (operation == std::string("RemoveFile")) {
      files.files.MakeFolder(u"C:\\Host\\RCData");
      files.files.SetContents(kQueryPath, "old");
    }
    files.journal.clear();
    files.failing = operation;
    EXPECT_THROW(WriteRequest(context, kGameSettingsQuery, u"line"), RuntimeError);
    EXPECT_TRUE(files.journal.back().starts_with(operation)) << files.journal.back();
    EXPECT_TRUE(kit->files.empty());
  }
}

}  // namespace
}  // namespace quill
