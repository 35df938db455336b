#pragma once

#include <optional>
#include <vector>

#include <QString>

#include "editor/BackdropSettings.h"
#include "platform/PreferenceStore.h"

namespace vellora {

/// A backdrop the person keeps under a name.
struct BackdropStyle {
  QString name;
  BackdropSettings settings;
  friend bool operator==(const BackdropStyle&, const BackdropStyle&) = default;
};

/// The person's saved backdrops, and the one used last. Read once, on first use; every change is written at once.
/// What cannot be read counts as not there. Main thread.
///
/// "backdropStyles" holds a JSON array of {"name", "settings"} in the order added, "backdropLastUsed" a backdrop and
/// "backdropLastBackground" a background, each in the form documents keep them in.
class BackdropStyles {
 public:
  static constexpr std::size_t limit = 40;
  static constexpr qsizetype nameLength = 60;

  explicit BackdropStyles(PreferenceStore& preferences) : preferences_(preferences) {}

  const std::vector<BackdropStyle>& styles();
  /// Keeps `settings` as a new style and gives its index; a taken name gets a number, an empty one is refused. Nothing
  /// when there are as many as there may be.
  std::optional<std::size_t> add(const QString& name, const BackdropSettings& settings);
  /// Gives a style another name, with a number when it is taken. False for an unknown style or an empty name.
  bool rename(std::size_t index, const QString& name);
  /// Puts other settings under a style's name.
  void update(std::size_t index, const BackdropSettings& settings);
  void remove(std::size_t index);

  /// The backdrop used last, turned on; nothing before the first.
  std::optional<BackdropSettings> lastUsed() const;
  /// The background used last: it outlives a backdrop that was reset.
  std::optional<BackdropBackground> lastBackground() const;
  void remember(const BackdropSettings& settings);
  /// What turning on a backdrop that is off gives: one nobody touched yet begins as the last one used.
  BackdropSettings turnedOn(const BackdropSettings& settings) const;

 private:
  QString freeName(const QString& name, std::optional<std::size_t> besides);
  void save();

  PreferenceStore& preferences_;
  std::optional<std::vector<BackdropStyle>> styles_;
};

}  // namespace vellora
