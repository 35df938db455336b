#pragma once

#include <memory>

class QMenu;

namespace vellora {

class PinWindowController;

/// What can be done with a pin, in its present state.
std::unique_ptr<QMenu> makePinMenu(PinWindowController& pin);

}  // namespace vellora
