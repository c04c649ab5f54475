// The class's interface and record as early-bound callers see them: the same as the type library
// declares.
#pragma once

#include <cstddef>

#include "win32/com/automation.h"

namespace quill::com {

// What GetData hands out. Texts and variants belong to whoever holds the record.
struct PluginRecord {
  BSTR Name;
  BSTR File;
  BSTR Version;
  BSTR Author;
  BSTR Description;
  VARIANT Game;
  VARIANT_BOOL HasInterface;
  VARIANT_BOOL ProfileMenu;
  VARIANT_BOOL ServerMenu;
  VARIANT_BOOL MainMenu;
  VARIANT ProfileMenuItems;
  VARIANT ServerMenuItems;
  VARIANT MainMenuItems;
  BSTR MinRCVer;
  BSTR MinMemKitVer;
  BSTR MinFileKitVer;
  BSTR MinKVRVer;
  BSTR MinRCCVer;
};

// The layout that the type library tells: pointers of the architecture's size, variants of two
// pointers and eight bytes.
inline constexpr std::size_t kPointer = sizeof(void*);
inline constexpr std::size_t kVariant = 8 + 2 * kPointer;
static_assert(sizeof(VARIANT) == kVariant);
#if !defined(_WIN64)
// Five 4-byte texts leave the variant, which aligns to 8, at 24.
static_assert(offsetof(PluginRecord, Game) == 24);
static_assert(offsetof(PluginRecord, HasInterface) == 40);
static_assert(offsetof(PluginRecord, ProfileMenuItems) == 48);
static_assert(offsetof(PluginRecord, MinRCVer) == 96);
static_assert(sizeof(PluginRecord) == 120);
#else
static_assert(offsetof(PluginRecord, Game) == 40);
static_assert(offsetof(PluginRecord, HasInterface) == 64);
static_assert(offsetof(PluginRecord, ProfileMenuItems) == 72);
static_assert(offsetof(PluginRecord, MinRCVer) == 144);
static_assert(sizeof(PluginRecord) == 184);
#endif

// Objects come as IDispatch; null is Nothing. The texts by reference are not written to and may be
// null.
struct IPlugin : public IDispatch {
  virtual HRESULT STDMETHODCALLTYPE dllVersion(BSTR PNAME, BSTR* result) = 0;
  virtual HRESULT STDMETHODCALLTYPE GetData(PluginRecord* result) = 0;
  virtual HRESULT STDMETHODCALLTYPE SetPrivis(IDispatch* NameCol, IDispatch* ValCol,
                                              VARIANT_BOOL IsSuperAdmin) = 0;
  virtual HRESULT STDMETHODCALLTYPE LoadInterface(LONG Index, LONG pHwnd, VARIANT* PDAT,
                                                  BSTR* fName) = 0;
  virtual HRESULT STDMETHODCALLTYPE RemoteData(BSTR* Data) = 0;
  virtual HRESULT STDMETHODCALLTYPE HideInterface(BSTR* fName) = 0;

 protected:
  ~IPlugin() = default;
};

}  // namespace quill::com
