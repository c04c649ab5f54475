// The few locks that the runtime library's exception handling takes. The threads library's own ones
// bring all of it along, and with it a thread-local slot that is not given back when a library is
// unloaded: a 32-bit host that loads and unloads the library a thousand times would run out.
// Contention is rare and short here, so that waiting means trying again a little later.
//
// Not for the library's own use: nothing but locking, unlocking and calling once is here. Whatever
// needs more pulls the threads library in, which the check of the finished library reports.
#include <pthread.h>
#include <windows.h>

namespace {

constexpr pthread_mutex_t kUnlocked = PTHREAD_MUTEX_INITIALIZER;
constexpr pthread_mutex_t kLocked = 1;

constexpr pthread_once_t kNotCalled = PTHREAD_ONCE_INIT;
constexpr pthread_once_t kBeingCalled = 1;
constexpr pthread_once_t kCalled = 2;

// Lets another thread go on: first any that is ready, after a while also one of lower priority.
// False after seconds: as nothing takes that long here, the one that is waited for was ended by
// force, as all others are when a process ends, and its place is to be taken.
bool WaitALittle(int& rounds) {
  Sleep(++rounds < 16 ? 0 : 1);
  return rounds < 2000;
}

}  // namespace

extern "C" {

int pthread_mutex_init(pthread_mutex_t* mutex, const pthread_mutexattr_t* /*attributes*/) {
  __atomic_store_n(mutex, kUnlocked, __ATOMIC_RELEASE);
  return 0;
}

int pthread_mutex_destroy(pthread_mutex_t* /*mutex*/) {
  return 0;
}

int pthread_mutex_lock(pthread_mutex_t* mutex) {
  int rounds = 0;
  for (;;) {
    pthread_mutex_t expected = kUnlocked;
    if (__atomic_compare_exchange_n(mutex, &expected, kLocked, false, __ATOMIC_ACQUIRE,
                                    __ATOMIC_RELAXED)) {
      return 0;
    }
    if (!WaitALittle(rounds)) return 0;
  }
}

int pthread_mutex_unlock(pthread_mutex_t* mutex) {
  __atomic_store_n(mutex, kUnlocked, __ATOMIC_RELEASE);
  return 0;
}

int pthread_once(pthread_once_t* once, void (*function)()) {
  int rounds = 0;
  for (;;) {
    pthread_once_t expected = kNotCalled;
    if (__atomic_compare_exchange_n(once, &expected, kBeingCalled, false, __ATOMIC_ACQUIRE,
                                    __ATOMIC_ACQUIRE)) {
      function();
      __atomic_store_n(once, kCalled, __ATOMIC_RELEASE);
      return 0;
    }
    if (expected == kCalled) return 0;
    if (!WaitALittle(rounds)) __atomic_store_n(once, kNotCalled, __ATOMIC_RELEASE);
  }
}

}  // extern "C"
