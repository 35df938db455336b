#include "editor/compressor/RunFixture.h"

#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <iterator>

#include "media/pictures/PictureWriter.h"
#include "support/PngBuilder.h"

namespace vellora::test {
namespace {

namespace fs = std::filesystem;

constexpr uid_t nobody = 65534;

PictureType typeByName(const fs::path& file) {
  const std::string extension = file.extension().string();
  for (const PictureType type : allPictureTypes)
    if (!extension.empty() && isExtensionOf(type, extension.substr(1))) return type;
  return PictureType::Png;
}

/// Without loss, and larger than it needs to be.
std::vector<std::byte> lavishPng(const Raster& raster) {
  std::vector<std::uint8_t> rows;
  for (int y = 0; y < raster.height(); ++y) {
    rows.push_back(0);
    rows.insert(rows.end(), raster.row(y), raster.row(y) + raster.stride());
  }
  const auto file =
      PngBuilder()
          .header(static_cast<std::uint32_t>(raster.width()), static_cast<std::uint32_t>(raster.height()), 8, 2)
          .pixels(rows)
          .finish();
  const auto* bytes = reinterpret_cast<const std::byte*>(file.data());
  return {bytes, bytes + file.size()};
}

}  // namespace

Raster noise(int width, int height, unsigned int seed) {
  Raster raster = *Raster::create(width, height, RasterLayout::Rgb);
  std::uint32_t state = seed;
  for (std::size_t i = 0; i < raster.bytes(); i += 3) {
    state = state * 1664525 + 1013904223;
    std::fill_n(raster.row(0) + i, 3, static_cast<std::uint8_t>(state >> 28 << 4));
  }
  return raster;
}

std::vector<std::byte> contentOf(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  const std::string text{std::istreambuf_iterator<char>(stream), {}};
  const auto bytes = std::as_bytes(std::span(text));
  return {bytes.begin(), bytes.end()};
}

void save(const fs::path& file, std::span<const std::byte> content) {
  std::ofstream(file, std::ios::binary)
      .write(reinterpret_cast<const char*>(content.data()), static_cast<std::streamsize>(content.size()));
}

RunFixture::RunFixture() : root_(temporary_.path().toStdString()) {
  makeRun();
}

RunFixture::~RunFixture() {
  run_.reset();
  // Names that are no text are beyond what removes the folder otherwise.
  std::error_code ignored;
  fs::remove_all(root_, ignored);
}

fs::path RunFixture::picture(const fs::path& name, int width, int height, unsigned int seed) {
  const Raster raster = noise(width, height, seed);
  const PictureType type = typeByName(name);
  const Result<std::vector<std::byte>, PictureFailure> file =
      type == PictureType::Png ? lavishPng(raster) : writePicture(raster, {}, type, {.quality = 0.95});
  EXPECT_TRUE(file);
  fs::create_directories(path(name).parent_path());
  save(path(name), *file);
  return path(name);
}

void RunFixture::makeRun(int jobs) {
  run_.reset();
  listChanges_ = 0;
  ends_ = 0;
  progress_.clear();
  run_ = std::make_unique<CompressionRun>(
      loop_,
      CompressionRun::Callbacks{.onListChanged = [this] { ++listChanges_; },
                                .onItemChanged =
                                    [this](std::uint64_t id) {
                                      if (onItem_) onItem_(id);
                                    },
                                .onProgress = [this](const CompressionProgress& now) { progress_.push_back(now); },
                                .onFinished = [this](const CompressionProgress&) { ++ends_; }},
      jobs);
}

void RunFixture::add(std::vector<fs::path> paths, bool recursive) {
  const int before = listChanges_;
  run_->addPaths(std::move(paths), recursive);
  ASSERT_TRUE(loop_.runUntil([&] { return listChanges_ > before; }));
}

void RunFixture::carryOut(const CompressOptions& options, const CompressDestination& destination) {
  run_->start(options, destination);
  ASSERT_TRUE(waitForEnd());
}

bool RunFixture::waitForEnd() {
  return loop_.runUntil([this] { return !run_->isRunning(); });
}

const CompressionItem& RunFixture::item(const std::string& name) const {
  static const CompressionItem none;
  for (const CompressionItem& item : run_->items())
    if (item.sourceURL.filename() == name) return item;
  ADD_FAILURE() << "no item " << name;
  return none;
}

std::size_t RunFixture::count(CompressionState state) const {
  return static_cast<std::size_t>(std::ranges::count(run_->items(), state, &CompressionItem::state));
}

std::set<std::string> RunFixture::names(const fs::path& below) const {
  std::set<std::string> found;
  for (const auto& entry : fs::directory_iterator(path(below))) found.insert(entry.path().filename().string());
  return found;
}

void RunFixture::expectOnlyWholeOutputsIn(const fs::path& below) const {
  std::set<std::string> expected;
  for (const CompressionItem& item : run_->items()) {
    if (item.state != CompressionState::done && item.state != CompressionState::unchanged) continue;
    ASSERT_TRUE(item.lastOutput);
    expected.insert(item.lastOutput->file.filename().string());
    const auto content = contentOf(item.lastOutput->file);
    EXPECT_EQ(content.size(), item.lastOutput->bytes);
    const auto decoded = decodePicture(content);
    ASSERT_TRUE(decoded) << item.lastOutput->file;
    EXPECT_EQ(decoded->raster.width(), item.lastOutput->width);
  }
  EXPECT_EQ(names(below), expected);
}

WithoutRights::WithoutRights() {
  if (::geteuid() == 0) {
    EXPECT_EQ(::seteuid(nobody), 0);
  }
}

WithoutRights::~WithoutRights() {
  if (::getuid() == 0) {
    EXPECT_EQ(::seteuid(0), 0);
  }
}

}  // namespace vellora::test
