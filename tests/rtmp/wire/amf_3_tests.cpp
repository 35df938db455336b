#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include "rtmp/wire/AMF3Serializer.h"

namespace vellora {
namespace {

using Error = AMFSerializerError;

Bytes written(const AMFValue& value) {
  return AMF3Serializer().serialize(value).takeData();
}

Result<AMFValue, Error> read(const Bytes& data) {
  AMF3Serializer serializer(data);
  auto value = serializer.deserialize();
  EXPECT_TRUE(!value || serializer.atEnd()) << serializer.position() << " of " << data.size();
  return value;
}

/// All values of `data`, up to the first that cannot be read.
std::vector<AMFValue> readAll(const Bytes& data) {
  AMF3Serializer serializer(data);
  std::vector<AMFValue> values;
  while (!serializer.atEnd()) {
    auto value = serializer.deserialize();
    if (!value) break;
    values.push_back(std::move(*value));
  }
  return values;
}

AMFArray strict(std::vector<AMFValue> values) {
  AMFArray array;
  array.values = std::move(values);
  array.isStrict = true;
  return array;
}

AMFObject typed(AMFObject object, std::string className) {
  object.className = std::move(className);
  return object;
}

TEST(AMF3, IntegersTakeTheLengthTheyNeed) {
  const struct {
    std::uint32_t number;
    Bytes bytes;
  } cases[] = {
      {0, {0}},
      {0x7F, {0x7F}},
      {0x80, {0x81, 0x00}},
      {0x3FFF, {0xFF, 0x7F}},
      {0x4000, {0x81, 0x80, 0x00}},
      {0x1FFFFF, {0xFF, 0xFF, 0x7F}},
      {0x200000, {0x80, 0xC0, 0x80, 0x00}},
      {0x1FFFFFFF, {0xFF, 0xFF, 0xFF, 0xFF}},
  };
  for (const auto& each : cases) {
    EXPECT_EQ(AMF3Serializer().serializeU29(each.number).data(), each.bytes);
    AMF3Serializer serializer(each.bytes);
    EXPECT_EQ(*serializer.deserializeU29(), each.number);
    EXPECT_TRUE(serializer.atEnd());
    for (std::size_t length = 0; length < each.bytes.size(); ++length) {
      EXPECT_EQ(AMF3Serializer(ByteView(each.bytes).first(length)).deserializeU29().error(), Error::outOfIndex);
    }
  }
}

TEST(AMF3, WritesAndReadsEveryKindAsPublished) {
  AMFArray named = strict({true});
  named.named.set("k", nullptr);
  named.isStrict = false;
  const struct {
    AMFValue value;
    Bytes bytes;
  } cases[] = {
      {AMFValue(), {0x00}},
      {nullptr, {0x01}},
      {false, {0x02}},
      {true, {0x03}},
      {5, {0x04, 5}},
      {-1, {0x04, 0xFF, 0xFF, 0xFF, 0xFF}},
      {-268435456, {0x04, 0xC0, 0x80, 0x80, 0x00}},
      {268435455, {0x04, 0xBF, 0xFF, 0xFF, 0xFF}},
      {268435456, {0x05, 0x41, 0xB0, 0, 0, 0, 0, 0, 0}},
      {-268435457, {0x05, 0xC1, 0xB0, 0, 0, 0x01, 0, 0, 0}},
      {1.5, {0x05, 0x3F, 0xF8, 0, 0, 0, 0, 0, 0}},
      {-0.0, {0x05, 0x80, 0, 0, 0, 0, 0, 0, 0}},
      {std::numeric_limits<double>::quiet_NaN(), {0x05, 0x7F, 0xF8, 0, 0, 0, 0, 0, 0}},
      {"hi", {0x06, 0x05, 'h', 'i'}},
      {"", {0x06, 0x01}},
      {AMFXML{"<a/>"}, {0x07, 0x09, '<', 'a', '/', '>'}},
      {AMFDate{1.0}, {0x08, 0x01, 0x3F, 0xF0, 0, 0, 0, 0, 0, 0}},
      {strict({"a", "a", ""}), {0x09, 0x07, 0x01, 0x06, 0x03, 'a', 0x06, 0x00, 0x06, 0x01}},
      {named, {0x09, 0x03, 0x03, 'k', 0x01, 0x01, 0x03}},
      {AMFObject{{"a", 1}}, {0x0A, 0x0B, 0x01, 0x03, 'a', 0x04, 1, 0x01}},
      {strict({typed({{"a", 1}}, "C"), typed({{"a", "C"}}, "C")}),
       {0x09, 0x05, 0x01, 0x0A, 0x0B, 0x03, 'C', 0x03, 'a', 0x04, 1, 0x01, 0x0A, 0x01, 0x02, 0x06, 0x00, 0x01}},
      {Bytes{1, 2}, {0x0C, 0x05, 1, 2}},
  };
  for (const auto& each : cases) {
    EXPECT_EQ(written(each.value), each.bytes);
    const auto value = read(each.bytes);
    ASSERT_TRUE(value) << int{each.bytes[0]};
    EXPECT_EQ(value->storage().index(), each.value.storage().index());
    EXPECT_EQ(written(*value), each.bytes);
  }
  EXPECT_EQ(written(AMFUnsupported{}), Bytes{0x00});
  EXPECT_EQ(written(AMFObject{{"", 1}}), (Bytes{0x0A, 0x0B, 0x01, 0x01})) << "no name would say the end";
}

TEST(AMF3, ReadsSealedAndDynamicObjectsAndTheirTraits) {
  // class C with "a" and "b" sealed, and dynamic: a true, b null, more "c" undefined; the same traits once more, with
  // "a" by reference as a key
  const Bytes data{0x0A, 0x2B, 0x03, 'C',  0x03, 'a',  0x03, 'b',  0x03, 0x01, 0x03, 'c',  0x00,
                   0x01, 0x0A, 0x01, 0x02, 0x01, 0x01, 0x0A, 0x01, 0x03, 0x02, 0x02, 0x01, 0x01};
  const auto values = readAll(data);
  ASSERT_EQ(values.size(), 3U);
  EXPECT_EQ(values[0], AMFValue(typed({{"a", true}, {"b", nullptr}, {"c", AMFValue()}}, "C")));
  EXPECT_EQ(values[1], AMFValue(typed({{"a", false}, {"b", nullptr}}, "C")));
  EXPECT_EQ(values[2], AMFValue(typed({{"a", true}, {"b", false}, {"a", nullptr}}, "C")));

  EXPECT_EQ(read({0x0A, 0x05}).error(), Error::deserialize) << "traits that were never described";
  EXPECT_EQ(read({0x0A, 0x07, 0x03, 'C', 1, 2, 3}).error(), Error::deserialize) << "writes itself";
}

TEST(AMF3, ReadsReferencesAsCopiesOfWhatTheyStandFor) {
  // [ "x", date, the date again, [ "x" ], that array again, bytes, the bytes again ]
  const Bytes data{0x09, 0x0F, 0x01, 0x06, 0x03, 'x',  0x08, 0x01, 0x3F, 0xF0, 0,    0,    0, 0,    0,
                   0,    0x08, 0x02, 0x09, 0x03, 0x01, 0x06, 0x00, 0x09, 0x04, 0x0C, 0x03, 7, 0x0C, 0x06};
  EXPECT_EQ(*read(data),
            AMFValue(strict({"x", AMFDate{1.0}, AMFDate{1.0}, strict({"x"}), strict({"x"}), Bytes{7}, Bytes{7}})));

  // What is repeated adds neither texts nor traits again: {k: "v"}, itself, then "w" and a reference to "w".
  const auto values = readAll({0x0A, 0x0B, 0x01, 0x03, 'k',  0x06, 0x03, 'v',  0x01, 0x0A, 0x00,
                               0x06, 0x03, 'w',  0x06, 0x04, 0x0A, 0x01, 0x00, 0x03, 0x01});
  ASSERT_EQ(values.size(), 5U);
  EXPECT_EQ(values[1], values[0]);
  EXPECT_EQ(values[3].text(), "w");
  EXPECT_EQ(values[4], AMFValue(AMFObject{{"k", true}}));

  EXPECT_EQ(read({0x06, 0x00}).error(), Error::deserialize) << "a text that never came";
  EXPECT_EQ(read({0x0A, 0x00}).error(), Error::deserialize) << "an object that never came";
  EXPECT_EQ(read({0x09, 0x03, 0x01, 0x09, 0x00}).error(), Error::deserialize) << "what contains it";
  EXPECT_EQ(read({0x09, 0x05, 0x01, 0x0C, 0x01, 0x09, 0x02}).error(), Error::deserialize) << "another kind";
}

TEST(AMF3, ReadsVectorsAndDictionaries) {
  EXPECT_EQ(*read({0x0D, 0x05, 0, 0, 0, 0, 1, 0xFF, 0xFF, 0xFF, 0xFE}), AMFValue(strict({1, -2})));
  EXPECT_EQ(*read({0x0E, 0x03, 1, 0xFF, 0xFF, 0xFF, 0xFE}), AMFValue(strict({4294967294.0})));
  EXPECT_EQ(*read({0x0F, 0x03, 0, 0x3F, 0xF8, 0, 0, 0, 0, 0, 0}), AMFValue(strict({1.5})));
  EXPECT_EQ(*read({0x10, 0x05, 0, 0x03, 'C', 0x03, 0x01}), AMFValue(strict({true, nullptr})));
  EXPECT_EQ(*read({0x11, 0x03, 0, 0x06, 0x03, 'k', 0x03}), AMFValue(AMFObject{{"k", true}}));
  EXPECT_EQ(read({0x11, 0x03, 0, 0x04, 0x01, 0x03}).error(), Error::deserialize);
  EXPECT_EQ(read({0x12}).error(), Error::deserialize);
}

}  // namespace
}  // namespace vellora
