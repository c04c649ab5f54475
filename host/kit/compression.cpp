// Compression with zlib.
#include "host/kit/compression.h"

#include <zlib.h>

#include <algorithm>
#include <limits>
#include <string>
#include <vector>

#include "host/kit/text_file.h"
#include "support/base64.h"
#include "support/runtime_error.h"

namespace quill::host {
namespace {

[[noreturn]] void Fail(TextView what) {
  throw RuntimeError(ErrorNumber::kInvalidProcedureCall,
                     Concat({u"The compressed text cannot be unpacked: ", what}));
}

[[noreturn]] void FailLength(TextView found, std::int32_t length) {
  Fail(Concat({u"it holds ", found, u" characters, not ", Decimal(length)}));
}

// A zlib stream being unpacked; ends zlib's own state however it is left.
class Inflater {
 public:
  explicit Inflater(std::vector<std::uint8_t>& input) {
    stream_.next_in = input.data();
    stream_.avail_in = static_cast<uInt>(input.size());
    if (inflateInit(&stream_) != Z_OK) throw RuntimeError(ErrorNumber::kOutOfMemory);
  }
  ~Inflater() { inflateEnd(&stream_); }
  Inflater(const Inflater&) = delete;
  Inflater& operator=(const Inflater&) = delete;

  // Unpacks up to `limit` bytes and one more, if there is one.
  std::string Run(std::size_t limit) {
    std::string output;
    int result = Z_OK;
    while (result == Z_OK && output.size() <= limit) {
      const std::size_t held = output.size();
      const std::size_t room = std::min(limit + 1 - held, std::max<std::size_t>(held, 4096));
      output.resize(held + room);
      stream_.next_out = reinterpret_cast<Bytef*>(output.data()) + held;
      stream_.avail_out = static_cast<uInt>(room);
      result = inflate(&stream_, Z_NO_FLUSH);
      output.resize(output.size() - stream_.avail_out);
    }
    if (result == Z_MEM_ERROR) throw RuntimeError(ErrorNumber::kOutOfMemory);
    if (result == Z_BUF_ERROR) Fail(u"its end is missing");
    if (result != Z_OK && result != Z_STREAM_END) Fail(u"it is damaged");
    if (result == Z_STREAM_END && stream_.avail_in != 0) Fail(u"something follows its end");
    return output;
  }

 private:
  z_stream stream_{};
};

}  // namespace

Text CompressText(TextView text) {
  if (text.size() > static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max()) / 4) {
    throw RuntimeError(ErrorNumber::kOverflow);
  }
  const std::string bytes = ToUtf16Bytes(text);
  uLongf size = compressBound(static_cast<uLong>(bytes.size()));
  std::vector<std::uint8_t> packed(size);
  if (compress(packed.data(), &size, reinterpret_cast<const Bytef*>(bytes.data()),
               static_cast<uLong>(bytes.size())) != Z_OK) {
    throw RuntimeError(ErrorNumber::kOutOfMemory);
  }
  packed.resize(size);
  return EncodeBase64(packed);
}

Text DecompressText(TextView compressed, std::int32_t length) {
  if (length < 0) Fail(Concat({u"its length cannot be ", Decimal(length)}));
  std::vector<std::uint8_t> packed = DecodeBase64(compressed);
  if (packed.empty()) Fail(u"it is empty");
  if (packed.size() > std::numeric_limits<std::int32_t>::max()) Fail(u"it is too long");

  const std::size_t wanted = 2 * static_cast<std::size_t>(length);
  const std::string bytes = Inflater(packed).Run(wanted);
  if (bytes.size() > wanted) FailLength(u"more", length);
  if (bytes.size() < wanted) {
    FailLength(Decimal(static_cast<std::int64_t>(bytes.size() / 2)), length);
  }
  return FromUtf16Bytes(bytes);
}

}  // namespace quill::host
