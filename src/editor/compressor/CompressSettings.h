#pragma once

#include <QString>

#include "editor/compressor/CompressOptions.h"
#include "editor/compressor/CompressionRun.h"
#include "platform/PreferenceStore.h"

namespace vellora {

/// What the compressor's window was last set to. Each value is read on demand, with its default where nothing or
/// something unreadable is stored; numbers out of range come as the nearest in it. Main thread.
class CompressSettings {
 public:
  static constexpr int leastQuality = 1;
  static constexpr int greatestQuality = 100;
  static constexpr int defaultQuality = 75;

  explicit CompressSettings(PreferenceStore& preferences) : preferences_(preferences) {}

  /// "compress.format"
  CompressFormat format() const;
  void setFormat(CompressFormat format);
  /// "compress.quality", percent
  int quality() const;
  void setQuality(int percent);
  /// "compress.resize"
  ResizeLimit resize() const;
  void setResize(ResizeLimit limit);
  /// "compress.resizeCustomEdge", pixels; what is no edge of a picture reads as the default
  int customEdge() const;
  void setCustomEdge(int pixels);
  static bool isEdge(qint64 pixels);
  /// "compress.outputMode": the source's folder as long as there is no other one
  CompressOutputMode outputMode() const;
  void setOutputMode(CompressOutputMode mode);
  /// "compress.outputFolder": empty when none was chosen or it is gone
  QString outputFolder() const;
  void setOutputFolder(const QString& folder);
  /// "compress.keepMetadata"
  bool keepsMetadata() const;
  void setKeepsMetadata(bool keeps);
  /// "compress.keepDates"
  bool keepsDates() const;
  void setKeepsDates(bool keeps);

  CompressOptions options() const;
  /// `pastedFolder`: where pasted pictures go, which lie beside nothing.
  CompressDestination destination(const QString& pastedFolder) const;

 private:
  PreferenceStore& preferences_;
};

}  // namespace vellora
