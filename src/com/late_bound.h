// An automation object called by member name, as a script would call it.
#pragma once

#include <initializer_list>
#include <optional>
#include <span>
#include <vector>

#include "com/automation.h"
#include "com/com_ptr.h"
#include "com/variant.h"
#include "support/text.h"

namespace quill::com {

class LateBound {
 public:
  // Null fails at the first call with kObjectNotSet.
  explicit LateBound(IDispatch* object) noexcept : object_(object) {}

  // Creates the object of that programmatic name, in this process or in a program of its own, as it
  // is registered. Fails with kCannotCreateObject and a description that names it.
  [[nodiscard]] static LateBound Create(TextView prog_id);

  [[nodiscard]] IDispatch* object() const noexcept { return object_.get(); }

  // The member's identifier; nothing when the object has none of that name. Names are found through
  // IDispatchEx too, for objects that answer only there.
  [[nodiscard]] std::optional<DISPID> Find(TextView member) const;

  // Calls a method or reads a property, whichever the object takes. Arguments in calling order; the
  // callee may write to those passed by reference. A member that is not there fails with
  // kMemberNotFound; the callee's own failure comes with its number and description.
  Variant Call(TextView member, std::initializer_list<const Variant*> arguments) const;
  Variant Call(DISPID member, std::initializer_list<const Variant*> arguments) const;
  // A call of a number of arguments that is not known beforehand; the variants stay the caller's.
  Variant CallWith(DISPID member, std::span<const VARIANT> arguments) const;

 private:
  [[nodiscard]] HRESULT Invoke(DISPID member, WORD flags, DISPPARAMS& arguments, Variant& result,
                               EXCEPINFO& raised) const;

  ComPtr<IDispatch> object_;
};

}  // namespace quill::com
