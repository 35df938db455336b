#include "editor/BackdropStyles.h"

#include <algorithm>

#include "base/Json.h"
#include "editor/BackdropRecord.h"
#include "preferences/PreferenceKeys.h"

namespace vellora {
namespace {

const QString& stylesKey = preferenceKey::backdropStyles;
const QString& lastUsedKey = preferenceKey::backdropLastUsed;
const QString lastBackgroundKey = QStringLiteral("backdropLastBackground");

/// More than any number of styles takes.
constexpr qsizetype mostBytes = 1 << 20;

std::optional<Json> stored(const PreferenceStore& preferences, const QString& key) {
  const auto data = preferences.data(key);
  if (!data || data->size() > mostBytes) return std::nullopt;
  auto value = json::parse(*data);
  if (!value) return std::nullopt;
  return std::move(*value);
}

QString cleanName(const QString& name) {
  return name.simplified().left(BackdropStyles::nameLength);
}

}  // namespace

const std::vector<BackdropStyle>& BackdropStyles::styles() {
  if (styles_) return *styles_;
  styles_.emplace();
  const auto records = stored(preferences_, stylesKey);
  if (!records || !records->is_array()) return *styles_;
  for (const Json& record : *records) {
    if (styles_->size() == limit) break;
    const Json* name = json::member(record, "name");
    const Json* settings = json::member(record, "settings");
    if (!name || !settings) continue;
    const auto title = json::string(*name);
    auto decoded = decodeBackdrop(*settings);
    if (!title || cleanName(*title).isEmpty() || !decoded) continue;
    styles_->push_back({cleanName(*title), std::move(*decoded)});
  }
  return *styles_;
}

std::optional<std::size_t> BackdropStyles::add(const QString& name, const BackdropSettings& settings) {
  if (styles().size() >= limit || cleanName(name).isEmpty()) return std::nullopt;
  BackdropSettings kept = settings.clamped();
  kept.enabled = true;
  styles_->push_back({freeName(name, std::nullopt), std::move(kept)});
  save();
  return styles_->size() - 1;
}

bool BackdropStyles::rename(std::size_t index, const QString& name) {
  if (index >= styles().size() || cleanName(name).isEmpty()) return false;
  (*styles_)[index].name = freeName(name, index);
  save();
  return true;
}

void BackdropStyles::update(std::size_t index, const BackdropSettings& settings) {
  if (index >= styles().size()) return;
  (*styles_)[index].settings = settings.clamped();
  (*styles_)[index].settings.enabled = true;
  save();
}

void BackdropStyles::remove(std::size_t index) {
  if (index >= styles().size()) return;
  styles_->erase(styles_->begin() + static_cast<std::ptrdiff_t>(index));
  save();
}

std::optional<BackdropSettings> BackdropStyles::lastUsed() const {
  const auto value = stored(preferences_, lastUsedKey);
  auto settings = value ? decodeBackdrop(*value) : std::nullopt;
  if (settings) settings->enabled = true;
  return settings;
}

std::optional<BackdropBackground> BackdropStyles::lastBackground() const {
  const auto value = stored(preferences_, lastBackgroundKey);
  return value ? decodeBackground(*value) : std::nullopt;
}

void BackdropStyles::remember(const BackdropSettings& settings) {
  preferences_.setValue(lastUsedKey, json::serialize(encodeBackdrop(settings)));
  preferences_.setValue(lastBackgroundKey, json::serialize(encodeBackground(settings.clamped().background)));
}

BackdropSettings BackdropStyles::turnedOn(const BackdropSettings& settings) const {
  BackdropSettings result = settings == BackdropSettings() ? lastUsed().value_or(settings) : settings;
  result.enabled = true;
  return result;
}

QString BackdropStyles::freeName(const QString& name, std::optional<std::size_t> besides) {
  const QString base = cleanName(name);
  const auto taken = [&](const QString& candidate) {
    for (std::size_t i = 0; i < styles_->size(); ++i) {
      if (i != besides && (*styles_)[i].name == candidate) return true;
    }
    return false;
  };
  QString candidate = base;
  for (int number = 2; taken(candidate); ++number) candidate = QStringLiteral("%1 %2").arg(base).arg(number);
  return candidate;
}

void BackdropStyles::save() {
  Json records = Json::array();
  for (const BackdropStyle& style : *styles_) {
    records.push_back(Json{{"name", json::fromString(style.name)}, {"settings", encodeBackdrop(style.settings)}});
  }
  preferences_.setValue(stylesKey, json::serialize(records));
}

}  // namespace vellora
