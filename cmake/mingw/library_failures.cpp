// What the standard library throws when it is asked for what it cannot do. The runtime library's
// own versions lie in one object file with all exceptions that the standard knows, and these keep
// their texts in strings of two layouts: a tenth of the library that nothing in it calls. Here the
// texts are the callers' own, which are literals.
//
// A caller of another function of that object file brings it along whole: the linker then reports
// these as defined twice.
#include <cstdarg>
#include <exception>
#include <new>
#include <string>

namespace {

class Misuse final : public std::exception {
 public:
  explicit Misuse(const char* what) noexcept : what_(what) {}
  const char* what() const noexcept override { return what_; }

 private:
  const char* what_;
};

}  // namespace

namespace std {

void __throw_bad_alloc() {
  throw bad_alloc();
}

void __throw_bad_array_new_length() {
  throw bad_array_new_length();
}

// More than could ever be had is a want of memory too.
void __throw_length_error(const char* /*what*/) {
  throw bad_alloc();
}

void __throw_logic_error(const char* what) {
  throw Misuse(what);
}

// Formats for printing, of which most begin with the place that failed. That place is told alone.
void __throw_out_of_range_fmt(const char* format, ...) {
  const char* what = format;
  if (format[0] == '%' && format[1] == 's') {
    va_list arguments;
    va_start(arguments, format);
    what = va_arg(arguments, const char*);
    va_end(arguments);
  }
  throw Misuse(what);
}

}  // namespace std
