#include "host/win32/high_contrast.h"

#include <commctrl.h>

#include <cstring>
#include <iterator>

namespace quill::host {
namespace {

// The place in the module that holds the address of the function it imports; null: it does not.
FARPROC* FindImport(HMODULE module, const char* function) {
  auto* const base = reinterpret_cast<char*>(module);
  const auto& header = *reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
  const auto& image = *reinterpret_cast<const IMAGE_NT_HEADERS*>(base + header.e_lfanew);
  const DWORD imports =
      image.OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress;
  if (imports == 0) return nullptr;
  const auto* from = reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(base + imports);
  for (; from->Name != 0; ++from) {
    const auto* name = reinterpret_cast<const IMAGE_THUNK_DATA*>(base + from->OriginalFirstThunk);
    auto* place = reinterpret_cast<FARPROC*>(base + from->FirstThunk);
    for (; name->u1.AddressOfData != 0; ++name, ++place) {
      if (IMAGE_SNAP_BY_ORDINAL(name->u1.Ordinal)) continue;
      const auto& import =
          *reinterpret_cast<const IMAGE_IMPORT_BY_NAME*>(base + name->u1.AddressOfData);
      if (std::strcmp(reinterpret_cast<const char*>(import.Name), function) == 0) return place;
    }
  }
  return nullptr;
}

void Redirect(FARPROC* import, FARPROC target) {
  DWORD protection = 0;
  if (!VirtualProtect(import, sizeof *import, PAGE_READWRITE, &protection)) return;
  *import = target;
  VirtualProtect(import, sizeof *import, protection, &protection);
}

BOOL WINAPI AnswerHighContrast(UINT action, UINT parameter, void* data, UINT flags) {
  const BOOL answered = SystemParametersInfoW(action, parameter, data, flags);
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
    : form_(form), import_(FindImport(library, "SystemParametersInfoW")) {
  if (import_ != nullptr) {
    former_ = *import_;
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
