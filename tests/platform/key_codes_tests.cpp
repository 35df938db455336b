#include "platform/KeyCodes.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

#include "preferences/HotKeyBinding.h"

namespace vellora {
namespace {

TEST(KeyCodes, EveryPlaceIsFoundByEachOfItsNamesAndNoneIsTakenTwice) {
  std::set<std::uint32_t> codes;
  std::set<std::string_view> names;
  std::set<std::uint16_t> kernelCodes;
  for (const KeyPlace& place : keyPlaces()) {
    EXPECT_TRUE(codes.insert(place.virtualKeyCode).second) << place.virtualKeyCode;
    EXPECT_TRUE(names.insert(place.xkbName).second) << place.xkbName;
    EXPECT_TRUE(kernelCodes.insert(place.evdevCode).second) << place.evdevCode;
    EXPECT_EQ(keyPlaceForXkbName(place.xkbName)->virtualKeyCode, place.virtualKeyCode);
    EXPECT_EQ(keyPlaceForEvdevCode(place.evdevCode)->virtualKeyCode, place.virtualKeyCode);
    EXPECT_EQ(keyPlaceForVirtualKey(place.virtualKeyCode)->evdevCode, place.evdevCode);
  }
  // The rows of an ANSI keyboard from the digits down.
  const std::pair<const char*, int> rows[] = {{"AE", 12}, {"AD", 12}, {"AC", 11}, {"AB", 10}};
  for (const auto& [row, count] : rows) {
    for (int i = 1; i <= count; ++i) {
      const std::string name = std::string(row) + (i < 10 ? "0" : "") + std::to_string(i);
      EXPECT_TRUE(keyPlaceForXkbName(name)) << name;
    }
  }
  EXPECT_FALSE(keyPlaceForVirtualKey(52));
  EXPECT_FALSE(keyPlaceForXkbName(""));
}

TEST(KeyCodes, AgreeWithTheLabelsOfHotKeys) {
  ASSERT_EQ(functionKeys().size(), 20U);
  for (const FunctionKey& key : functionKeys()) {
    const auto place = keyPlaceForVirtualKey(key.keyCode);
    ASSERT_TRUE(place) << key.number;
    EXPECT_EQ(place->xkbName, (key.number < 10 ? "FK0" : "FK") + std::to_string(key.number));
  }
  const std::map<std::uint32_t, std::string_view> labelled = {
      {49, "SPCE"},  {36, "RTRN"}, {48, "TAB"},   {53, "ESC"},   {51, "BKSP"}, {117, "DELE"}, {123, "LEFT"},
      {124, "RGHT"}, {126, "UP"},  {125, "DOWN"}, {115, "HOME"}, {119, "END"}, {116, "PGUP"}, {121, "PGDN"}};
  for (const auto& [code, name] : labelled) {
    EXPECT_TRUE(specialKeyLabel(code)) << code;
    EXPECT_EQ(keyPlaceForVirtualKey(code)->xkbName, name);
  }
}

}  // namespace
}  // namespace vellora
