// Where a thread keeps the exceptions that it is handling. The runtime library's own version lies
// on emulated thread-local variables, as the compiler has no others for Windows (GCC bug 80881).
// They take a thread-local slot that libgcc does not give back when a library is unloaded, and
// Windows has 1,088 for a process: a host that loads and unloads the library that often runs out.
// Here it is a thread-local variable of the platform's own kind, as the platform's compilers make
// them: the loader lays one out for each thread, those that are there before the library too, and
// takes them away with the thread or the library. There is no moment at which it can fail.

// The compiler takes the thread's block, which begins at address 0 of its segment, for a null
// array (GCC bug 99578).
#pragma GCC diagnostic ignored "-Warray-bounds"
#include <windows.h>

namespace __cxxabiv1 {

// As the runtime library lays it out; only it looks inside.
struct __cxa_eh_globals {
  void* caught_exceptions;
  unsigned int uncaught_exceptions;
};

}  // namespace __cxxabiv1

// Tells the loader about this library's thread-local variables; made by the C runtime.
extern "C" const IMAGE_TLS_DIRECTORY _tls_used;

namespace {

using __cxxabiv1::__cxa_eh_globals;

// Each thread's copy begins as this one, which nobody uses.
[[gnu::section(".tls$")]] __cxa_eh_globals initial_state = {};

// The copies of all libraries, by their index; those of this library in the order of the originals.
// The twelfth word of a thread's block, fixed for all programs that the platform's compilers made.
char* const* CopiesOfThisThread() noexcept {
  return reinterpret_cast<char* const* const*>(NtCurrentTeb())[11];
}

__cxa_eh_globals* StateOfThisThread() noexcept {
  const auto index = *reinterpret_cast<const DWORD*>(_tls_used.AddressOfIndex);
  const auto offset = reinterpret_cast<ULONG_PTR>(&initial_state) - _tls_used.StartAddressOfRawData;
  return reinterpret_cast<__cxa_eh_globals*>(CopiesOfThisThread()[index] + offset);
}

}  // namespace

namespace __cxxabiv1 {

extern "C" __cxa_eh_globals* __cxa_get_globals() noexcept {
  return StateOfThisThread();
}

extern "C" __cxa_eh_globals* __cxa_get_globals_fast() noexcept {
  return StateOfThisThread();
}

}  // namespace __cxxabiv1
