#include "preferences/LegacyMigration.h"

#include "preferences/PreferenceKeys.h"

namespace vellora {
namespace {

constexpr const char* legacyDomains[] = {"dev.orlo.brisk", "dev.orlo.tarnwick", "dev.orlo.pelmet"};

}  // namespace

void migrateLegacyPreferences(PreferenceStore& preferences, PreferenceSuites& suites) {
  if (preferences.boolean(preferenceKey::didMigrate).value_or(false)) return;
  const QString keys[] = {preferenceKey::toolStyles, preferenceKey::customColors, preferenceKey::backdropStyles,
                          preferenceKey::backdropLastUsed, preferenceKey::saveDirectory};
  for (const char* domain : legacyDomains) {
    const auto legacy = suites.open(QString::fromLatin1(domain));
    if (!legacy) continue;
    for (const QString& key : keys) {
      if (!preferences.contains(key) && legacy->contains(key)) preferences.setValue(key, legacy->value(key));
    }
  }
  preferences.setValue(preferenceKey::didMigrate, true);
}

}  // namespace vellora
