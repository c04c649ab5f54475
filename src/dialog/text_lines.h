// A text file of bytes as a sequence of lines, read piece by piece.
//
// A carriage return ends a line, and a line feed right behind it belongs to it; a lone line feed is
// part of its line. A last line needs no end. Bytes are characters of the code page, unless the
// file begins with a byte-order mark: behind it, it is read as UTF-8 or UTF-16. Bytes that are no
// UTF-8 become the replacement character.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "support/code_page.h"
#include "support/file_system.h"
#include "support/text.h"

namespace quill {

// Closes the file when it goes. `code_page` must outlive it.
class TextLines {
 public:
  TextLines(std::unique_ptr<ByteReader> file, const CodePage& code_page);

  // Gives the next line; false at the end of the file. Fails as ByteReader::Read does.
  bool Next(Text& line);

 private:
  enum class Form : std::uint8_t { kBytes, kUtf8, kLowByteFirst, kHighByteFirst };

  // Both are -1 at the end of the file; of UTF-8 each byte is a unit.
  int NextByte();
  int NextUnit();

  std::unique_ptr<ByteReader> file_;
  const CodePage& code_page_;
  std::vector<char> buffer_;
  std::size_t at_ = 0;   // the next byte in the buffer
  std::size_t end_ = 0;  // behind the last one
  Form form_ = Form::kBytes;
  bool feed_belongs_to_end_ = false;
};

}  // namespace quill
