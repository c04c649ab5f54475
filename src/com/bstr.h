// Automation strings: owned, and as views. A null string is an empty one.
#pragma once

#include <utility>

#include "com/automation.h"
#include "support/runtime_error.h"
#include "support/text.h"

namespace quill::com {

static_assert(sizeof(wchar_t) == sizeof(char16_t));

// The units of `text`, zeros included; valid as long as the string is.
[[nodiscard]] inline TextView ViewOf(BSTR text) noexcept {
  return text == nullptr ? TextView()
                         : TextView(reinterpret_cast<const char16_t*>(text), ::SysStringLen(text));
}

// A text that ends with a zero, for platform calls. `text` must outlive the result.
[[nodiscard]] inline const wchar_t* WideOf(const Text& text) noexcept {
  return reinterpret_cast<const wchar_t*>(text.c_str());
}

// A new string that the caller frees. Fails with kOutOfMemory.
[[nodiscard]] inline BSTR NewBstr(TextView text) {
  BSTR made = ::SysAllocStringLen(reinterpret_cast<const OLECHAR*>(text.data()),
                                  static_cast<UINT>(text.size()));
  if (made == nullptr) throw RuntimeError(ErrorNumber::kOutOfMemory);
  return made;
}

class Bstr {
 public:
  Bstr() noexcept = default;
  explicit Bstr(TextView text) : text_(NewBstr(text)) {}
  ~Bstr() { ::SysFreeString(text_); }
  Bstr(Bstr&& other) noexcept : text_(std::exchange(other.text_, nullptr)) {}
  Bstr& operator=(Bstr&& other) noexcept {
    std::swap(text_, other.text_);
    return *this;
  }
  Bstr(const Bstr&) = delete;
  Bstr& operator=(const Bstr&) = delete;

  [[nodiscard]] BSTR get() const noexcept { return text_; }
  [[nodiscard]] BSTR* address() noexcept { return &text_; }
  [[nodiscard]] BSTR Detach() noexcept { return std::exchange(text_, nullptr); }
  [[nodiscard]] TextView view() const noexcept { return ViewOf(text_); }

 private:
  BSTR text_ = nullptr;
};

}  // namespace quill::com
