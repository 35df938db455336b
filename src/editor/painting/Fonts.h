#pragma once

namespace vellora {

/// Makes the fonts that come with the program known to its windows: the hand-drawn face, and Inter where the desktop
/// lacks it. Only their names are read now, and nothing is kept in memory. Before the application object is made.
void registerFonts();

}  // namespace vellora
