#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

#include "real/MediaSamples.h"
#include "real/PublishRun.h"
#include "support/FreePort.h"
#include "support/NginxIngest.h"
#include "support/TestAuthority.h"
#include "support/XServer.h"

namespace vellora::test {
namespace {

using testing::HasSubstr;

class RtmpTls : public testing::Test {
 protected:
  std::unique_ptr<NginxIngest> serve(const TestAuthority::Identity& identity, const std::string& protocols) {
    return NginxIngest::start({.certificate = identity.certificate, .key = identity.key, .protocols = protocols});
  }

  Finished publish(const std::string& url, bool knowsAuthority = true) {
    std::vector<std::string> arguments{"--as-fast-as-possible", "--json", samples::classic().string(), url};
    if (knowsAuthority) arguments.insert(arguments.end(), {"--ca-file", authority_.certificate().string()});
    return PublishRun(arguments).finish();
  }

  void expectArrived(const NginxIngest& server, const std::string& name) {
    const auto recorded = FlvFile::read(server.finishedRecording(name));
    ASSERT_TRUE(recorded) << recorded.error();
    expectSame(*recorded, MediaContents::of(samples::classic()));
  }

  /// The sentence about a certificate that was refused.
  std::string refusalOf(const Finished& run) {
    EXPECT_EQ(run.exitCode, 1);
    const std::vector<Json> lines = jsonLines(run.output);
    if (lines.size() != 1 || !lines[0].contains("error")) return "none told: " + run.output;
    EXPECT_EQ(lines[0]["error"].value("code", ""), "certificateRefused");
    return lines[0]["error"].value("message", "");
  }

  TestAuthority authority_;
  const TestAuthority::Identity here_ = authority_.issue({.hosts = {"localhost"}, .addresses = {"127.0.0.1"}});
  const TestAuthority::Identity elsewhere_ = authority_.issue({.hosts = {"elsewhere.test"}});
};

TEST_F(RtmpTls, EveryFrameArrivesWithEitherVersion) {
  for (const std::string version : {"TLSv1.2", "TLSv1.3"}) {
    SCOPED_TRACE(version);
    const auto server = serve(here_, version);
    ASSERT_TRUE(server);
    for (const std::string host : {"127.0.0.1", "localhost"}) {
      const Finished run = publish(server->secureUrl(host, host));
      EXPECT_EQ(run.exitCode, 0) << run.errors;
      expectArrived(*server, host);
    }
  }
}

TEST_F(RtmpTls, EveryFrameArrivesThroughAnotherTlsServer) {
  const auto server = NginxIngest::start();
  ASSERT_TRUE(server);
  TemporaryFolder folder;
  const std::string port = std::to_string(freePort());
  std::ofstream(folder / "stunnel.conf") << "foreground = yes\npid =\nsyslog = no\noutput = "
                                         << (folder / "log").string() << "\n[rtmps]\naccept = 127.0.0.1:" << port
                                         << "\nconnect = 127.0.0.1:" << server->port()
                                         << "\ncert = " << here_.certificate.string()
                                         << "\nkey = " << here_.key.string() << "\n";
  const auto tunnel = ChildProcess::start({"stunnel4", (folder / "stunnel.conf").string()}, {});
  ASSERT_TRUE(waitFor([&] {
    return !runProgram({"ss", "-tlnH", "sport", "=", ":" + port}, {}).output.empty() || !tunnel->isRunning();
  }));
  const Finished run = publish("rtmps://127.0.0.1:" + port + "/live/tunnel");
  EXPECT_EQ(run.exitCode, 0) << run.errors << contentsOf(folder / "log");
  expectArrived(*server, "tunnel");
}

TEST_F(RtmpTls, AnUnknownAuthorityAndAnotherHostsCertificateAreRefused) {
  const auto server = serve(here_, "TLSv1.2 TLSv1.3");
  ASSERT_TRUE(server);
  const std::string unknown = refusalOf(publish(server->secureUrl("x"), false));
  EXPECT_THAT(unknown, HasSubstr("127.0.0.1"));
  EXPECT_THAT(unknown, HasSubstr("Test Authority"));
  EXPECT_THAT(unknown, HasSubstr("unable to get local issuer certificate"));

  const auto stranger = serve(elsewhere_, "TLSv1.2 TLSv1.3");
  ASSERT_TRUE(stranger);
  EXPECT_THAT(refusalOf(publish(stranger->secureUrl("x", "localhost"))), HasSubstr("localhost"));
  EXPECT_THAT(refusalOf(publish(stranger->secureUrl("x"))), HasSubstr("127.0.0.1"));
  for (const auto* ingest : {server.get(), stranger.get()}) {
    EXPECT_THAT(ingest->log(), testing::Not(HasSubstr("publish:")))
        << "nothing may leave before the certificate is known";
  }
}

}  // namespace
}  // namespace vellora::test
