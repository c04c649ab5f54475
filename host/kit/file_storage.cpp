// Reading, replacing and appending on a disk with standard streams.
#include "host/kit/file_storage.h"

#include <fstream>
#include <ios>
#include <system_error>

#include "support/runtime_error.h"

namespace quill::host {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void Fail(ErrorNumber number, TextView path) {
  throw RuntimeError(number,
                     Concat({DefaultDescription(static_cast<std::int32_t>(number)), u": ", path}));
}

void Write(const fs::path& target, std::ios::openmode mode, std::string_view bytes, TextView path) {
  std::error_code error;
  if (!fs::is_directory(target.parent_path(), error)) Fail(ErrorNumber::kPathNotFound, path);
  std::ofstream stream(target, std::ios::binary | mode);
  if (!stream) Fail(ErrorNumber::kPathFileAccessError, path);
  stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  stream.close();
  if (!stream) Fail(ErrorNumber::kDeviceIoError, path);
}

}  // namespace

std::optional<std::string> DiskStorage::ReadWhole(TextView path) {
  const fs::path source = real_path_of_(path);
  std::error_code error;
  const fs::file_status status = fs::status(source, error);
  if (!fs::exists(status)) return std::nullopt;
  if (!fs::is_regular_file(status)) Fail(ErrorNumber::kPathFileAccessError, path);

  std::ifstream stream(source, std::ios::binary);
  if (!stream) Fail(ErrorNumber::kPermissionDenied, path);
  std::string bytes;
  char buffer[1 << 16];
  while (stream.read(buffer, sizeof buffer), stream.gcount() > 0) {
    bytes.append(buffer, static_cast<std::size_t>(stream.gcount()));
  }
  if (stream.bad()) Fail(ErrorNumber::kDeviceIoError, path);
  return bytes;
}

void DiskStorage::Replace(TextView path, std::string_view bytes) {
  const fs::path target = real_path_of_(path);
  std::error_code error;
  if (fs::is_directory(target, error)) Fail(ErrorNumber::kPathFileAccessError, path);
  fs::path neighbour = target;
  neighbour += ".new~";
  try {
    Write(neighbour, std::ios::trunc, bytes, path);
    fs::rename(neighbour, target, error);
    if (error) {
      throw RuntimeError(ErrorNumber::kPathFileAccessError,
                         Concat({FromUtf8(error.message()), u": ", path}));
    }
  } catch (...) {
    fs::remove(neighbour, error);
    throw;
  }
}

void DiskStorage::Append(TextView path, std::string_view bytes) {
  Write(real_path_of_(path), std::ios::app, bytes, path);
}

void DiskStorage::Remove(TextView path) {
  const fs::path target = real_path_of_(path);
  std::error_code error;
  if (fs::is_directory(target, error)) Fail(ErrorNumber::kPathFileAccessError, path);
  fs::remove(target, error);
  if (error) Fail(ErrorNumber::kPermissionDenied, path);
}

}  // namespace quill::host
