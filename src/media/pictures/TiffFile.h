#pragma once

#include <tiffio.h>

#include <memory>
#include <string>

#include "media/pictures/FileBytes.h"

namespace vellora {

/// A TIFF file in memory, opened with libtiff. Says nothing on standard error, touches no file. Not movable: libtiff
/// knows its address.
class TiffFile {
 public:
  explicit TiffFile(FileBytes file);
  TiffFile(const TiffFile&) = delete;
  TiffFile& operator=(const TiffFile&) = delete;

  /// Null when there is no directory to be read.
  TIFF* handle() const { return handle_.get(); }
  std::size_t size() const { return file_.size(); }
  /// Whether libtiff warned of something that costs a part of the picture: a tag that lies outside the file, or, once
  /// `expectsPixels`, anything.
  bool isHurt() const { return isHurt_; }
  void expectPixels() { expectsPixels_ = true; }
  /// The last error in libtiff's words.
  const std::string& message() const { return message_; }

  template <class Value>
  Value tag(ttag_t tag, Value otherwise) const {
    Value value{};
    return TIFFGetFieldDefaulted(handle(), tag, &value) != 0 ? value : otherwise;
  }
  /// A tag's block of bytes; empty without it.
  FileBytes block(ttag_t tag) const;

 private:
  struct Closed {
    void operator()(TIFF* tiff) const { TIFFClose(tiff); }
  };

  static TiffFile& of(thandle_t handle) { return *static_cast<TiffFile*>(handle); }
  static tmsize_t read(thandle_t handle, void* target, tmsize_t count);
  static toff_t seek(thandle_t handle, toff_t offset, int whence);
  static int map(thandle_t handle, void** base, toff_t* size);
  static int onError(TIFF*, void* self, const char* module, const char* format, va_list values);
  static int onWarning(TIFF*, void* self, const char* module, const char* format, va_list values);

  FileBytes file_;
  toff_t position_ = 0;
  std::string message_;
  bool isHurt_ = false;
  bool expectsPixels_ = false;
  std::unique_ptr<TIFF, Closed> handle_;
};

}  // namespace vellora
