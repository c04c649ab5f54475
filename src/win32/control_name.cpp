#include "win32/control_name.h"

#include <string>

namespace quill::win32 {
namespace {

constexpr wchar_t kProperty[] = L"ControlName";

}  // namespace

void AttachControlName(HWND window, TextView name) {
  const ATOM atom = GlobalAddAtomW(std::wstring(name.begin(), name.end()).c_str());
  if (atom == 0) return;
  if (!SetPropW(window, kProperty, reinterpret_cast<HANDLE>(static_cast<ULONG_PTR>(atom)))) {
    GlobalDeleteAtom(atom);
  }
}

void DetachControlName(HWND window) noexcept {
  const HANDLE value = RemovePropW(window, kProperty);
  if (value != nullptr) GlobalDeleteAtom(static_cast<ATOM>(reinterpret_cast<ULONG_PTR>(value)));
}

}  // namespace quill::win32
