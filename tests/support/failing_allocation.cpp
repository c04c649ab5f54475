#include "tests/support/failing_allocation.h"

#include <cstdlib>
#include <new>

namespace {

constexpr int kNoLimit = -1;
int allocations_left = kNoLimit;
bool struck = false;

}  // namespace

void* operator new(std::size_t size) {
  if (allocations_left == 0) {
    struck = true;
    throw std::bad_alloc();
  }
  if (allocations_left > 0) --allocations_left;
  if (void* block = std::malloc(size == 0 ? 1 : size)) return block;
  throw std::bad_alloc();
}

void operator delete(void* block) noexcept {
  std::free(block);
}
void operator delete(void* block, std::size_t) noexcept {
  std::free(block);
}

namespace quill {

FailingAllocation::FailingAllocation(int allowed) noexcept {
  struck = false;
  allocations_left = allowed;
}
FailingAllocation::~FailingAllocation() {
  allocations_left = kNoLimit;
}
bool FailingAllocation::Struck() const noexcept {
  return struck;
}

}  // namespace quill
