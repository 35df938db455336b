#pragma once

/// The D-Bus session bus this process belongs to.
namespace vellora::sessionBus {

/// Whether an address was given or a bus listens at its usual place. Starts nothing.
bool isReachable();

/// Keeps this process and its children from starting a bus of their own when none is reachable; such a bus would
/// outlive them. Call it first thing in main, before other threads.
void forbidAutolaunch();

}  // namespace vellora::sessionBus
