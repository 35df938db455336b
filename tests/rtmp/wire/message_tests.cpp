#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>
#include <string>
#include <vector>

#include "rtmp/wire/AMF0Serializer.h"
#include "rtmp/wire/RTMPMessage.h"

namespace vellora {
namespace {

using Event = RTMPUserControlMessage::Event;
using Limit = RTMPSetPeerBandwidthMessage::Limit;

std::optional<RTMPMessage> read(RTMPMessageType type, Bytes payload) {
  return messageFrom(static_cast<std::uint8_t>(type), 1, 40, std::move(payload));
}

/// What `message` is after a journey; fails the test when it cannot be read, or not to the same payload.
template <class Record>
Record received(const Record& message) {
  auto record = read(message.type(), message.payload);
  if (!record || !std::holds_alternative<Record>(*record)) throw std::runtime_error("not read");
  EXPECT_EQ(std::get<Record>(*record).payload, message.payload);
  EXPECT_EQ(viewOf(*record).type, message.type());
  return std::get<Record>(*record);
}

Bytes command(double transactionId, const AMFValue& object) {
  return AMF0Serializer().serialize("_result").serialize(transactionId).serialize(object).takeData();
}

RTMPCommandMessage commandOf(const Bytes& payload, RTMPMessageType type = RTMPMessageType::amf0Command) {
  return std::get<RTMPCommandMessage>(read(type, payload).value());
}

TEST(RTMPMessages, ControlMessagesHaveTheirPayloads) {
  EXPECT_EQ(RTMPSetChunkSizeMessage(8192).payload, (Bytes{0, 0, 0x20, 0}));
  EXPECT_EQ(RTMPAbortMessge(5).payload, (Bytes{0, 0, 0, 5}));
  EXPECT_EQ(RTMPAcknowledgementMessage(0xFFFFFFFE).payload, (Bytes{0xFF, 0xFF, 0xFF, 0xFE}));
  EXPECT_EQ(RTMPWindowAcknowledgementSizeMessage(250000).payload, (Bytes{0, 3, 0xD0, 0x90}));
  EXPECT_EQ(RTMPSetPeerBandwidthMessage(250000, Limit::dynamic).payload, (Bytes{0, 3, 0xD0, 0x90, 2}));
  EXPECT_EQ(RTMPUserControlMessage(Event::ping, 1000).payload, (Bytes{0, 6, 0, 0, 3, 0xE8}));
  EXPECT_EQ(RTMPUserControlMessage(Event::bufferFull, -2).payload, (Bytes{0, 32, 0xFF, 0xFF, 0xFF, 0xFE}));

  EXPECT_EQ(received(RTMPSetChunkSizeMessage(8192)).size, 8192U);
  EXPECT_EQ(received(RTMPAbortMessge(5)).chunkStreamId, 5U);
  EXPECT_EQ(received(RTMPAcknowledgementMessage(0xFFFFFFFE)).sequence, 0xFFFFFFFEU);
  EXPECT_EQ(received(RTMPWindowAcknowledgementSizeMessage(250000)).size, 250000U);
  EXPECT_EQ(received(RTMPSetPeerBandwidthMessage(250000, Limit::dynamic)).limit, Limit::dynamic);
  EXPECT_EQ(received(RTMPSetPeerBandwidthMessage(250000, Limit::dynamic)).size, 250000U);
  EXPECT_EQ(received(RTMPUserControlMessage(Event::bufferFull, -2)).event, Event::bufferFull);
  EXPECT_EQ(received(RTMPUserControlMessage(Event::bufferFull, -2)).value, -2);
}

TEST(RTMPMessages, UnknownLimitsAndEventsAreToldAsSuch) {
  const auto limitOf = [](std::uint8_t byte) {
    return std::get<RTMPSetPeerBandwidthMessage>(*read(RTMPMessageType::bandwidth, {0, 0, 0, 1, byte})).limit;
  };
  EXPECT_EQ(limitOf(0), Limit::hard);
  EXPECT_EQ(limitOf(3), Limit::unknown);
  EXPECT_EQ(limitOf(255), Limit::unknown);

  int known = 0;
  for (int id = 0; id < 0x300; ++id) {
    const Bytes payload{static_cast<std::uint8_t>(id >> 8), static_cast<std::uint8_t>(id), 0, 0, 0, 9};
    const Event event = std::get<RTMPUserControlMessage>(*read(RTMPMessageType::user, payload)).event;
    if (event == Event::unknown) continue;
    ++known;
    EXPECT_EQ(static_cast<int>(event), id);
  }
  EXPECT_EQ(known, 9);
  // The length of a buffer stands behind the stream it is for.
  const auto buffer = read(RTMPMessageType::user, {0, 3, 0, 0, 0, 1, 0, 0, 0x0B, 0xB8});
  EXPECT_EQ(std::get<RTMPUserControlMessage>(*buffer).value, 1);
}

TEST(RTMPMessages, OnlyKnownTypesMakeMessages) {
  const Bytes tag{0x17, 1, 2, 3};
  std::vector<int> made;
  for (int id = 0; id <= 255; ++id) {
    if (messageTypeFrom(static_cast<std::uint8_t>(id))) made.push_back(id);
    if (!messageTypeFrom(static_cast<std::uint8_t>(id))) {
      EXPECT_FALSE(messageFrom(static_cast<std::uint8_t>(id), 0, 0, tag));
    }
  }
  EXPECT_EQ(made, (std::vector<int>{1, 2, 3, 4, 5, 6, 8, 9, 15, 16, 17, 18, 19, 20, 22}));

  for (const auto type : {RTMPMessageType::audio, RTMPMessageType::video, RTMPMessageType::aggregate}) {
    for (const Bytes& payload : {tag, Bytes{}}) {
      const auto message = read(type, payload);
      ASSERT_TRUE(message);
      const RTMPMessageView view = viewOf(*message);
      EXPECT_EQ(view.type, type);
      EXPECT_EQ(view.streamId, 1U);
      EXPECT_EQ(view.timestamp, 40U);
      EXPECT_EQ(Bytes(view.payload.begin(), view.payload.end()), payload);
    }
  }
}

TEST(RTMPMessages, PayloadsThatEndEarlyMakeNoMessage) {
  const RTMPCommandMessage call(1, 4, RTMPObjectEncoding::amf0, "publish", AMFObject{{"a", true}}, {"key", "live"});
  const RTMPDataMessage data(RTMPObjectEncoding::amf3, 1, 0, "onMetaData", {AMFObject{{"width", 64}}});
  const RTMPSharedObjectMessage shared(RTMPObjectEncoding::amf3, 0, "board", 3, {}, {{4, "color", {0x01, 1}}, {8}});
  const RTMPUserControlMessage ping(Event::ping, 1000);
  const RTMPSetPeerBandwidthMessage bandwidth(1, Limit::soft);
  const RTMPAcknowledgementMessage ack(1);
  const std::vector<RTMPMessageView> whole{viewOf(call), viewOf(data),      viewOf(shared),
                                           viewOf(ping), viewOf(bandwidth), viewOf(ack)};
  for (const RTMPMessageView& view : whole) {
    std::vector<std::size_t> readable;
    for (std::size_t length = 0; length <= view.payload.size(); ++length) {
      const ByteView part = view.payload.first(length);
      if (read(view.type, Bytes(part.begin(), part.end()))) readable.push_back(view.payload.size() - length);
    }
    // Lists may end behind any of their entries.
    std::vector<std::size_t> expected{0};
    if (view.type == call.type()) expected = {22, 13, 7, 0};
    if (view.type == data.type()) expected = {20, 0};
    if (view.type == shared.type()) expected = {19, 5, 0};
    EXPECT_EQ(readable, expected) << static_cast<int>(view.type);
  }
}

TEST(RTMPCommands, AreWrittenAsPublished) {
  const RTMPCommandMessage message(0, 4, RTMPObjectEncoding::amf0, "call", std::nullopt, {"x", 1});
  const Bytes values{0x02, 0,    4, 'c', 'a', 'l', 'l',  0x00, 0x40, 0x10, 0, 0, 0, 0, 0,
                     0,    0x05, 2, 0,   1,   'x', 0x00, 0x3F, 0xF0, 0,    0, 0, 0, 0, 0};
  EXPECT_EQ(message.payload, values);
  EXPECT_EQ(message.type(), RTMPMessageType::amf0Command);

  const RTMPCommandMessage amf3(0, 4, RTMPObjectEncoding::amf3, "call", std::nullopt, {"x", 1});
  Bytes prefixed{0x00};
  prefixed.insert(prefixed.end(), values.begin(), values.end());
  EXPECT_EQ(amf3.payload, prefixed);
  EXPECT_EQ(amf3.type(), RTMPMessageType::amf3Command);

  for (const auto& each : {received(message), received(amf3), commandOf(values, RTMPMessageType::amf3Command)}) {
    EXPECT_EQ(each.commandName, "call");
    EXPECT_EQ(each.transactionId, 4);
    EXPECT_FALSE(each.commandObject);
    EXPECT_EQ(each.arguments, (std::vector<AMFValue>{"x", 1}));
  }
  EXPECT_EQ(received(amf3).objectEncoding, RTMPObjectEncoding::amf3);
}

TEST(RTMPCommands, TransactionIdsOfAnySizeAreRead) {
  constexpr std::int64_t highest = std::int64_t{1} << 53;
  const double infinity = std::numeric_limits<double>::infinity();
  EXPECT_EQ(commandOf(command(7, nullptr)).transactionId, 7);
  EXPECT_EQ(commandOf(command(-0.5, nullptr)).transactionId, 0);
  EXPECT_EQ(commandOf(command(1e300, nullptr)).transactionId, highest);
  EXPECT_EQ(commandOf(command(-infinity, nullptr)).transactionId, -highest);
  EXPECT_EQ(commandOf(command(std::numeric_limits<double>::quiet_NaN(), nullptr)).transactionId, 0);
}

TEST(RTMPCommands, CommandObjectsOfAnyKindAreRead) {
  const AMFObject object{{"fmsVer", "FMS/3,0"}};
  AMFArray array;
  array.named = object;
  EXPECT_EQ(commandOf(command(1, object)).commandObject, object);
  EXPECT_EQ(commandOf(command(1, array)).commandObject, object);
  for (const AMFValue& none : {AMFValue(), AMFValue(nullptr), AMFValue(1), AMFValue("text"), AMFValue(Bytes{1})}) {
    EXPECT_FALSE(commandOf(command(1, none)).commandObject);
  }
}

TEST(RTMPCommands, BrokenValuesMakeNoMessage) {
  Bytes payload = command(1, nullptr);
  payload.push_back(0x0E);
  EXPECT_FALSE(read(RTMPMessageType::amf0Command, payload));
  EXPECT_FALSE(read(RTMPMessageType::amf0Command, AMF0Serializer().serialize(1.0).serialize(1.0).takeData()));
  EXPECT_FALSE(read(RTMPMessageType::amf0Command, AMF0Serializer().serialize("a").serialize("b").takeData()));
  EXPECT_FALSE(read(RTMPMessageType::amf0Data, AMF0Serializer().serialize(nullptr).takeData()));
}

TEST(RTMPData, NamesAHandlerAndItsArguments) {
  AMFArray metadata;
  metadata.named.set("width", 1920);
  for (const auto encoding : {RTMPObjectEncoding::amf0, RTMPObjectEncoding::amf3}) {
    const RTMPDataMessage sent(encoding, 1, 40, "@setDataFrame", {"onMetaData", metadata});
    EXPECT_EQ(sent.payload.size() -
                  AMF0Serializer().serialize("@setDataFrame").serialize("onMetaData").serialize(metadata).data().size(),
              encoding == RTMPObjectEncoding::amf3 ? 1U : 0U);
    const RTMPDataMessage message = received(sent);
    EXPECT_EQ(message.handlerName, "@setDataFrame");
    EXPECT_EQ(message.arguments, (std::vector<AMFValue>{"onMetaData", metadata}));
  }
}

TEST(RTMPSharedObjects, KeepNameVersionFlagsAndEvents) {
  const Bytes payload{0, 5, 'b', 'o', 'a', 'r', 'd', 0,   0,  1, 2, 0, 0, 0, 2, 0, 0, 0, 0,  // name, version, flags
                      1, 0, 0,   0,   0,                                                     // use
                      4, 0, 0,   0,   5,   0,   1,   'c', 1,  1,                             // change c to true
                      6, 0, 0,   0,   4,   2,   0,   1,   's'};  // a message, which has no name
  for (const auto type : {RTMPMessageType::amf0Shared, RTMPMessageType::amf3Shared}) {
    Bytes sent = payload;
    if (type == RTMPMessageType::amf3Shared) sent.insert(sent.begin(), 0);
    const auto record = read(type, sent);
    ASSERT_TRUE(record);
    const auto& message = std::get<RTMPSharedObjectMessage>(*record);
    EXPECT_EQ(message.sharedObjectName, "board");
    EXPECT_EQ(message.currentVersion, 258U);
    EXPECT_EQ(message.flags, (Bytes{0, 0, 0, 2, 0, 0, 0, 0}));
    ASSERT_EQ(message.events.size(), 3U);
    EXPECT_FALSE(message.events[0].name);
    EXPECT_EQ(message.events[1].name, "c");
    EXPECT_EQ(message.events[1].data, (Bytes{1, 1}));
    EXPECT_FALSE(message.events[2].name);
    EXPECT_EQ(RTMPSharedObjectMessage(message.objectEncoding, 40, "board", 258, message.flags, message.events).payload,
              sent);
  }
  Bytes endless = payload;
  endless.insert(endless.end(), {1, 0xFF, 0xFF, 0xFF, 0xFF, 0});
  EXPECT_FALSE(read(RTMPMessageType::amf0Shared, endless));
  Bytes many(payload.begin(), payload.begin() + 19);
  many.resize(many.size() + 5 * (RTMPSharedObjectMessage::maximumEvents + 1));
  EXPECT_FALSE(read(RTMPMessageType::amf0Shared, many));
}

}  // namespace
}  // namespace vellora
