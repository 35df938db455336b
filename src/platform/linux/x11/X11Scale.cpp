#include "platform/linux/x11/X11Scale.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <vector>

#include "platform/linux/x11/X11Connection.h"

namespace vellora {
namespace {

constexpr double baseDpi = 96;
constexpr double millimetresPerInch = 25.4;

std::string_view trimmed(std::string_view text) {
  const auto blank = [](char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; };
  while (!text.empty() && blank(text.front())) text.remove_prefix(1);
  while (!text.empty() && blank(text.back())) text.remove_suffix(1);
  return text;
}

template <class Number>
std::optional<Number> parsed(std::string_view text) {
  text = trimmed(text);
  Number value{};
  const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
  if (result.ec != std::errc() || result.ptr != text.data() + text.size()) return std::nullopt;
  return value;
}

std::optional<double> positiveFactor(std::string_view text) {
  const auto value = parsed<double>(text);
  return value && std::isfinite(*value) && *value > 0 ? value : std::nullopt;
}

/// Reads the fields of a settings property one after the other, never beyond its end.
class SettingsReader {
 public:
  explicit SettingsReader(std::string_view bytes) : bytes_(bytes) {}

  bool readHeader() {
    bigEndian_ = number(1) == 1;
    skip(3 + 4);  // unused, serial
    return good_;
  }
  std::uint32_t number(std::size_t size) {
    std::uint32_t value = 0;
    const std::string_view field = take(size);
    for (std::size_t i = 0; i < field.size(); ++i) {
      const std::size_t shift = (bigEndian_ ? field.size() - 1 - i : i) * 8;
      value |= static_cast<std::uint32_t>(static_cast<std::uint8_t>(field[i])) << shift;
    }
    return value;
  }
  std::string_view paddedText(std::size_t size) {
    const std::string_view text = take(size);
    skip((4 - size % 4) % 4);
    return text;
  }
  void skip(std::size_t size) { take(size); }
  bool good() const { return good_; }

 private:
  std::string_view take(std::size_t size) {
    if (bytes_.size() < size) {
      good_ = false;
      bytes_ = {};
      return {};
    }
    const std::string_view part = bytes_.substr(0, size);
    bytes_.remove_prefix(size);
    return part;
  }

  std::string_view bytes_;
  bool bigEndian_ = false;
  bool good_ = true;
};

}  // namespace

int resourceDpi(const std::string& resources) {
  constexpr std::string_view key = "Xft.dpi:\t";
  std::string_view rest = resources;
  while (!rest.empty()) {
    const std::size_t end = std::min(rest.find('\n'), rest.size());
    const std::string_view line = rest.substr(0, end);
    if (line.starts_with(key)) {
      const auto value = parsed<double>(line.substr(key.size()));
      if (value && *value > 0 && *value < 100000) return static_cast<int>(std::lround(*value));
    }
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  return 0;
}

std::optional<int> settingsDpi(const std::string& property) {
  enum Type : std::uint32_t { Integer = 0, String = 1, Color = 2 };
  SettingsReader reader(property);
  if (!reader.readHeader()) return std::nullopt;
  const std::uint32_t count = reader.number(4);
  for (std::uint32_t i = 0; i < count && reader.good(); ++i) {
    const std::uint32_t type = reader.number(1);
    reader.skip(1);
    const std::string_view name = reader.paddedText(reader.number(2));
    reader.skip(4);  // serial of the last change
    std::optional<int> value;
    if (type == Integer) {
      value = static_cast<std::int32_t>(reader.number(4));
    } else if (type == String) {
      value = parsed<int>(reader.paddedText(reader.number(4)));
    } else if (type == Color) {
      reader.skip(8);
    } else {
      return std::nullopt;
    }
    constexpr int unitsPerDot = 1024;
    if (reader.good() && name == "Xft/DPI" && value) return *value / unitsPerDot;
  }
  return std::nullopt;
}

X11Scale X11Scale::read(X11Connection& connection) {
  const Variable variable = [](const char* name) -> std::optional<std::string> {
    const char* value = std::getenv(name);
    return value != nullptr ? std::optional<std::string>(value) : std::nullopt;
  };
  const auto resources = askProperty(connection, connection.root(), "RESOURCE_MANAGER", 1 << 20);
  const std::string selection = "_XSETTINGS_S" + std::to_string(connection.screenNumber());
  const auto owner = xReply(xcb_get_selection_owner_reply, connection.get(),
                            xcb_get_selection_owner(connection.get(), connection.atom(selection)));
  int dpi = resourceDpi(propertyText(xReply(xcb_get_property_reply, connection.get(), resources).get()));
  if (owner && owner->owner != XCB_NONE) {
    if (const auto value = settingsDpi(connection.text(owner->owner, "_XSETTINGS_SETTINGS", 1 << 20))) dpi = *value;
  }
  return {variable, dpi};
}

X11Scale::X11Scale(const Variable& variable, int settingsDpi) : dpi_(settingsDpi) {
  const auto integer = [&](const char* name) {
    const auto text = variable(name);
    return text ? parsed<int>(*text) : std::nullopt;
  };
  if (const auto text = variable("QT_SCALE_FACTOR")) global_ = positiveFactor(*text).value_or(1);
  useDpi_ = integer("QT_ENABLE_HIGHDPI_SCALING").value_or(1) > 0;
  usePhysicalDpi_ = integer("QT_USE_PHYSICAL_DPI").value_or(0) > 0;
  if (const auto dpi = integer("QT_FONT_DPI"); dpi && *dpi > 0) dpi_ = *dpi;
  const std::string policy = variable("QT_SCALE_FACTOR_ROUNDING_POLICY").value_or("");
  if (policy == "Round") rounding_ = Rounding::Round;
  if (policy == "Ceil") rounding_ = Rounding::Ceil;
  if (policy == "Floor") rounding_ = Rounding::Floor;
  if (policy == "RoundPreferFloor") rounding_ = Rounding::RoundPreferFloor;

  const std::string list = variable("QT_SCREEN_SCALE_FACTORS").value_or("");
  std::string_view rest = list;
  while (!rest.empty()) {
    const std::size_t end = std::min(rest.find(';'), rest.size());
    const std::string_view entry = rest.substr(0, end);
    const std::size_t equals = entry.find('=');
    double atPosition = 0;
    if (equals == std::string_view::npos) {
      atPosition = positiveFactor(entry).value_or(0);
    } else if (const auto value = positiveFactor(entry.substr(equals + 1))) {
      byName_.emplace_back(entry.substr(0, equals), *value);
    }
    byPosition_.push_back(atPosition);
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
}

double X11Scale::factor(const std::string& name, int position, PixelSize pixels, PixelSize millimetres) const {
  const auto place = static_cast<std::size_t>(position);
  if (place < byPosition_.size() && byPosition_[place] > 0) return global_ * byPosition_[place];
  const auto named = std::find_if(byName_.rbegin(), byName_.rend(), [&](const auto& e) { return e.first == name; });
  if (named != byName_.rend()) return global_ * named->second;
  if (!useDpi_) return global_;
  double dpi = dpi_ > 0 ? dpi_ : baseDpi;
  if (usePhysicalDpi_ && millimetres.width > 0 && millimetres.height > 0) {
    const double horizontal = static_cast<double>(pixels.width) / millimetres.width;
    const double vertical = static_cast<double>(pixels.height) / millimetres.height;
    dpi = std::round((horizontal + vertical) / 2 * millimetresPerInch);
  }
  return global_ * rounded(dpi / baseDpi);
}

double X11Scale::rounded(double factor) const {
  switch (rounding_) {
    case Rounding::PassThrough:
      break;
    case Rounding::Round:
      factor = std::round(factor);
      break;
    case Rounding::Ceil:
      factor = std::ceil(factor);
      break;
    case Rounding::Floor:
      factor = std::floor(factor);
      break;
    case Rounding::RoundPreferFloor:
      factor = factor - std::floor(factor) < 0.75 ? std::floor(factor) : std::ceil(factor);
      break;
  }
  return std::max(factor, 1.0);
}

}  // namespace vellora
