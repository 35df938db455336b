#include "base/Log.h"

#include <unistd.h>

#include <atomic>

#include <QByteArray>

namespace vellora::log {
namespace {

std::atomic<Sink> currentSink{nullptr};

Level threshold() {
  static const Level level = [] {
    const QByteArray wanted = qgetenv("VELLORA_LOG").toLower();
    if (wanted == "error") return Level::Error;
    if (wanted == "info") return Level::Info;
    if (wanted == "debug") return Level::Debug;
    return Level::Warning;
  }();
  return level;
}

}  // namespace

void write(Level level, const QString& text) {
  if (level > threshold()) return;
  QString line = QStringLiteral("Vellora: ") + text;
  line.replace(u'\n', u' ').replace(u'\r', u' ');
  if (const Sink sink = currentSink.load()) {
    sink(level, line);
    return;
  }
  QByteArray bytes = line.toUtf8();
  bytes.append('\n');
  // One write per line keeps lines of several threads and processes whole.
  [[maybe_unused]] const auto written = ::write(STDERR_FILENO, bytes.constData(), static_cast<size_t>(bytes.size()));
}

void setSink(Sink sink) {
  currentSink.store(sink);
}

}  // namespace vellora::log
