// The machine's files, paths, code pages and pictures behind the seams.
#include <gtest/gtest.h>

#include "support/runtime_error.h"
#include "tests/win32/native_bench.h"
#include "win32/boxes.h"
#include "win32/system_services.h"
#include "win32/win32_file_system.h"

namespace quill {
namespace {

std::int32_t Number(ErrorNumber number) {
  return static_cast<std::int32_t>(number);
}

std::string ReadAll(FileSystem& files, const Text& path) {
  const auto reader = files.OpenForReading(path);
  std::string content;
  char buffer[3];
  while (const std::size_t read = reader->Read(buffer)) content.append(buffer, read);
  return content;
}

TEST(Win32FileSystem, DoesWhatItsSeamPromises) {
  const ScratchFolder folder;
  win32::Win32FileSystem files;
  const Text base = folder.text();
  folder.Put("a.txt", "hello, world");
  EXPECT_TRUE(files.FolderExists(base));
  EXPECT_FALSE(files.FileExists(base));
  EXPECT_TRUE(files.FileExists(base + u"\\A.TXT"));
  EXPECT_EQ(files.FileSize(base + u"\\a.txt"), 12);
  EXPECT_EQ(ReadAll(files, base + u"\\a.txt"), "hello, world");

  folder.Put("b.txt", "old");
  files.RenameFile(base + u"\\a.txt", base + u"\\b.txt");
  EXPECT_EQ(ReadAll(files, base + u"\\b.txt"), "hello, world");
  {
    const auto reading = files.OpenForReading(base + u"\\b.txt");
    files.MakeEmptyFile(base + u"\\b.txt");  // by another program, say
    const Text path = base + u"\\b.txt";
    const win32::Owned<HANDLE> writing(CreateFileW(
        win32::Wide(path), GENERIC_WRITE, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
    EXPECT_EQ(FailureOf([&] { files.MakeEmptyFile(base + u"\\b.txt"); }),
              Number(ErrorNumber::kPermissionDenied));
  }
  EXPECT_EQ(files.FileSize(base + u"\\b.txt"), 0);
  files.RemoveFile(base + u"\\b.txt");

  EXPECT_EQ(FailureOf([&] { files.RemoveFile(base + u"\\b.txt"); }),
            Number(ErrorNumber::kFileNotFound));
  EXPECT_EQ(FailureOf([&] { static_cast<void>(files.OpenForReading(base + u"\\no\\b.txt")); }),
            Number(ErrorNumber::kPathNotFound));
  EXPECT_EQ(FailureOf([&] { files.MakeFolder(base + u"\\no\\sub"); }),
            Number(ErrorNumber::kPathNotFound));
  EXPECT_EQ(FailureOf([&] { files.MakeFolder(base); }), Number(ErrorNumber::kPathFileAccessError));

  // A zero unit must not make it another file's path.
  folder.Put("c.txt", "kept");
  const Text cut = base + u"\\c.txt" + Text(1, u'\0') + u".bak";
  EXPECT_FALSE(files.FileExists(cut));
  EXPECT_EQ(FailureOf([&] { files.RemoveFile(cut); }), Number(ErrorNumber::kPathNotFound));
  EXPECT_TRUE(files.FileExists(base + u"\\c.txt"));
}

TEST(Win32FileSystem, PathsMayBeLong) {
  const ScratchFolder folder;
  win32::Win32FileSystem files;
  Text path = folder.text();
  for (int i = 0; i < 8; ++i) {
    path += u"\\" + Text(60, static_cast<char16_t>(u'a' + i));
    files.MakeFolder(path);
  }
  const Text file = path + u"\\list.mpl";
  files.MakeEmptyFile(file);
  EXPECT_TRUE(files.FileExists(file));
  EXPECT_EQ(ReadAll(files, file), "");
  files.RemoveFile(file);
  EXPECT_FALSE(files.FileExists(file));
  for (; path != folder.text(); path.resize(path.rfind(u'\\'))) {
    EXPECT_TRUE(RemoveDirectoryW(win32::NativePath(path).c_str()));
  }
}

TEST(Win32FileSystem, LongPathsOfOtherMachinesKeepTheirShare) {
  const Text name(250, u'x');
  EXPECT_EQ(win32::NativePath(u"\\\\machine\\share\\" + name),
            L"\\\\?\\UNC\\machine\\share\\" + std::wstring(250, L'x'));
}

TEST(Win32ProcessPaths, TellTheExecutableAsFarAsTheBufferGoes) {
  win32::Win32ProcessPaths paths;
  const Text whole = paths.ExecutablePath(260);
  EXPECT_TRUE(whole.ends_with(u".exe")) << ToUtf8(whole);
  EXPECT_EQ(HostFolder(paths), whole.substr(0, whole.rfind(u'\\')));
  EXPECT_EQ(paths.PluginFolder(), HostFolder(paths)) << "here the code is in the executable";
  EXPECT_TRUE(whole.starts_with(paths.ExecutablePath(10)));
}

TEST(SystemCodePage, IsTheMachinesOwnWhenEachCharacterHasOneByte) {
  const CodePage greek = win32::CodePageOfNumber(1253);
  EXPECT_EQ(greek.ToUnit(0xE1), u'\u03B1');
  EXPECT_EQ(greek.ToByte(u'\u03B1'), 0xE1);
  const CodePage utf8 = win32::CodePageOfNumber(65001);
  EXPECT_EQ(utf8.ToUnit(0x80), u'\u20AC');
  EXPECT_EQ(win32::CodePageOfNumber(932).ToUnit(0x80), u'\u20AC');
}

TEST(NativeFileDialog, ItsBufferHoldsOnePathOrAFolderAndNames) {
  using Paths = std::vector<Text>;
  EXPECT_EQ(win32::PathsIn(std::wstring_view(L"C:\\a\\b.hsf\0\0junk", 16)), Paths{u"C:\\a\\b.hsf"});
  EXPECT_EQ(win32::PathsIn(std::wstring_view(L"C:\\\0b.hsf\0D:\\c.hsf\0\0", 20)),
            (Paths{u"C:\\b.hsf", u"D:\\c.hsf"}));
  EXPECT_EQ(win32::PathsIn(std::wstring_view(L"\0\0", 2)), Paths{});
  EXPECT_EQ(win32::PathsIn(std::wstring_view(L"no end", 6)), Paths{u"no end"});
}

TEST(Pictures, OnlyPicturesAreRead) {
  NativeBench bench;
  const auto read = [&](const char* name) {
    return FailureOf([&] {
      static_cast<void>(bench.toolkit->ReadPicture(bench.root.text() + u"\\" + FromUtf8(name)));
    });
  };
  bench.root.Put("empty.gif", "");
  bench.root.Put("cut.gif", "GIF89a");
  bench.root.Put("text.gif", "no picture at all, but some text that is long enough to be read");
  EXPECT_EQ(read("none.gif"), Number(ErrorNumber::kFileNotFound));
  EXPECT_EQ(read("none/none.gif"), Number(ErrorNumber::kPathNotFound));
  EXPECT_EQ(read("empty.gif"), Number(ErrorNumber::kInvalidPicture));
  EXPECT_EQ(read("cut.gif"), Number(ErrorNumber::kInvalidPicture));
  EXPECT_EQ(read("text.gif"), Number(ErrorNumber::kInvalidPicture));
  EXPECT_EQ(read("imgs/butup.gif"), 0);

  const Text path = bench.root.text() + u"\\imgs\\butup.gif";
  const auto first = bench.toolkit->ReadPicture(path);
  EXPECT_EQ(bench.toolkit->ReadPicture(path), first) << "an unchanged file is not read again";
  EXPECT_EQ(first->path(), path);
  Sleep(20);  // longer than the steps of a file's time
  bench.root.Put("imgs/butup.gif",
                 std::string(static_cast<std::size_t>(bench.files.FileSize(path)), '?'));
  EXPECT_EQ(read("imgs/butup.gif"), Number(ErrorNumber::kInvalidPicture));
}

}  // namespace
}  // namespace quill
