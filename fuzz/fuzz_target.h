// What every fuzzer is made of: its one function, the input as text, and claims that end the run
// where they do not hold.
#pragma once

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <source_location>
#include <string_view>

#include "host/kit/text_file.h"
#include "support/runtime_error.h"
#include "support/text.h"

namespace quill::fuzz {

// Takes one input; called again and again.
void TakeInput(std::string_view input);

// Readable inputs are UTF-8 or Windows-1252; behind a byte-order mark they are any 16-bit units.
inline Text TextOf(std::string_view input) {
  return host::DecodeTextFile(input).text;
}

inline void Claim(bool holds, const std::source_location& at = std::source_location::current()) {
  if (holds) return;
  std::fprintf(stderr, "%s:%u: this does not hold\n", at.file_name(), at.line());
  std::abort();
}

// The result of `call`, or nothing when it fails as calls may fail. Anything else that it throws
// ends the run.
template <class Call>
auto Attempt(Call&& call) -> std::optional<decltype(call())> {
  try {
    return call();
  } catch (const RuntimeError&) {
    return std::nullopt;
  }
}

}  // namespace quill::fuzz
