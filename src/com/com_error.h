// Between automation's result codes and run-time errors, and the guard that every call from outside
// passes.
#pragma once

#include <new>

#include "com/automation.h"
#include "com/identifiers.h"
#include "support/runtime_error.h"

namespace quill::com {

// The failure that a result code stands for: the run-time number that automation clients know it by
// (0x800A0000 + n is n), else the code itself, with the system's wording.
[[nodiscard]] RuntimeError ErrorOf(HRESULT result);

// Throws ErrorOf a result code that is a failure.
inline void ThrowIfFailed(HRESULT result) {
  if (FAILED(result)) throw ErrorOf(result);
}

// The failure that a called member raised. Reads the details, completes them when they are
// deferred, and frees their texts.
[[nodiscard]] RuntimeError ErrorOf(EXCEPINFO& raised);

// The code under which an automation client sees the failure.
[[nodiscard]] HRESULT ResultOf(const RuntimeError& error) noexcept;

// Leaves the failure's description for the caller of an early-bound member.
void LeaveErrorInfo(const RuntimeError& error, REFIID interface_id) noexcept;

// Fills `raised` (when given) for the caller of a late-bound member; returns DISP_E_EXCEPTION.
// `source` is the programmatic name of what failed.
[[nodiscard]] HRESULT LeaveExcepInfo(const RuntimeError& error, EXCEPINFO* raised,
                                     TextView source = kProgId) noexcept;

// Runs `body`, which returns a result code. Nothing ever leaves it but a result code.
template <class Body>
[[nodiscard]] HRESULT Guarded(REFIID interface_id, Body&& body) noexcept {
  try {
    return body();
  } catch (const std::bad_alloc&) {
    (void)::SetErrorInfo(0, nullptr);  // of an earlier failure
    return E_OUTOFMEMORY;
  } catch (...) {
    try {
      const RuntimeError error = CurrentRuntimeError();
      LeaveErrorInfo(error, interface_id);
      return ResultOf(error);
    } catch (...) {
      return E_OUTOFMEMORY;
    }
  }
}

}  // namespace quill::com
