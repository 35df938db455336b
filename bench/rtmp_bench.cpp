#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <new>

#include "rtmp/wire/AMF0Serializer.h"
#include "rtmp/wire/MediaTags.h"
#include "rtmp/wire/RTMPChunkBuffer.h"
#include "rtmp/wire/RTMPChunkReader.h"

namespace {
std::size_t allocations = 0;
}

[[gnu::noinline]] void* operator new(std::size_t size) {
  ++allocations;
  if (void* memory = std::malloc(size > 0 ? size : 1)) return memory;
  throw std::bad_alloc();
}
[[gnu::noinline]] void operator delete(void* memory) noexcept {
  std::free(memory);
}
[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept {
  std::free(memory);
}

namespace {

using namespace vellora;

constexpr std::size_t frameLength = 1'000'000;

Bytes frame() {
  Bytes bytes(frameLength);
  for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<std::uint8_t>(i * 31 + i / 256);
  return bytes;
}

/// The allocations of what ran since `before`, for each of `count` things.
void report(benchmark::State& state, const char* name, std::size_t before, std::size_t count) {
  state.counters[name] =
      static_cast<double>(allocations - before) / static_cast<double>(std::max<std::size_t>(count, 1));
}

void reportBytes(benchmark::State& state, std::size_t perIteration) {
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(perIteration));
}

void chunkVideo(benchmark::State& state) {
  const Bytes payload = frame();
  RTMPChunkBuffer buffer;
  buffer.setChunkSize(static_cast<std::size_t>(state.range(0)));
  std::size_t chunks = 0;
  const std::size_t before = allocations;
  for (auto _ : state) {
    auto sequence = buffer.putMessage(RTMPChunkType::one, 5, {RTMPMessageType::video, 1, 33, payload});
    for (ByteView chunk = sequence.next(); !chunk.empty(); chunk = sequence.next()) {
      benchmark::DoNotOptimize(chunk.data());
      benchmark::ClobberMemory();
      ++chunks;
    }
  }
  report(state, "allocations/chunk", before, chunks);
  reportBytes(state, payload.size());
}

/// Video of 1 MB with audio in between, as a server sends it.
Bytes conversation(std::size_t chunkSize) {
  RTMPChunkBuffer buffer;
  Bytes sent;
  const auto put = [&](RTMPChunkType type, std::uint16_t id, const RTMPMessageView& message) {
    auto sequence = buffer.putMessage(type, id, message);
    for (ByteView chunk = sequence.next(); !chunk.empty(); chunk = sequence.next()) {
      sent.insert(sent.end(), chunk.begin(), chunk.end());
    }
  };
  const Bytes size{0, static_cast<std::uint8_t>(chunkSize >> 16), static_cast<std::uint8_t>(chunkSize >> 8),
                   static_cast<std::uint8_t>(chunkSize)};
  put(RTMPChunkType::zero, 2, {RTMPMessageType::chunkSize, 0, 0, size});
  buffer.setChunkSize(chunkSize);
  const Bytes video = frame(), audio(400);
  for (int i = 0; i < 4; ++i) {
    put(RTMPChunkType::zero, 5, {RTMPMessageType::video, 1, 33, video});
    put(RTMPChunkType::zero, 4, {RTMPMessageType::audio, 1, 33, audio});
  }
  return sent;
}

void parseChunks(benchmark::State& state) {
  const Bytes sent = conversation(static_cast<std::size_t>(state.range(0)));
  const auto blockLength = static_cast<std::size_t>(state.range(1));
  RTMPChunkReader reader;
  std::size_t messages = 0;
  const RTMPChunkReader::Handler count = [&messages](const RTMPMessage& message, RTMPChunkType) {
    benchmark::DoNotOptimize(&message);
    ++messages;
  };
  const std::size_t before = allocations;
  for (auto _ : state) {
    for (std::size_t at = 0; at < sent.size(); at += blockLength) {
      if (!reader.read(ByteView(sent).subspan(at, std::min(blockLength, sent.size() - at)), count)) std::abort();
    }
  }
  report(state, "allocations/message", before, messages);
  reportBytes(state, sent.size());
}

AMFObject connectArguments() {
  AMFObject object;
  object.set("app", "live");
  object.set("flashVer", "FMLE/3.0 (compatible; FMSc/1.0)");
  object.set("swfUrl", AMFValue());
  object.set("tcUrl", "rtmp://ingest.example.net:1935/live");
  object.set("fpad", false);
  object.set("capabilities", 239);
  object.set("audioCodecs", 1024);
  object.set("videoCodecs", 128);
  object.set("videoFunction", 1);
  object.set("pageUrl", AMFValue());
  object.set("objectEncoding", 0);
  AMFArray codecs;
  codecs.isStrict = true;
  codecs.values = {AMFValue("hvc1"), AMFValue("Opus")};
  object.set("fourCcList", codecs);
  return object;
}

void connectRoundTrip(benchmark::State& state) {
  const AMFObject object = connectArguments();
  for (auto _ : state) {
    AMF0Serializer writer;
    writer.serialize("connect").serialize(1.0).serialize(object);
    AMF0Serializer reader(writer.data());
    while (!reader.atEnd()) {
      auto value = reader.deserialize();
      if (!value) std::abort();
      benchmark::DoNotOptimize(value);
    }
  }
}

void videoTagBody(benchmark::State& state) {
  const Bytes payload = frame();
  const auto codec = state.range(0) == 0 ? RTMPVideoCodec::h264 : RTMPVideoCodec::hevc;
  for (auto _ : state) {
    Bytes body = videoFrameBody(codec, false, std::chrono::milliseconds(66), payload);
    benchmark::DoNotOptimize(body.data());
  }
  reportBytes(state, payload.size());
}

void audioTagBody(benchmark::State& state) {
  const Bytes payload(400);
  for (auto _ : state) {
    Bytes body = audioFrameBody(RTMPAudioCodec::aac, payload);
    benchmark::DoNotOptimize(body.data());
  }
  reportBytes(state, payload.size());
}

BENCHMARK(chunkVideo)->Arg(128)->Arg(4096)->Arg(8192)->Arg(65536);
BENCHMARK(parseChunks)->ArgsProduct({{128, 4096, 8192, 65536}, {1460, 65536}});
BENCHMARK(connectRoundTrip);
BENCHMARK(videoTagBody)->ArgName("hevc")->Arg(0)->Arg(1);
BENCHMARK(audioTagBody);

}  // namespace

BENCHMARK_MAIN();
