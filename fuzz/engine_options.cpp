// What the engine calls: the fuzzer, and how the sanitizers run in it: with little memory held back
// and short histories, which makes it several times as fast. The tests run with all of it.
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace quill::fuzz {
void TakeInput(std::string_view input);
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  quill::fuzz::TakeInput({reinterpret_cast<const char*>(data), size});
  return 0;
}

extern "C" const char* __asan_default_options();  // NOLINT(bugprone-reserved-identifier)

extern "C" const char* __asan_default_options() {  // NOLINT(bugprone-reserved-identifier)
  return "halt_on_error=1:detect_stack_use_after_return=0:quarantine_size_mb=1:"
         "thread_local_quarantine_size_kb=64:malloc_context_size=1:max_redzone=64";
}

extern "C" const char* __ubsan_default_options();  // NOLINT(bugprone-reserved-identifier)

extern "C" const char* __ubsan_default_options() {  // NOLINT(bugprone-reserved-identifier)
  return "halt_on_error=1:print_stacktrace=1";
}
