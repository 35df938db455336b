#include "media/pictures/GifLzw.h"

#include <algorithm>

namespace vellora {
namespace {

constexpr std::size_t longestBlock = 255;

}  // namespace

GifLzw::GifLzw(int bitsPerPixel, std::vector<std::byte>& file)
    : file_(file), clearCode_(1U << std::max(2, bitsPerPixel)), smallestSize_(std::max(2, bitsPerPixel) + 1) {
  file_.push_back(static_cast<std::byte>(smallestSize_ - 1));
  blockAt_ = file_.size();
  file_.push_back(std::byte{0});
  size_ = smallestSize_;
  clear();
}

void GifLzw::add(std::span<const std::uint8_t> indexes) {
  for (const std::uint8_t index : indexes) {
    if (!hasPrefix_) {
      prefix_ = index;
      hasPrefix_ = true;
      continue;
    }
    const std::uint32_t key = (prefix_ << 8 | index) + 1;
    std::size_t slot = key * 0x9E3779B1U >> 18;
    while (keys_[slot] != 0 && keys_[slot] != key) slot = (slot + 1) % slots;
    if (keys_[slot] == key) {
      prefix_ = codes_[slot];
      continue;
    }
    putCode(prefix_);
    prefix_ = index;
    if (nextCode_ == mostCodes) {
      clear();
      continue;
    }
    // The reader learns a code one step later, when its number no longer fits.
    if (nextCode_ == 1U << size_) ++size_;
    keys_[slot] = key;
    codes_[slot] = static_cast<std::uint16_t>(nextCode_++);
  }
}

void GifLzw::finish() {
  if (hasPrefix_) {
    putCode(prefix_);
    if (nextCode_ < mostCodes && nextCode_ == 1U << size_) ++size_;
  }
  putCode(clearCode_ + 1);
  while (bitCount_ > 0) {
    putByte(static_cast<std::uint8_t>(bits_));
    bits_ >>= 8;
    bitCount_ -= 8;
  }
  endBlock();
  if (file_[blockAt_] != std::byte{0}) file_.push_back(std::byte{0});
}

void GifLzw::putCode(std::uint32_t code) {
  bits_ |= code << bitCount_;
  bitCount_ += size_;
  while (bitCount_ >= 8) {
    putByte(static_cast<std::uint8_t>(bits_));
    bits_ >>= 8;
    bitCount_ -= 8;
  }
}

void GifLzw::putByte(std::uint8_t byte) {
  if (file_.size() - blockAt_ > longestBlock) {
    endBlock();
    blockAt_ = file_.size();
    file_.push_back(std::byte{0});
  }
  file_.push_back(static_cast<std::byte>(byte));
}

void GifLzw::endBlock() {
  file_[blockAt_] = static_cast<std::byte>(file_.size() - blockAt_ - 1);
}

void GifLzw::clear() {
  putCode(clearCode_);
  keys_.fill(0);
  size_ = smallestSize_;
  nextCode_ = clearCode_ + 2;
}

}  // namespace vellora
