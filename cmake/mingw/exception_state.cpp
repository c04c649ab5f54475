// Where a thread keeps the exceptions that it is handling. The runtime library's own version lies
// on emulated thread-local variables, for which it brings most of a threads library along; Windows'
// thread-local slots do the same in a few lines. The state of a thread is freed when it ends, and
// the slot when the library is unloaded.
#include <windows.h>

#include <cstdlib>

namespace __cxxabiv1 {

// As the runtime library lays it out; only it looks inside.
struct __cxa_eh_globals {
  void* caught_exceptions;
  unsigned int uncaught_exceptions;
};

namespace {

constexpr DWORD kNoSlot = TLS_OUT_OF_INDEXES;

LONG slot_to_be = static_cast<LONG>(kNoSlot);

DWORD Slot() noexcept {
  return static_cast<DWORD>(__atomic_load_n(&slot_to_be, __ATOMIC_ACQUIRE));
}

// For the time after the unloading began, when only one thread is left in here.
bool is_unloading = false;
__cxa_eh_globals last_state;

DWORD MakeSlot() noexcept {
  const DWORD made = TlsAlloc();
  if (made == kNoSlot) std::abort();
  const auto before = static_cast<DWORD>(
      InterlockedCompareExchange(&slot_to_be, static_cast<LONG>(made), static_cast<LONG>(kNoSlot)));
  if (before == kNoSlot) return made;
  TlsFree(made);
  return before;
}

void FreeStateOfThisThread(DWORD slot) noexcept {
  std::free(TlsGetValue(slot));
  TlsSetValue(slot, nullptr);
}

void NTAPI OnThreadOrLibraryEnd(void*, DWORD reason, void*) noexcept {
  const DWORD slot = Slot();
  if (slot == kNoSlot) return;
  if (reason == DLL_THREAD_DETACH) {
    FreeStateOfThisThread(slot);
  } else if (reason == DLL_PROCESS_DETACH) {
    FreeStateOfThisThread(slot);
    is_unloading = true;
    __atomic_store_n(&slot_to_be, static_cast<LONG>(kNoSlot), __ATOMIC_RELEASE);
    TlsFree(slot);
  }
}

// The linker gathers these sections into the list of functions that the loader calls.
[[gnu::section(".CRT$XLD"), gnu::used]] const PIMAGE_TLS_CALLBACK kOnThreadOrLibraryEnd =
    OnThreadOrLibraryEnd;

}  // namespace

extern "C" __cxa_eh_globals* __cxa_get_globals() noexcept {
  DWORD slot = Slot();
  if (slot == kNoSlot) {
    if (is_unloading) return &last_state;
    slot = MakeSlot();
  }
  // Asking a slot resets the last error, which a handler may be about to look at.
  const DWORD last_error = GetLastError();
  void* state = TlsGetValue(slot);
  if (state == nullptr) {
    state = std::calloc(1, sizeof(__cxa_eh_globals));
    if (state == nullptr || !TlsSetValue(slot, state)) std::abort();
  }
  SetLastError(last_error);
  return static_cast<__cxa_eh_globals*>(state);
}

extern "C" __cxa_eh_globals* __cxa_get_globals_fast() noexcept {
  return __cxa_get_globals();
}

}  // namespace __cxxabiv1
