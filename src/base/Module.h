#pragma once

namespace vellora {

/// Loads a part of the program that brings large libraries along, and gives the function it exports; null, with a line
/// in the log, when the module or one of its libraries is not installed. It stays loaded. Program and modules are built
/// together and share their headers. Modules lie beside the program in the build tree and in <libdir>/vellora when
/// installed. Any thread.
void* moduleEntry(const char* module, const char* function);

/// The same as a typed function: `moduleFunction<const ForeignCodec*()>("libvellora_heif.so",
/// "vellora_foreign_codec")`.
template <class Function>
Function* moduleFunction(const char* module, const char* function) {
  return reinterpret_cast<Function*>(moduleEntry(module, function));
}

}  // namespace vellora
