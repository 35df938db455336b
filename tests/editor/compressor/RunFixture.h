#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <memory>
#include <set>
#include <span>
#include <string>
#include <vector>

#include <QTemporaryDir>

#include "editor/compressor/CompressionRun.h"
#include "support/VirtualRunLoop.h"

namespace vellora::test {

/// Noise in 16 shades of grey; another for another seed.
Raster noise(int width, int height, unsigned int seed = 1);

std::vector<std::byte> contentOf(const std::filesystem::path& file);
void save(const std::filesystem::path& file, std::span<const std::byte> content);

/// A run over files in a folder of the test's own.
class RunFixture : public testing::Test {
 protected:
  RunFixture();
  ~RunFixture() override;

  std::filesystem::path path(const std::filesystem::path& name) const { return root_ / name; }
  /// A picture of the type that the name tells, in the folder; all but GIF can become smaller.
  std::filesystem::path picture(const std::filesystem::path& name, int width = 40, int height = 30,
                                unsigned int seed = 1);
  CompressDestination folder(const std::filesystem::path& name) const {
    return {CompressOutputMode::customFolder, path(name)};
  }

  void makeRun(int jobs = 2);
  /// Waits until the list has been told of.
  void add(std::vector<std::filesystem::path> paths, bool recursive = false);
  /// Starts, and waits for the end.
  void carryOut(const CompressOptions& options = {}, const CompressDestination& destination = {});
  bool waitForEnd();
  /// The one item whose source has this name.
  const CompressionItem& item(const std::string& name) const;
  std::size_t count(CompressionState state) const;
  /// All names below a folder, hidden ones too.
  std::set<std::string> names(const std::filesystem::path& below = {}) const;
  /// That exactly the outputs of the items stand in a folder, each of them whole.
  void expectOnlyWholeOutputsIn(const std::filesystem::path& below) const;

  QTemporaryDir temporary_;
  std::filesystem::path root_;
  VirtualRunLoop loop_;
  int listChanges_ = 0;
  int ends_ = 0;
  std::vector<CompressionProgress> progress_;
  std::function<void(std::uint64_t)> onItem_;
  std::unique_ptr<CompressionRun> run_;
};

/// Files as somebody without special rights sees them. Nothing to be done where the tests have none.
class WithoutRights {
 public:
  WithoutRights();
  ~WithoutRights();
  WithoutRights(const WithoutRights&) = delete;
  WithoutRights& operator=(const WithoutRights&) = delete;
};

}  // namespace vellora::test
