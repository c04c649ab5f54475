// The file kit over memory and over a real folder: encodings, whole files, the error journal.
#include "host/kit/file_kit.h"

#include <gtest/gtest.h>

#include <regex>

#include "headless/memory_file_system.h"
#include "host/kit/file_storage.h"
#include "host/kit/text_file.h"
#include "tests/doubles/failure_of.h"
#include "tests/doubles/scratch_folder.h"

namespace quill::host {
namespace {

namespace fs = std::filesystem;

constexpr TextView kIniPath = u"C:\\Host\\my.hsf";

class MemoryKit : public testing::Test {
 protected:
  headless::MemoryFileSystem files_;
  MemoryStorage storage_{files_};
  ErrorJournal journal_{u"C:\\Host", files_, storage_};
  HostFileKit kit_{storage_, journal_};

  // What a log holds, each time in it replaced by one.
  std::string Log(TextView path) const {
    static const std::regex time("\\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\dZ");
    return std::regex_replace(files_.Contents(path), time, "TIME");
  }

  std::optional<std::vector<Text>> Lines(TextView section) {
    const std::optional<IniElements> found = kit_.GetIniSection(section, kIniPath);
    if (!found) return std::nullopt;
    std::vector<Text> lines(found->count);
    for (std::size_t i = 0; i < lines.size(); ++i) lines[i] = found->element(i);
    return lines;
  }
};

TEST_F(MemoryKit, WritesRequestFilesAsTheyAre) {
  kit_.WriteFile(u"C:\\Host\\a.txt", u"Plugin_abc_VB6_3");
  EXPECT_EQ(files_.Contents(u"C:\\Host\\a.txt"), "Plugin_abc_VB6_3");
  kit_.WriteFile(u"C:\\Host\\a.txt", u"\u00E4\u20AC\nx");
  EXPECT_EQ(files_.Contents(u"C:\\Host\\a.txt"), "\xC3\xA4\xE2\x82\xAC\nx");
  EXPECT_THROW(kit_.WriteFile(u"C:\\Host\\no\\a.txt", u"x"), RuntimeError);
}

TEST_F(MemoryKit, AnIniSectionEndsWithAnElementThatIsNoEntry) {
  EXPECT_EQ(Lines(u"Settings"), std::nullopt);
  kit_.WriteIniKey(u"Settings", u"txtMessage", u" ", kIniPath);
  kit_.WriteIniKey(u"Settings", u"txtName", u"G\u00E4ste \u20AC \xD83D\xDE00", kIniPath);
  const std::optional<std::vector<Text>> lines = Lines(u"SETTINGS");
  ASSERT_TRUE(lines);
  EXPECT_EQ(*lines,
            (std::vector<Text>{u"txtMessage= ", u"txtName=G\u00E4ste \u20AC \xD83D\xDE00", u""}));
  EXPECT_EQ(kit_.ParseIniKey((*lines)[0]).key, u"txtMessage");
  EXPECT_EQ(kit_.ParseIniKey((*lines)[0]).value, u" ");
  EXPECT_EQ(kit_.ParseIniValue((*lines)[0]), u" ");
  EXPECT_EQ(Lines(u"Other"), std::nullopt);
  EXPECT_THROW(kit_.WriteIniKey(u"Settings", u"k", u"a\r\nb", kIniPath), RuntimeError);
  EXPECT_EQ(Lines(u"Settings"), lines);
}

TEST_F(MemoryKit, AFileKeepsItsEncoding) {
  files_.SetContents(kIniPath, "\xEF\xBB\xBF[s]\nold=\xC3\xA4\n");
  kit_.WriteIniKey(u"s", u"k", u"\u00F6", kIniPath);
  EXPECT_EQ(files_.Contents(kIniPath), "\xEF\xBB\xBF[s]\nold=\xC3\xA4\nk=\xC3\xB6\n");

  files_.SetContents(kIniPath, std::string("\xFF\xFE[\0s\0]\0\n\0", 10));
  kit_.WriteIniKey(u"s", u"k", u"\xD800", kIniPath);
  EXPECT_EQ(files_.Contents(kIniPath), std::string("\xFF\xFE[\0s\0]\0\n\0k\0=\0\0\xD8\n\0", 18));
  EXPECT_EQ(Lines(u"s"), (std::vector<Text>{u"k=\xD800", u""}));

  // Windows-1252 stays as long as it holds the new text and would not be taken for UTF-8.
  files_.SetContents(kIniPath, "[s]\nold=\xE4\x81\n");
  kit_.WriteIniKey(u"s", u"k", u"\u20AC", kIniPath);
  EXPECT_EQ(files_.Contents(kIniPath), "[s]\nold=\xE4\x81\nk=\x80\n");
  kit_.WriteIniKey(u"s", u"k", u"\u03A9", kIniPath);
  EXPECT_EQ(files_.Contents(kIniPath), "[s]\nold=\xC3\xA4\xC2\x81\nk=\xCE\xA9\n");
  files_.SetContents(kIniPath, "[s]\nold=\xE4\n");
  kit_.WriteIniKey(u"s", u"old", u"\u00C3\u00A4", kIniPath);
  EXPECT_EQ(Lines(u"s"), (std::vector<Text>{u"old=\u00C3\u00A4", u""}));
}

TEST_F(MemoryKit, TheJournalIsReadableAndOneEntryStaysOne) {
  EXPECT_EQ(LogTime(1'078'045'261), u"2004-02-29 09:01:01Z");
  kit_.LogError(u"kvrrcBHDGS.dll", u"RemoteData", RuntimeError(13, u"Type mismatch [a, b]"), 77);
  kit_.LogError(u"kvrrcBHDGS.dll", u"cmdSave",
                RuntimeError(5, u"first\r\nTIME  forged\nthird\tend"), 0);
  EXPECT_EQ(Log(journal_.log_path()),
            "TIME  kvrrcBHDGS.dll  RemoteData, line 77: error 13, "
            "Type mismatch [a, b]\r\n"
            "TIME  kvrrcBHDGS.dll  cmdSave, line 0: error 5, first\r\n"
            "    TIME  forged\r\n    third end\r\n");

  ErrorReport report{u"13", u"Type mismatch", u"kvrrcBHDGS.dll 1.1.2", u"RemoteData", u"0", 77};
  EXPECT_TRUE(kit_.SendErrorReport(report));
  report.number.clear();
  EXPECT_TRUE(kit_.SendErrorReport(report));
  const std::string reports = Log(u"C:\\Host\\logs\\error-reports.txt");
  EXPECT_TRUE(
      reports.starts_with("TIME\r\n  Number:      13\r\n  Description: Type mismatch\r\n"
                          "  Library:     kvrrcBHDGS.dll 1.1.2\r\n  Procedure:   RemoteData\r\n"
                          "  Reserved:    0\r\n  Line:        77\r\n\r\nTIME"));
}

TEST_F(MemoryKit, AReportThatCannotBeKeptIsNotSent) {
  files_.SetContents(u"C:\\Host\\logs", "a file where the folder should be");
  EXPECT_FALSE(kit_.SendErrorReport(ErrorReport{}));
  EXPECT_THROW(kit_.LogError(u"l", u"p", RuntimeError(5, u"d"), 1), RuntimeError);
}

TEST(MemoryFileSystem, TakesTheNamesThatWindowsTakes) {
  headless::MemoryFileSystem files;
  const auto failure = [&](TextView path) { return FailureOf([&] { files.MakeEmptyFile(path); }); };
  for (const TextView path : {u"C:\\Host\\..\\a.txt", u"C:\\Host\\a ", u"C:\\Host\\a*"}) {
    EXPECT_EQ(failure(path), 75) << ToUtf8(path);
  }
  for (const TextView path : {u"", u"a.txt", u"C:\\Host\\no\\a.txt"}) {
    EXPECT_EQ(failure(path), 76) << ToUtf8(path);
  }
  files.MakeFolder(u"C:\\Host\\RCData");
  files.MakeEmptyFile(u"C:\\Host\\rcdata\\Gr\u00FC\u00DFe.txt");
  EXPECT_EQ(files.FileSize(u"C:/Host/RCDATA//GR\u00DC\u00DFE.TXT"), 0);
  files.RenameFile(u"C:\\Host\\rcdata\\gr\u00FC\u00DFe.txt", u"C:\\Host\\RCData\\B.bak");
  EXPECT_FALSE(files.FileExists(u"C:\\Host\\RCData\\Gr\u00FC\u00DFe.txt"));
  files.RenameFile(u"C:\\Host\\RCData\\B.bak", u"C:\\Host\\rcdata\\B.BAK");
  files.RemoveFile(u"C:\\Host\\RCData\\b.BAK");
  EXPECT_THROW(files.RemoveFile(u"C:\\Host\\RCData\\b.bak"), RuntimeError);
}

TEST(DiskStorage, ReplacesWholeFilesAndLeavesNothingBeside) {
  const ScratchFolder scratch;
  const fs::path& folder = scratch.path();
  DiskStorage storage(
      [&](TextView path) { return folder / ReplaceAll(path.substr(8), u"\\", u"/"); });

  EXPECT_EQ(storage.ReadWhole(kIniPath), std::nullopt);
  storage.Replace(kIniPath, std::string("a\0\r\n", 4));
  storage.Replace(kIniPath, "bb");
  storage.Append(kIniPath, "\n");
  EXPECT_EQ(storage.ReadWhole(kIniPath), "bb\n");
  EXPECT_EQ(std::distance(fs::directory_iterator(folder), fs::directory_iterator()), 1);
  fs::create_directory(folder / "folder");
  EXPECT_THROW(storage.Replace(u"C:\\Host\\folder", "x"), RuntimeError);
  EXPECT_THROW(storage.Replace(u"C:\\Host\\no\\a.txt", "x"), RuntimeError);
  EXPECT_THROW(storage.Append(u"C:\\Host\\no\\a.txt", "x"), RuntimeError);
  EXPECT_THROW(storage.ReadWhole(u"C:\\Host\\folder"), RuntimeError);
  // A neighbour that cannot be written stops the change before the file is touched.
  fs::create_directory(folder / "my.hsf.new~");
  EXPECT_THROW(storage.Replace(kIniPath, "y"), RuntimeError);
  EXPECT_FALSE(fs::exists(folder / "my.hsf.new~"));
  EXPECT_EQ(storage.ReadWhole(kIniPath), "bb\n");
}

}  // namespace
}  // namespace quill::host
