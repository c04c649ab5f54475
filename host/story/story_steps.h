// The lines that a story can hold, as one table: what each looks like, what it is, and what it
// does.
#pragma once

#include <cstdint>
#include <span>

#include "host/story/story.h"

namespace quill::host {

class StoryPlayer;

enum class StepKind : std::uint8_t {
  kTitle,
  kEnd,          // of a block
  kSetUp,        // also a call of the host
  kGesture,      // of the operator; "cannot" may stand before it
  kBlock,        // takes steps up to "end"
  kExpectation,  // changes nothing
};

struct StepForm {
  // Words that must stand so, and in capitals what is filled in:
  //   NAME    a word of letters, digits and "_" without quotes
  //   NUMBER  a whole number
  //   TEXT    any word, or a text in quotes
  //   PATTERN the same; may hold {line}
  //   TEXTS   one or more of them, to the end of the line
  //   BUTTON  left, right or middle; may be left out at the end of the line
  //   HELD    held; may be left out at the end of the line
  //   ROWS    row numbers and ranges such as 3-7, or "none", or "all", to the end of the line
  //   IS      "=", "!=", "contains" or "lacks"
  //   LINES   at least one line below that begins with "|"; PATTERN-LINES may hold {line}
  TextView pattern;
  StepKind kind = StepKind::kSetUp;
  // Null for a title and an end. The step's texts have their marks for the root resolved. Throws
  // StoryFailure, or what the stage throws.
  void (*play)(StoryPlayer& player, const Step& step) = nullptr;
  std::int64_t (*effort)(const Words& words) = nullptr;  // of a gesture; null: one key or click
};

// The first form that fits a line counts.
[[nodiscard]] std::span<const StepForm> StepForms() noexcept;

}  // namespace quill::host
