// Splitting a reply into its fields.
#include "remote/reply_fields.h"

#include <utility>

#include "support/number_text.h"
#include "support/runtime_error.h"
#include "support/text_pieces.h"

namespace quill {

void ReplyFields::Assign(Text payload) {
  payload_ = std::move(payload);
  count_ = 0;
  PieceCursor pieces(payload_, u"_");
  while (count_ < kMostFields && pieces.Next(fields_[static_cast<std::size_t>(count_)])) ++count_;
}

TextView ReplyFields::operator[](int number) const {
  if (number < 0 || number >= count_) {
    throw RuntimeError(ErrorNumber::kSubscriptOutOfRange,
                       Concat({u"Subscript out of range: the reply has no field ", Decimal(number),
                               u", only ", Decimal(count_)}));
  }
  return fields_[static_cast<std::size_t>(number)];
}

TextView ReplyFields::ValueOrEmpty(int number) const noexcept {
  return number < 0 || number >= count_ ? TextView() : fields_[static_cast<std::size_t>(number)];
}

void ReplyFields::RepairNumber(int number, TextView value) {
  if (!IsNumber((*this)[number])) fields_[static_cast<std::size_t>(number)] = value;
}

}  // namespace quill
