#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace gattr {

/// The cyclic redundancy check CRC-32 (ISO-HDLC: reflected, polynomial 0x04C11DB7). It notices every single flipped byte.
class Checksum {
public:
  /// Takes in bytes and how many they are, so that what stands in one field cannot move into the next.
  Checksum& Add(std::string_view bytes) {
    Add(bytes.size());
    for (char const byte : bytes) { Take(static_cast<unsigned char>(byte)); }
    return *this;
  }
  Checksum& Add(std::uint64_t number) {
    for (int byte = 0; byte < 8; ++byte) { Take(static_cast<unsigned char>(number >> (8 * byte))); }
    return *this;
  }
  std::uint32_t Value() const { return ~value_; }

private:
  static constexpr std::array<std::uint32_t, 256> kTable = [] {
    std::array<std::uint32_t, 256> table{};
    for (std::uint32_t i = 0; i < table.size(); ++i) {
      table[i] = i;
      for (int bit = 0; bit < 8; ++bit) { table[i] = table[i] >> 1 ^ ((table[i] & 1U) != 0 ? 0xEDB88320U : 0U); }
    }
    return table;
  }();

  void Take(unsigned char byte) { value_ = kTable[(value_ ^ byte) & 0xFFU] ^ value_ >> 8; }

  std::uint32_t value_ = ~0U;
};

}  // namespace gattr
