// The order in which request files come to be.
#include "remote/request_file.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/doubles/loaded_plug_in.h"

namespace quill {
namespace {

struct RequestFile : testing::Test {
  LoadedPlugIn host;
  Session& context = host.module;
  headless::MemoryFileSystem& memory = host.memory;
  RecordingFileKit* kit = &host.kit();
  std::vector<std::string> journal;

  RequestFile() {
    host.files.before = [this](TextView operation, TextView path) {
      journal.push_back(ToUtf8(operation) + " " + ToUtf8(path.substr(path.rfind(u'\\') + 1)));
    };
    kit->journal = &journal;
  }
};

TEST_F(RequestFile, OfAnEarlierRequestIsDeletedFirst) {
  memory.MakeFolder(u"C:\\Host\\RCData");
  memory.SetContents(u"C:\\Host\\RCData\\reply_kvrBHDGS_StartGameRem.txt", "an old request");
  std::string at_hand_over = "not handed over";
  kit->before = [&](const std::string&) {
    at_hand_over = memory.Contents(u"C:\\Host\\RCData\\reply_kvrBHDGS_StartGameRem.txt");
  };
  WriteRequest(context, kStartGame, u"new");
  const std::vector<std::string> expected = {
      "FolderExists RCData", "FileExists reply_kvrBHDGS_StartGameRem.txt",
      "RemoveFile reply_kvrBHDGS_StartGameRem.txt", "MakeEmptyFile reply_kvrBHDGS_StartGameRem.txt",
      "WriteFile"};
  EXPECT_EQ(journal, expected);
  EXPECT_EQ(at_hand_over, "");
}

}  // namespace
}  // namespace quill
