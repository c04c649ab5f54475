// Failures on their way through automation: in with a number and a description, and out with both.
#include "com/com_error.h"

#include <iterator>

#include "com/bstr.h"
#include "com/com_ptr.h"

namespace quill::com {
namespace {

// Run-time error numbers travel in the control facility's codes.
constexpr HRESULT kControlFacility = static_cast<HRESULT>(0x800A0000u);
constexpr HRESULT kFacilityMask = static_cast<HRESULT>(0xFFFF0000u);

struct KnownResult {
  HRESULT result;
  ErrorNumber number;
};
constexpr KnownResult kKnownResults[] = {
    {DISP_E_TYPEMISMATCH, ErrorNumber::kTypeMismatch},
    {DISP_E_OVERFLOW, ErrorNumber::kOverflow},
    {DISP_E_BADINDEX, ErrorNumber::kSubscriptOutOfRange},
    {DISP_E_ARRAYISLOCKED, ErrorNumber::kSubscriptOutOfRange},
    {DISP_E_UNKNOWNNAME, ErrorNumber::kMemberNotFound},
    {DISP_E_MEMBERNOTFOUND, ErrorNumber::kMemberNotFound},
    {DISP_E_BADPARAMCOUNT, ErrorNumber::kWrongArgumentCount},
    {DISP_E_PARAMNOTOPTIONAL, ErrorNumber::kArgumentNotOptional},
    {E_OUTOFMEMORY, ErrorNumber::kOutOfMemory},
    {E_INVALIDARG, ErrorNumber::kInvalidProcedureCall},
};

Text SystemWording(HRESULT result) {
  wchar_t wording[512];
  DWORD length = ::FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
                                  nullptr, static_cast<DWORD>(result), 0, wording,
                                  static_cast<DWORD>(std::size(wording)), nullptr);
  while (length > 0 && wording[length - 1] <= L' ') --length;  // it ends with a line break
  if (length == 0) return Text(DefaultDescription(static_cast<std::int32_t>(result)));
  return Text(reinterpret_cast<const char16_t*>(wording), length);
}

BSTR BstrOrNull(TextView text) noexcept {
  return ::SysAllocStringLen(reinterpret_cast<const OLECHAR*>(text.data()),
                             static_cast<UINT>(text.size()));
}

}  // namespace

RuntimeError ErrorOf(HRESULT result) {
  const std::int32_t number = result & 0xFFFF;
  // A failure without a number would not be reported.
  if ((result & kFacilityMask) == kControlFacility && number != 0) {
    return RuntimeError(number, DefaultDescription(number));
  }
  for (const KnownResult& known : kKnownResults) {
    if (known.result == result) return RuntimeError(known.number);
  }
  return RuntimeError(static_cast<std::int32_t>(result), SystemWording(result));
}

RuntimeError ErrorOf(EXCEPINFO& raised) {
  // A server may put off the work of describing a failure until somebody wants to know.
  if (raised.pfnDeferredFillIn != nullptr) {
    (void)raised.pfnDeferredFillIn(&raised);
    raised.pfnDeferredFillIn = nullptr;
  }
  // The texts belong to the caller now, and these owners free them.
  Bstr source;
  Bstr description;
  Bstr help_file;
  *source.address() = std::exchange(raised.bstrSource, nullptr);
  *description.address() = std::exchange(raised.bstrDescription, nullptr);
  *help_file.address() = std::exchange(raised.bstrHelpFile, nullptr);
  // A server fills in one of the two codes.
  RuntimeError error = raised.scode != 0 ? ErrorOf(raised.scode)
                                         : RuntimeError(static_cast<std::int32_t>(raised.wCode),
                                                        DefaultDescription(raised.wCode));
  // A failure without a number would not be reported.
  if (error.number() == 0) error = RuntimeError(ErrorNumber::kAutomationError);
  if (description.view().empty()) return error;
  return RuntimeError(error.number(), description.view());
}

HRESULT ResultOf(const RuntimeError& error) noexcept {
  const std::int32_t number = error.number();
  if (number < 0) return static_cast<HRESULT>(number);  // a result code that came from outside
  if (number == 0) return E_FAIL;
  return static_cast<HRESULT>(kControlFacility | (number & 0xFFFF));
}

void LeaveErrorInfo(const RuntimeError& error, REFIID interface_id) noexcept {
  ComPtr<ICreateErrorInfo> created;
  // The caller still gets the result code.
  if (FAILED(::CreateErrorInfo(created.Receive()))) return;
  (void)created->SetGUID(interface_id);
  Bstr source;
  Bstr description;
  *source.address() = BstrOrNull(kProgId);
  *description.address() = BstrOrNull(error.description());
  (void)created->SetSource(source.get());
  (void)created->SetDescription(description.get());
  ComPtr<IErrorInfo> info;
  if (SUCCEEDED(created->QueryInterface(IID_IErrorInfo, info.ReceiveVoid()))) {
    (void)::SetErrorInfo(0, info.get());
  }
}

HRESULT LeaveExcepInfo(const RuntimeError& error, EXCEPINFO* raised, TextView source) noexcept {
  if (raised != nullptr) {
    // The caller's structure may be uninitialised, and the texts put into it are the caller's to
    // free.
    *raised = EXCEPINFO{};
    raised->scode = ResultOf(error);
    raised->bstrSource = BstrOrNull(source);
    raised->bstrDescription = BstrOrNull(error.description());
  }
  return DISP_E_EXCEPTION;
}

}  // namespace quill::com
