#include "media/pictures/TiffFile.h"

#include <algorithm>
#include <array>
#include <cstdarg>
#include <cstdio>
#include <cstring>

#include "media/pictures/Raster.h"

namespace vellora {

TiffFile::TiffFile(FileBytes file) : file_(file) {
  const std::unique_ptr<TIFFOpenOptions, void (*)(TIFFOpenOptions*)> options(TIFFOpenOptionsAlloc(),
                                                                             TIFFOpenOptionsFree);
  if (!options) return;
  TIFFOpenOptionsSetMaxSingleMemAlloc(options.get(), static_cast<tmsize_t>(Raster::maximumBytes));
  TIFFOpenOptionsSetErrorHandlerExtR(options.get(), onError, this);
  TIFFOpenOptionsSetWarningHandlerExtR(options.get(), onWarning, this);
  handle_.reset(TIFFClientOpenExt(
      "picture", "r", this, read, [](thandle_t, void*, tmsize_t) -> tmsize_t { return -1; }, seek,
      [](thandle_t) { return 0; }, [](thandle_t self) -> toff_t { return of(self).file_.size(); }, map,
      [](thandle_t, void*, toff_t) {}, options.get()));
}

FileBytes TiffFile::block(ttag_t tag) const {
  std::uint32_t size = 0;
  const void* data = nullptr;
  if (TIFFGetField(handle(), tag, &size, &data) == 0 || data == nullptr) return {};
  return {static_cast<const std::byte*>(data), size};
}

tmsize_t TiffFile::read(thandle_t handle, void* target, tmsize_t count) {
  TiffFile& self = of(handle);
  if (count <= 0 || self.position_ >= self.file_.size()) return 0;
  const std::size_t taken =
      std::min(static_cast<std::size_t>(count), self.file_.size() - static_cast<std::size_t>(self.position_));
  std::memcpy(target, &self.file_[self.position_], taken);
  self.position_ += taken;
  return static_cast<tmsize_t>(taken);
}

toff_t TiffFile::seek(thandle_t handle, toff_t offset, int whence) {
  TiffFile& self = of(handle);
  if (whence == SEEK_CUR) offset += self.position_;
  if (whence == SEEK_END) offset += self.file_.size();
  return self.position_ = offset;
}

int TiffFile::map(thandle_t handle, void** base, toff_t* size) {
  // libtiff only reads from what it gets here.
  *base = const_cast<std::byte*>(of(handle).file_.data());
  *size = of(handle).file_.size();
  return 1;
}

int TiffFile::onError(TIFF*, void* self, const char*, const char* format, va_list values) {
  std::array<char, 256> text{};
  std::vsnprintf(text.data(), text.size(), format, values);
  static_cast<TiffFile*>(self)->message_ = text.data();
  return 1;
}

int TiffFile::onWarning(TIFF*, void* self, const char*, const char* format, va_list) {
  auto& file = *static_cast<TiffFile*>(self);
  if (file.expectsPixels_ || std::strstr(format, "IO error") != nullptr) file.isHurt_ = true;
  return 1;
}

}  // namespace vellora
