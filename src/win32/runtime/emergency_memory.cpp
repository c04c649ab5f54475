// The runtime library sets memory aside, so that exceptions can be thrown when there is none left.
// It never gives that back, because processes end: its function for it is called by memory
// debuggers only, as GCC's libsupc++ says. A library may be loaded and unloaded many times before
// that.

namespace __gnu_cxx {

void __freeres();

}  // namespace __gnu_cxx

namespace {

// Functions with this attribute run after the destructors of all static objects.
[[gnu::destructor]] void GiveBackEmergencyMemory() {
  __gnu_cxx::__freeres();
}

}  // namespace
