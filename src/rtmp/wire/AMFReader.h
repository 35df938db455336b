#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "rtmp/wire/AMFSerializerError.h"
#include "rtmp/wire/BigEndian.h"
#include "rtmp/wire/Bytes.h"

namespace vellora {

/// Bounds of what is made of AMF data. Both formats keep to the same ones, because a value of one can stand within the
/// other.
struct AMFLimits {
  /// Values within values; the outermost is at depth 1.
  static constexpr int depth = 64;
  /// Values in all, so that short data cannot fill the memory.
  static constexpr std::size_t values = 65536;
  /// Bytes of all keys and texts together: references multiply short data.
  static constexpr std::size_t bytes = 16U << 20;
};

/// Where reading stands in AMF data, and how much has been made of it. Every `read…` says whether it could; if not,
/// `error()` says why.
class AMFReader {
 public:
  AMFReader() = default;
  explicit AMFReader(ByteView data) : data_(data) {}

  std::size_t position() const { return position_; }
  std::size_t remaining() const { return data_.size() - position_; }
  bool atEnd() const { return position_ == data_.size(); }
  /// Goes back (or forth again) to where reading has been before.
  void moveTo(std::size_t position) { position_ = position; }

  AMFSerializerError error() const { return error_; }
  bool fail(AMFSerializerError error) {
    error_ = error;
    return false;
  }
  bool require(std::size_t count) { return count <= remaining() || fail(AMFSerializerError::outOfIndex); }

  template <std::unsigned_integral Number>
  bool read(Number& number) {
    if (!require(sizeof(Number))) return false;
    number = bigEndian<Number>(&data_[position_]);
    position_ += sizeof(Number);
    return true;
  }
  bool read(double& number) {
    std::uint64_t bits = 0;
    if (!read(bits)) return false;
    number = std::bit_cast<double>(bits);
    return true;
  }
  /// The next `count` bytes, which stay where they are.
  bool read(std::size_t count, std::string_view& text) {
    if (!require(count)) return false;
    text = {reinterpret_cast<const char*>(data_.data()) + position_, count};
    position_ += count;
    return true;
  }
  bool nextIs(std::uint8_t byte) const { return position_ < data_.size() && data_[position_] == byte; }
  void skip(std::size_t count) { position_ += count; }

  /// To be asked before so many values, or a copy of so many bytes, are made.
  bool countValues(std::size_t count = 1) {
    if (count > AMFLimits::values - values_) return fail(AMFSerializerError::deserialize);
    values_ += count;
    return true;
  }
  bool countBytes(std::size_t count) {
    if (count > AMFLimits::bytes - bytes_) return fail(AMFSerializerError::deserialize);
    bytes_ += count;
    return true;
  }

 private:
  ByteView data_;
  std::size_t position_ = 0;
  std::size_t values_ = 0;
  std::size_t bytes_ = 0;
  AMFSerializerError error_ = AMFSerializerError::outOfIndex;
};

}  // namespace vellora
