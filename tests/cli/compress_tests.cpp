#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <set>

#include <QTemporaryDir>

#include "base/Json.h"
#include "support/ChildProcess.h"

namespace vellora::test {
namespace {

namespace fs = std::filesystem;

/// `vellora compress` on files made and looked at by other programs.
class CompressVerb : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(folder_.isValid());
    root_ = folder_.path().toStdString();
    make({"-size", "900x600", "plasma:red-blue", "-quality", "96"}, "photo.jpg");
    make({"-size", "640x480", "xc:white", "-fill", "black", "-draw", "rectangle 40,40 300,90"}, "shot.png");
    make({"-size", "300x200", "gradient:none-red"}, "alpha.png");
    make({"-delay", "10", "-size", "40x40", "xc:red", "xc:blue"}, "moving.gif");
    fs::copy(path("shot.png"), path("named.jpg"));
    std::ofstream(path("words.png")) << "no picture at all";
    std::ofstream cut(path("cut.jpg"), std::ios::binary);
    cut << content("photo.jpg").substr(0, 5000);
    cut.close();
    fs::create_directory(path("below"));
    fs::copy(path("photo.jpg"), path("below/deep.jpg"));
    ASSERT_EQ(tool({"exiftool", "-q", "-overwrite_original", "-GPSLatitude=48.1", "-GPSLatitudeRef=N",
                    "-Orientation#=6", path("photo.jpg")}),
              "");
  }

  std::string path(const std::string& name) const { return root_ + "/" + name; }
  std::string content(const std::string& name) const {
    std::ifstream file(path(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  static std::string tool(const std::vector<std::string>& command) { return runProgram(command, {}).output; }
  void make(std::vector<std::string> words, const std::string& name) {
    words.insert(words.begin(), "convert");
    words.push_back(path(name));
    ASSERT_EQ(runProgram(words, {}).exitCode, 0) << name;
  }
  Finished compress(std::vector<std::string> words) {
    words.insert(words.begin(), {VELLORA_BIN_DIR "/vellora", "compress"});
    return runProgram(words, {}, {}, 60);
  }
  std::set<std::string> names(const std::string& below = ".") const {
    std::set<std::string> found;
    for (const auto& entry : fs::directory_iterator(root_ + "/" + below))
      if (entry.is_regular_file()) found.insert(entry.path().filename());
    return found;
  }

  QTemporaryDir folder_;
  std::string root_;
};

TEST_F(CompressVerb, WritesBesideTheSourcesAndNeverOverThem) {
  const auto before = names();
  const std::string source = content("photo.jpg");
  const Finished run = compress({root_, path("words.png")});
  EXPECT_EQ(run.exitCode, 1);
  EXPECT_NE(run.errors.find("words.png: this is no picture"), std::string::npos) << run.errors;
  EXPECT_NE(run.errors.find("cut.jpg: the file is damaged"), std::string::npos) << run.errors;
  auto expected = before;
  expected.insert({"photo-compressed.jpg", "shot-compressed.png", "alpha-compressed.png", "moving-compressed.gif",
                   "named-compressed.png"});
  EXPECT_EQ(names(), expected);
  EXPECT_EQ(names("below").size(), 1U);
  EXPECT_EQ(content("photo.jpg"), source);
  // Upright, smaller, and nobody learns where it was taken.
  EXPECT_EQ(tool({"identify", "-format", "%wx%h", path("photo-compressed.jpg")}), "600x900");
  EXPECT_LT(fs::file_size(path("photo-compressed.jpg")), source.size());
  EXPECT_EQ(tool({"exiftool", "-s", "-GPSLatitude", "-Orientation", path("photo-compressed.jpg")}), "");
  for (const char* name : {"shot", "alpha"}) {
    const std::string result = path(std::string(name) + "-compressed.png");
    EXPECT_LE(fs::file_size(result), fs::file_size(path(std::string(name) + ".png")));
    EXPECT_EQ(runProgram({"compare", "-metric", "AE", path(std::string(name) + ".png"), result, "null:"}, {}).errors,
              "0");
  }
  EXPECT_EQ(tool({"identify", "-format", "%n,", path("moving-compressed.gif")}), "2,2,");

  // Again: earlier results are no sources, and keep their names.
  EXPECT_EQ(compress({path("photo.jpg")}).exitCode, 0);
  EXPECT_TRUE(fs::exists(path("photo-compressed (2).jpg")));
  compress({root_});
  EXPECT_FALSE(fs::exists(path("photo-compressed-compressed.jpg")));
}

TEST_F(CompressVerb, ConvertsAndResizesIntoAFolder) {
  const Finished run = compress({root_, "--recursive", "--format", "webp", "--quality", "80", "--max-edge", "200",
                                 "--output-folder", path("out"), "--keep-metadata", "--keep-dates", "--json"});
  EXPECT_EQ(run.exitCode, 1);
  const auto report = json::parse(QByteArray::fromStdString(run.output));
  ASSERT_TRUE(report) << run.output;
  EXPECT_EQ((*report)["failed"], 3);  // the animation, the cut file, and what is no picture
  EXPECT_EQ((*report)["files"].size(), 8U);
  EXPECT_EQ(names("out"), (std::set<std::string>{"photo.webp", "shot.webp", "alpha.webp", "named.webp", "deep.webp"}));
  EXPECT_EQ(tool({"identify", "-format", "%wx%h %m", path("out/photo.webp")}), "133x200 WEBP");
  EXPECT_EQ(tool({"identify", "-format", "%A", path("out/alpha.webp")}), "True");
  EXPECT_NE(tool({"exiftool", "-s", "-GPSLatitude", path("out/photo.webp")}), "");
  EXPECT_EQ(fs::last_write_time(path("out/shot.webp")), fs::last_write_time(path("shot.png")));
}

TEST_F(CompressVerb, SaysWhatIsWrong) {
  EXPECT_EQ(compress({path("shot.png"), "--quality", "101"}).exitCode, 2);
  EXPECT_EQ(compress({path("shot.png"), "--format", "jxl"}).exitCode, 2);
  EXPECT_EQ(compress({}).exitCode, 2);
  EXPECT_EQ(compress({path("missing.png")}).exitCode, 1);
  EXPECT_EQ(compress({path("below/deep.jpg"), "--output-folder", path("shot.png")}).exitCode, 1);
  const Finished flattened = compress({path("alpha.png"), "--format", "jpeg"});
  EXPECT_NE(flattened.output.find("transparency became white"), std::string::npos);
}

}  // namespace
}  // namespace vellora::test
