#include <gtest/gtest.h>

#include <bit>
#include <limits>
#include <random>
#include <string>
#include <type_traits>
#include <vector>

#include "rtmp/wire/AMF0Serializer.h"
#include "rtmp/wire/AMF3Serializer.h"

namespace vellora {
namespace {

using Error = AMFSerializerError;

/// Makes values of all kinds a format can say without loss.
class RandomValues {
 public:
  RandomValues(unsigned seed, bool isAMF3) : random_(seed), isAMF3_(isAMF3) {}

  AMFValue value(int depth = 0) {
    switch (upTo(depth < 5 ? 12 : 8)) {
      case 0:
        return {};
      case 1:
        return nullptr;
      case 2:
        return upTo(1) == 1;
      case 3:
        return static_cast<double>(static_cast<std::int32_t>(random_()) >> upTo(31));
      case 4:
        return number();
      case 5:
        return text(upTo(40));
      case 6:
        return AMFDate{number()};
      case 7:
        return AMFXML{text(upTo(300))};
      case 8:
        return isAMF3_ ? AMFValue(text(1)) : AMFValue(AMFUnsupported{});
      case 9:
        return Bytes(upTo(200), 0xA5);
      case 10:
        return array(depth);
      default:
        return object(depth);
    }
  }

 private:
  unsigned upTo(unsigned highest) { return static_cast<unsigned>(random_() % (highest + 1)); }

  double number() {
    const auto bits = static_cast<std::uint64_t>(random_()) << 32 | random_();
    const auto number = std::bit_cast<double>(bits);
    return number == number ? number : -0.0;
  }
  std::string text(std::size_t length) {
    std::string text;
    while (text.size() < length) text.push_back(static_cast<char>(random_()));
    return text;
  }
  AMFObject properties(int depth) {
    AMFObject object;
    for (unsigned i = upTo(5); i > 0; --i) object.append("k" + text(upTo(3)), value(depth + 1));
    return object;
  }
  AMFValue object(int depth) {
    AMFObject object = properties(depth);
    if (upTo(2) == 0) object.className = upTo(1) == 0 ? "One" : "Two";
    return object;
  }
  AMFValue array(int depth) {
    AMFArray array;
    for (unsigned i = upTo(5); i > 0; --i) array.values.push_back(value(depth + 1));
    array.isStrict = upTo(1) == 0;
    if (!array.isStrict) array.named = properties(depth);
    if (isAMF3_) array.isStrict = array.named.empty();
    return array;
  }

  std::mt19937 random_;
  bool isAMF3_;
};

template <class Serializer>
class AMFFormat : public testing::Test {
 protected:
  static constexpr bool isAMF3 = std::is_same_v<Serializer, AMF3Serializer>;

  static Bytes written(const AMFValue& value) { return Serializer().serialize(value).takeData(); }
  static Result<AMFValue, Error> read(ByteView data) { return Serializer(data).deserialize(); }
  /// `count` arrays around each other.
  static Bytes nested(int count) {
    AMFArray array;
    array.isStrict = true;
    for (int i = 1; i < count; ++i) {
      AMFArray outer;
      outer.isStrict = true;
      outer.values.emplace_back(std::move(array));
      array = std::move(outer);
    }
    return written(array);
  }
};
using Formats = testing::Types<AMF0Serializer, AMF3Serializer>;
TYPED_TEST_SUITE(AMFFormat, Formats);

TYPED_TEST(AMFFormat, ValuesComeBackAsTheyWere) {
  for (unsigned seed = 0; seed < 2000; ++seed) {
    RandomValues random(seed, TestFixture::isAMF3);
    const std::vector<AMFValue> values{random.value(), random.value(), random.value()};
    TypeParam writer;
    for (const AMFValue& value : values) writer.serialize(value);
    TypeParam reader(writer.data());
    for (const AMFValue& value : values) {
      const auto again = reader.deserialize();
      ASSERT_TRUE(again) << seed;
      ASSERT_EQ(*again, value) << seed;
    }
    ASSERT_TRUE(reader.atEnd());
  }
}

TYPED_TEST(AMFFormat, DataThatEndsEarlyIsAnErrorWhereverItEnds) {
  for (unsigned seed = 0; seed < 30; ++seed) {
    RandomValues random(seed, TestFixture::isAMF3);
    AMFArray all;
    all.isStrict = true;
    for (int i = 0; i < 12; ++i) all.values.push_back(random.value());
    const Bytes data = TestFixture::written(all);
    ASSERT_TRUE(TestFixture::read(data));
    for (std::size_t length = 0; length < data.size(); ++length) {
      // A copy, so that a reader that goes too far leaves its memory.
      const Bytes part(data.begin(), data.begin() + static_cast<std::ptrdiff_t>(length));
      const auto value = TestFixture::read(part);
      ASSERT_FALSE(value) << seed << ", " << length;
      ASSERT_EQ(value.error(), Error::outOfIndex) << seed << ", " << length;
    }
  }
}

TYPED_TEST(AMFFormat, DepthAndNumberOfValuesAreBounded) {
  EXPECT_TRUE(TestFixture::read(TestFixture::nested(TypeParam::maximumDepth)));
  EXPECT_EQ(TestFixture::read(TestFixture::nested(TypeParam::maximumDepth + 1)).error(), Error::deserialize);
  EXPECT_EQ(TestFixture::read(TestFixture::nested(5000)).error(), Error::deserialize);

  AMFArray many;
  many.isStrict = true;
  many.values.resize(TypeParam::maximumValues - 1);
  EXPECT_TRUE(TestFixture::read(TestFixture::written(many)));
  many.values.emplace_back();
  EXPECT_EQ(TestFixture::read(TestFixture::written(many)).error(), Error::deserialize);

  const Bytes data = TestFixture::written(many);
  TypeParam several(data);
  EXPECT_FALSE(several.deserialize()) << "the bound holds for all values of one serializer";
}

TEST(AMFLimits, AnnouncedLengthsAreHeldAgainstTheData) {
  const Bytes most{0xFF, 0xFF, 0xFF, 0xFF};
  for (const std::uint8_t marker : Bytes{0x0A, 0x0C, 0x0F}) {  // strict array, long string, XML
    Bytes data{marker};
    data.insert(data.end(), most.begin(), most.end());
    data.resize(100);
    EXPECT_EQ(AMF0Serializer(data).deserialize().error(), Error::outOfIndex) << int{marker};
  }
  for (std::uint8_t marker = 0x06; marker <= 0x11; ++marker) {
    if (marker == 0x08 || marker == 0x0A) continue;  // dates and objects say no length
    Bytes data{marker};
    data.insert(data.end(), most.begin(), most.end());
    data.resize(100, 0x01);
    EXPECT_EQ(AMF3Serializer(data).deserialize().error(), Error::outOfIndex) << int{marker};
  }
  Bytes sealed{0x0A, 0xFF, 0xFF, 0xFF, 0xFB, 0x01};  // 2^25 - 1 names
  sealed.resize(100, 0x01);
  EXPECT_EQ(AMF3Serializer(sealed).deserialize().error(), Error::outOfIndex);
}

TEST(AMFLimits, ReferencesCannotMultiplyDataWithoutBound) {
  // Each array holds the one before it ten times: 10^20 values.
  AMF0Serializer start;
  Bytes data = start.serialize(AMFArray()).takeData();
  for (std::uint8_t level = 0; level < 20; ++level) {
    data.insert(data.end(), {0x0A, 0, 0, 0, 10});
    for (int i = 0; i < 10; ++i) data.insert(data.end(), {0x07, 0, level});
  }
  AMF0Serializer amf0(data);
  Result<AMFValue, Error> value;
  int levels = 0;
  while ((value = amf0.deserialize())) ++levels;
  EXPECT_EQ(value.error(), Error::deserialize);
  EXPECT_EQ(levels, 5) << "10^4 values go, 10^5 do not";

  // A text of 60,000 bytes, and 1,000 references to it.
  AMF3Serializer long3;
  long3.serialize(std::string(60000, 'x'));
  Bytes texts = long3.takeData();
  for (int i = 0; i < 1000; ++i) texts.insert(texts.end(), {0x06, 0x00});
  AMF3Serializer amf3(texts);
  std::size_t count = 0;
  while ((value = amf3.deserialize())) ++count;
  EXPECT_EQ(value.error(), Error::deserialize);
  EXPECT_EQ(count, AMF3Serializer::maximumBytes / 60000);
}

TEST(AMFObjects, AreFoundAndReplacedByKey) {
  AMFObject object{{"a", 1}, {"b", "two"}};
  object.set("a", nullptr);
  object.set("c", true);
  object.append("b", "second");
  ASSERT_EQ(object.properties().size(), 4U);
  EXPECT_TRUE(object.find("a")->isNull());
  EXPECT_EQ(object.find("b")->text(), "two");
  EXPECT_EQ(object.find("d"), nullptr);
  EXPECT_EQ(object.find("c")->text(), "");
  EXPECT_FALSE(object.find("c")->isNull());
}

}  // namespace
}  // namespace vellora
