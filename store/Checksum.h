#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>

namespace gattr {

/// The cyclic redundancy check CRC-32 (ISO-HDLC: reflected, polynomial 0x04C11DB7), sixteen bytes at a time after M. E.
/// Kounavis and F. L. Berry, "Novel Table Lookup-Based Algorithms for High-Performance CRC Generation", IEEE Transactions
/// on Computers 57 (2008). It notices every single flipped byte.
class Checksum {
public:
  /// Takes in bytes and how many they are, so that what stands in one field cannot move into the next.
  Checksum& Add(std::string_view bytes) { return Add(bytes.size()).Continue(bytes); }
  /// Takes in the next bytes of one field: in pieces as at once.
  Checksum& Continue(std::string_view bytes) {
    for (; bytes.size() >= 16; bytes.remove_prefix(16)) { value_ = After<16>(Word(bytes), value_) ^ After<8>(Word(bytes.substr(8)), 0); }
    if (bytes.size() >= 8) {
      Take(Word(bytes));
      bytes.remove_prefix(8);
    }
    for (char const byte : bytes) { value_ = kTables[0][(value_ ^ static_cast<unsigned char>(byte)) & 0xFF] ^ value_ >> 8; }
    return *this;
  }
  Checksum& Add(std::uint64_t number) {
    Take(number);
    return *this;
  }
  std::uint32_t Value() const { return ~value_; }
  friend bool operator==(Checksum const&, Checksum const&) = default;

private:
  using Tables = std::array<std::array<std::uint32_t, 256>, 16>;
  /// What a byte does to the sum when that many bytes follow it.
  static constexpr Tables kTables = [] {
    Tables tables{};
    for (std::uint32_t i = 0; i < 256; ++i) {
      tables[0][i] = i;
      for (int bit = 0; bit < 8; ++bit) { tables[0][i] = tables[0][i] >> 1 ^ ((tables[0][i] & 1U) != 0 ? 0xEDB88320U : 0U); }
    }
    for (std::size_t after = 1; after < tables.size(); ++after) {
      for (std::size_t i = 0; i < 256; ++i) {
        std::uint32_t const before = tables[after - 1][i];
        tables[after][i] = tables[0][before & 0xFF] ^ before >> 8;
      }
    }
    return tables;
  }();

  static std::uint64_t Word(std::string_view bytes) {
    return [bytes]<std::size_t... byte>(std::index_sequence<byte...>) {
      return ((std::uint64_t{static_cast<unsigned char>(bytes[byte])} << (8 * byte)) | ...);
    }
    (std::make_index_sequence<8>());
  }
  /// What the sum \p before and eight bytes make, with \p size bytes from the first of them on.
  template <std::size_t size> static std::uint32_t After(std::uint64_t word, std::uint32_t before) {
    word ^= before;
    return [word]<std::size_t... byte>(std::index_sequence<byte...>) { return (kTables[size - 1 - byte][word >> (8 * byte) & 0xFF] ^ ...); }
    (std::make_index_sequence<8>());
  }
  void Take(std::uint64_t word) { value_ = After<8>(word, value_); }

  std::uint32_t value_ = ~0U;
};

/// Tells one content of a file from others; taken in pieces as at once.
class ContentStamp {
public:
  void Take(std::string_view bytes) {
    size_ += bytes.size();
    sum_.Continue(bytes);
  }
  friend bool operator==(ContentStamp const&, ContentStamp const&) = default;

private:
  std::uint64_t size_ = 0;
  Checksum sum_;
};

}  // namespace gattr
