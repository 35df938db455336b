#include "media/movies/PacketFormat.h"

#include <algorithm>
#include <climits>
#include <cstring>
#include <span>
#include <utility>

#include "media/movies/NalUnits.h"

namespace vellora {
namespace {

using Bytes = std::span<const std::uint8_t>;

Bytes bytesOf(const AVPacket& packet) {
  return {packet.data, static_cast<std::size_t>(packet.size)};
}

Bytes extradataOf(const AVCodecParameters& codec) {
  return {codec.extradata, codec.extradata == nullptr ? 0 : static_cast<std::size_t>(codec.extradata_size)};
}

bool isRecord(Bytes extradata, NalCodec codec) {
  return extradata.size() >= (codec == NalCodec::h264 ? 7U : 23U) && extradata[0] == 1;
}

class PlainFormat : public PacketFormat {
 public:
  explicit PlainFormat(Bytes extradata) { configuration_.assign(extradata.begin(), extradata.end()); }
  bool apply(AVPacket&) override { return true; }
  bool needsConfiguration() const override { return false; }
};

/// Replaces the packet's bytes by the units, with four-byte lengths.
bool rewrite(AVPacket& packet, std::span<const Bytes> units) {
  std::size_t total = 0;
  for (const Bytes unit : units) total += 4 + unit.size();
  const PacketPointer rewritten(av_packet_alloc());
  if (rewritten == nullptr || total > INT_MAX || av_new_packet(rewritten.get(), static_cast<int>(total)) < 0 ||
      av_packet_copy_props(rewritten.get(), &packet) < 0) {
    return false;
  }
  std::uint8_t* to = rewritten->data;
  for (const Bytes unit : units) {
    for (int shift = 24; shift >= 0; shift -= 8) *to++ = static_cast<std::uint8_t>(unit.size() >> shift);
    std::memcpy(to, unit.data(), unit.size());
    to += unit.size();
  }
  av_packet_unref(&packet);
  av_packet_move_ref(&packet, rewritten.get());
  return true;
}

class NalFormat : public PacketFormat {
 protected:
  explicit NalFormat(NalCodec codec) : codec_(codec) {}

  /// Takes the configuration from the parameter sets among units_; false as long as some are missing.
  bool learn() {
    sets_.collect(units_, codec_);
    auto record = sets_.configuration(codec_);
    if (!record) return false;
    configuration_ = std::move(*record);
    return true;
  }

  const NalCodec codec_;
  std::vector<Bytes> units_;  // of the packet at hand

 private:
  ParameterSets sets_;
};

/// H.264 and HEVC that have lengths already.
class LengthPrefixedFormat : public NalFormat {
 public:
  LengthPrefixedFormat(Bytes record, NalCodec codec)
      : NalFormat(codec),
        current_(record.begin(), record.end()),
        lengthBytes_((record[codec == NalCodec::h264 ? 4 : 21] & 3) + 1) {
    // Without parameter sets in the record, the pictures have them.
    if (!unitsOfConfiguration(record, codec).empty()) configuration_ = current_;
  }

  bool apply(AVPacket& packet) override {
    units_.clear();
    if (!splitLengthPrefixed(bytesOf(packet), lengthBytes_, units_)) return false;
    if (configuration_.empty() && !learn()) return false;
    if (takeChange(packet) || lengthBytes_ != configuredLengthBytes()) return rewrite(packet, units_);
    return true;
  }

 private:
  /// A file that changes its configuration on the way gets the new parameter sets in front of the picture.
  bool takeChange(const AVPacket& packet) {
    std::size_t size = 0;
    const auto* found = av_packet_get_side_data(&packet, AV_PKT_DATA_NEW_EXTRADATA, &size);
    const Bytes record(found, size);
    if (!isRecord(record, codec_) || std::ranges::equal(record, current_)) return false;
    current_.assign(record.begin(), record.end());
    const std::vector<Bytes> sets = unitsOfConfiguration(current_, codec_);
    units_.insert(units_.begin(), sets.begin(), sets.end());
    return configuredLengthBytes() == 4;
  }

  int configuredLengthBytes() const { return (configuration_[codec_ == NalCodec::h264 ? 4 : 21] & 3) + 1; }

  std::vector<std::uint8_t> current_;
  int lengthBytes_;
};

/// H.264 and HEVC as a byte stream with start codes.
class ByteStreamFormat : public NalFormat {
 public:
  ByteStreamFormat(Bytes extradata, NalCodec codec) : NalFormat(codec) {
    splitByteStream(extradata, units_);
    learn();
  }

  bool apply(AVPacket& packet) override {
    units_.clear();
    splitByteStream(bytesOf(packet), units_);
    if (configuration_.empty() && !learn()) return false;
    std::erase_if(units_, [&](Bytes unit) { return roleOf(unit, codec_) == NalRole::delimiter; });
    return !units_.empty() && rewrite(packet, units_);
  }
};

/// AAC with an ADTS header before each frame.
class AdtsFormat : public PacketFormat {
 public:
  explicit AdtsFormat(FilterPointer filter) : filter_(std::move(filter)) {}

  bool apply(AVPacket& packet) override {
    if (av_bsf_send_packet(filter_.get(), &packet) < 0) {
      av_packet_unref(&packet);
      return false;
    }
    if (av_bsf_receive_packet(filter_.get(), &packet) < 0 || packet.size == 0) return false;
    std::size_t size = 0;
    const auto* found = av_packet_get_side_data(&packet, AV_PKT_DATA_NEW_EXTRADATA, &size);
    if (configuration_.empty() && found != nullptr) configuration_.assign(found, found + size);
    return !configuration_.empty();
  }

 private:
  FilterPointer filter_;
};

std::unique_ptr<PacketFormat> adtsFormat(const AVCodecParameters& codec) {
  const AVBitStreamFilter* kind = av_bsf_get_by_name("aac_adtstoasc");
  AVBSFContext* context = nullptr;
  if (kind == nullptr || av_bsf_alloc(kind, &context) < 0) return nullptr;
  FilterPointer filter(context);
  if (avcodec_parameters_copy(filter->par_in, &codec) < 0 || av_bsf_init(filter.get()) < 0) return nullptr;
  return std::make_unique<AdtsFormat>(std::move(filter));
}

}  // namespace

std::unique_ptr<PacketFormat> PacketFormat::create(const AVCodecParameters& codec) {
  const Bytes extradata = extradataOf(codec);
  switch (codec.codec_id) {
    case AV_CODEC_ID_H264:
    case AV_CODEC_ID_HEVC: {
      const NalCodec kind = codec.codec_id == AV_CODEC_ID_H264 ? NalCodec::h264 : NalCodec::hevc;
      if (isRecord(extradata, kind)) return std::make_unique<LengthPrefixedFormat>(extradata, kind);
      return std::make_unique<ByteStreamFormat>(extradata, kind);
    }
    case AV_CODEC_ID_AAC:
      if (extradata.size() < 2) return adtsFormat(codec);
      return std::make_unique<PlainFormat>(extradata);
    default:
      return std::make_unique<PlainFormat>(extradata);
  }
}

}  // namespace vellora
