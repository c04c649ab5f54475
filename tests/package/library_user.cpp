// A host in small: creates a class, tells which file it came from, and keeps the library loaded
// while it runs a command.
//
//   library_user CLASS [COMMAND LINE]     CLASS: a programmatic name, a {class identifier}, or -
#include <objbase.h>
#include <windows.h>

#include <cstdio>
#include <string>
#include <vector>

namespace {

int Fail(const char* what, long code) {
  std::printf("%s failed: %08lx\n", what, static_cast<unsigned long>(code));
  return 1;
}

std::wstring Wide(const char* text) {
  std::vector<wchar_t> wide(std::string(text).size() + 1);
  ::MultiByteToWideChar(CP_ACP, 0, text, -1, wide.data(), static_cast<int>(wide.size()));
  return wide.data();
}

// The user's own classes, which Wine's CoCreateInstance does not look at, as Windows' does.
HRESULT CreateFromUsersEntries(const std::wstring& name, const CLSID& id, void** object) {
  const std::wstring key = L"Software\\Classes\\CLSID\\" + name + L"\\InprocServer32";
  wchar_t file[MAX_PATH] = L"";
  DWORD size = sizeof file;
  if (::RegGetValueW(HKEY_CURRENT_USER, key.c_str(), nullptr, RRF_RT_REG_SZ, nullptr, file,
                     &size)) {
    return REGDB_E_CLASSNOTREG;
  }
  const HMODULE library = ::LoadLibraryW(file);
  if (library == nullptr) return CO_E_DLLNOTFOUND;
  using GetClassObject = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);
  const auto get_class_object = reinterpret_cast<GetClassObject>(
      reinterpret_cast<void*>(::GetProcAddress(library, "DllGetClassObject")));
  IClassFactory* factory = nullptr;
  HRESULT result = get_class_object(id, IID_IClassFactory, reinterpret_cast<void**>(&factory));
  if (FAILED(result)) return result;
  result = factory->CreateInstance(nullptr, IID_IDispatch, object);
  factory->Release();
  return result;
}

int RunWhileLoaded(std::wstring command) {
  STARTUPINFOW start{};
  start.cb = sizeof start;
  PROCESS_INFORMATION process{};
  if (!::CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                        &start, &process)) {
    return Fail("starting the command", static_cast<long>(::GetLastError()));
  }
  ::WaitForSingleObject(process.hProcess, INFINITE);
  DWORD code = 0;
  ::GetExitCodeProcess(process.hProcess, &code);
  std::printf("exit code %lu\n", code);
  return 0;
}

}  // namespace

int main(int count, char** arguments) {
  if (count < 2) return 2;
  const std::wstring name = Wide(arguments[1]);
  IUnknown* object = nullptr;
  static_cast<void>(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED));
  if (name != L"-") {
    CLSID id{};
    HRESULT result = ::CLSIDFromString(name.c_str(), &id);
    if (FAILED(result)) return Fail("finding the class", result);
    result = ::CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch,
                                reinterpret_cast<void**>(&object));
    if (result == REGDB_E_CLASSNOTREG) {
      result = CreateFromUsersEntries(name, id, reinterpret_cast<void**>(&object));
    }
    if (FAILED(result)) return Fail("creating the class", result);
    char file[MAX_PATH] = "";
    ::GetModuleFileNameA(::GetModuleHandleA("kvrrcBHDGS.dll"), file, MAX_PATH);
    std::printf("created from %s\n", file);
  }
  const int result = count > 2 ? RunWhileLoaded(Wide(arguments[2])) : 0;
  if (object != nullptr) object->Release();
  ::CoUninitialize();
  std::printf("done\n");
  return result;
}
