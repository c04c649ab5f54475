// The replaced operator new.
#include "host/watch/fault_plan.h"

#include <cstdlib>
#include <new>

#include "headless/spared_allocations.h"

void* operator new(std::size_t size) {
  auto* const plan = quill::host::allocation_faults;
  if (plan != nullptr && quill::headless::spared_allocations == 0 && plan->Strikes()) {
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
