// Reads the lines of a text file: its bytes become units, and the units lines.
#include "dialog/text_lines.h"

#include <span>
#include <string>
#include <string_view>
#include <utility>

namespace quill {

TextLines::TextLines(std::unique_ptr<ByteReader> file, const CodePage& code_page)
    : file_(std::move(file)), code_page_(code_page), buffer_(65536) {
  constexpr std::size_t kLongestMark = 3;
  // A reader may give fewer bytes than there are.
  for (std::size_t read = 1; end_ < kLongestMark && read != 0; end_ += read) {
    read = file_->Read(std::span(buffer_).subspan(end_));
  }
  const std::string_view begin(buffer_.data(), end_);
  if (begin.starts_with("\xEF\xBB\xBF")) form_ = Form::kUtf8;
  if (begin.starts_with("\xFF\xFE")) form_ = Form::kLowByteFirst;
  if (begin.starts_with("\xFE\xFF")) form_ = Form::kHighByteFirst;
  if (form_ != Form::kBytes) at_ = form_ == Form::kUtf8 ? 3 : 2;
}

int TextLines::NextByte() {
  if (at_ == end_) {
    at_ = end_ = 0;
    end_ = file_->Read(buffer_);
  }
  return at_ == end_ ? -1 : static_cast<std::uint8_t>(buffer_[at_++]);
}

int TextLines::NextUnit() {
  const int first = NextByte();
  if (first < 0 || form_ == Form::kUtf8) return first;
  if (form_ == Form::kBytes) return code_page_.ToUnit(static_cast<std::uint8_t>(first));
  const int second = NextByte();
  if (second < 0) return second;  // half a unit ends the file and is dropped
  return form_ == Form::kLowByteFirst ? first | second << 8 : first << 8 | second;
}

bool TextLines::Next(Text& line) {
  line.clear();
  int unit = NextUnit();
  if (feed_belongs_to_end_ && unit == u'\n') unit = NextUnit();
  if (unit < 0) return false;
  for (; unit >= 0 && unit != u'\r'; unit = NextUnit()) {
    line.push_back(static_cast<char16_t>(unit));
  }
  feed_belongs_to_end_ = unit == u'\r';
  // Only whole lines are converted: a character may lie across the end of the buffer.
  if (form_ == Form::kUtf8) line = FromUtf8(std::string(line.begin(), line.end()));
  return true;
}

}  // namespace quill
