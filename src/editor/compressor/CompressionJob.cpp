#include "editor/compressor/CompressionJob.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <array>
#include <new>
#include <utility>

#include "base/AtomicFile.h"
#include "base/FileName.h"
#include "editor/compressor/AdmittedFile.h"
#include "editor/compressor/PictureFolder.h"

namespace vellora {
namespace {

namespace fs = std::filesystem;

/// Leaves room for the suffix, a number and the extension in the 255 bytes of a name.
constexpr std::size_t longestStem = 200;
/// What a result may be at most; the umask takes more away.
constexpr mode_t mostPermissions = 0666;

PictureFailure writeFailure(const FileError& error) {
  PictureError kind = PictureError::WriteFailed;
  if (error.kind == FileError::Kind::NoSpace) kind = PictureError::DiskFull;
  return {kind, error.description().toStdString()};
}

std::string extensionFor(const fs::path& source, PictureType type) {
  std::string own = source.extension().string();
  if (!own.empty()) own.erase(0, 1);
  return isExtensionOf(type, own) ? own : std::string(fileExtension(type));
}

/// Nobody may read a result who may not read its source.
mode_t permissionsFor(const fs::path& source) {
  struct stat status {};
  if (source.empty() || ::stat(source.c_str(), &status) != 0) return mostPermissions;
  return (status.st_mode & mostPermissions) | S_IRUSR | S_IWUSR;
}

Result<fs::path, PictureFailure> write(const CompressionJob& job, const ImageCompressor::Output& output) {
  const CompressDestination& destination = job.destination;
  const bool isBeside = destination.mode == CompressOutputMode::sourceFolder;
  const bool isPasted = job.source.empty();
  const fs::path folder =
      !isBeside ? destination.folder : (isPasted ? destination.pastedFolder : job.source.parent_path());
  std::string stem = isPasted ? job.displayName : job.source.stem().string();
  // Names of files are kept as they are, unless what is added would make them too long.
  if (isPasted || stem.size() > longestStem) stem = sanitizedFileName(QString::fromStdString(stem)).toStdString();
  if (isBeside && !isPasted) stem += compressedSuffix;
  auto written = AtomicFile::writeNew(folder, stem, extensionFor(job.source, output.type), std::span(output.data),
                                      permissionsFor(job.source));
  if (!written) return failure(writeFailure(written.error()));
  return std::move(*written);
}

void copyDates(const fs::path& from, const fs::path& to) {
  struct stat status {};
  if (::stat(from.c_str(), &status) != 0) return;
  const std::array<timespec, 2> dates{status.st_atim, status.st_mtim};
  ::utimensat(AT_FDCWD, to.c_str(), dates.data(), 0);
}

CompressControl controlOf(const CompressionJob& job) {
  return {job.threads, job.isCancelled};
}

Result<CompressionResult, PictureFailure> finish(const CompressionJob& job,
                                                 Result<ImageCompressor::Output, PictureFailure> output,
                                                 CompressionResult result) {
  if (!output) return failure(std::move(output.error()));
  if (job.isCancelled()) return failure(PictureFailure{PictureError::Cancelled});
  auto written = write(job, *output);
  if (!written) return failure(std::move(written.error()));
  if (job.options.keepsDates && !job.source.empty()) copyDates(job.source, *written);
  result.isOriginal = output->isOriginal;
  result.output = {std::move(*written), output->type,        output->data.size(), output->width,
                   output->height,      output->isFlattened, output->frames};
  return result;
}

}  // namespace

std::size_t workingBytes(std::size_t decodedBytes) {
  return decodedBytes + decodedBytes / 2 * 3;
}

Result<CompressionResult, PictureFailure> carryOut(const CompressionJob& job, MemoryGate& gate) try {
  if (job.isCancelled()) return failure(PictureFailure{PictureError::Cancelled});
  if (job.source.empty()) {
    const MemoryGate::Share share(gate, workingBytes(job.image.bytes()));
    CompressionResult result;
    result.sourceSize = {job.image.width(), job.image.height()};
    result.sourceBytes = job.image.bytes();
    return finish(job, ImageCompressor::compress(job.image, job.options, controlOf(job)), std::move(result));
  }
  const auto file = admit(job.source, gate, [&job](const PictureInfo& info) {
    return workingBytes(decodedBytesOf(info, ImageCompressor::decodingOf(info, job.options)));
  });
  if (!file) return failure(file.error());
  if (job.isCancelled()) return failure(PictureFailure{PictureError::Cancelled});
  CompressionResult result;
  result.sourceSize = {file->info.width, file->info.height};
  result.sourceType = file->info.type;
  result.sourceBytes = file->data.size();
  return finish(job, ImageCompressor::compress(file->data, job.options, controlOf(job)), std::move(result));
} catch (const std::bad_alloc&) {
  return failure(PictureFailure{PictureError::OutOfMemory});
}

}  // namespace vellora
