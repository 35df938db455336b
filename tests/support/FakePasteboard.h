#pragma once

#include <optional>
#include <vector>

#include "platform/Pasteboard.h"

namespace vellora::test {

/// A clipboard that remembers what was copied.
class FakePasteboard final : public Pasteboard {
 public:
  bool accepts = true;
  std::vector<PasteboardContent> copies;

  bool write(PasteboardContent content) override {
    if (accepts) copies.push_back(std::move(content));
    return accepts;
  }
  void readImage(std::function<void(std::optional<ImageOffer>)> done) override { done(std::nullopt); }
};

}  // namespace vellora::test
