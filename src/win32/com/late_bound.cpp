#include "win32/com/late_bound.h"

#include "support/runtime_error.h"
#include "win32/com/automation.h"
#include "win32/com/bstr.h"
#include "win32/com/com_error.h"

namespace quill::com {
namespace {

// Tried in turn: scripts' classes take a call either way, property-only objects just the second,
// strict ones only the third.
constexpr WORD kCallStyles[] = {DISPATCH_METHOD | DISPATCH_PROPERTYGET, DISPATCH_PROPERTYGET,
                                DISPATCH_METHOD};

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
    throw RuntimeError(
        ErrorNumber::kCannotCreateObject,
        Concat({DefaultDescription(static_cast<std::int32_t>(ErrorNumber::kCannotCreateObject)),
                u": ", prog_id}));
  }
  return LateBound(object.get());
}

std::optional<DISPID> LateBound::Find(TextView member) const {
  if (!object_) throw RuntimeError(ErrorNumber::kObjectNotSet);
  const Text name(member);
  LPOLESTR wide = const_cast<LPOLESTR>(WideOf(name));
  DISPID found = DISPID_UNKNOWN;
  if (SUCCEEDED(object_->GetIDsOfNames(IID_NULL, &wide, 1, LOCALE_INVARIANT, &found)) &&
      found != DISPID_UNKNOWN) {
    return found;
  }
  ComPtr<IDispatchEx> extended;
  if (FAILED(object_->QueryInterface(__uuidof(IDispatchEx), extended.ReceiveVoid())))
    return std::nullopt;
  const Bstr text(member);
  if (SUCCEEDED(extended->GetDispID(text.get(), fdexNameCaseInsensitive, &found)) &&
      found != DISPID_UNKNOWN) {
    return found;
  }
  return std::nullopt;
}

HRESULT LateBound::Invoke(DISPID member, WORD flags, DISPPARAMS& arguments, Variant& result,
                          EXCEPINFO& raised) const {
  ComPtr<IDispatchEx> extended;
  HRESULT answer = object_->Invoke(member, IID_NULL, LOCALE_INVARIANT, flags, &arguments,
                                   result.get(), &raised, nullptr);
  if (answer == E_NOTIMPL &&
      SUCCEEDED(object_->QueryInterface(__uuidof(IDispatchEx), extended.ReceiveVoid()))) {
    answer = extended->InvokeEx(member, LOCALE_INVARIANT, flags, &arguments, result.get(), &raised,
                                nullptr);
  }
  return answer;
}

Variant LateBound::Call(TextView member, std::initializer_list<const Variant*> arguments) const {
  const std::optional<DISPID> found = Find(member);
  if (!found) {
    throw RuntimeError(
        ErrorNumber::kMemberNotFound,
        Concat({DefaultDescription(static_cast<std::int32_t>(ErrorNumber::kMemberNotFound)), u": ",
                member}));
  }
  return Call(*found, arguments);
}

Variant LateBound::Call(DISPID member, std::initializer_list<const Variant*> arguments) const {
  if (!object_) throw RuntimeError(ErrorNumber::kObjectNotSet);
  const ComPtr<IDispatch> kept_alive = object_;
  // The last argument comes first. The variants stay their owner's.
  std::vector<VARIANT> reversed;
  reversed.reserve(arguments.size());
  for (const Variant* const* next = arguments.end(); next != arguments.begin();) {
    reversed.push_back(*(*--next)->get());
  }
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
    if (answer != DISP_E_MEMBERNOTFOUND) break;
  }
  throw ErrorOf(answer);
}

}  // namespace quill::com
