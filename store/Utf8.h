#pragma once

#include <cstdint>
#include <string_view>

namespace gattr {

/// Whether \p text is well-formed UTF-8: shortest forms only, no surrogates, nothing above U+10FFFF.
inline bool IsUtf8(std::string_view text) {
  for (std::size_t i = 0; i < text.size();) {
    auto const byte = static_cast<unsigned char>(text[i++]);
    if (byte < 0x80) { continue; }
    int const more = byte >= 0xF0 ? 3 : byte >= 0xE0 ? 2 : 1;
    if (byte < 0xC2 || byte > 0xF4 || text.size() - i < static_cast<std::size_t>(more)) { return false; }
    std::uint32_t point = byte & (0x3FU >> more);
    for (int k = 0; k < more; ++k) {
      auto const next = static_cast<unsigned char>(text[i++]);
      if ((next & 0xC0U) != 0x80) { return false; }
      point = point << 6 | (next & 0x3FU);
    }
    constexpr std::uint32_t kLeast[] = {0, 0x80, 0x800, 0x10000};
    if (point < kLeast[more] || (point >= 0xD800 && point <= 0xDFFF) || point > 0x10FFFF) { return false; }
  }
  return true;
}

}  // namespace gattr
