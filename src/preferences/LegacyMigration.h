#pragma once

#include "platform/PreferenceStore.h"

namespace vellora {

/// Takes over what the maker's earlier programs stored: once, at the first start, each key from the first earlier
/// domain that has it, and never over a value that is already here.
void migrateLegacyPreferences(PreferenceStore& preferences, PreferenceSuites& suites);

}  // namespace vellora
