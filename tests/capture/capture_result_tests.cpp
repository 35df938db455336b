#include <gtest/gtest.h>

#include "capture/CaptureResult.h"

namespace vellora {
namespace {

TEST(CaptureResult, APictureThatReachedOnlyPartOfItsPlacesIsReportedAsFailed) {
  CaptureResult result;
  result.size = {640, 480};
  result.outcome = {.copyRequested = true,
                    .copied = true,
                    .saveRequested = true,
                    .saveFolder = QStringLiteral("/full"),
                    .outputFile = QStringLiteral("/tmp/shot.png"),
                    .outputWritten = true};
  EXPECT_EQ(result.outcome.writtenFiles(), QStringList{QStringLiteral("/tmp/shot.png")});
  Json report = captureResultJson(result);
  EXPECT_EQ(report["result"], "failed");
  EXPECT_EQ(report["output"], "/tmp/shot.png");
  EXPECT_TRUE(report["saved"].is_null());
  EXPECT_NE(report["error"].get<std::string>().find("/full"), std::string::npos);

  result.outcome.saved = true;
  result.outcome.savedPath = QStringLiteral("/full/a.png");
  report = captureResultJson(result);
  EXPECT_EQ(report["result"], "done");
  EXPECT_FALSE(report.contains("error"));
  EXPECT_EQ(result.outcome.writtenFiles().size(), 2);
}

}  // namespace
}  // namespace vellora
