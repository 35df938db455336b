#pragma once

namespace vellora {

/// The program behind `vellora render` and `vellora annotate`: draws documents without a display. Its arguments come
/// from `vellora`, which has checked them: "render SESSION OUTPUT SCALE text|json" or "annotate IMAGE DOCUMENT OUTPUT
/// SCALE text|json", paths absolute, SCALE 0 for the document's own. The result is the exit code.
int runRender(int argc, char** argv);

}  // namespace vellora
