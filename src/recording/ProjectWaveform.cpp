#include "recording/ProjectWaveform.h"

#include <QFile>

#include "base/AtomicFile.h"
#include "base/Log.h"
#include "record_editor/BundleFiles.h"
#include "recording/sound/WaveformFile.h"

namespace vellora::projectWaveform {

AudioWaveform::Envelope load(Movies& movies, const RecordProjectBundle& bundle, const AudioWaveform::GoesOn& goesOn) {
  const std::filesystem::path video = QFile::encodeName(bundle.videoURL()).toStdString();
  auto envelope = AudioWaveform::load(movies, video, AudioWaveform::samplesPerSecond, goesOn);
  const QString file = bundle.file(bundleFiles::waveform);
  if (envelope.linearLevels.empty() || QFile::exists(file)) return envelope;
  const QByteArray text = WaveformFile::serialize(envelope.linearLevels, AudioWaveform::samplesPerSecond);
  if (const auto written = AtomicFile::write(file, text); !written) {
    log::warning(QStringLiteral("waveform not written: ") + written.error().description());
  }
  return envelope;
}

}  // namespace vellora::projectWaveform
