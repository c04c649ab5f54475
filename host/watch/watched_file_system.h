// A file system that passes everything on to another one, counts the readers that are open, and
// fails where it is told to.
#pragma once

#include <functional>
#include <memory>
#include <utility>

#include "headless/spared_allocations.h"
#include "support/file_system.h"

namespace quill::host {

class WatchedFileSystem final : public FileSystem {
 public:
  explicit WatchedFileSystem(FileSystem& files) noexcept : files_(files) {}

  // Runs before every operation, for example with "RenameFile" and the path; throws to make it
  // fail. Reading from an open file is "Read".
  std::function<void(TextView operation, TextView path)> before;
  [[nodiscard]] int open_readers() const noexcept { return open_readers_; }

  bool FolderExists(TextView path) override {
    return Watched(u"FolderExists", path, [&] { return files_.FolderExists(path); });
  }
  void MakeFolder(TextView path) override {
    Watched(u"MakeFolder", path, [&] { files_.MakeFolder(path); });
  }
  bool FileExists(TextView path) override {
    return Watched(u"FileExists", path, [&] { return files_.FileExists(path); });
  }
  std::int64_t FileSize(TextView path) override {
    return Watched(u"FileSize", path, [&] { return files_.FileSize(path); });
  }
  void RemoveFile(TextView path) override {
    Watched(u"RemoveFile", path, [&] { files_.RemoveFile(path); });
  }
  void RenameFile(TextView from, TextView to) override {
    Watched(u"RenameFile", from, [&] { files_.RenameFile(from, to); });
  }
  void MakeEmptyFile(TextView path) override {
    Watched(u"MakeEmptyFile", path, [&] { files_.MakeEmptyFile(path); });
  }
  std::unique_ptr<ByteReader> OpenForReading(TextView path) override {
    return Watched(u"OpenForReading", path, [&] {
      return std::make_unique<Reader>(*this, path, files_.OpenForReading(path));
    });
  }

 private:
  class Reader final : public ByteReader {
   public:
    Reader(WatchedFileSystem& owner, TextView path, std::unique_ptr<ByteReader> reader)
        : owner_(owner), path_(path), reader_(std::move(reader)) {
      ++owner_.open_readers_;
    }
    ~Reader() override { --owner_.open_readers_; }
    std::size_t Read(std::span<char> buffer) override {
      return owner_.Watched(u"Read", path_, [&] { return reader_->Read(buffer); });
    }

   private:
    WatchedFileSystem& owner_;
    Text path_;
    std::unique_ptr<ByteReader> reader_;
  };

  template <class Call>
  auto Watched(TextView operation, TextView path, const Call& call) const -> decltype(call()) {
    const headless::SparedAllocations spared;
    if (before) before(operation, path);
    return call();
  }

  FileSystem& files_;
  int open_readers_ = 0;
};

}  // namespace quill::host
