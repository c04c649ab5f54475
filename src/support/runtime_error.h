// The one exception type for run-time failures, and the numbers it carries.
#pragma once

#include <cstdint>
#include <exception>
#include <memory>
#include <source_location>
#include <string>

#include "support/text.h"

namespace quill {

// The run-time error numbers that automation clients know.
enum class ErrorNumber : std::int32_t {
  kNone = 0,
  kInvalidProcedureCall = 5,
  kOverflow = 6,
  kOutOfMemory = 7,
  kSubscriptOutOfRange = 9,
  kTypeMismatch = 13,
  kInternalError = 51,
  kFileNotFound = 53,
  kDeviceIoError = 57,
  kFileAlreadyExists = 58,
  kPermissionDenied = 70,
  kPathFileAccessError = 75,
  kPathNotFound = 76,
  kObjectNotSet = 91,
  kInvalidPropertyValue = 380,
  kTextNotInList = 383,
  kFormAlreadyShown = 400,
  kObjectRequired = 424,
  kCannotCreateObject = 429,
  kMemberNotFound = 438,
  kAutomationError = 440,
  kArgumentNotOptional = 449,
  kWrongArgumentCount = 450,
  kInvalidPicture = 481,
  kControlNotFound = 730,
};

// The usual wording for a number, for example "Type mismatch"; "Application-defined or
// object-defined error" for a number that has none.
[[nodiscard]] TextView DefaultDescription(std::int32_t number) noexcept;

// A run-time failure: number, description, and the place in this code where it was raised. Copying
// throws nothing, and neither does making one with the usual wording, so that being out of
// memory can be told too.
class RuntimeError : public std::exception {
 public:
  // With the usual wording for `number`.
  explicit RuntimeError(ErrorNumber number, const std::source_location& raised_at =
                                                std::source_location::current()) noexcept;
  RuntimeError(ErrorNumber number, TextView description,
               const std::source_location& raised_at = std::source_location::current());
  // For numbers that come from outside (a host object's own error).
  RuntimeError(std::int32_t number, TextView description,
               const std::source_location& raised_at = std::source_location::current());
  RuntimeError(const RuntimeError& other) noexcept;
  RuntimeError& operator=(const RuntimeError& other) noexcept;
  ~RuntimeError() override;

  [[nodiscard]] std::int32_t number() const noexcept { return number_; }
  [[nodiscard]] bool Is(ErrorNumber number) const noexcept {
    return number_ == static_cast<std::int32_t>(number);
  }
  // Valid as long as this error or a copy of it lives and is not appended to.
  [[nodiscard]] TextView description() const noexcept;
  // Leaves the error as it was when memory is short.
  void AppendToDescription(TextView more);
  [[nodiscard]] const std::source_location& raised_at() const noexcept { return raised_at_; }

  // "number: description" in UTF-8, for logs and debuggers.
  [[nodiscard]] const char* what() const noexcept override;

 private:
  std::int32_t number_;
  std::shared_ptr<const Text> description_;  // null: the usual wording
  std::source_location raised_at_;
  mutable std::shared_ptr<const std::string> what_;  // made when first asked for
};

// The exception being handled, as a RuntimeError: itself, kOutOfMemory for std::bad_alloc and
// std::length_error, kInternalError with its text for anything else. For catch blocks only.
[[nodiscard]] RuntimeError CurrentRuntimeError() noexcept;

}  // namespace quill
