// A start payload looked into from outside, without any judgement of what it says.
#pragma once

#include <vector>

#include "support/text.h"

namespace quill::host {

// Everything fails with kInvalidProcedureCall and says what is missing.
class SentPayload {
 public:
  explicit SentPayload(Text payload) : payload_(std::move(payload)) {}

  [[nodiscard]] const Text& whole() const noexcept { return payload_; }
  [[nodiscard]] int FieldCount() const;
  // As it stands. Field 25 is the mod alone, without the "|" and the maps behind it.
  [[nodiscard]] Text Field(int number) const;
  [[nodiscard]] Text FieldText(int number) const;  // decoded from Base64
  [[nodiscard]] int MapCount() const;
  // "Road Rage <DMK_01A.BMS> 0 False": name and file decoded, code and flag as they stand.
  [[nodiscard]] Text Map(int index) const;

 private:
  [[nodiscard]] std::vector<TextView> Fields() const;
  [[nodiscard]] std::vector<TextView> Maps() const;

  Text payload_;
};

// The payload in a start request whose text begins with `envelope`. Fails when it begins
// otherwise or holds no frame that can be unpacked behind it.
[[nodiscard]] Text PayloadBehind(TextView envelope, TextView request);

}  // namespace quill::host
