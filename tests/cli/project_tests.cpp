// `vellora project` on bundles of every condition, without a display.

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "base/Json.h"
#include "support/ChildProcess.h"

namespace vellora {
namespace {

using test::Finished;

class ProjectTest : public testing::Test {
 protected:
  ProjectTest() {
    EXPECT_TRUE(QDir().mkpath(bundle));
    const Finished made =
        test::runProgram({"ffmpeg", "-v", "error", "-f", "lavfi", "-i", "testsrc2=s=96x64:r=25:d=2", "-f", "lavfi",
                          "-i", "aevalsrc=0.5*sin(2*PI*440*t)*between(t\\,0.5\\,1):d=2:s=48000", "-c:v", "libx264",
                          "-c:a", "pcm_s16le", path("screen.mov")},
                         {});
    EXPECT_EQ(made.exitCode, 0) << made.errors;
  }

  std::string path(const char* name) const { return (bundle + u'/' + QLatin1StringView(name)).toStdString(); }
  void write(const char* name, const QByteArray& text) const {
    QFile file(QString::fromStdString(path(name)));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(text) == text.size());
  }
  QByteArray read(const char* name) const {
    QFile file(QString::fromStdString(path(name)));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  }
  Finished vellora(std::vector<std::string> arguments) const {
    std::vector<std::string> command{"env", "-i", "HOME=" + home.path().toStdString(), VELLORA_BIN_DIR "/vellora",
                                     "project"};
    command.insert(command.end(), arguments.begin(), arguments.end());
    return test::runProgram(command, {});
  }
  Json info() const {
    const Finished run = vellora({"info", bundle.toStdString(), "--json"});
    EXPECT_EQ(run.exitCode, 0) << run.errors;
    const auto parsed = json::parse(QByteArray::fromStdString(run.output));
    EXPECT_TRUE(parsed) << run.output;
    return parsed ? *parsed : Json::object();
  }

  QTemporaryDir home;
  const QString bundle = home.filePath(QStringLiteral("Demo.vellorav"));
};

TEST_F(ProjectTest, TellsWhatWasRecordedAndEdited) {
  write("pauses.json", "[1.5, 0.5]");
  write("keyboard.json", R"([{"start": 0.1, "end": 0.9, "keys": ["⌃", "S"]}])");
  write("pointer.jsonl",
        "{\"t\":0,\"x\":1,\"y\":1}\n{\"t\":1,\"x\":2,\"y\":2,\"button\":0,\"down\":true}\n"
        "{\"t\":1.1,\"x\":2,\"y\":2,\"button\":0,\"down\":false}\n");
  write("project.json", R"({"name": "My demo", "trims": [{"start": 0, "end": 1}], "videoCuts": [1]})");
  write("cuts.txt", "# written by hand\n00:00:01,250 --> 00:00:01,750  a cough\n");
  const Json whole = info();
  EXPECT_EQ(whole["name"], "My demo");
  EXPECT_EQ(whole["screen"]["codec"], "h264");
  EXPECT_EQ(whole["screen"]["width"], 96);
  EXPECT_NEAR(whole["screen"]["duration"].get<double>(), 2, 0.05);
  EXPECT_EQ(whole["screen"]["audio"].size(), 1U);
  EXPECT_TRUE(whole["camera"].is_null());
  EXPECT_EQ(whole["pauses"], Json::array({0.5, 1.5}));
  EXPECT_EQ(whole["keyCues"], 1);
  EXPECT_EQ(whole["pointer"]["clicks"], 1);
  EXPECT_EQ(whole["project"], "read");
  EXPECT_EQ(whole["trims"], Json::array({{{"start", 1.25}, {"end", 1.75}, {"note", "a cough"}}}));
  EXPECT_EQ(whole["videoCuts"], Json::array({1.0}));
  const Finished text = vellora({"info", bundle.toStdString()});
  EXPECT_NE(text.output.find("cut\t1.25 s – 1.75 s\ta cough"), std::string::npos) << text.output;

  const Finished loud = vellora({"waveform", bundle.toStdString()});
  EXPECT_EQ(loud.exitCode, 0) << loud.errors;
  const auto waveform = json::parse(QByteArray::fromStdString(loud.output));
  ASSERT_TRUE(waveform);
  EXPECT_EQ((*waveform)["samplesPerSecond"], 50);
  EXPECT_EQ((*waveform)["peaks"].size(), 100U);
  EXPECT_EQ((*waveform)["silences"], Json::array({{{"start", 0}, {"end", 0.5}}, {{"start", 1}, {"end", 2}}}));
  EXPECT_EQ(read("waveform.json").toStdString(), loud.output);
  EXPECT_EQ(vellora({"waveform", bundle.toStdString()}).output, loud.output);
}

TEST_F(ProjectTest, HostileDocumentsCostNothingButThemselves) {
  write("pauses.json", R"([-1, "x", null, 0.25, [1], 1e300])");
  write("keyboard.json", R"([{"start": 3, "end": 1, "keys": ["A"]}, 7, {"start": "a"}, {"keys": {}}])");
  write("pointer.jsonl", QByteArrayLiteral("{\"t\":\n{}\n[]\n{\"t\":-5,\"x\":0,\"y\":0}\n\0\xFF\n"));
  write("report.json", "[[[[");
  write("cuts.txt", "00:00:02,000 --> 00:00:01,000\n99:99:99,999 --> x\n" + QByteArray(100'000, '9'));
  const QByteArray broken = R"({"name": "half", "trims": [{"id")";
  write("project.json", broken);
  write("camera.mov", "no movie at all");
  Json odd = info();
  EXPECT_EQ(odd["project"], "unreadable");
  EXPECT_EQ(odd["name"], "Demo");
  EXPECT_EQ(odd["pauses"], Json::array({0.25}));
  EXPECT_EQ(odd["keyCues"], 0);
  EXPECT_EQ(odd["trims"], Json::array());
  EXPECT_EQ(odd["unreadLinesOfCuts"], Json::array({1, 2, 3}));
  EXPECT_TRUE(odd["report"].is_null());
  EXPECT_TRUE(odd["camera"].contains("error"));
  EXPECT_EQ(read("project.json"), broken) << "looking changes nothing";

  write("project.json", QByteArray("{\"name\":").append(200'000, '['));
  EXPECT_EQ(info()["project"], "unreadable");
  const QByteArray many = "{\"name\":\"many\",\"videoCuts\":[" + QByteArray("1,").repeated(2'000'000) + "1]}";
  write("project.json", many);
  odd = info();
  EXPECT_LE(odd["videoCuts"].size(), 200'000U);
}

TEST_F(ProjectTest, RefusesWhatIsNoProject) {
  const auto refused = [&](const std::string& what) {
    for (const char* verb : {"info", "waveform"}) {
      const Finished run = vellora({verb, what});
      EXPECT_EQ(run.exitCode, 1);
      EXPECT_TRUE(run.output.empty());
      EXPECT_FALSE(run.errors.empty());
    }
  };
  refused(home.path().toStdString());
  refused(path("screen.mov"));
  refused("/nowhere/at all.vellorav");
  // A movie outside of the bundle is not the bundle's.
  ASSERT_TRUE(QFile::rename(QString::fromStdString(path("screen.mov")), home.filePath(QStringLiteral("other.mov"))));
  ASSERT_TRUE(QFile::link(home.filePath(QStringLiteral("other.mov")), QString::fromStdString(path("screen.mov"))));
  refused(bundle.toStdString());
  EXPECT_EQ(vellora({"info"}).exitCode, 2);
}

}  // namespace
}  // namespace vellora
