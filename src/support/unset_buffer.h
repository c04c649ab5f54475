// A growing buffer whose new elements are left unset, for those who write over them at once.
#pragma once

#include <memory>
#include <type_traits>
#include <vector>

namespace quill {

template <class T>
struct LeaveUnset : std::allocator<T> {
  static_assert(std::is_trivially_default_constructible_v<T>);
  template <class U>
  struct rebind {
    using other = LeaveUnset<U>;
  };
  // What resize() calls for each new element.
  void construct(T*) noexcept {}
  template <class... Arguments>
  void construct(T* at, Arguments&&... arguments) {
    std::construct_at(at, std::forward<Arguments>(arguments)...);
  }
};

// resize() sets nothing.
template <class T>
using UnsetBuffer = std::vector<T, LeaveUnset<T>>;

}  // namespace quill
