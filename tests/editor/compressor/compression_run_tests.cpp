#include <algorithm>
#include <map>
#include <random>

#include "editor/compressor/RunFixture.h"
#include "media/pictures/PictureWriter.h"

namespace vellora::test {
namespace {

namespace fs = std::filesystem;
using enum CompressionState;

class CompressionRunTest : public RunFixture {
 protected:
  /// Pictures of several types and sizes in a folder, one of them damaged.
  std::vector<fs::path> pictures(int number, const fs::path& folder = "in") {
    static constexpr const char* extensions[] = {"png", "jpg", "webp", "gif"};
    std::vector<fs::path> made;
    for (int i = 0; i < number; ++i) {
      const std::string name = std::to_string(i) + "." + extensions[i % 4];
      made.push_back(picture(folder / name, 20 + i % 7 * 30, 30, static_cast<unsigned int>(i)));
    }
    if (number > 2) fs::resize_file(made[2], fs::file_size(made[2]) / 2);
    return made;
  }

  /// What every source became: its state and its bytes.
  std::map<fs::path, std::pair<CompressionState, std::vector<std::byte>>> results() const {
    std::map<fs::path, std::pair<CompressionState, std::vector<std::byte>>> all;
    for (const CompressionItem& item : run_->items()) {
      all[item.sourceURL.filename()] = {item.state,
                                        item.lastOutput ? contentOf(item.lastOutput->file) : std::vector<std::byte>()};
    }
    return all;
  }
};

TEST_F(CompressionRunTest, SeveralAtOnceGiveWhatOneGives) {
  fs::create_directory(path("one"));
  fs::create_directory(path("many"));
  const auto sources = pictures(24);
  makeRun(1);
  add(sources);
  carryOut({.quality = 60}, folder("one"));
  const auto alone = results();
  EXPECT_EQ(count(failed), 1U);
  EXPECT_EQ(item("2.webp").failure->error, PictureError::Damaged);
  expectOnlyWholeOutputsIn("one");

  makeRun(5);
  add({path("in")});
  EXPECT_EQ(run_->items().size(), sources.size());
  carryOut({.quality = 60}, folder("many"));
  EXPECT_EQ(results(), alone);
  EXPECT_EQ(ends_, 1);

  // From row to row everything is counted once.
  ASSERT_EQ(progress_.front().total, sources.size());
  for (std::size_t i = 1; i < progress_.size(); ++i) {
    EXPECT_EQ(progress_[i].finished, progress_[i - 1].finished + 1);
    EXPECT_EQ(progress_[i].total, sources.size());
    EXPECT_GE(progress_[i].bytesBefore, progress_[i - 1].bytesBefore);
    EXPECT_LE(progress_[i].bytesAfter, progress_[i].bytesBefore);
  }
  EXPECT_EQ(progress_.back().finished, sources.size());
  EXPECT_EQ(progress_.back().failed, 1U);
}

/// A run loop whose clock the test moves, also while a task runs.
class LoopWithClock final : public RunLoop {
 public:
  void post(Task task) override { tasks.post(std::move(task)); }
  TimerHandle after(double seconds, Task task) override { return tasks.after(seconds, std::move(task)); }
  TimerHandle every(double seconds, Task task) override { return tasks.every(seconds, std::move(task)); }
  Date now() const override { return tasks.now(); }
  double hostTime() const override { return time; }

  VirtualRunLoop tasks;
  double time = 100;
};

TEST_F(CompressionRunTest, TellsHowLongItTakesOnceItHasSeenSome) {
  std::vector<fs::path> sources;
  for (int i = 0; i < 6; ++i) sources.push_back(picture("in/" + std::to_string(i) + ".png"));
  LoopWithClock loop;
  std::vector<double> told;
  bool isOver = false;
  CompressionRun run(loop,
                     {.onItemChanged =
                          [&](std::uint64_t id) {
                            // Every picture takes ten seconds.
                            if (run.find(id)->state == done) loop.time += 10;
                          },
                      .onProgress =
                          [&](const CompressionProgress& progress) {
                            ASSERT_EQ(progress.remaining.has_value(), progress.finished > 0);
                            if (progress.remaining)
                              told.push_back(std::chrono::duration<double>(*progress.remaining).count());
                          },
                      .onFinished =
                          [&](const CompressionProgress& progress) {
                            isOver = true;
                            EXPECT_FALSE(progress.remaining);
                          }},
                     1);
  run.addPaths(sources, false);
  ASSERT_TRUE(loop.tasks.runUntil([&] { return run.items().size() == sources.size(); }));
  run.start({}, {});
  ASSERT_TRUE(loop.tasks.runUntil([&] { return isOver; }));
  ASSERT_EQ(told.size(), 6U);
  for (std::size_t i = 0; i < told.size(); ++i) {
    EXPECT_NEAR(told[i], 10.0 * static_cast<double>(5 - i), 1);
  }
}

TEST_F(CompressionRunTest, CancellingLeavesWholeFilesAlone) {
  fs::create_directory(path("out"));
  pictures(60);
  makeRun(3);
  add({path("in")});
  onItem_ = [this](std::uint64_t) {
    if (count(done) + count(unchanged) == 5) run_->cancel();
  };
  carryOut({}, folder("out"));
  onItem_ = {};
  EXPECT_GE(count(cancelled), 40U);
  EXPECT_EQ(count(waiting) + count(running), 0U);
  EXPECT_EQ(ends_, 1);
  expectOnlyWholeOutputsIn("out");

  // The next run takes up what is left, and only that.
  const std::size_t had = names("out").size();
  EXPECT_EQ(run_->outstanding({}, folder("out")), 60 - had);
  carryOut({}, folder("out"));
  EXPECT_EQ(count(cancelled), 0U);
  EXPECT_EQ(count(failed), 1U);
  EXPECT_EQ(names("out").size(), 59U);
  expectOnlyWholeOutputsIn("out");
  // Done means done, until something else is wanted or the destination is another.
  EXPECT_EQ(run_->outstanding({}, folder("out")), 1U);
  EXPECT_EQ(run_->outstanding({.quality = 20}, folder("out")), 60U);
  EXPECT_EQ(run_->outstanding({}, {}), 60U);
}

TEST_F(CompressionRunTest, RowsAreTriedAgainAndRemovedWhileOthersRun) {
  fs::create_directory(path("out"));
  pictures(30);
  makeRun(2);
  add({path("in")});
  const std::uint64_t broken = item("2.webp").id, unwanted = item("29.jpg").id;
  bool isTriedAgain = false;
  onItem_ = [&](std::uint64_t id) {
    if (id != broken || run_->find(id)->state != failed || isTriedAgain) return;
    isTriedAgain = true;
    picture("in/2.webp");
    run_->retry(broken);
    run_->remove(unwanted);
    run_->retry(unwanted);
    run_->retry(12345);
    EXPECT_EQ(run_->find(unwanted), nullptr);
  };
  carryOut({}, folder("out"));
  EXPECT_EQ(count(failed), 0U);
  EXPECT_EQ(names("out").count("29.jpg"), 0U);
  EXPECT_EQ(count(done) + count(unchanged), 29U);
  expectOnlyWholeOutputsIn("out");
  // What went well in the end has not failed.
  const CompressionProgress last = progress_.back();
  EXPECT_EQ(last.failed, 0U);
  EXPECT_EQ(last.finished, last.total);
  EXPECT_EQ(last.total, 30U);

  // What went well is not tried again; several that failed in an earlier run are.
  run_->retry(broken);
  EXPECT_FALSE(run_->isRunning());
  fs::remove(path("in/1.jpg"));
  fs::remove(path("in/5.jpg"));
  carryOut({.quality = 50}, folder("out"));
  EXPECT_EQ(item("1.jpg").failure->error, PictureError::NotFound);
  picture("in/1.jpg");
  run_->retry(item("1.jpg").id);
  run_->retry(item("5.jpg").id);
  EXPECT_TRUE(run_->isRunning());
  ASSERT_TRUE(waitForEnd());
  EXPECT_EQ(item("1.jpg").state, done);
  EXPECT_EQ(item("5.jpg").state, failed);
  EXPECT_EQ(run_->progress().total, 2U);
  EXPECT_EQ(run_->progress().finished, 2U);
  EXPECT_EQ(run_->progress().failed, 1U);
}

TEST_F(CompressionRunTest, RemovingEverythingEndsTheRun) {
  pictures(40);
  makeRun(2);
  add({path("in")});
  run_->start({}, {});
  run_->clear();
  ASSERT_TRUE(waitForEnd());
  run_->clear();
  EXPECT_TRUE(run_->items().empty());
  EXPECT_EQ(ends_, 1);
  run_->start({}, {});
  EXPECT_FALSE(run_->isRunning());
}

TEST_F(CompressionRunTest, GoingAwayAtAnyMomentLeavesNothingBehind) {
  const auto sources = pictures(30);
  std::mt19937 random(3);  // NOLINT: the same moments every time
  for (int round = 0; round < 12; ++round) {
    const fs::path out = "out" + std::to_string(round);
    fs::create_directory(path(out));
    makeRun(1 + round % 4);
    add(sources);
    int changes = 0;
    onItem_ = [&](std::uint64_t) { ++changes; };
    run_->start({}, folder(out));
    for (int i = 0; i < 3; ++i) {
      run_->requestThumbnail(run_->items()[random() % sources.size()].id);
      run_->preview(
          run_->items()[0].id, {}, [&](const Raster&) { ++changes; }, [&](const auto&) { ++changes; });
    }
    run_->addPaths({path("in")}, true);
    const int until = changes + static_cast<int>(random() % 30);
    loop_.runUntil([&] { return changes >= until; });
    run_.reset();
    const int before = changes;
    loop_.runPosted();
    EXPECT_EQ(changes, before);
    for (const std::string& name : names(out)) {
      const auto decoded = decodePicture(contentOf(path(out / name)));
      EXPECT_TRUE(decoded) << name;
    }
  }
  onItem_ = {};
}

TEST_F(CompressionRunTest, TheNewestPreviewWins) {
  picture("a.png", 200, 100);
  const auto whole = contentOf(path("a.png"));
  save(path("broken.png"), std::span(whole).first(500));
  add({path("a.png"), path("broken.png")});
  const std::uint64_t id = item("a.png").id;
  std::vector<int> told;
  std::vector<int> shown;
  std::uintmax_t bytes = 0;
  for (const int quality : {90, 10, 60, 30}) {
    const auto before = [&, quality](const Raster& source) {
      shown.push_back(quality);
      EXPECT_EQ(source.width(), 200);
    };
    run_->preview(id, {.format = CompressFormat::webp, .quality = quality}, before, [&, quality](const auto& preview) {
      told.push_back(quality);
      ASSERT_TRUE(preview);
      EXPECT_EQ(preview->picture.width(), 200);
      bytes = preview->bytes;
    });
  }
  ASSERT_TRUE(loop_.runUntil([&] { return !told.empty(); }));
  EXPECT_EQ(shown, (std::vector{30}));
  EXPECT_EQ(told, (std::vector{30}));
  const auto same =
      ImageCompressor::compress(contentOf(path("a.png")), {.format = CompressFormat::webp, .quality = 30});
  EXPECT_EQ(bytes, same->data.size());

  std::optional<PictureError> error;
  run_->preview(
      item("broken.png").id, {}, [](const Raster&) {}, [&](const auto& preview) { error = preview.error().error; });
  ASSERT_TRUE(loop_.runUntil([&] { return error.has_value(); }));
  EXPECT_EQ(error, PictureError::Damaged);
}

TEST_F(CompressionRunTest, RowsThatAreSeenGetSizeAndThumbnail) {
  picture("a.jpg", 300, 150);
  save(path("words.png"), {});
  add({path("a.jpg"), path("words.png")});
  run_->addPixels(noise(10, 500), "Pasted");
  for (const CompressionItem& item : run_->items()) run_->requestThumbnail(item.id);
  ASSERT_TRUE(loop_.runUntil([&] { return !run_->items()[2].thumbnail.isNull(); }));
  EXPECT_EQ(item("a.jpg").pixelSize, (ImageCompressor::Size{300, 150}));
  EXPECT_EQ(item("a.jpg").thumbnail.width(), 96);
  EXPECT_EQ(item("a.jpg").thumbnail.height(), 48);
  EXPECT_EQ(item("a.jpg").sourceUTType, PictureType::Jpeg);
  EXPECT_TRUE(item("words.png").thumbnail.isNull());
  EXPECT_EQ(run_->items()[2].thumbnail.height(), 96);
}

TEST_F(CompressionRunTest, PastedPixelsLieInAFolderOfTheirOwn) {
  fs::create_directory(path("pasted"));
  run_->addPixels(noise(50, 40), "Pasted / 21:26\n");
  run_->addPixels(noise(20, 10, 2), "Pasted / 21:26\n");
  run_->addPixels({}, "nothing");
  CompressDestination destination;
  destination.pastedFolder = path("pasted");
  carryOut({}, destination);
  EXPECT_EQ(count(done), 2U);
  EXPECT_EQ(count(failed), 1U);
  EXPECT_EQ(names("pasted"), (std::set<std::string>{"Pasted - 21-26-.png", "Pasted - 21-26- (2).png"}));
  expectOnlyWholeOutputsIn("pasted");
}

TEST_F(CompressionRunTest, TheListHasAnEnd) {
  std::vector<fs::path> many;
  for (std::size_t i = 0; i < CompressionRun::maximumItems + 10; ++i)
    many.push_back("/nowhere/" + std::to_string(i) + ".png");
  many.push_back(many.front());
  add(many);
  EXPECT_EQ(run_->items().size(), CompressionRun::maximumItems);
  add({picture("one.png")});
  EXPECT_EQ(run_->items().size(), CompressionRun::maximumItems);
  std::vector<std::uint64_t> unwanted;
  for (const CompressionItem& item : run_->items()) unwanted.push_back(item.id);
  unwanted.resize(unwanted.size() - 3);
  run_->remove(unwanted);
  add({path("one.png")});
  carryOut();
  EXPECT_EQ(count(failed), 3U);
  EXPECT_EQ(count(done), 1U);
}

}  // namespace
}  // namespace vellora::test
