// How the sanitizers run in a fuzzer: with little memory held back and short histories, which makes
// it several times as fast. The tests run with all of it.
extern "C" const char* __asan_default_options();  // NOLINT(bugprone-reserved-identifier)

extern "C" const char* __asan_default_options() {  // NOLINT(bugprone-reserved-identifier)
  return "halt_on_error=1:detect_stack_use_after_return=0:quarantine_size_mb=1:"
         "thread_local_quarantine_size_kb=64:malloc_context_size=1:max_redzone=64";
}

extern "C" const char* __ubsan_default_options();  // NOLINT(bugprone-reserved-identifier)

extern "C" const char* __ubsan_default_options() {  // NOLINT(bugprone-reserved-identifier)
  return "halt_on_error=1:print_stacktrace=1";
}
