// Replies of the remote side: their fields, which command they answer, and what they do.
#pragma once

#include <array>

#include "dialog/session.h"
#include "support/text.h"

namespace quill {

// The fields of a game-settings reply, as views into the payload that they came in.
class ReplyFields {
 public:
  // Further fields of a payload are ignored.
  static constexpr int kMostFields = 33;

  ReplyFields() = default;
  ReplyFields(const ReplyFields&) = delete;
  ReplyFields& operator=(const ReplyFields&) = delete;

  // Takes a payload's fields, joined by "_", in place of those it held.
  void Assign(Text payload);

  // 0 before the first Assign, at most kMostFields.
  [[nodiscard]] int Count() const noexcept { return count_; }
  // 0-based; kSubscriptOutOfRange when there is no such field.
  [[nodiscard]] TextView operator[](int number) const;
  // The same, but empty when there is no such field.
  [[nodiscard]] TextView ValueOrEmpty(int number) const noexcept;

  // Puts `value`, which must outlive this, in the place of a field that is not a number.
  void RepairNumber(int number, TextView value);

 private:
  Text payload_;
  std::array<TextView, kMostFields> fields_;
  int count_ = 0;
};

// Handles a reply to PendingCommand, which keeps its value; drops it when nothing is awaited.
// `data` is copied first: the host may change its own meanwhile. What was applied before a failing
// step stays. Trapped as "RemoteData".
//
// Game settings fill the dialog, created hidden when there is none, its list of mods and the server
// map list. A start's answer of 0 is told to the operator; any number unloads the dialog, if there
// is one.
void TakeReply(Session& session, TextView data);

}  // namespace quill
