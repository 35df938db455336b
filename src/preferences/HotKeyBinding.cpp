#include "preferences/HotKeyBinding.h"

#include <array>

#include <QStringList>

#include "base/Json.h"
#include "platform/KeyCodes.h"

namespace vellora {
namespace {

constexpr std::array functionKeyTable{
    FunctionKey{1, 122},  FunctionKey{2, 120},  FunctionKey{3, 99},   FunctionKey{4, 118},  FunctionKey{5, 96},
    FunctionKey{6, 97},   FunctionKey{7, 98},   FunctionKey{8, 100},  FunctionKey{9, 101},  FunctionKey{10, 109},
    FunctionKey{11, 103}, FunctionKey{12, 111}, FunctionKey{13, 105}, FunctionKey{14, 107}, FunctionKey{15, 113},
    FunctionKey{16, 106}, FunctionKey{17, 64},  FunctionKey{18, 79},  FunctionKey{19, 80},  FunctionKey{20, 90},
};

struct SpecialKey {
  std::uint32_t keyCode;
  const char16_t* label;
  const char* written;  // how the key is typed on a command line
};

constexpr std::array specialKeyTable{
    SpecialKey{49, u"Space", "space"}, SpecialKey{36, u"↩", "return"},    SpecialKey{48, u"⇥", "tab"},
    SpecialKey{53, u"⎋", "escape"},    SpecialKey{51, u"⌫", "backspace"}, SpecialKey{117, u"⌦", "delete"},
    SpecialKey{123, u"←", "left"},     SpecialKey{124, u"→", "right"},    SpecialKey{126, u"↑", "up"},
    SpecialKey{125, u"↓", "down"},     SpecialKey{115, u"↖", "home"},     SpecialKey{119, u"↘", "end"},
    SpecialKey{116, u"⇞", "pageup"},   SpecialKey{121, u"⇟", "pagedown"},
};

struct PrintedKey {
  char character;
  std::uint32_t keyCode;
};

constexpr std::array printedKeyTable{
    PrintedKey{'a', 0},   PrintedKey{'s', 1},  PrintedKey{'d', 2},   PrintedKey{'f', 3},  PrintedKey{'h', 4},
    PrintedKey{'g', 5},   PrintedKey{'z', 6},  PrintedKey{'x', 7},   PrintedKey{'c', 8},  PrintedKey{'v', 9},
    PrintedKey{'b', 11},  PrintedKey{'q', 12}, PrintedKey{'w', 13},  PrintedKey{'e', 14}, PrintedKey{'r', 15},
    PrintedKey{'y', 16},  PrintedKey{'t', 17}, PrintedKey{'1', 18},  PrintedKey{'2', 19}, PrintedKey{'3', 20},
    PrintedKey{'4', 21},  PrintedKey{'6', 22}, PrintedKey{'5', 23},  PrintedKey{'=', 24}, PrintedKey{'9', 25},
    PrintedKey{'7', 26},  PrintedKey{'-', 27}, PrintedKey{'8', 28},  PrintedKey{'0', 29}, PrintedKey{']', 30},
    PrintedKey{'o', 31},  PrintedKey{'u', 32}, PrintedKey{'[', 33},  PrintedKey{'i', 34}, PrintedKey{'p', 35},
    PrintedKey{'l', 37},  PrintedKey{'j', 38}, PrintedKey{'\'', 39}, PrintedKey{'k', 40}, PrintedKey{';', 41},
    PrintedKey{'\\', 42}, PrintedKey{',', 43}, PrintedKey{'/', 44},  PrintedKey{'n', 45}, PrintedKey{'m', 46},
    PrintedKey{'.', 47},  PrintedKey{'`', 50},
};

std::optional<std::uint32_t> uint32Member(const Json& object, const char* key) {
  const Json* value = json::member(object, key);
  const auto number = value ? json::integer(*value) : std::nullopt;
  if (!number || *number < 0 || *number > UINT32_MAX) return std::nullopt;
  return static_cast<std::uint32_t>(*number);
}

std::optional<std::uint32_t> modifierFromName(const QString& name) {
  if (name == u"ctrl" || name == u"control") return carbonModifier::control;
  if (name == u"alt" || name == u"option") return carbonModifier::option;
  if (name == u"shift") return carbonModifier::shift;
  if (name == u"super" || name == u"command" || name == u"cmd" || name == u"meta") return carbonModifier::command;
  return std::nullopt;
}

std::optional<std::uint32_t> keyCodeFromName(const QString& name) {
  for (const SpecialKey& key : specialKeyTable) {
    if (name == QLatin1StringView(key.written)) return key.keyCode;
  }
  for (const FunctionKey& key : functionKeyTable) {
    if (name == QStringLiteral("f%1").arg(key.number)) return key.keyCode;
  }
  for (const PrintedKey& key : printedKeyTable) {
    if (name.size() == 1 && name[0] == QLatin1Char(key.character)) return key.keyCode;
  }
  return std::nullopt;
}

}  // namespace

QByteArray encode(const HotKeyBinding& binding) {
  return json::serialize(Json{{"keyCode", binding.keyCode},
                              {"carbonModifiers", binding.carbonModifiers},
                              {"keyLabel", binding.keyLabel.toStdString()}});
}

std::optional<HotKeyBinding> decodeHotKeyBinding(const QByteArray& data) {
  constexpr qsizetype maximumBytes = 4096;
  if (data.size() > maximumBytes) return std::nullopt;
  const auto object = json::parse(data);
  if (!object) return std::nullopt;
  const auto keyCode = uint32Member(*object, "keyCode");
  const auto modifiers = uint32Member(*object, "carbonModifiers");
  const Json* label = json::member(*object, "keyLabel");
  const auto text = label ? json::string(*label) : std::nullopt;
  if (!keyCode || !modifiers || !text) return std::nullopt;
  return HotKeyBinding{*keyCode, *modifiers, *text};
}

std::span<const FunctionKey> functionKeys() {
  return functionKeyTable;
}

std::optional<int> functionKeyNumber(std::uint32_t keyCode) {
  for (const FunctionKey& key : functionKeyTable) {
    if (key.keyCode == keyCode) return key.number;
  }
  return std::nullopt;
}

std::optional<QString> specialKeyLabel(std::uint32_t keyCode) {
  for (const SpecialKey& key : specialKeyTable) {
    if (key.keyCode == keyCode) return QString::fromUtf16(key.label);
  }
  if (const auto number = functionKeyNumber(keyCode)) return QStringLiteral("F%1").arg(*number);
  return std::nullopt;
}

QString keyLabel(std::uint32_t keyCode, const QString& characters) {
  if (auto special = specialKeyLabel(keyCode)) return *special;
  if (!characters.isEmpty()) return characters.toUpper();
  return QStringLiteral("Key %1").arg(keyCode);
}

QString modifierGlyphs(std::uint32_t carbonModifiers) {
  QString glyphs;
  if (carbonModifiers & carbonModifier::control) glyphs += u'⌃';
  if (carbonModifiers & carbonModifier::option) glyphs += u'⌥';
  if (carbonModifiers & carbonModifier::shift) glyphs += u'⇧';
  if (carbonModifiers & carbonModifier::command) glyphs += u'⌘';
  return glyphs;
}

QString displayText(const HotKeyBinding& binding) {
  return modifierGlyphs(binding.carbonModifiers) + binding.keyLabel;
}

QString writtenShortcut(const HotKeyBinding& binding) {
  QStringList parts;
  if (binding.carbonModifiers & carbonModifier::control) parts << QStringLiteral("Ctrl");
  if (binding.carbonModifiers & carbonModifier::option) parts << QStringLiteral("Alt");
  if (binding.carbonModifiers & carbonModifier::shift) parts << QStringLiteral("Shift");
  if (binding.carbonModifiers & carbonModifier::command) parts << QStringLiteral("Super");
  QString key = binding.keyLabel;
  for (const SpecialKey& special : specialKeyTable) {
    if (special.keyCode != binding.keyCode) continue;
    key = QString::fromLatin1(special.written);
    key[0] = key[0].toUpper();
  }
  parts << key;
  return parts.join(u'+');
}

std::optional<HotKeyBinding> parseWrittenShortcut(const QString& text) {
  QStringList parts = text.trimmed().toLower().split(u'+');
  for (QString& part : parts) part = part.trimmed();
  const auto keyCode = keyCodeFromName(parts.takeLast());
  if (!keyCode) return std::nullopt;
  std::uint32_t modifiers = 0;
  for (const QString& part : parts) {
    const auto modifier = modifierFromName(part);
    if (!modifier) return std::nullopt;
    modifiers |= *modifier;
  }
  if (!isAcceptableHotKey(*keyCode, modifiers)) return std::nullopt;
  QString characters;
  for (const PrintedKey& key : printedKeyTable) {
    if (key.keyCode == *keyCode) characters = QLatin1Char(key.character);
  }
  return HotKeyBinding{*keyCode, modifiers, keyLabel(*keyCode, characters)};
}

bool isAcceptableHotKey(std::uint32_t keyCode, std::uint32_t carbonModifiers) {
  constexpr std::uint32_t qualifying = carbonModifier::control | carbonModifier::option | carbonModifier::command;
  return (carbonModifiers & qualifying) != 0 || functionKeyNumber(keyCode).has_value();
}

}  // namespace vellora
