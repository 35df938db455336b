#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include "rtmp/wire/AMF0Serializer.h"

namespace vellora {
namespace {

using Error = AMFSerializerError;

Bytes operator+(Bytes bytes, const Bytes& more) {
  bytes.insert(bytes.end(), more.begin(), more.end());
  return bytes;
}

Bytes bytesOf(std::string_view text) {
  return {text.begin(), text.end()};
}

Bytes written(const AMFValue& value) {
  return AMF0Serializer().serialize(value).takeData();
}

/// The only value of `data`.
Result<AMFValue, Error> read(const Bytes& data) {
  AMF0Serializer serializer(data);
  auto value = serializer.deserialize();
  EXPECT_TRUE(!value || serializer.atEnd()) << serializer.position() << " of " << data.size();
  return value;
}

AMFArray strict(std::vector<AMFValue> values) {
  AMFArray array;
  array.values = std::move(values);
  array.isStrict = true;
  return array;
}

const Bytes objectA1{0x03, 0, 1, 'a', 0x00, 0x3F, 0xF0, 0, 0, 0, 0, 0, 0, 0, 0, 0x09};  // {a: 1}

TEST(AMF0, WritesAndReadsEveryKindAsPublished) {
  AMFObject typed{{"a", 1.0}};
  typed.className = "Cls";
  AMFArray named;
  named.values = {true};
  named.named.set("n", AMFNull());
  const struct {
    AMFValue value;
    Bytes bytes;
  } cases[] = {
      {1.0, {0x00, 0x3F, 0xF0, 0, 0, 0, 0, 0, 0}},
      {-0.0, {0x00, 0x80, 0, 0, 0, 0, 0, 0, 0}},
      {std::numeric_limits<double>::infinity(), {0x00, 0x7F, 0xF0, 0, 0, 0, 0, 0, 0}},
      {std::numeric_limits<double>::quiet_NaN(), {0x00, 0x7F, 0xF8, 0, 0, 0, 0, 0, 0}},
      {true, {0x01, 1}},
      {false, {0x01, 0}},
      {"live", {0x02, 0, 4, 'l', 'i', 'v', 'e'}},
      {"\xC3(\xFF", {0x02, 0, 3, 0xC3, '(', 0xFF}},
      {AMFObject{{"a", 1.0}}, objectA1},
      {AMFObject{{"", true}, {"b", AMFObject{}}}, {0x03, 0, 0, 0x01, 1, 0, 1, 'b', 0x03, 0, 0, 0x09, 0, 0, 0x09}},
      {nullptr, {0x05}},
      {AMFValue(), {0x06}},
      {named, {0x08, 0, 0, 0, 2, 0, 1, '0', 0x01, 1, 0, 1, 'n', 0x05, 0, 0, 0x09}},
      {strict({true, nullptr}), {0x0A, 0, 0, 0, 2, 0x01, 1, 0x05}},
      {AMFDate{1.0}, {0x0B, 0x3F, 0xF0, 0, 0, 0, 0, 0, 0, 0, 0}},
      {AMFUnsupported{}, {0x0D}},
      {AMFXML{"<a/>"}, {0x0F, 0, 0, 0, 4, '<', 'a', '/', '>'}},
      {typed, Bytes{0x10, 0, 3, 'C', 'l', 's'} + Bytes(objectA1.begin() + 1, objectA1.end())},
      {Bytes{1, 2}, {0x11, 0x0C, 0x05, 1, 2}},
  };
  for (const auto& each : cases) {
    EXPECT_EQ(written(each.value), each.bytes);
    const auto value = read(each.bytes);
    ASSERT_TRUE(value) << int{each.bytes[0]};
    EXPECT_EQ(value->storage().index(), each.value.storage().index());
    EXPECT_EQ(written(*value), each.bytes);
  }
}

TEST(AMF0, LongTextChangesItsMarkerAndShortOnesAreCutBetweenCharacters) {
  const std::string longest(65535, 'x');
  EXPECT_EQ(written(longest).front(), 0x02);
  const std::string longer = longest + "x";
  EXPECT_EQ(written(longer).front(), 0x0C);
  EXPECT_EQ(read(written(longer))->text(), longer);

  const auto keyLength = [](const std::string& text) {
    const Bytes data = AMF0Serializer().serializeUTF(text).takeData();
    return AMF0Serializer(data).deserializeUTF()->size();
  };
  const std::string most = longest.substr(2);
  EXPECT_EQ(keyLength(most + "ab"), 65535U);
  EXPECT_EQ(keyLength(most + "a\xC3\xA4"), 65534U);
  EXPECT_EQ(keyLength(most + "\xF0\x9F\x8C\x8A"), 65533U);
  EXPECT_EQ(keyLength(std::string(70000, '\x80')), 65535U) << "no characters to cut between";
}

TEST(AMF0, ECMAArraysKeepTheirOrderAndIgnoreTheirCount) {
  const Bytes end{0, 0, 0x09};
  const Bytes zero{0, 1, '0', 0x01, 1}, one{0, 1, '1', 0x05}, name{0, 1, 'n', 0x06};
  for (const std::uint8_t count : Bytes{0, 1, 255}) {
    const auto value = read(Bytes{0x08, count, 0, 0, count} + zero + one + name + end);
    ASSERT_TRUE(value);
    const auto* array = value->as<AMFArray>();
    EXPECT_FALSE(array->isStrict);
    EXPECT_EQ(array->values, (std::vector<AMFValue>{true, nullptr}));
    EXPECT_EQ(array->named.properties().size(), 1U);
  }
  for (const Bytes& order : {name + zero + one, one + zero, zero + name + one}) {
    const Bytes data = Bytes{0x08, 0, 0, 0, static_cast<std::uint8_t>(order.size() / 4)} + order + end;
    EXPECT_EQ(written(*read(data)), data);
  }
}

TEST(AMF0, ReadsReferencesAsCopiesOfWhatTheyStandFor) {
  // [ {a: 1}, reference to it, [reference to it], reference to that array ]
  const Bytes data = Bytes{0x0A, 0, 0, 0, 4} + objectA1 + Bytes{0x07, 0, 1, 0x0A, 0, 0, 0, 1, 0x07, 0, 1, 0x07, 0, 2};
  const AMFObject object{{"a", 1.0}};
  EXPECT_EQ(*read(data), AMFValue(strict({object, object, strict({object}), strict({object})})));

  // Across values, where strings and numbers do not count; what is repeated does not count again.
  const Bytes several = Bytes{0x05} + objectA1 + Bytes{0x07, 0, 0, 0x08, 0, 0, 0, 0, 0, 0, 0x09, 0x07, 0, 1};
  AMF0Serializer serializer(several);
  for (const AMFValue& expected :
       {AMFValue(nullptr), AMFValue(object), AMFValue(object), AMFValue(AMFArray()), AMFValue(AMFArray())}) {
    EXPECT_EQ(*serializer.deserialize(), expected);
  }
  EXPECT_TRUE(serializer.atEnd());

  EXPECT_EQ(read({0x07, 0, 0}).error(), Error::deserialize) << "to nothing";
  EXPECT_EQ(read({0x0A, 0, 0, 0, 1, 0x07, 0, 0}).error(), Error::deserialize) << "to what contains it";
  EXPECT_EQ(read({0x0A, 0, 0, 0, 1, 0x07, 0}).error(), Error::outOfIndex);
}

TEST(AMF0, RefusesWhatTheFormatReserves) {
  for (int marker = 0; marker <= 255; ++marker) {
    const bool isKnown = marker <= 0x11 && marker != 0x04 && marker != 0x09 && marker != 0x0E;
    const auto value = read(Bytes{static_cast<std::uint8_t>(marker)});
    EXPECT_EQ(!value && value.error() == Error::deserialize, !isKnown) << marker;
  }
  EXPECT_EQ(read({}).error(), Error::outOfIndex);
}

TEST(AMF0, SwitchesToAMF3ForSingleValues) {
  // "m", then in AMF3 an array with "hi" and the same by reference, null in AMF0, and "hi" by reference again
  const Bytes data = Bytes{0x02, 0, 1, 'm', 0x11, 0x09, 0x05, 0x01, 0x06, 0x05} + bytesOf("hi") +
                     Bytes{0x06, 0x00, 0x05, 0x11, 0x06, 0x00};
  AMF0Serializer serializer(data);
  EXPECT_EQ(serializer.deserialize()->text(), "m");
  EXPECT_EQ(*serializer.deserialize(), AMFValue(strict({"hi", "hi"})));
  EXPECT_TRUE(serializer.deserialize()->isNull());
  EXPECT_EQ(serializer.deserialize()->text(), "hi") << "the tables of AMF3 hold for all of the data";
  EXPECT_TRUE(serializer.atEnd());

  // Repeating an object does not add to the tables of AMF3 a second time.
  const Bytes repeated =
      Bytes{0x0A, 0, 0, 0, 1, 0x11, 0x06, 0x03, 'x', 0x07, 0, 0, 0x11, 0x06, 0x03, 'y', 0x11, 0x06, 0x02};
  AMF0Serializer again(repeated);
  EXPECT_EQ(*again.deserialize(), AMFValue(strict({"x"})));
  EXPECT_EQ(*again.deserialize(), AMFValue(strict({"x"})));
  EXPECT_EQ(again.deserialize()->text(), "y");
  EXPECT_EQ(again.deserialize()->text(), "y");
}

}  // namespace
}  // namespace vellora
