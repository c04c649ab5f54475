// The class's interface and record as early-bound callers see them, the same as the type library
// declares. A host's author can include it: with com/automation.h it needs the system's headers
// only.
#pragma once

#include <cstddef>

#include "com/automation.h"

namespace quill::com {

// Records in 32-bit type libraries are packed to 4, as classic 32-bit compilers lay them out.
#if !defined(_WIN64)
#include <pshpack4.h>
#endif
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

#if !defined(_WIN64)
#include <poppack.h>
static_assert(offsetof(PluginRecord, Game) == 20);
static_assert(sizeof(PluginRecord) == 112);
#else
static_assert(offsetof(PluginRecord, Game) == 40);
static_assert(sizeof(PluginRecord) == 184);
#endif

// Objects come as IDispatch; null is Nothing. The texts by reference are not written to; fName may
// be null.
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
