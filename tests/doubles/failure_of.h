// How an action fails.
#pragma once

#include <cstdint>

#include "support/runtime_error.h"

namespace quill {

// Number 0 when it does not fail.
template <class Action>
RuntimeError ErrorOf(const Action& action) {
  try {
    action();
  } catch (const RuntimeError& error) {
    return error;
  }
  return RuntimeError(ErrorNumber::kNone);
}

template <class Action>
std::int32_t FailureOf(const Action& action) {
  return ErrorOf(action).number();
}

}  // namespace quill
