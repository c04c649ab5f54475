// The wordings of the numbers, and what any exception is as a run-time error.
#include "support/runtime_error.h"

#include <new>
#include <stdexcept>

namespace quill {
namespace {

struct Wording {
  ErrorNumber number;
  TextView text;
};

constexpr Wording kWordings[] = {
    {ErrorNumber::kInvalidProcedureCall, u"Invalid procedure call or argument"},
    {ErrorNumber::kOverflow, u"Overflow"},
    {ErrorNumber::kOutOfMemory, u"Out of memory"},
    {ErrorNumber::kSubscriptOutOfRange, u"Subscript out of range"},
    {ErrorNumber::kTypeMismatch, u"Type mismatch"},
    {ErrorNumber::kInternalError, u"Internal error"},
    {ErrorNumber::kFileNotFound, u"File not found"},
    {ErrorNumber::kDeviceIoError, u"Device I/O error"},
    {ErrorNumber::kFileAlreadyExists, u"File already exists"},
    {ErrorNumber::kPermissionDenied, u"Permission denied"},
    {ErrorNumber::kPathFileAccessError, u"Path/File access error"},
    {ErrorNumber::kPathNotFound, u"Path not found"},
    {ErrorNumber::kObjectNotSet, u"Object variable not set"},
    {ErrorNumber::kInvalidPropertyValue, u"Invalid property value"},
    {ErrorNumber::kTextNotInList, u"The text is not in the list"},
    {ErrorNumber::kFormAlreadyShown, u"Form already displayed; it cannot be shown modally"},
    {ErrorNumber::kObjectRequired, u"Object required"},
    {ErrorNumber::kCannotCreateObject, u"Component cannot create object"},
    {ErrorNumber::kMemberNotFound, u"Object doesn't support this property or method"},
    {ErrorNumber::kAutomationError, u"Automation error"},
    {ErrorNumber::kArgumentNotOptional, u"Argument not optional"},
    {ErrorNumber::kWrongArgumentCount, u"Wrong number of arguments"},
    {ErrorNumber::kInvalidPicture, u"Invalid picture"},
    {ErrorNumber::kControlNotFound, u"Control not found"},
};

}  // namespace

TextView DefaultDescription(std::int32_t number) noexcept {
  for (const Wording& wording : kWordings) {
    if (static_cast<std::int32_t>(wording.number) == number) return wording.text;
  }
  return u"Application-defined or object-defined error";
}

RuntimeError::RuntimeError(ErrorNumber number, const std::source_location& raised_at) noexcept
    : number_(static_cast<std::int32_t>(number)), raised_at_(raised_at) {}

RuntimeError::RuntimeError(ErrorNumber number, TextView description,
                           const std::source_location& raised_at)
    : RuntimeError(static_cast<std::int32_t>(number), description, raised_at) {}

RuntimeError::RuntimeError(std::int32_t number, TextView description,
                           const std::source_location& raised_at)
    : number_(number),
      description_(std::make_shared<const Text>(description)),
      raised_at_(raised_at) {}

// Out of line: inline their code would be repeated in every place that raises an error.
RuntimeError::RuntimeError(const RuntimeError& other) noexcept = default;
RuntimeError& RuntimeError::operator=(const RuntimeError& other) noexcept = default;
RuntimeError::~RuntimeError() = default;

TextView RuntimeError::description() const noexcept {
  return description_ ? TextView(*description_) : DefaultDescription(number_);
}

void RuntimeError::AppendToDescription(TextView more) {
  description_ = std::make_shared<const Text>(Concat({description(), more}));
  what_.reset();
}

const char* RuntimeError::what() const noexcept {
  try {
    if (!what_) {
      what_ = std::make_shared<const std::string>(
          ToUtf8(Concat({Decimal(number_), u": ", description()})));
    }
    return what_->c_str();
  } catch (...) {
    // Without memory for the text.
    return "run-time error";
  }
}

RuntimeError CurrentRuntimeError() noexcept {
  try {
    throw;
  } catch (const RuntimeError& error) {
    return error;
  } catch (const std::bad_alloc&) {
    return RuntimeError(ErrorNumber::kOutOfMemory);
  } catch (const std::length_error&) {
    // A text or list longer than any can be: no memory would do for it either.
    return RuntimeError(ErrorNumber::kOutOfMemory);
  } catch (const std::exception& error) {
    try {
      return {ErrorNumber::kInternalError, FromUtf8(error.what())};
    } catch (...) {
    }
  } catch (...) {
  }
  return RuntimeError(ErrorNumber::kInternalError);
}

}  // namespace quill
