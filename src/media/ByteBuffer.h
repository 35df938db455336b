#pragma once

#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <span>
#include <utility>

namespace vellora {

/// A growing run of bytes that are not cleared first. Growth that finds no memory leaves the content as it was.
class ByteBuffer {
 public:
  ByteBuffer() = default;
  ByteBuffer(ByteBuffer&& other) noexcept
      : data_(std::exchange(other.data_, nullptr)),
        size_(std::exchange(other.size_, 0)),
        capacity_(std::exchange(other.capacity_, 0)) {}
  ByteBuffer& operator=(ByteBuffer&& other) noexcept {
    std::swap(data_, other.data_);
    std::swap(size_, other.size_);
    std::swap(capacity_, other.capacity_);
    return *this;
  }
  ~ByteBuffer() { std::free(data_); }

  /// Makes room for `more` bytes behind the content; the place to write them, or nullptr when memory is short.
  std::byte* reserve(std::size_t more) {
    if (capacity_ - size_ < more) {
      const std::size_t wanted = size_ + more + size_ / 2;
      void* grown = std::realloc(data_, wanted);
      if (grown == nullptr) return nullptr;
      data_ = static_cast<std::byte*>(grown);
      capacity_ = wanted;
    }
    return data_ + size_;
  }
  /// Takes `count` bytes written at the place `reserve` gave into the content.
  void commit(std::size_t count) { size_ += count; }

  bool append(std::span<const std::byte> bytes) {
    std::byte* place = reserve(bytes.size());
    if (place == nullptr) return false;
    std::memcpy(place, bytes.data(), bytes.size());
    commit(bytes.size());
    return true;
  }

  std::span<const std::byte> bytes() const { return {data_, size_}; }
  std::size_t size() const { return size_; }

 private:
  std::byte* data_ = nullptr;
  std::size_t size_ = 0;
  std::size_t capacity_ = 0;
};

}  // namespace vellora
