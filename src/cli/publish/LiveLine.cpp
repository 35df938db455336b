#include "cli/publish/LiveLine.h"

#include <unistd.h>

#include <array>

namespace vellora {
namespace {

template <class... Values>
std::string formatted(const char* format, Values... values) {
  std::array<char, 160> text{};
  std::snprintf(text.data(), text.size(), format, values...);
  return text.data();
}

std::string rateText(double bitsPerSecond) {
  if (bitsPerSecond >= 1e6) return formatted("%.1f Mbit/s", bitsPerSecond / 1e6);
  return formatted("%.0f kbit/s", bitsPerSecond / 1e3);
}

}  // namespace

std::string mediaTimeText(std::chrono::microseconds time) {
  const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(time).count();
  const long long hours = seconds / 3600;
  const long long minutes = seconds / 60 % 60;
  if (hours > 0) return formatted("%lld:%02lld:%02lld", hours, minutes, static_cast<long long>(seconds % 60));
  return formatted("%02lld:%02lld", minutes, static_cast<long long>(seconds % 60));
}

std::string liveText(const PublishProgress& progress, double bitsPerSecond) {
  return mediaTimeText(progress.time) + "  " + rateText(bitsPerSecond) +
         formatted("  queue %lld ms  dropped %llu", static_cast<long long>(progress.queued.count()),
                   static_cast<unsigned long long>(progress.droppedFrames));
}

LiveLine::LiveLine(std::FILE* output)
    : output_(output), isTerminal_(::isatty(::fileno(output)) != 0), lastTime_(std::chrono::steady_clock::now()) {}

std::chrono::seconds LiveLine::interval() const {
  return std::chrono::seconds(isTerminal_ ? 1 : 10);
}

void LiveLine::show(const PublishProgress& progress, Time now) {
  const double seconds = std::chrono::duration<double>(now - lastTime_).count();
  const double bits = 8.0 * static_cast<double>(progress.bytes - lastBytes_);
  const std::string text = liveText(progress, seconds > 0 ? bits / seconds : 0);
  lastTime_ = now;
  lastBytes_ = progress.bytes;
  isShown_ = isTerminal_;
  std::fprintf(output_, isTerminal_ ? "\r%s\x1b[K" : "%s\n", text.c_str());
  std::fflush(output_);
}

void LiveLine::clear() {
  if (!isShown_) return;
  std::fputs("\r\x1b[K", output_);
  std::fflush(output_);
  isShown_ = false;
}

}  // namespace vellora
