#include "capture/SelectionModel.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "support/PrintGeometry.h"

namespace vellora {

namespace {

DisplayInfo display(DisplayId id, PixelRect frame, double scale) {
  DisplayInfo info;
  info.id = id;
  info.frame = frame;
  info.scale = scale;
  return info;
}

WindowInfo window(WindowId id, PixelRect frame) {
  WindowInfo info;
  info.id = id;
  info.frame = frame;
  return info;
}

/// Two displays side by side, the right one with twice the density; three windows, 3 over 4, 5 alone on the right.
ShareableContent desktop() {
  return {{display(1, {0, 0, 1000, 800}, 1), display(2, {1000, 0, 2000, 1600}, 2)},
          {window(3, {100, 100, 200, 200}), window(4, {50, 50, 400, 400}), window(5, {1200, 100, 300, 300})}};
}

/// Plays a script of events, one word each:
///   m X,Y move   d X,Y press   u X,Y release   D X,Y second press of a double click   r right button
///   +shift -shift (alt, ctrl) modifiers from here on
///   any other word is a key: Left Right Up Down Return Escape Space space(released) Tab Backtab All
class Play {
 public:
  explicit Play(const std::string& script, SelectionOptions options = {}, KeyModifiers held = {},
                PixelPoint pointer = {700, 600})
      : model(desktop(), std::move(options), pointer, held), modifiers_(held) {
    run(script);
  }

  void run(const std::string& script) {
    std::istringstream in(script);
    std::string word;
    while (in >> word) step(word, in);
  }

  PixelRect shown() const { return model.scene().clear.value_or(PixelRect{}); }

  SelectionModel model;

 private:
  void step(const std::string& word, std::istringstream& in) {
    if (word[0] == '+' || word[0] == '-') {
      const bool down = word[0] == '+';
      const std::string name = word.substr(1);
      (name == "shift" ? modifiers_.shift : name == "alt" ? modifiers_.alt : modifiers_.control) = down;
      model.modifiersChanged(modifiers_);
    } else if (word == "r") {
      model.pointerPressed({PointerButton::Secondary, at_, modifiers_});
    } else if (word.size() == 1) {
      char comma = 0;
      in >> at_.x >> comma >> at_.y;
      if (word == "m") model.pointerMoved(at_, modifiers_);
      if (word == "d") model.pointerPressed({PointerButton::Primary, at_, modifiers_, 1});
      if (word == "D") model.pointerPressed({PointerButton::Primary, at_, modifiers_, clicks_ = 2});
      if (word == "u") model.pointerReleased({PointerButton::Primary, at_, modifiers_, clicks_});
    } else if (word == "space") {
      model.keyReleased(OverlayKey::Space, modifiers_);
    } else {
      model.keyPressed(key(word), modifiers_);
    }
  }

  static OverlayKey key(const std::string& word) {
    const std::vector<std::pair<std::string, OverlayKey>> keys{
        {"Left", OverlayKey::Left},    {"Right", OverlayKey::Right},   {"Up", OverlayKey::Up},
        {"Down", OverlayKey::Down},    {"Return", OverlayKey::Return}, {"Escape", OverlayKey::Escape},
        {"Space", OverlayKey::Space},  {"Tab", OverlayKey::Tab},       {"Backtab", OverlayKey::Backtab},
        {"All", OverlayKey::SelectAll}};
    for (const auto& [name, value] : keys) {
      if (name == word) return value;
    }
    ADD_FAILURE() << "no such key: " << word;
    return OverlayKey::Escape;
  }

  KeyModifiers modifiers_;
  PixelPoint at_;
  int clicks_ = 1;
};

struct Case {
  const char* what;
  const char* script;
  OverlayOutcome outcome;
  PixelRect rect;  // what is selected or, while it runs, not dimmed
};

constexpr auto Running = OverlayOutcome::Running;
constexpr auto Finished = OverlayOutcome::Finished;
constexpr auto Cancelled = OverlayOutcome::Cancelled;

void check(const std::vector<Case>& cases, SelectionOptions options = {}) {
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    Play play(c.script, options);
    EXPECT_EQ(play.model.outcome(), c.outcome);
    EXPECT_EQ(c.outcome == Finished ? play.model.rect() : play.shown(), c.rect);
  }
}

TEST(SelectionModel, DragsWithThePointer) {
  check({
      {"both corner pixels belong to it", "d 500,500 m 550,560 u 599,549", Finished, {500, 500, 100, 50}},
      {"up and to the left as well", "d 599,549 m 550,520 u 500,500", Finished, {500, 500, 100, 50}},
      {"stops at its display's edge", "d 900,700 m 950,750 u 1500,1200", Finished, {900, 700, 100, 100}},
      {"stops at the desktop's edge", "d 40,20 m 20,10 u -5,-5", Finished, {0, 0, 41, 21}},
      {"nothing before the threshold", "d 500,500 m 502,502", Running, {}},
      {"back at the start is a change of mind", "d 500,500 m 600,600 u 501,501", Running, {}},
      {"Shift makes a square, down to the shorter room",
       "+shift d 900,100 m 950,700 u 950,700",
       Finished,
       {900, 100, 100, 100}},
      {"Alt grows from the middle", "+alt d 500,500 m 520,510 u 520,510", Finished, {480, 490, 41, 21}},
      {"both", "+alt +shift d 500,500 m 520,510 u 520,510", Finished, {480, 480, 41, 41}},
      {"letting go of Shift counts at once", "+shift d 500,500 m 600,520 -shift", Running, {500, 500, 101, 21}},
      {"Space moves it", "d 500,500 m 599,549 Space m 609,559 space u 609,559", Finished, {510, 510, 100, 50}},
      {"Space stops at the edge",
       "d 800,700 m 899,749 Space m 1400,749 space u 1400,749",
       Finished,
       {900, 700, 100, 50}},
      {"stretching goes on after a move",
       "d 500,500 m 599,549 Space m 609,559 space m 619,569 u 619,569",
       Finished,
       {510, 510, 110, 60}},
      {"keys aim while the button is held", "d 500,500 m 599,549 Right Down u 599,549", Finished, {500, 500, 101, 51}},
      {"Return takes during a drag", "d 500,500 m 599,549 Return", Finished, {500, 500, 100, 50}},
  });
}

TEST(SelectionModel, TakesWindowsAndDisplays) {
  check({
      {"the frontmost under the pointer is highlighted", "m 150,150", Running, {100, 100, 200, 200}},
      {"a click takes it", "d 150,150 u 151,151", Finished, {100, 100, 200, 200}},
      {"the one behind, where it shows", "d 400,400 u 400,400", Finished, {50, 50, 400, 400}},
      {"Tab goes to the one below", "m 150,150 Tab Return", Finished, {50, 50, 400, 400}},
      {"a little movement keeps what Tab chose",
       "m 150,150 Tab m 160,160 d 160,160 u 160,160",
       Finished,
       {50, 50, 400, 400}},
      {"Tab without a window under the pointer, on another display", "Backtab Return", Finished, {1200, 100, 300, 300}},
      {"a click on nothing waits", "d 600,600 u 600,600", Running, {}},
      {"a second one takes the display", "d 600,600 u 600,600 D 600,600 u 600,600", Finished, {0, 0, 1000, 800}},
      {"so do Control and A", "m 1500,1200 +ctrl All -ctrl Return", Finished, {1000, 0, 2000, 1600}},
  });
}

TEST(SelectionModel, GoesBackOneStepAtATime) {
  check({
      {"Escape leaves", "Escape", Cancelled, {}},
      {"the right button too", "r", Cancelled, {}},
      {"a drag is undone first", "d 500,500 m 600,600 Escape", Running, {}},
      {"and its release does nothing", "d 500,500 m 600,600 Escape u 600,600", Running, {}},
      {"then it leaves", "d 500,500 m 600,600 r Escape", Cancelled, {}},
      {"out of adjusting", "+ctrl d 500,500 m 600,600 u 600,600 -ctrl Escape", Running, {}},
      {"a handle goes back first",
       "+ctrl d 500,500 m 599,599 u 599,599 -ctrl d 599,599 m 700,700 Escape",
       Running,
       {500, 500, 100, 100}},
  });
}

TEST(SelectionModel, SelectsWithKeysAlone) {
  check({
      {"Space, arrows, Return", "Space +shift Right Down -shift Right Return", Finished, {700, 600, 12, 11}},
      {"the cross hair first", "+ctrl Left -ctrl +shift Up -shift Return Right Return", Finished, {600, 590, 2, 1}},
      {"Tab changes to the other corner",
       "Space +shift Right -shift Tab +shift Left -shift Return",
       Finished,
       {690, 600, 21, 1}},
      {"Space held moves",
       "Space +shift Right -shift Space +shift Down -shift space Return",
       Finished,
       {700, 610, 11, 1}},
      {"a jolt of the pointer changes nothing",
       "Space m 701,601 +shift Right -shift Return",
       Finished,
       {700, 600, 11, 1}},
      {"a button ends it", "Space d 719,609 u 719,609", Finished, {700, 600, 20, 10}},
      {"Control and Return adjusts",
       "Space +shift Right Down -shift +ctrl Return Right -ctrl Down Return",
       Finished,
       {700, 601, 12, 11}},
  });
}

TEST(SelectionModel, AdjustsAfterRelease) {
  const std::string drawn = "+ctrl d 500,500 m 599,599 u 599,599 -ctrl ";
  const auto after = [&](const char* rest) { return drawn + rest; };
  const std::vector<std::pair<std::string, PixelRect>> cases{
      {after(""), {500, 500, 100, 100}},
      {after("Right Down"), {501, 501, 100, 100}},
      {after("+shift Left"), {490, 500, 100, 100}},
      {after("+ctrl Right"), {500, 500, 101, 100}},
      {after("d 550,550 m 560,540 u 560,540"), {510, 490, 100, 100}},  // inside
      {after("d 599,599 m 609,609 u 609,609"), {500, 500, 110, 110}},  // lower right
      {after("d 550,500 m 555,480 u 555,480"), {500, 480, 100, 120}},  // top
      {after("d 500,550 m 700,550 u 700,550"), {600, 500, 100, 100}},  // left, over the right edge
      {after("d 700,700 u 700,700"), {500, 500, 100, 100}},            // a click beside it
      {after("d 700,700 m 719,709"), {700, 700, 20, 10}},              // a new one
  };
  for (const auto& [script, expected] : cases) {
    SCOPED_TRACE(script);
    Play play(script);
    EXPECT_EQ(play.model.outcome(), Running);
    EXPECT_EQ(play.shown(), expected);
  }
  check({{"a double click takes", (drawn + "D 550,550").c_str(), Finished, {500, 500, 100, 100}}});
  check({{"as a preference", "d 500,500 m 599,599 u 599,599", Running, {500, 500, 100, 100}},
         {"turned round by Control", "+ctrl d 500,500 m 599,599 u 599,599", Finished, {500, 500, 100, 100}}},
        SelectionOptions{true, {}});
}

TEST(SelectionModel, IgnoresModifiersHeldSinceTheHotKeyUntilReleased) {
  Play held("d 500,500 m 520,510", {}, {false, true, false});
  EXPECT_EQ(held.shown(), (PixelRect{500, 500, 21, 11}));
  held.run("-alt +alt");
  EXPECT_EQ(held.shown(), (PixelRect{480, 490, 41, 21}));
}

TEST(SelectionModel, CountsTheThresholdInPoints) {
  Play dense("d 2000,1000 m 2005,1000");
  EXPECT_EQ(dense.model.scene().frame, OverlayFrame::None);
  dense.run("m 2006,1000");
  EXPECT_EQ(dense.model.scene().frame, OverlayFrame::Selection);
  EXPECT_EQ(dense.model.scene().display, 2u);
}

TEST(SelectionModel, SurvivesADesktopWithoutDisplays) {
  SelectionModel model({}, {}, {5, 5});
  model.pointerPressed({PointerButton::Primary, {5, 5}, {}});
  model.pointerMoved({50, 50}, {});
  model.keyPressed(OverlayKey::Tab, {});
  model.keyPressed(OverlayKey::Escape, {});
  EXPECT_EQ(model.outcome(), OverlayOutcome::Running);
}

}  // namespace
}  // namespace vellora
