#include "editor/compressor/AdmittedFile.h"

#include <utility>

namespace vellora {

Result<AdmittedFile, PictureFailure> admit(const std::filesystem::path& source, MemoryGate& gate,
                                           const std::function<std::size_t(const PictureInfo&)>& workOn) {
  MemoryGate::Turn turn(gate);
  auto data = readPictureFile(source);
  if (!data) return failure(std::move(data.error()));
  auto info = inspectPicture(*data);
  if (!info) return failure(std::move(info.error()));
  const std::size_t bytes = data->size() + workOn(*info);
  return AdmittedFile{std::move(*data), *info, MemoryGate::Share(gate, std::move(turn), bytes)};
}

}  // namespace vellora
