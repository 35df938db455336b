#include "platform/linux/x11/X11Keyboard.h"

// The generated header names a field "explicit".
#define explicit explicit_
#include <xcb/xkb.h>
#undef explicit

#include <bit>

#include "platform/KeyCodes.h"
#include "platform/linux/x11/X11Connection.h"

namespace vellora {
namespace {

// Key symbols (X11/keysymdef.h).
enum KeySymbol : xcb_keysym_t {
  ScrollLock = 0xFF14,
  NumLock = 0xFF7F,
  MetaLeft = 0xFFE7,
  MetaRight = 0xFFE8,
  AltLeft = 0xFFE9,
  AltRight = 0xFFEA,
  SuperLeft = 0xFFEB,
  SuperRight = 0xFFEC,
};

constexpr int evdevOffset = 8;

std::string nameOf(const char (&letters)[4]) {
  std::string name(letters, sizeof letters);
  name.resize(name.find('\0') == std::string::npos ? name.size() : name.find('\0'));
  return name;
}

bool readKeyNames(X11Connection& connection, X11Keyboard& keyboard) {
  if (!connection.hasExtension(&xcb_xkb_id)) return false;
  xcb_connection_t* c = connection.get();
  const auto use =
      xReply(xcb_xkb_use_extension_reply, c, xcb_xkb_use_extension(c, XCB_XKB_MAJOR_VERSION, XCB_XKB_MINOR_VERSION));
  if (!use || use->supported == 0) return false;
  const auto reply = xReply(
      xcb_xkb_get_names_reply, c,
      xcb_xkb_get_names(c, XCB_XKB_ID_USE_CORE_KBD, XCB_XKB_NAME_DETAIL_KEY_NAMES | XCB_XKB_NAME_DETAIL_KEY_ALIASES));
  if (!reply) return false;
  xcb_xkb_get_names_value_list_t list{};
  xcb_xkb_get_names_value_list_unpack(xcb_xkb_get_names_value_list(reply.get()), reply->nTypes, reply->indicators,
                                      reply->virtualMods, reply->groupNames, reply->nKeys, reply->nKeyAliases,
                                      reply->nRadioGroups, reply->which, &list);
  if (list.keyNames == nullptr) return false;
  for (int i = 0; i < reply->nKeys; ++i) {
    const std::string name = nameOf(list.keyNames[i].name);
    if (!name.empty()) keyboard.keyCodes.emplace(name, static_cast<xcb_keycode_t>(reply->firstKey + i));
  }
  for (int i = 0; list.keyAliases != nullptr && i < reply->nKeyAliases; ++i) {
    const auto real = keyboard.keyCodes.find(nameOf(list.keyAliases[i].real));
    if (real != keyboard.keyCodes.end()) keyboard.keyCodes.emplace(nameOf(list.keyAliases[i].alias), real->second);
  }
  return true;
}

/// The modifiers that the given symbols' keys set.
struct Meanings {
  std::uint16_t alt = 0, meta = 0, super = 0, numLock = 0, scrollLock = 0;
};

Meanings readMeanings(X11Connection& connection) {
  xcb_connection_t* c = connection.get();
  const xcb_keycode_t first = connection.setup()->min_keycode;
  const int count = connection.setup()->max_keycode - first + 1;
  const auto modifiersCookie = xcb_get_modifier_mapping(c);
  const auto symbolsCookie = xcb_get_keyboard_mapping(c, first, static_cast<std::uint8_t>(count));
  const auto modifiers = xReply(xcb_get_modifier_mapping_reply, c, modifiersCookie);
  const auto symbols = xReply(xcb_get_keyboard_mapping_reply, c, symbolsCookie);
  Meanings meanings;
  if (!modifiers || !symbols) return meanings;
  const xcb_keycode_t* keys = xcb_get_modifier_mapping_keycodes(modifiers.get());
  const int keysPerModifier = modifiers->keycodes_per_modifier;
  const xcb_keysym_t* table = xcb_get_keyboard_mapping_keysyms(symbols.get());
  const int perKey = symbols->keysyms_per_keycode;
  constexpr int modifierCount = 8;
  constexpr int firstFree = 3;  // Shift, Lock and Control mean what they are called
  for (int modifier = firstFree; modifier < modifierCount; ++modifier) {
    const auto mask = static_cast<std::uint16_t>(1 << modifier);
    for (int k = 0; k < keysPerModifier; ++k) {
      const int key = keys[modifier * keysPerModifier + k];
      if (key < first || key >= first + count) continue;
      for (int s = 0; s < perKey; ++s) {
        const xcb_keysym_t symbol = table[(key - first) * perKey + s];
        if (symbol == AltLeft || symbol == AltRight) meanings.alt |= mask;
        if (symbol == MetaLeft || symbol == MetaRight) meanings.meta |= mask;
        if (symbol == SuperLeft || symbol == SuperRight) meanings.super |= mask;
        if (symbol == NumLock) meanings.numLock |= mask;
        if (symbol == ScrollLock) meanings.scrollLock |= mask;
      }
    }
  }
  return meanings;
}

/// One modifier where several carry the meaning.
std::uint16_t single(std::uint16_t masks) {
  return masks == 0 ? std::uint16_t{0} : static_cast<std::uint16_t>(1 << std::countr_zero(masks));
}

}  // namespace

X11Keyboard X11Keyboard::read(X11Connection& connection) {
  X11Keyboard keyboard;
  if (!readKeyNames(connection, keyboard)) {
    for (const KeyPlace& place : keyPlaces()) {
      keyboard.keyCodes.emplace(place.xkbName, static_cast<xcb_keycode_t>(place.evdevCode + evdevOffset));
    }
  }
  const Meanings meanings = readMeanings(connection);
  keyboard.numLock = single(meanings.numLock);
  keyboard.scrollLock = single(meanings.scrollLock);
  const auto locks = static_cast<std::uint16_t>(keyboard.numLock | keyboard.scrollLock);
  const auto usable = [&](std::uint16_t masks) { return single(static_cast<std::uint16_t>(masks & ~locks)); };
  if (const std::uint16_t alt = usable(meanings.alt != 0 ? meanings.alt : meanings.meta)) keyboard.alt = alt;
  if (const std::uint16_t super = usable(static_cast<std::uint16_t>(meanings.super & ~keyboard.alt))) {
    keyboard.super = super;
  }
  return keyboard;
}

std::uint16_t X11Keyboard::realModifiers(std::uint32_t carbonModifiers) const {
  unsigned mask = 0;
  if ((carbonModifiers & carbonModifier::shift) != 0) mask |= XCB_MOD_MASK_SHIFT;
  if ((carbonModifiers & carbonModifier::control) != 0) mask |= XCB_MOD_MASK_CONTROL;
  if ((carbonModifiers & carbonModifier::option) != 0) mask |= alt;
  if ((carbonModifiers & carbonModifier::command) != 0) mask |= super;
  return static_cast<std::uint16_t>(mask);
}

std::vector<std::uint16_t> X11Keyboard::lockStates() const {
  std::vector<std::uint16_t> states{0};
  for (const std::uint16_t lock : {std::uint16_t{XCB_MOD_MASK_LOCK}, numLock, scrollLock}) {
    if (lock == 0) continue;
    const std::size_t before = states.size();
    for (std::size_t i = 0; i < before; ++i) states.push_back(static_cast<std::uint16_t>(states[i] | lock));
  }
  return states;
}

std::optional<xcb_keycode_t> X11Keyboard::keyCode(std::uint32_t virtualKeyCode) const {
  const auto place = keyPlaceForVirtualKey(virtualKeyCode);
  if (!place) return std::nullopt;
  const auto found = keyCodes.find(place->xkbName);
  return found != keyCodes.end() ? std::optional(found->second) : std::nullopt;
}

}  // namespace vellora
