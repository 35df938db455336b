#include "media/pictures/ForeignCodec.h"

#include <dlfcn.h>

#include <filesystem>
#include <string>
#include <system_error>

#include "base/Log.h"

namespace vellora {
namespace {

namespace fs = std::filesystem;

void warn(const std::string& text) {
  log::warning(QStringLiteral("image module failed: ") + QString::fromStdString(text));
}

/// Beside the program in the build tree, in the libraries' folder when installed.
fs::path moduleFile(const std::string& name) {
  std::error_code error;
  const fs::path program = fs::read_symlink("/proc/self/exe", error).parent_path();
  for (const fs::path& folder : {program, program / VELLORA_MODULE_FOLDER}) {
    if (fs::exists(folder / name, error)) return folder / name;
  }
  return {};
}

const ForeignCodec* loadModule(const std::string& name) {
  const fs::path file = moduleFile(name);
  if (file.empty()) {
    warn(name + " is not installed");
    return nullptr;
  }
  void* library = ::dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
  void* entry = library == nullptr ? nullptr : ::dlsym(library, foreignCodecEntryName);
  if (entry == nullptr) {
    warn(::dlerror());
    return nullptr;
  }
  return reinterpret_cast<ForeignCodecEntry>(entry)();
}

}  // namespace

const ForeignCodec* foreignCodecFor(PictureType type) {
  switch (type) {
    case PictureType::Heic:
    case PictureType::Avif: {
      static const ForeignCodec* const heif = loadModule("libvellora_heif.so");
      return heif;
    }
    case PictureType::JpegXL: {
      static const ForeignCodec* const jxl = loadModule("libvellora_jxl.so");
      return jxl;
    }
    default:
      return nullptr;
  }
}

}  // namespace vellora
