#pragma once

#include <optional>
#include <vector>

#include "base/Color.h"
#include "platform/PreferenceStore.h"

namespace vellora {

/// The person's own colours beside the palette, at most four, kept under "customColors" in the order added: one array
/// of red, green, blue, alpha a colour. Read once, on first use; every change is written at once. Main thread.
class CustomColors {
 public:
  static constexpr std::size_t limit = 4;

  explicit CustomColors(PreferenceStore& preferences) : preferences_(preferences) {}

  const std::vector<ColorComponents>& colors();
  /// The new colour's index; nothing when there are four already.
  std::optional<std::size_t> add(const ColorComponents& color);
  void update(const ColorComponents& color, std::size_t index);
  void remove(std::size_t index);

 private:
  void save();

  PreferenceStore& preferences_;
  std::optional<std::vector<ColorComponents>> colors_;
};

}  // namespace vellora
