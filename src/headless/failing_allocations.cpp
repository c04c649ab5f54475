// The replaced operator new.
#include "headless/failing_allocations.h"

#include <cstdlib>
#include <new>

void* operator new(std::size_t size) {
  auto& faults = quill::headless::allocation_faults;
  if (faults.plan != nullptr && faults.spared == 0 && faults.plan->Strikes()) {
    throw std::bad_alloc();
  }
  if (void* block = std::malloc(size == 0 ? 1 : size)) return block;
  throw std::bad_alloc();
}

void operator delete(void* block) noexcept {
  std::free(block);
}
void operator delete(void* block, std::size_t) noexcept {
  std::free(block);
}
