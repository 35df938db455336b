#include <gtest/gtest.h>
#include <QFile>
#include <QTemporaryDir>

#include "record_editor/PointerTrack.h"

namespace vellora {
namespace {

TEST(PointerTrackTest, comesBackAsItWasWrittenWithoutWhatDidNotChange) {
  const QTemporaryDir bundle;
  std::vector<PointerEntry> entries{
      {0, 10, 20, 7}, {0.5, 11.5, 20}, {1.25, 11.5, 20, {}, PointerEntry::Button{0, true}}};
  {
    auto writer = PointerTrackWriter::create(bundle.path());
    ASSERT_TRUE(writer);
    for (const PointerEntry& entry : entries) (*writer)->append(entry);
    (*writer)->append({2, 11.5, 20});
    // What is older than a second is in the file though the writer lives.
    EXPECT_EQ(PointerTrack::load(bundle.path()), entries);
    (*writer)->append({2.1, -5, 3});
  }
  entries.push_back({2.1, -5, 3});
  EXPECT_EQ(PointerTrack::load(bundle.path()), entries);
  EXPECT_FALSE(PointerTrackWriter::create(bundle.path()));  // never over another one
}

TEST(PointerTrackTest, readsFilesOfAnyQuality) {
  const QTemporaryDir bundle;
  QFile file(bundle.path() + QStringLiteral("/pointer.jsonl"));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write("{\"t\":2,\"x\":1,\"y\":1}\nnonsense\n{\"t\":-1,\"x\":1,\"y\":1}\n{\"t\":1,\"x\":1e9,\"y\":1}\n");
  file.write("{\"t\":1,\"x\":3,\"y\":4,\"shape\":\"arrow\",\"button\":99,\"down\":true}\n");
  file.write(QByteArray(100'000, '[') + "\n{\"t\":3,\"x\":1,\"y\":1}");
  file.close();
  EXPECT_EQ(PointerTrack::load(bundle.path()), (std::vector<PointerEntry>{{1, 3, 4}, {2, 1, 1}}));
  EXPECT_TRUE(PointerTrack::load(QStringLiteral("/nowhere")).empty());
}

}  // namespace
}  // namespace vellora
