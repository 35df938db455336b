#include "media/movies/SampleDescription.h"

#include "media/movies/BoxBuffer.h"

namespace vellora {
namespace {

constexpr int bt709 = 1;  // ISO/IEC 23091-2: primaries, transfer and matrix alike
constexpr std::uint32_t dpi72 = 72u << 16;
constexpr int aacFrame = 1024;  // samples

/// The aperture of a picture that is coded larger, by its last column or row, than it is shown. Offsets count from
/// center to center.
void writeAperture(BoxBuffer& to, const VideoDescription& video) {
  to.box("clap", [&] {
    to.number32(static_cast<std::uint32_t>(video.width));
    to.number32(1);
    to.number32(static_cast<std::uint32_t>(video.height));
    to.number32(1);
    to.number32(static_cast<std::uint32_t>(-(video.width & 1)));
    to.number32(2);
    to.number32(static_cast<std::uint32_t>(-(video.height & 1)));
    to.number32(2);
  });
}

/// A descriptor of ISO/IEC 14496-1, 8.3.3, shorter than 128 bytes.
template <class Write>
void descriptor(BoxBuffer& to, int tag, const Write& write) {
  BoxBuffer content;
  write(content);
  to.number8(static_cast<std::uint64_t>(tag));
  to.number8(content.size());
  to.append(content.take());
}

void writeElementaryStream(BoxBuffer& to, const SoundDescription& sound) {
  to.fullBox("esds", 0, 0, [&] {
    descriptor(to, 3, [&](BoxBuffer& stream) {
      stream.number16(0);
      stream.number8(0);
      descriptor(stream, 4, [&](BoxBuffer& decoder) {
        decoder.number8(0x40);        // MPEG-4 audio
        decoder.number8(5 << 2 | 1);  // a stream of sound
        decoder.zeros(3);
        decoder.number32(static_cast<std::uint64_t>(sound.bitRate));
        decoder.number32(static_cast<std::uint64_t>(sound.bitRate));
        descriptor(decoder, 5, [&](BoxBuffer& specific) { specific.append(sound.configuration); });
      });
      descriptor(stream, 6, [](BoxBuffer& layer) { layer.number8(2); });
    });
  });
}

void startEntry(BoxBuffer& to) {
  to.zeros(6);
  to.number16(1);  // data reference
}

}  // namespace

std::vector<std::uint8_t> sampleDescription(const VideoDescription& video) {
  const int codedWidth = video.width + (video.width & 1), codedHeight = video.height + (video.height & 1);
  BoxBuffer to;
  to.fullBox("stsd", 0, 0, [&] {
    to.number32(1);
    to.box(video.isHevc ? "hvc1" : "avc1", [&] {
      startEntry(to);
      to.zeros(16);
      to.number16(static_cast<std::uint64_t>(codedWidth));
      to.number16(static_cast<std::uint64_t>(codedHeight));
      to.number32(dpi72);
      to.number32(dpi72);
      to.number32(0);
      to.number16(1);  // pictures in a sample
      to.zeros(32);    // name of the compressor
      to.number16(24);
      to.number16(0xffff);  // no color table
      to.box(video.isHevc ? "hvcC" : "avcC", [&] { to.append(video.configuration); });
      to.box("colr", [&] {
        to.text("nclc");
        to.number16(bt709);
        to.number16(bt709);
        to.number16(bt709);
      });
      to.box("pasp", [&] {
        to.number32(1);
        to.number32(1);
      });
      if (codedWidth != video.width || codedHeight != video.height) writeAperture(to, video);
    });
  });
  return to.take();
}

std::vector<std::uint8_t> sampleDescription(const SoundDescription& sound) {
  BoxBuffer to;
  to.fullBox("stsd", 0, 0, [&] {
    to.number32(1);
    to.box("mp4a", [&] {
      startEntry(to);
      to.number16(1);  // version
      to.zeros(6);
      to.number16(static_cast<std::uint64_t>(sound.channels));
      to.number16(16);
      to.number16(0xfffe);  // compressed, frames of varying size
      to.number16(0);
      to.number32(static_cast<std::uint64_t>(sound.sampleRate) << 16);
      to.number32(aacFrame);
      to.number32(0);
      to.number32(0);
      to.number32(2);
      to.box("wave", [&] {
        to.box("frma", [&] { to.text("mp4a"); });
        to.box("mp4a", [&] { to.number32(0); });
        writeElementaryStream(to, sound);
        to.number32(8);
        to.number32(0);  // the end
      });
    });
  });
  return to.take();
}

}  // namespace vellora
