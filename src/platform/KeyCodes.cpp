#include "platform/KeyCodes.h"

#include <algorithm>
#include <array>

namespace vellora {
namespace {

// Virtual key codes as on an ANSI keyboard (HIToolbox Events.h), XKB names of the evdev rules (xkeyboard-config), the
// kernel's input-event-codes.h.
constexpr auto places = std::to_array<KeyPlace>({
    {0, "AC01", 30},     // A
    {1, "AC02", 31},     // S
    {2, "AC03", 32},     // D
    {3, "AC04", 33},     // F
    {4, "AC06", 35},     // H
    {5, "AC05", 34},     // G
    {6, "AB01", 44},     // Z
    {7, "AB02", 45},     // X
    {8, "AB03", 46},     // C
    {9, "AB04", 47},     // V
    {10, "LSGT", 86},    // the key between left Shift and Z of an ISO keyboard
    {11, "AB05", 48},    // B
    {12, "AD01", 16},    // Q
    {13, "AD02", 17},    // W
    {14, "AD03", 18},    // E
    {15, "AD04", 19},    // R
    {16, "AD06", 21},    // Y
    {17, "AD05", 20},    // T
    {18, "AE01", 2},     // 1
    {19, "AE02", 3},     // 2
    {20, "AE03", 4},     // 3
    {21, "AE04", 5},     // 4
    {22, "AE06", 7},     // 6
    {23, "AE05", 6},     // 5
    {24, "AE12", 13},    // =
    {25, "AE09", 10},    // 9
    {26, "AE07", 8},     // 7
    {27, "AE11", 12},    // -
    {28, "AE08", 9},     // 8
    {29, "AE10", 11},    // 0
    {30, "AD12", 27},    // ]
    {31, "AD09", 24},    // O
    {32, "AD07", 22},    // U
    {33, "AD11", 26},    // [
    {34, "AD08", 23},    // I
    {35, "AD10", 25},    // P
    {36, "RTRN", 28},    // Return
    {37, "AC09", 38},    // L
    {38, "AC07", 36},    // J
    {39, "AC11", 40},    // '
    {40, "AC08", 37},    // K
    {41, "AC10", 39},    // ;
    {42, "BKSL", 43},    // backslash
    {43, "AB08", 51},    // ,
    {44, "AB10", 53},    // /
    {45, "AB06", 49},    // N
    {46, "AB07", 50},    // M
    {47, "AB09", 52},    // .
    {48, "TAB", 15},     // Tab
    {49, "SPCE", 57},    // Space
    {50, "TLDE", 41},    // left of 1
    {51, "BKSP", 14},    // Delete, the one that goes backwards
    {53, "ESC", 1},      // Escape
    {54, "RWIN", 126},   // right Super
    {55, "LWIN", 125},   // left Super
    {56, "LFSH", 42},    // left Shift
    {57, "CAPS", 58},    // Caps Lock
    {58, "LALT", 56},    // left Alt
    {59, "LCTL", 29},    // left Control
    {60, "RTSH", 54},    // right Shift
    {61, "RALT", 100},   // right Alt
    {62, "RCTL", 97},    // right Control
    {64, "FK17", 187},   // F17
    {65, "KPDL", 83},    // keypad .
    {67, "KPMU", 55},    // keypad *
    {69, "KPAD", 78},    // keypad +
    {71, "NMLK", 69},    // Num Lock (Clear)
    {75, "KPDV", 98},    // keypad /
    {76, "KPEN", 96},    // keypad Enter
    {78, "KPSU", 74},    // keypad -
    {79, "FK18", 188},   // F18
    {80, "FK19", 189},   // F19
    {81, "KPEQ", 117},   // keypad =
    {82, "KP0", 82},     // keypad 0
    {83, "KP1", 79},     // keypad 1
    {84, "KP2", 80},     // keypad 2
    {85, "KP3", 81},     // keypad 3
    {86, "KP4", 75},     // keypad 4
    {87, "KP5", 76},     // keypad 5
    {88, "KP6", 77},     // keypad 6
    {89, "KP7", 71},     // keypad 7
    {90, "FK20", 190},   // F20
    {91, "KP8", 72},     // keypad 8
    {92, "KP9", 73},     // keypad 9
    {93, "AE13", 124},   // Yen of a Japanese keyboard
    {94, "AB11", 89},    // Ro of a Japanese keyboard
    {95, "I129", 121},   // keypad ,
    {96, "FK05", 63},    // F5
    {97, "FK06", 64},    // F6
    {98, "FK07", 65},    // F7
    {99, "FK03", 61},    // F3
    {100, "FK08", 66},   // F8
    {101, "FK09", 67},   // F9
    {103, "FK11", 87},   // F11
    {105, "FK13", 183},  // F13
    {106, "FK16", 186},  // F16
    {107, "FK14", 184},  // F14
    {109, "FK10", 68},   // F10
    {110, "MENU", 127},  // Menu
    {111, "FK12", 88},   // F12
    {113, "FK15", 185},  // F15
    {114, "INS", 110},   // Insert (Help)
    {115, "HOME", 102},  // Home
    {116, "PGUP", 104},  // Page Up
    {117, "DELE", 111},  // Forward Delete
    {118, "FK04", 62},   // F4
    {119, "END", 107},   // End
    {120, "FK02", 60},   // F2
    {121, "PGDN", 109},  // Page Down
    {122, "FK01", 59},   // F1
    {123, "LEFT", 105},  // Left
    {124, "RGHT", 106},  // Right
    {125, "DOWN", 108},  // Down
    {126, "UP", 103},    // Up
});
static_assert(std::ranges::is_sorted(places, {}, &KeyPlace::virtualKeyCode));

template <class Value>
std::optional<KeyPlace> findPlace(Value KeyPlace::*field, Value value) {
  const auto found = std::ranges::find(places, value, field);
  return found != places.end() ? std::optional(*found) : std::nullopt;
}

}  // namespace

std::span<const KeyPlace> keyPlaces() {
  return places;
}

std::optional<KeyPlace> keyPlaceForVirtualKey(std::uint32_t virtualKeyCode) {
  return findPlace(&KeyPlace::virtualKeyCode, virtualKeyCode);
}

std::optional<KeyPlace> keyPlaceForXkbName(std::string_view xkbName) {
  return findPlace(&KeyPlace::xkbName, xkbName);
}

std::optional<KeyPlace> keyPlaceForEvdevCode(std::uint16_t evdevCode) {
  return findPlace(&KeyPlace::evdevCode, evdevCode);
}

}  // namespace vellora
