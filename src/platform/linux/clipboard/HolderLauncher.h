#pragma once

#include <string>

#include "platform/linux/clipboard/ClipboardPayload.h"

namespace vellora {

/// The descriptors a holder process starts with.
namespace holderDescriptor {
inline constexpr int payload = 3;
inline constexpr int status = 4;
}  // namespace holderDescriptor

/// What a holder writes to its status pipe once the clipboard is its own.
inline constexpr char holderReady = '+';

/// Hands `parts` to a small process of its own that keeps them on the X clipboard until another program copies
/// something; it outlives this one. `program` is the holder's executable. Returns once it owns the clipboard (some
/// milliseconds); false when it could not. A holder of an earlier copy ends by itself. Any thread.
bool holdOnClipboard(const ClipboardParts& parts, const std::string& program);

/// The holder's executable of this installation: beside the running program, or in the installation's libexec folder.
std::string holderProgram();

/// The whole life of the holder process: leaves its parent, takes the clipboard, serves it. The exit code.
int runClipboardHolder();

}  // namespace vellora
