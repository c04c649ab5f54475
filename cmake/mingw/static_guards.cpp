// The locks around the first use of function-local statics. The runtime library's own ones wait on
// condition variables, for which they bring a threads library's worth of code along. Waiting is
// rare and short here, so that yielding serves as well.
#include <windows.h>

#include <cstdint>

namespace {

// The first byte is the one that compiled code tests by itself, the second is ours.
enum : std::uint8_t { kUntouched = 0, kBeingMade = 1, kMade = 1 };

std::uint8_t* MadeFlag(std::int64_t* guard) {
  return reinterpret_cast<std::uint8_t*>(guard);
}

std::uint8_t* BusyFlag(std::int64_t* guard) {
  return reinterpret_cast<std::uint8_t*>(guard) + 1;
}

}  // namespace

extern "C" {

// Returns 1 to the one caller that is to make the object, 0 once it is made.
int __cxa_guard_acquire(std::int64_t* guard) {
  for (;;) {
    if (__atomic_load_n(MadeFlag(guard), __ATOMIC_ACQUIRE) == kMade) return 0;
    std::uint8_t expected = kUntouched;
    const std::uint8_t being_made = kBeingMade;
    if (__atomic_compare_exchange_n(BusyFlag(guard), &expected, being_made, false, __ATOMIC_ACQUIRE,
                                    __ATOMIC_RELAXED)) {
      // The maker before us may have finished between the two looks.
      if (__atomic_load_n(MadeFlag(guard), __ATOMIC_ACQUIRE) != kMade) return 1;
      __atomic_store_n(BusyFlag(guard), kUntouched, __ATOMIC_RELEASE);
      return 0;
    }
    Sleep(0);
  }
}

void __cxa_guard_release(std::int64_t* guard) noexcept {
  __atomic_store_n(MadeFlag(guard), kMade, __ATOMIC_RELEASE);
  __atomic_store_n(BusyFlag(guard), kUntouched, __ATOMIC_RELEASE);
}

void __cxa_guard_abort(std::int64_t* guard) noexcept {
  __atomic_store_n(BusyFlag(guard), kUntouched, __ATOMIC_RELEASE);
}

}  // extern "C"
