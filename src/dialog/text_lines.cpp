// Finding line ends in a buffer that is filled again and again.
#include "dialog/text_lines.h"

#include <algorithm>
#include <span>
#include <string>
#include <string_view>
#include <utility>

namespace quill {
namespace {

constexpr std::size_t kBufferSize = 65536;
constexpr char16_t kReturn = u'\r';
constexpr char16_t kFeed = u'\n';

}  // namespace

TextLines::TextLines(std::unique_ptr<ByteReader> file, const CodePage& code_page)
    : file_(std::move(file)), code_page_(code_page), buffer_(kBufferSize) {
  ReadMark();
}

void TextLines::ReadMark() {
  constexpr std::size_t kLongestMark = 3;
  while (end_ < kLongestMark && Fill()) {
  }
  const std::string_view begin(buffer_.data(), end_);
  if (begin.starts_with("\xEF\xBB\xBF")) {
    form_ = Form::kUtf8;
    at_ = 3;
  } else if (begin.starts_with("\xFF\xFE")) {
    form_ = Form::kLowByteFirst;
    at_ = 2;
  } else if (begin.starts_with("\xFE\xFF")) {
    form_ = Form::kHighByteFirst;
    at_ = 2;
  }
}

bool TextLines::Fill() {
  std::copy(buffer_.begin() + static_cast<std::ptrdiff_t>(at_),
            buffer_.begin() + static_cast<std::ptrdiff_t>(end_), buffer_.begin());
  end_ -= at_;
  at_ = 0;
  const std::size_t read = file_->Read(std::span(buffer_).subspan(end_));
  end_ += read;
  return read != 0;
}

char16_t TextLines::Unit() const noexcept {
  const auto byte = [this](std::size_t place) {
    return static_cast<std::uint8_t>(buffer_[at_ + place]);
  };
  switch (form_) {
    case Form::kLowByteFirst:
      return static_cast<char16_t>(byte(0) | byte(1) << 8);
    case Form::kHighByteFirst:
      return static_cast<char16_t>(byte(0) << 8 | byte(1));
    case Form::kUtf8:
      return byte(0);
    default:
      return code_page_.ToUnit(byte(0));
  }
}

bool TextLines::TakeUntilReturn(Text& line) {
  for (; HoldsUnit(); at_ += UnitSize()) {
    const char16_t unit = Unit();
    if (unit == kReturn) {
      at_ += UnitSize();
      return true;
    }
    line.push_back(unit);
  }
  return false;
}

bool TextLines::Next(Text& line) {
  const bool is_line = TakeLine(line);
  if (form_ == Form::kUtf8) line = FromUtf8(std::string(line.begin(), line.end()));
  return is_line;
}

bool TextLines::TakeLine(Text& line) {
  line.clear();
  while (!HoldsUnit() && Fill()) {
  }
  if (feed_belongs_to_end_ && HoldsUnit() && Unit() == kFeed) at_ += UnitSize();
  feed_belongs_to_end_ = false;

  bool anything = false;
  do {
    anything = anything || HoldsUnit();
    if (TakeUntilReturn(line)) {
      feed_belongs_to_end_ = true;
      return true;
    }
  } while (Fill());
  return anything;
}

}  // namespace quill
