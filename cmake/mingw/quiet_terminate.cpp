// The handler of last resort for an exception that nobody catches. The runtime library's own one
// prints the exception's readable name, for which it brings a demangler and formatted output along:
// a seventh of the library, for a console that its host does not have.
#include <cstdlib>
#include <exception>

namespace __gnu_cxx {

// Found here, the function keeps the runtime library's object file and all it refers to out.
void __verbose_terminate_handler() {
  std::abort();
}

}  // namespace __gnu_cxx
