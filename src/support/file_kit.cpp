#include "support/file_kit.h"

#include <utility>

namespace quill {
IniElements IniElementsOf(std::vector<Text> elements) {
  const std::size_t count = elements.size();
  return {count, [kept = std::move(elements)](std::size_t index) { return kept.at(index); }};
}

}  // namespace quill
