// The few string functions that the standard exceptions need, instantiated here. The runtime
// library's own copies lie in one object file with everything else that strings of the former
// layout can do, which brings a random number source and all of the present strings along: a tenth
// of the library that nothing in it calls.
#define _GLIBCXX_USE_CXX11_ABI 0
#include <memory>
#include <string>

template char* std::string::_S_construct(std::string::size_type, char, const std::allocator<char>&);
template void std::string::_Rep::_M_destroy(const std::allocator<char>&) noexcept;
template void std::string::_Rep::_M_dispose(const std::allocator<char>&);
template char* std::string::_Rep::_M_clone(const std::allocator<char>&, std::string::size_type);
template std::string::_Rep* std::string::_Rep::_S_create(std::string::size_type,
                                                         std::string::size_type,
                                                         const std::allocator<char>&);
template std::string& std::string::assign(const std::string&);
template void std::string::swap(std::string&);
