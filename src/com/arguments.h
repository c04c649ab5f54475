// The arguments of a late-bound call, bound to a member's parameters: positional and named, by
// value, by reference or as a variant by reference, with optional ones left out.
#pragma once

#include <array>
#include <span>

#include "com/automation.h"
#include "com/bstr.h"
#include "com/com_ptr.h"
#include "com/variant.h"
#include "support/text.h"

namespace quill::com {

inline constexpr std::size_t kMostParameters = 5;

struct Parameter {
  TextView name;
  bool optional = false;
};

// A failure to bind or to convert: an automation result code, and the argument it concerns as
// DISPPARAMS counts them.
struct ArgumentError {
  HRESULT result;
  UINT argument;
};

class Arguments {
 public:
  // Binds `given` to `parameters` (at most kMostParameters). Throws ArgumentError:
  // DISP_E_BADPARAMCOUNT for too many or too few, DISP_E_PARAMNOTOPTIONAL for a required one that
  // was left out, DISP_E_PARAMNOTFOUND for an unknown name.
  Arguments(std::span<const Parameter> parameters, const DISPPARAMS& given);

  // Each converts the argument of a 0-based parameter as automation does, and throws ArgumentError
  // with DISP_E_TYPEMISMATCH or DISP_E_OVERFLOW when that cannot be done.
  // A text is referred to where it lies; anything else is left in `converted`.
  [[nodiscard]] TextView AsText(std::size_t parameter, Variant& converted) const;
  [[nodiscard]] std::int32_t AsInt32(std::size_t parameter) const;
  [[nodiscard]] bool AsBoolean(std::size_t parameter) const;
  // Null for Nothing. Borrowed: the caller's argument keeps it alive.
  [[nodiscard]] ComPtr<IDispatch> AsObject(std::size_t parameter) const;
  [[nodiscard]] const VARIANT& AsVariant(std::size_t parameter) const;
  // Null: left out.
  [[nodiscard]] const VARIANT* Given(std::size_t parameter) const {
    return bound_.at(parameter).value;
  }

 private:
  struct Bound {
    const VARIANT* value = nullptr;  // null: left out
    UINT argument = 0;
  };
  [[nodiscard]] const Bound& At(std::size_t parameter) const;

  std::array<Bound, kMostParameters> bound_;
};

}  // namespace quill::com
