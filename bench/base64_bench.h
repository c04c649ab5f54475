// Base64 both ways, from short fields to a whole mebibyte, beside other coders.
#pragma once

#include <cstddef>

namespace quill::bench {

// Characters of the plain text.
inline constexpr std::size_t kTextSizes[] = {8, 24, 85, 1024, 1024 * 1024};
inline constexpr std::size_t kLongestField = 85;

// Measures "encode/SIZE/CODER" and "decode/SIZE/CODER", once for each of the other coders and once
// for "ours": from UTF-16 text by way of the code page's bytes to UTF-16 text, and back.
void RegisterBase64();

}  // namespace quill::bench
