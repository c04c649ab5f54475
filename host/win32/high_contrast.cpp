// The colours of the scheme, and the system's answer that one is in use.
#include "host/win32/high_contrast.h"

#include <commctrl.h>

#include "host/win32/import_table.h"

namespace quill::host {
namespace {

using GetParameters = BOOL(WINAPI*)(UINT, UINT, void*, UINT);

GetParameters real_function = nullptr;

BOOL WINAPI AnswerHighContrast(UINT action, UINT parameter, void* data, UINT flags) {
  const BOOL answered = real_function(action, parameter, data, flags);
  if (action == SPI_GETHIGHCONTRAST) {
    static_cast<HIGHCONTRASTW*>(data)->dwFlags |= HCF_HIGHCONTRASTON;
  }
  return answered;
}

COLORREF SchemeColour(int index) {
  switch (index) {
    case COLOR_WINDOWTEXT:
    case COLOR_BTNTEXT:
    case COLOR_MENUTEXT:
    case COLOR_CAPTIONTEXT:
    case COLOR_HIGHLIGHTTEXT:
    case COLOR_3DDKSHADOW:
    case COLOR_3DLIGHT:
    case COLOR_WINDOWFRAME:
      return RGB(255, 255, 255);
    case COLOR_BTNHIGHLIGHT:
      return RGB(192, 192, 192);
    case COLOR_BTNSHADOW:
      return RGB(128, 128, 128);
    case COLOR_INFOTEXT:
      return RGB(255, 255, 0);
    case COLOR_HIGHLIGHT:
    case COLOR_ACTIVECAPTION:
    case COLOR_GRADIENTACTIVECAPTION:
      return RGB(128, 0, 128);
    case COLOR_GRAYTEXT:
      return RGB(0, 255, 0);
    default:
      return RGB(0, 0, 0);
  }
}

}  // namespace

HighContrast::HighContrast(HMODULE library, HWND form)
    : form_(form), import_(FindImport(library, L"user32.dll", "SystemParametersInfoW")) {
  if (import_ != nullptr) {
    former_ = *import_;
    real_function = reinterpret_cast<GetParameters>(reinterpret_cast<void*>(former_));
    Redirect(import_, reinterpret_cast<FARPROC>(reinterpret_cast<void*>(&AnswerHighContrast)));
  }
  std::array<COLORREF, kColours> scheme{};
  for (int index = 0; index < kColours; ++index) {
    before_[static_cast<std::size_t>(index)] = GetSysColor(index);
    scheme[static_cast<std::size_t>(index)] = SchemeColour(index);
  }
  Tell(scheme);
}

HighContrast::~HighContrast() {
  if (import_ != nullptr) Redirect(import_, former_);
  Tell(before_);
}

void HighContrast::Tell(const std::array<COLORREF, kColours>& colours) const {
  std::array<INT, kColours> indices{};
  for (int index = 0; index < kColours; ++index) indices[static_cast<std::size_t>(index)] = index;
  SetSysColors(kColours, indices.data(), colours.data());
  // The library of common controls keeps the colours, and hears of new ones through a control.
  const HWND listener = CreateWindowExW(0, STATUSCLASSNAMEW, L"", WS_POPUP, 0, 0, 0, 0, nullptr,
                                        nullptr, nullptr, nullptr);
  SendMessageW(listener, WM_SYSCOLORCHANGE, 0, 0);
  DestroyWindow(listener);
  SendMessageW(form_, WM_SYSCOLORCHANGE, 0, 0);
  SendMessageW(form_, WM_SETTINGCHANGE, SPI_SETHIGHCONTRAST, 0);
}

}  // namespace quill::host
