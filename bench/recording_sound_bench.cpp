// What recorded sound costs: benchmark names end in the number of channels; "load" is the share of one core that a
// recording takes. With AUDIO_FILE set to a media file, how long its waveform takes.

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdlib>
#include <vector>

#include "media/movies/AudioTrackReader.h"
#include "recording/sound/AudioTimeline.h"
#include "recording/sound/AudioWaveform.h"
#include "recording/sound/PeakScan.h"
#include "recording/sound/VariableResampler.h"
#include "recording/sound/WaveformFile.h"

namespace {

using namespace vellora;

constexpr int rate = AudioChunk::sampleRate;
constexpr std::size_t chunkFrames = rate / 50;

std::vector<float> tone(std::size_t samples) {
  std::vector<float> sound(samples);
  for (std::size_t i = 0; i < samples; ++i) sound[i] = static_cast<float>(0.5 * std::sin(static_cast<double>(i) * 0.1));
  return sound;
}

/// Per second of the processor's time, how many seconds of sound; its inverse is what a recording takes of a core.
void tellLoad(benchmark::State& state, double secondsOfSound) {
  state.counters["load"] =
      benchmark::Counter(secondsOfSound, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void resample(benchmark::State& state) {
  const auto channels = static_cast<std::size_t>(state.range(0));
  VariableResampler resampler(static_cast<int>(channels));
  const auto sound = tone(chunkFrames * channels);
  std::vector<float> out(480 * channels);
  for (auto unused : state) {
    resampler.push(sound);
    while (resampler.pull(out, 1.0003) > 0) benchmark::DoNotOptimize(out.data());
  }
  tellLoad(state, 0.02);
}
BENCHMARK(resample)->Arg(1)->Arg(2);

void timeline(benchmark::State& state) {
  const auto channels = static_cast<std::size_t>(state.range(0));
  float last = 0;
  AudioTimeline timeline(static_cast<int>(channels),
                         [&](std::span<const float> samples, double) { last = samples[0]; });
  const auto sound = tone(chunkFrames * channels);
  double time = 100;
  timeline.begin(time);
  for (auto unused : state) {
    timeline.append({.channels = static_cast<int>(channels), .samples = sound, .hostTime = time});
    timeline.advance(time);
    time += 0.02 * (1 + 300e-6);
    benchmark::DoNotOptimize(last);
  }
  tellLoad(state, 0.02);
}
BENCHMARK(timeline)->Arg(1)->Arg(2);

void peaks(benchmark::State& state) {
  const auto sound = tone(std::size_t{rate} * 60);
  for (auto unused : state) {
    AudioWaveform::PeakAccumulator peaks(rate, 1, AudioWaveform::samplesPerSecond);
    peaks.append(sound);
    benchmark::DoNotOptimize(peaks.finish().data());
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * sound.size() * sizeof(float)));
}
BENCHMARK(peaks)->Unit(benchmark::kMicrosecond);

void waveformOfFile(benchmark::State& state) {
  const char* file = std::getenv("AUDIO_FILE");
  if (file == nullptr) return state.SkipWithError("AUDIO_FILE is not set");
  for (auto unused : state) {
    auto reader = AudioTrackReader::open(file);
    if (!reader) return state.SkipWithError(reader.error().message.c_str());
    const auto envelope = AudioWaveform::envelope(AudioWaveform::extract(**reader, AudioWaveform::samplesPerSecond));
    const QByteArray text = WaveformFile::serialize(envelope.linearLevels, AudioWaveform::samplesPerSecond);
    state.counters["windows"] = static_cast<double>(envelope.linearLevels.size());
    state.counters["bytes"] = static_cast<double>(text.size());
  }
}
BENCHMARK(waveformOfFile)->Unit(benchmark::kSecond)->Iterations(1);

}  // namespace

BENCHMARK_MAIN();
