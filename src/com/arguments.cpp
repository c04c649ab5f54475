// Binds the arguments of a call to a member's parameters. Their order in a call is the platform's:
// named ones come first, the others backwards.
#include "com/arguments.h"

#include <algorithm>

namespace quill::com {
namespace {

bool IsLeftOut(const VARIANT& value) noexcept {
  // What automation passes in the place of an optional argument that was left out.
  const VARIANT& referred = Referred(value);
  return referred.vt == VT_ERROR && referred.scode == DISP_E_PARAMNOTFOUND;
}

Variant Converted(const VARIANT& value, VARTYPE type, UINT argument) {
  Variant converted;
  const HRESULT result = ConvertTo(type, Referred(value), converted);
  if (FAILED(result)) {
    // The only two that callers of Invoke expect of a conversion.
    throw ArgumentError{result == DISP_E_OVERFLOW ? DISP_E_OVERFLOW : DISP_E_TYPEMISMATCH,
                        argument};
  }
  return converted;
}

}  // namespace

Arguments::Arguments(std::span<const Parameter> parameters, const DISPPARAMS& given) {
  if (given.cNamedArgs > given.cArgs) throw ArgumentError{DISP_E_BADPARAMCOUNT, 0};
  const UINT positional = given.cArgs - given.cNamedArgs;
  const auto required = std::ranges::count(parameters, false, &Parameter::optional);
  if (given.cArgs > parameters.size() || given.cArgs < static_cast<std::size_t>(required)) {
    throw ArgumentError{DISP_E_BADPARAMCOUNT, 0};
  }

  for (UINT i = 0; i < positional; ++i) {
    const UINT argument = given.cArgs - 1 - i;
    bound_[i] = {&given.rgvarg[argument], argument};
  }
  for (UINT argument = 0; argument < given.cNamedArgs; ++argument) {
    const DISPID parameter = given.rgdispidNamedArgs[argument];
    // The identifiers are those that GetIDsOfNames gave out; that of a property's new value is
    // negative.
    if (parameter < 0 || static_cast<std::size_t>(parameter) >= parameters.size() ||
        bound_[static_cast<std::size_t>(parameter)].value != nullptr) {
      throw ArgumentError{DISP_E_PARAMNOTFOUND, argument};
    }
    bound_[static_cast<std::size_t>(parameter)] = {&given.rgvarg[argument], argument};
  }

  for (std::size_t i = 0; i < parameters.size(); ++i) {
    Bound& bound = bound_[i];
    if (bound.value != nullptr && !IsLeftOut(*bound.value)) continue;
    if (!parameters[i].optional) throw ArgumentError{DISP_E_PARAMNOTOPTIONAL, bound.argument};
    bound.value = nullptr;
  }
}

const Arguments::Bound& Arguments::At(std::size_t parameter) const {
  const Bound& bound = bound_.at(parameter);
  if (bound.value == nullptr) throw ArgumentError{DISP_E_PARAMNOTOPTIONAL, bound.argument};
  return bound;
}

TextView Arguments::AsText(std::size_t parameter, Variant& converted) const {
  const Bound& bound = At(parameter);
  const VARIANT& referred = Referred(*bound.value);
  // Without a copy, as a reply may be long.
  if (referred.vt == VT_BSTR) return ViewOf(referred.bstrVal);
  if (referred.vt == (VT_BSTR | VT_BYREF)) {
    return referred.pbstrVal != nullptr ? ViewOf(*referred.pbstrVal) : TextView();
  }
  converted = Converted(referred, VT_BSTR, bound.argument);
  return ViewOf(converted.get()->bstrVal);
}

std::int32_t Arguments::AsInt32(std::size_t parameter) const {
  const Bound& bound = At(parameter);
  return Converted(*bound.value, VT_I4, bound.argument).get()->lVal;
}

bool Arguments::AsBoolean(std::size_t parameter) const {
  const Bound& bound = At(parameter);
  return Converted(*bound.value, VT_BOOL, bound.argument).get()->boolVal != VARIANT_FALSE;
}

ComPtr<IDispatch> Arguments::AsObject(std::size_t parameter) const {
  const Bound& bound = At(parameter);
  auto object = ObjectOf(*bound.value);
  if (!object) throw ArgumentError{DISP_E_TYPEMISMATCH, bound.argument};
  return std::move(*object);
}

const VARIANT& Arguments::AsVariant(std::size_t parameter) const {
  return *At(parameter).value;
}

}  // namespace quill::com
