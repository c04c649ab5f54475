// The library that runtime_parts_test.cpp loads: it throws and catches on request, and at its end.
#include <windows.h>

#include <exception>
#include <string>

namespace {

struct Failure : std::exception {
  explicit Failure(const char* text) : what_text(text) {}
  const char* what() const noexcept override { return what_text; }
  const char* what_text;
};

// Throws from a catch block, from a destructor that runs while another exception is on its way,
// and again from the outer handler; adds up what it sees, so that every part counts.
int NestedCatches() {
  struct ThrowsInside {
    int& seen;
    ~ThrowsInside() {
      seen += std::uncaught_exceptions();
      try {
        throw 10;
      } catch (int number) {
        seen += number;
      }
    }
  };
  int seen = 0;
  try {
    try {
      const ThrowsInside inner{seen};
      throw Failure("first");
    } catch (const Failure& error) {
      seen += std::string(error.what()) == "first" ? 100 : 0;
      try {
        throw;
      } catch (const std::exception&) {
        seen += std::current_exception() != nullptr ? 1000 : 0;
      }
      throw Failure("second");
    }
  } catch (const std::exception& error) {
    seen += std::string(error.what()) == "second" ? 10000 : 0;
  }
  seen += std::uncaught_exceptions() * 100000;
  return seen;
}

struct AtTheEnd {
  ~AtTheEnd() {
    if (report_to != nullptr) *report_to = NestedCatches();
  }
  int* report_to = nullptr;
} at_the_end;

}  // namespace

extern "C" {

__declspec(dllexport) int ProbeNestedCatches() {
  return NestedCatches();
}

// What its destructors see of exceptions goes there.
__declspec(dllexport) void ProbeReportEndTo(int* report) {
  at_the_end.report_to = report;
}

}  // extern "C"
