#include "editor/AnnotationRecord.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace vellora {
namespace {

Annotation everything() {
  Annotation annotation;
  annotation.kind = Annotation::Kind::Pen;
  annotation.p1 = {1, 2.5};
  annotation.p2 = {-3, 4};
  annotation.control = Point{0.1, 0};
  annotation.color = {1, 0.5, 0, 0.25};
  annotation.lineWidth = 6;
  annotation.text = QStringLiteral("a\"ü\n");
  annotation.number = -7;
  annotation.tailAngle = 1.25;
  annotation.textBackground = true;
  annotation.textHandwritten = true;
  annotation.textBoxWidth = 120;
  annotation.sketch = true;
  annotation.shapeFill = false;
  annotation.sketchSeed = 0xFFFFFFFFFFFFFFFF;
  annotation.blurStyle = BlurStyle::Gaussian;
  annotation.blurStrength = 0.75;
  annotation.eraseFillColor = ColorComponents{0, 0, 1, 1};
  annotation.magnification = 3;
  annotation.magnifierShape = MagnifierShape::RoundedRect;
  annotation.penPoints = std::vector<Point>{{0, 0}, {1.5, -2}};
  annotation.penPressures = std::vector<double>{0.5, 1};
  return annotation;
}

constexpr const char* everythingStored =
    R"({"kind":8,"p1":[1.0,2.5],"p2":[-3.0,4.0],"control":[0.1,0.0],)"
    R"("color":{"red":1.0,"green":0.5,"blue":0.0,"alpha":0.25},"lineWidth":6.0,"text":"a\"ü\n","number":-7,)"
    R"("tailAngle":1.25,"textBackground":true,"textHandwritten":true,"textBoxWidth":120.0,"arrowSketch":true,)"
    R"("shapeFill":false,"sketchSeed":18446744073709551615,"blurStyle":2,"blurStrength":0.75,)"
    R"("eraseFillColor":{"red":0.0,"green":0.0,"blue":1.0,"alpha":1.0},"magnification":3.0,"magnifierShape":1,)"
    R"("penPoints":[[0.0,0.0],[1.5,-2.0]],"penPressures":[0.5,1.0]})";

std::optional<Annotation> decoded(const QByteArray& text) {
  const auto value = json::parse(text);
  return value ? decodeAnnotation(*value) : std::nullopt;
}

TEST(AnnotationRecord, HasItsKeysInOrder) {
  EXPECT_EQ(json::serialize(encodeAnnotation(everything())), QByteArray(everythingStored));
  const QByteArray plain = json::serialize(encodeAnnotation(Annotation()));
  for (const char* optional : {"control", "shapeFill", "eraseFillColor", "penPoints", "penPressures"}) {
    EXPECT_FALSE(plain.contains(optional)) << optional;
  }
}

TEST(AnnotationRecord, ComesBackAsItWasWithANewIdentity) {
  for (Annotation annotation : {everything(), Annotation()}) {
    annotation.id = 5;
    auto first = decodeAnnotation(encodeAnnotation(annotation));
    auto second = decodeAnnotation(encodeAnnotation(annotation));
    ASSERT_TRUE(first && second);
    EXPECT_NE(first->id, second->id);
    EXPECT_GT(first->id, 0u);
    first->id = annotation.id;
    EXPECT_EQ(*first, annotation);
  }
  const auto withNull = decoded(QByteArray(everythingStored).replace("[0.1,0.0]", "null"));
  ASSERT_TRUE(withNull);
  EXPECT_FALSE(withNull->control);
}

TEST(AnnotationRecord, RefusesWhatCannotBeDrawn) {
  ASSERT_TRUE(decoded(everythingStored));
  const std::pair<const char*, const char*> breaks[] = {{"\"kind\":8", "\"kind\":9"},
                                                        {"\"kind\":8", "\"kind\":-1"},
                                                        {"\"kind\":8", "\"kind\":8.5"},
                                                        {"\"kind\":8", "\"kind\":\"8\""},
                                                        {"\"kind\":8,", ""},
                                                        {"[1.0,2.5]", "[1.0]"},
                                                        {"[1.0,2.5]", "[1e308,2.5]"},
                                                        {"[0.1,0.0]", "[0.1,\"0\"]"},
                                                        {"\"red\":1.0", "\"red\":NaN"},
                                                        {"\"red\":1.0", "\"red\":1.5"},
                                                        {"\"lineWidth\":6.0", "\"lineWidth\":-1"},
                                                        {"\"lineWidth\":6.0", "\"lineWidth\":1e9"},
                                                        {"\"text\":\"a\\\"ü\\n\"", "\"text\":7"},
                                                        {"\"number\":-7", "\"number\":3000000000"},
                                                        {"\"tailAngle\":1.25", "\"tailAngle\":1e999"},
                                                        {"\"textBackground\":true", "\"textBackground\":1"},
                                                        {"\"textBoxWidth\":120.0", "\"textBoxWidth\":-120"},
                                                        {"\"shapeFill\":false", "\"shapeFill\":0"},
                                                        {"18446744073709551615", "-1"},
                                                        {"18446744073709551615", "28446744073709551615"},
                                                        {"\"blurStyle\":2", "\"blurStyle\":3"},
                                                        {"\"blurStrength\":0.75", "\"blurStrength\":-0.75"},
                                                        {"\"magnification\":3.0", "\"magnification\":[]"},
                                                        {"\"magnifierShape\":1", "\"magnifierShape\":2"},
                                                        {"[1.5,-2.0]", "[1.5,-2e8]"},
                                                        {"\"penPoints\":[", "\"penPoints\":[{},"},
                                                        {"[0.5,1.0]", "[0.5,null]"}};
  for (const auto& [from, to] : breaks) {
    QByteArray text = everythingStored;
    ASSERT_TRUE(text.contains(from)) << from;
    EXPECT_FALSE(decoded(text.replace(from, to))) << to;
  }
  for (const char* other : {"[]", "7", "null", "{}"}) EXPECT_FALSE(decoded(other)) << other;
}

TEST(AnnotationRecord, WritesNothingItWouldNotRead) {
  constexpr double infinity = std::numeric_limits<double>::infinity();
  Annotation absurd = everything();
  absurd.p1 = {std::nan(""), infinity};
  absurd.color = {-1, 2, std::nan(""), 0.5};
  absurd.lineWidth = -4;
  absurd.textBoxWidth = 1e300;
  absurd.tailAngle = -infinity;
  absurd.magnification = 1e300;
  absurd.text = QString(annotationLimits::textLength - 1, u'x') + QStringLiteral("🙂");
  absurd.penPoints = std::vector<Point>(1'000'000, Point{1e300, 5});
  absurd.penPressures = std::vector<double>(1'000'000, -infinity);
  const auto read = decodeAnnotation(encodeAnnotation(absurd));
  ASSERT_TRUE(read);
  EXPECT_EQ(read->p1, (Point{0, 0}));
  EXPECT_EQ(read->color, (ColorComponents{0, 1, 0, 0.5}));
  EXPECT_EQ(read->text, QString(annotationLimits::textLength - 1, u'x')) << "no half characters";
  EXPECT_EQ(read->penPoints->size(), annotationLimits::penPoints);
  EXPECT_EQ(read->penPressures->size(), read->penPoints->size());

  Json tooMany = encodeAnnotation(everything());
  tooMany["penPoints"] = Json::array();
  for (std::size_t i = 0; i <= annotationLimits::penPoints; ++i) tooMany["penPoints"].push_back({0, 0});
  EXPECT_FALSE(decodeAnnotation(tooMany));
}

}  // namespace
}  // namespace vellora
