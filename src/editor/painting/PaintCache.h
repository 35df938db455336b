#pragma once

#include <cstdint>
#include <memory>
#include <utility>

#include <QCache>

#include "editor/painting/Ink.h"
#include "editor/painting/LaidOutText.h"

namespace vellora {

/// What drawing needs that takes time to make, for what was drawn last. One a thread: neither paths nor fonts can be
/// drawn from two threads at once. Bounded; found by content, so that a changed annotation never meets the old one's.
class PaintCache {
 public:
  static PaintCache& ofThisThread();

  std::shared_ptr<const LaidOutText> text(const TextSetting& setting);
  std::shared_ptr<const Ink> ink(const Annotation& annotation, const Measures& measures);

 private:
  static constexpr qsizetype mostCharacters = 200'000;
  static constexpr qsizetype mostPathElements = 400'000;  ///< of 24 bytes

  /// 128 bits of everything the ink depends on: no two annotations share them but by a chance that never comes.
  using InkKey = std::pair<std::uint64_t, std::uint64_t>;
  static InkKey keyOf(const Annotation& annotation, const Measures& measures);

  QCache<TextSetting, std::shared_ptr<const LaidOutText>> texts_{mostCharacters};
  QCache<InkKey, std::shared_ptr<const Ink>> inks_{mostPathElements};
};

}  // namespace vellora
