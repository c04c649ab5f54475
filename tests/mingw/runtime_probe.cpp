// The library that runtime_parts_test.cpp loads: it throws, catches and makes statics on request.
#include <windows.h>

#include <atomic>
#include <exception>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

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
      throw std::runtime_error("first");
    } catch (const std::runtime_error& error) {
      seen += std::string(error.what()) == "first" ? 100 : 0;
      try {
        throw;
      } catch (const std::exception&) {
        seen += std::current_exception() != nullptr ? 1000 : 0;
      }
      throw std::out_of_range("second");
    }
  } catch (const std::logic_error& error) {
    const std::out_of_range copy(dynamic_cast<const std::out_of_range&>(error));
    seen += std::string(copy.what()) == "second" ? 10000 : 0;
  }
  seen += std::uncaught_exceptions() * 100000;
  return seen;
}

// What the standard library itself throws.
int LibraryExceptions() {
  int seen = 0;
  const std::vector<int> three(3);
  try {
    (void)three.at(5);
  } catch (const std::out_of_range& error) {
    seen += std::string(error.what()).find("5") != std::string::npos ? 1 : 0;
  }
  try {
    const std::u16string text(u"abc");
    (void)text.substr(7);
  } catch (const std::out_of_range&) {
    seen += 10;
  }
  try {
    std::vector<int> huge;
    huge.reserve(huge.max_size() + 1);
  } catch (const std::length_error& error) {
    const std::length_error first(error);
    std::length_error second("other");
    second = first;
    seen += std::string(second.what()) == error.what() ? 100 : 0;
  }
  return seen;
}

std::atomic<int> makers{0};
std::atomic<int> attempts{0};

struct SlowToMake {
  SlowToMake() {
    Sleep(20);
    // The first two tries fail, so that the waiting threads have to try themselves.
    if (attempts.fetch_add(1) < 2) throw std::runtime_error("not yet");
    number = makers.fetch_add(1) + 1;
  }
  int number = 0;
};

int SharedStatic() {
  for (;;) {
    try {
      static const SlowToMake only;
      return only.number;
    } catch (const std::runtime_error&) {
      continue;
    }
  }
}

}  // namespace

extern "C" {

__declspec(dllexport) int ProbeNestedCatches() {
  return NestedCatches();
}

__declspec(dllexport) int ProbeLibraryExceptions() {
  return LibraryExceptions();
}

__declspec(dllexport) int ProbeSharedStatic() {
  return SharedStatic();
}

// Whether the last error that the program set outlives handling an exception.
__declspec(dllexport) int ProbeLastErrorKept() {
  try {
    throw 1;
  } catch (int) {
    SetLastError(ERROR_FILE_NOT_FOUND);
    return std::current_exception() != nullptr && GetLastError() == ERROR_FILE_NOT_FOUND;
  }
}

}  // extern "C"
