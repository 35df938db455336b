#include <gtest/gtest.h>

#include "record_editor/RecordProjectState.h"

namespace vellora {
namespace {

RecordProjectState decoded(const QByteArray& text, std::size_t skipped = 0) {
  auto result = RecordProjectState::decode(text);
  if (!result) {
    ADD_FAILURE() << "not decoded";
    return {};
  }
  EXPECT_EQ(result->skipped, skipped);
  return result->state;
}

RecordProjectState filled() {
  RecordProjectState state;
  const auto id = [] { return QUuid::createUuid(); };
  state.name = QStringLiteral("Ä talk");
  state.exportResolution = ExportResolution::fhd1080;
  state.disabledKinds = {TimelineElementKind::mask, TimelineElementKind::zoom};
  state.trims = {{id(), 1, 2, QStringLiteral("said twice")}, {id(), 3, 4.5, std::nullopt}};
  state.videoCuts = {0.5, 7};
  state.textCards = {{id(), 2, QStringLiteral("Part one"), 4, true, 80, 600, true}};
  state.zooms = {{id(), 1, 3, 2.5, 0.4, 0.6, 0.3, 0.4}};
  state.speeds = {{id(), 2, 4, 2}};
  ScenePose pose;
  pose.canvas = {1920, 1080};
  pose.screen = {{10, 20}, {300, 400}};
  pose.screenCorners.bottomLeft = false;
  pose.deviceShell = DeviceFrame::LaptopDark;
  pose.cameraPlacement = {{{1, 2}, {3, 4}}, true, 0.5, false};
  state.layouts = {{id(), 0, 1, pose}};
  state.keyboardEnabled = false;
  state.backdrop.enabled = true;
  state.backdrop.aspect = BackdropSettings::Aspect::SixteenNine;
  state.camera.mirrored = false;
  state.pose = pose;
  state.captions = {{id(), 0, 1, QStringLiteral("Hello\nthere")}};
  state.captionStyle.fontSize = 50;
  state.transcriptWords = {{QStringLiteral("Hello"), 0, 0.4}};
  state.foreign["future"] = Json{{"x", 1}};
  return state;
}

TEST(ProjectStateTest, comesBackAsItWasWritten) {
  const RecordProjectState state = filled();
  EXPECT_EQ(decoded(state.encode()), state);
}

TEST(ProjectStateTest, writesItsKeysInTheirOrder) {
  const QByteArray text = filled().encode();
  qsizetype before = -1;
  for (const char* key : {"version",
                          "name",
                          "exportResolution",
                          "disabledKinds",
                          "trims",
                          "videoCuts",
                          "textCards",
                          "zooms",
                          "speeds",
                          "layouts",
                          "masks",
                          "keyboardEnabled",
                          "micEnabled",
                          "cameraEnabled",
                          "backdrop",
                          "camera",
                          "pose",
                          "captions",
                          "captionStyle",
                          "transcriptWords",
                          "future"}) {
    const qsizetype place = text.indexOf('"' + QByteArray(key) + "\":", before + 1);
    EXPECT_GT(place, before) << key;
    before = place;
  }
  EXPECT_TRUE(text.contains(R"("exportResolution":"fhd1080","disabledKinds":["zoom","mask"])"));
}

TEST(ProjectStateTest, readsADocumentWithOnlyAName) {
  RecordProjectState expected;
  expected.name = QStringLiteral("Bare");
  EXPECT_EQ(decoded(R"({"name": "Bare"})"), expected);
  EXPECT_EQ(RecordProjectState::decode("{}").error(), RecordProjectState::DecodeError::NoProject);
  EXPECT_EQ(RecordProjectState::decode(R"({"name": 3})").error(), RecordProjectState::DecodeError::NoProject);
  EXPECT_EQ(RecordProjectState::decode("[").error(), RecordProjectState::DecodeError::Malformed);
}

TEST(ProjectStateTest, skipsWhatItCannotReadAndKeepsTheRest) {
  const auto state = decoded(R"({"name": "Odd",
      "exportResolution": "fourByThree", "disabledKinds": ["trim", "sound"], "trims": {"start": 1},
      "zooms": [{"start": 0, "end": 2, "amount": 9, "focusX": 0, "focusY": 2, "inDuration": 0, "outDuration": 50},
                {"start": 2, "end": 2, "amount": 2, "focusX": 0, "focusY": 0, "inDuration": 1, "outDuration": 1},
                "zoom"],
      "speeds": [{"start": 0, "end": 1, "rate": 0}, {"start": 1e300, "end": 2e300, "rate": 1},
                 {"start": 1, "end": 2, "rate": 2}],
      "videoCuts": [1, -1, "2", 3], "micEnabled": "yes", "captions": [{"start": 0, "end": 1}],
      "masks": [{"start": 0, "end": 1, "annotations": [{"kind": 77}]}]})",
                             12);
  EXPECT_EQ(state.disabledKinds, std::set{TimelineElementKind::trim});
  ASSERT_EQ(state.zooms.size(), 1U);
  const ZoomElement& zoom = state.zooms[0];
  EXPECT_EQ(zoom.amount, 3);
  EXPECT_DOUBLE_EQ(zoom.focusX, 0.5 / 3);
  EXPECT_DOUBLE_EQ(zoom.focusY, 1 - 0.5 / 3);
  EXPECT_EQ(zoom.inDuration, 0.1);
  EXPECT_EQ(zoom.outDuration, 2);
  EXPECT_FALSE(zoom.id.isNull());
  EXPECT_EQ(state.speeds.size(), 1U);
  EXPECT_EQ(state.videoCuts, (std::vector<double>{1, 3}));
  EXPECT_TRUE(state.micEnabled);
}

TEST(ProjectStateTest, placesAnAddedZoomInsideTheFootage) {
  EXPECT_EQ(ZoomElement::added(4, 10).start, 4);
  EXPECT_EQ(ZoomElement::added(10, 10).start, 9.7);
  EXPECT_EQ(ZoomElement::added(0.2, 0.1).start, 0);
}

}  // namespace
}  // namespace vellora
