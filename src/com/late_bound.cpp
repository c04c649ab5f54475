// Calls objects by the names of their members. They differ in how they want to be asked; what each
// kind refuses stands with the attempt.
#include "com/late_bound.h"

#include "com/bstr.h"
#include "com/com_error.h"
#include "support/compiler.h"
#include "support/runtime_error.h"

namespace quill::com {
namespace {

// Tried in turn: scripts' classes take a call either way, property-only objects just the second,
// strict ones only the third.
constexpr WORD kCallStyles[] = {DISPATCH_METHOD | DISPATCH_PROPERTYGET, DISPATCH_PROPERTYGET,
                                DISPATCH_METHOD};

RuntimeError FailureOf(ErrorNumber number, TextView name) {
  const TextView description = DefaultDescription(static_cast<std::int32_t>(number));
  return RuntimeError(number, Concat({description, u": ", name}));
}

}  // namespace

LateBound LateBound::Create(TextView prog_id) {
  const Text name(prog_id);
  CLSID class_id{};
  ComPtr<IDispatch> object;
  HRESULT result = ::CLSIDFromProgID(WideOf(name), &class_id);
  if (SUCCEEDED(result)) {
    result = ::CoCreateInstance(class_id, nullptr, CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER,
                                IID_IDispatch, object.ReceiveVoid());
  }
  if (FAILED(result) || !object) {
    throw FailureOf(ErrorNumber::kCannotCreateObject, prog_id);
  }
  return LateBound(object.get());
}

std::optional<DISPID> LateBound::Find(TextView member) const {
  if (!object_) throw RuntimeError(ErrorNumber::kObjectNotSet);
  const Text name(member);
  auto* wide = const_cast<LPOLESTR>(WideOf(name));
  DISPID found = DISPID_UNKNOWN;
  if (SUCCEEDED(object_->GetIDsOfNames(IID_NULL, &wide, 1, LOCALE_USER_DEFAULT, &found)) &&
      found != DISPID_UNKNOWN) {
    return found;
  }
  ComPtr<IDispatchEx> extended;
  if (FAILED(object_->QueryInterface(QUILL_ID_OF(IDispatchEx), extended.ReceiveVoid())))
    return std::nullopt;
  const bool is_found =
      SUCCEEDED(extended->GetDispID(Bstr(member).get(), fdexNameCaseInsensitive, &found)) &&
      found != DISPID_UNKNOWN;
  return is_found ? std::optional(found) : std::nullopt;
}

HRESULT LateBound::Invoke(DISPID member, WORD flags, DISPPARAMS& arguments, Variant& result,
                          EXCEPINFO& raised) const {
  ComPtr<IDispatchEx> extended;
  // The user's locale: some objects refuse to know the invariant one.
  HRESULT answer = object_->Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, flags, &arguments,
                                   result.get(), &raised, nullptr);
  // A script's class instance that is handed over as an object answers through IDispatchEx only.
  if (answer == E_NOTIMPL &&
      SUCCEEDED(object_->QueryInterface(QUILL_ID_OF(IDispatchEx), extended.ReceiveVoid()))) {
    answer = extended->InvokeEx(member, LOCALE_USER_DEFAULT, flags, &arguments, result.get(),
                                &raised, nullptr);
  }
  return answer;
}

Variant LateBound::Call(TextView member, std::initializer_list<const Variant*> arguments) const {
  const std::optional<DISPID> found = Find(member);
  if (!found) throw FailureOf(ErrorNumber::kMemberNotFound, member);
  return Call(*found, arguments);
}

Variant LateBound::Call(DISPID member, std::initializer_list<const Variant*> arguments) const {
  std::vector<VARIANT> values;
  values.reserve(arguments.size());
  for (const Variant* argument : arguments) values.push_back(*argument->get());
  return CallWith(member, values);
}

Variant LateBound::CallWith(DISPID member, std::span<const VARIANT> arguments) const {
  if (!object_) throw RuntimeError(ErrorNumber::kObjectNotSet);
  const ComPtr<IDispatch> kept_alive = object_;  // the call may end whoever holds this
  // The last argument comes first.
  std::vector<VARIANT> reversed(arguments.rbegin(), arguments.rend());
  DISPPARAMS parameters{};
  parameters.rgvarg = reversed.data();
  parameters.cArgs = static_cast<UINT>(reversed.size());

  HRESULT answer = DISP_E_MEMBERNOTFOUND;
  for (const WORD style : kCallStyles) {
    Variant result;
    EXCEPINFO raised{};
    answer = Invoke(member, style, parameters, result, raised);
    if (SUCCEEDED(answer)) return result;
    if (answer == DISP_E_EXCEPTION) throw ErrorOf(raised);
    // Some scripts' objects fail when a value is called; a call with arguments is not repeated.
    if (answer != DISP_E_MEMBERNOTFOUND && (answer != E_FAIL || !arguments.empty())) break;
  }
  throw ErrorOf(answer);
}

}  // namespace quill::com
