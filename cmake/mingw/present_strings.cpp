// The string functions that the runtime library's exceptions need of present strings, instantiated
// here for the reason that former_strings.cpp gives.
#include <string>

template char* std::string::_M_create(std::string::size_type&, std::string::size_type);
template void std::string::_M_assign(const std::string&);
