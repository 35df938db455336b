#include "base/Module.h"

#include <dlfcn.h>

#include <filesystem>
#include <string>
#include <system_error>

#include "base/Log.h"

namespace vellora {
namespace {

namespace fs = std::filesystem;

fs::path moduleFile(const char* module) {
  std::error_code error;
  const fs::path program = fs::read_symlink("/proc/self/exe", error).parent_path();
  for (const fs::path& folder : {program, program / VELLORA_MODULE_FOLDER}) {
    if (fs::exists(folder / module, error)) return folder / module;
  }
  return {};
}

}  // namespace

void* moduleEntry(const char* module, const char* function) {
  const fs::path file = moduleFile(module);
  void* const library = file.empty() ? nullptr : ::dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
  void* const entry = library == nullptr ? nullptr : ::dlsym(library, function);
  if (entry == nullptr) {
    const std::string reason = file.empty() ? std::string(module) + " is not installed" : std::string(::dlerror());
    log::warning(QStringLiteral("module not loaded: ") + QString::fromStdString(reason));
  }
  return entry;
}

}  // namespace vellora
