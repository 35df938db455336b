#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <openssl/ssl.h>

#include <fstream>
#include <future>
#include <iterator>

#include "rtmp/RTMPSocket.h"
#include "rtmp/SocketTest.h"

namespace vellora::test {
namespace {

using testing::HasSubstr;

class TLSTest : public SocketTest {
 protected:
  static RTMPSocket::Options trusting(const std::filesystem::path& authorities) {
    return {RTMPQualityOfService::live, RTMPSecurityLevel::tls, authorities};
  }
  /// What comes of connecting to a server with this certificate.
  Outcome attempt(const TestAuthority::Identity& identity, const std::filesystem::path& authorities,
                  const std::string& host = "localhost") {
    const ByteServer server({identity}, [](BytePeer& peer) { peer.readAll(); });
    return run(make(trusting(authorities))->connect(host, server.port()));
  }
  TestAuthority::Identity good() { return authority_.issue({{"localhost"}, {"127.0.0.1"}}); }

  TestAuthority authority_;
};

TEST_F(TLSTest, acceptsWhatATrustedAuthorityVouchesFor) {
  struct Case {
    const char* what;
    TestAuthority::Identity identity;
    std::filesystem::path authorities;
    std::string host;
  };
  const auto byName = authority_.issue({{"localhost"}});
  const auto byAddress = authority_.issue({{}, {"127.0.0.1"}});
  const auto selfSigned = authority_.issue({.hosts = {"localhost"}, .isSelfSigned = true});
  for (const Case& each : {Case{"a name", byName, authority_.certificate(), "localhost"},
                           Case{"a name of another case", byName, authority_.certificate(), "LocalHost"},
                           Case{"an address", byAddress, authority_.certificate(), "127.0.0.1"},
                           Case{"a server named itself", byName, byName.certificate, "localhost"},
                           Case{"a self-signed server", selfSigned, selfSigned.certificate, "localhost"}}) {
    const Outcome outcome = attempt(each.identity, each.authorities, each.host);
    EXPECT_TRUE(outcome) << each.what << ": " << outcome.error().message;
  }
}

TEST_F(TLSTest, checksAnAddressOfIPv6) {
  std::unique_ptr<ByteServer> server;
  try {
    server =
        std::make_unique<ByteServer>(ByteServer::Options{.identity = authority_.issue({{}, {"::1"}}), .address = "::1"},
                                     [](BytePeer& peer) { peer.readAll(); });
  } catch (const std::runtime_error&) {
    GTEST_SKIP() << "this machine has no IPv6";
  }
  const Outcome outcome = run(make(trusting(authority_.certificate()))->connect("::1", server->port()));
  EXPECT_TRUE(outcome) << outcome.error().message;
}

TEST_F(TLSTest, refusesEveryOtherCertificateAndSaysWhy) {
  struct Case {
    const char* reason;
    TestAuthority::Request request;
    std::string host = "localhost";
  };
  const std::vector<Case> cases{
      {"certificate has expired", {.hosts = {"localhost"}, .daysFromNow = -1}},
      {"certificate is not yet valid", {.hosts = {"localhost"}, .startsInDays = 1}},
      {"it is for elsewhere.test, 10.0.0.1", {{"elsewhere.test"}, {"10.0.0.1"}}},
      {"it is for localhost", {{"localhost"}}, "127.0.0.1"},
      {"it is for 127.0.0.1", {{}, {"127.0.0.1"}}},
      {"it is for l*host", {{"l*host"}}},
      {"it is for *", {{"*"}}},
      {"it names no host", {.commonName = "localhost"}},
      {"self-signed certificate", {.hosts = {"localhost"}, .commonName = "Me", .isSelfSigned = true}},
  };
  for (const Case& each : cases) {
    const Outcome outcome = attempt(authority_.issue(each.request), authority_.certificate(), each.host);
    ASSERT_FALSE(outcome) << each.reason;
    EXPECT_EQ(outcome.error().error, RTMPSocketError::certificateRefused) << outcome.error().message;
    EXPECT_THAT(outcome.error().certificate.reason, HasSubstr(each.reason));
    EXPECT_THAT(outcome.error().message, HasSubstr(each.reason));
    EXPECT_EQ(outcome.error().certificate.host, each.host);
    EXPECT_EQ(outcome.error().certificate.issuer, each.request.isSelfSigned ? "CN=Me" : "CN=Test Authority");
  }
}

TEST_F(TLSTest, refusesAnAuthorityNobodyNamed) {
  const TestAuthority other("An\x1b[31m Authority\nof " + std::string(20, 'x'));
  TestAuthority unknown(std::string("Unknown \xE2\x80\xAE\x07") + std::string(50, 'y'));
  const auto identity = unknown.issue({{"localhost"}});
  for (const std::filesystem::path& authorities : {std::filesystem::path(), other.certificate()}) {
    const Outcome outcome = attempt(identity, authorities);
    ASSERT_FALSE(outcome);
    EXPECT_EQ(outcome.error().error, RTMPSocketError::certificateRefused);
    EXPECT_EQ(outcome.error().certificate.reason, "unable to get local issuer certificate");
    EXPECT_THAT(outcome.error().certificate.issuer, HasSubstr("Unknown"));
    for (const char c : outcome.error().message) EXPECT_TRUE(c >= ' ' && c <= '~') << static_cast<int>(c);
  }
}

TEST_F(TLSTest, aBrokenFileOfAuthoritiesIsAnErrorOfItsOwn) {
  const auto file = [&](const std::string& name, const std::string& text) {
    std::ofstream(authority_.folder() / name) << text;
    return authority_.folder() / name;
  };
  std::ifstream own(authority_.certificate());
  const std::string certificate{std::istreambuf_iterator<char>(own), {}};
  std::string broken = certificate;
  broken[100] = broken[100] == 'A' ? 'B' : 'A';
  const auto identity = good();
  for (const auto& path : {authority_.folder() / "missing.pem", authority_.folder(), file("empty.pem", ""),
                           file("text.pem", "no certificate at all\n"), file("cut.pem", certificate.substr(0, 200)),
                           file("second.pem", certificate + certificate.substr(0, 200)), identity.key}) {
    const Outcome outcome = attempt(identity, path);
    ASSERT_FALSE(outcome) << path;
    EXPECT_EQ(outcome.error().error, RTMPSocketError::trustFileUnreadable) << outcome.error().message;
    EXPECT_THAT(outcome.error().message, HasSubstr(path.string()));
  }
  EXPECT_TRUE(attempt(identity, file("twice.pem", "Our own:\n" + certificate + certificate)));
}

TEST_F(TLSTest, namesTheHostButNoAddressToTheServer) {
  for (const std::string& host : {std::string("localhost"), std::string("127.0.0.1")}) {
    std::string asked;
    ByteServer server({good()}, [&](BytePeer& peer) { asked = peer.serverName(); });
    const auto socket = make(trusting(authority_.certificate()));
    ASSERT_TRUE(run(socket->connect(host, server.port())));
    ASSERT_TRUE(server.wait());
    EXPECT_EQ(asked, host == "localhost" ? host : "");
  }
}

TEST_F(TLSTest, takesNoOldVersionAndNoOtherProtocol) {
  const auto connect = [&](const ByteServer& server) {
    const Outcome outcome = run(make(trusting(authority_.certificate()))->connect("localhost", server.port()));
    EXPECT_FALSE(outcome);
    EXPECT_EQ(outcome.error().error, RTMPSocketError::tlsFailed) << outcome.error().message;
    return outcome.error().message;
  };
  for (const int version : {TLS1_VERSION, TLS1_1_VERSION}) {
    const ByteServer server({good(), version}, [](BytePeer&) {});
    EXPECT_THAT(connect(server), HasSubstr("no TLS of version 1.2 or newer"));
  }
  for (const std::string& answer : {std::string("HTTP/1.1 400 Bad Request\r\n\r\n"), std::string(1537, '\3')}) {
    const ByteServer server([&](BytePeer& peer) {
      peer.read(1);
      peer.write(answer);
      peer.readAll();
    });
    EXPECT_THAT(connect(server), HasSubstr("does not speak TLS"));
  }
  const ByteServer ending([](BytePeer& peer) {
    peer.read(6);
    peer.shutDown();
    peer.readAll();
  });
  EXPECT_THAT(connect(ending), HasSubstr("ended the TLS handshake"));
}

TEST_F(TLSTest, carriesMuchBothWaysThroughSlowReadersAndNewKeys) {
  const std::string data = pattern(10U << 20);
  for (const int version : {TLS1_2_VERSION, TLS1_3_VERSION}) {
    std::promise<void> go;
    std::string arrived;
    bool wasOrderly = false;
    ByteServer server({.identity = good(), .newestVersion = version, .receiveBuffer = 32 << 10}, [&](BytePeer& peer) {
      go.get_future().wait();
      if (version == TLS1_3_VERSION) peer.changeKeys();
      peer.write("go on");
      arrived = peer.read(data.size());
      peer.write(arrived);
      peer.readAll(&wasOrderly);
    });
    const auto socket = connected(server, trusting(authority_.certificate()));
    const auto sending = start(socket->send(viewOf(data)));
    EXPECT_FALSE(endsWithin(sending, 100ms));
    EXPECT_LT(socket->sentBytes(), 1U << 20);
    go.set_value();
    ASSERT_EQ(run(receive(*socket, 5)).value_or(""), "go on");
    ASSERT_TRUE(finish(sending));
    const Received back = run(receive(*socket, data.size()));
    ASSERT_TRUE(back) << back.error().message;
    EXPECT_TRUE(*back == data);
    EXPECT_EQ(socket->sentBytes(), data.size());
    EXPECT_EQ(socket->receivedBytes(), data.size() + 5);
    socket->close();
    ASSERT_TRUE(server.wait());
    EXPECT_TRUE(wasOrderly) << "closing has to say so within TLS";
    EXPECT_TRUE(arrived == data);
  }
}

TEST_F(TLSTest, anEndThatTlsDidNotSayIsNoEnd) {
  for (const bool saysEnd : {true, false}) {
    const ByteServer server({good()}, [&](BytePeer& peer) {
      peer.write("last");
      if (saysEnd) peer.sayEnd();
      peer.shutDown();
      peer.readAll();
    });
    const auto socket = connected(server, trusting(authority_.certificate()));
    EXPECT_EQ(run(receive(*socket, 4)).value_or(""), "last");
    for (int i = 0; i < 2; ++i) {
      EXPECT_EQ(errorOf(run(receive(*socket, 1))),
                saysEnd ? RTMPSocketError::closedByPeer : RTMPSocketError::connectionReset);
    }
  }
}

TEST_F(TLSTest, finishEndsOneDirectionOnly) {
  bool wasOrderly = false;
  const ByteServer server({good()}, [&](BytePeer& peer) { peer.write(peer.readAll(&wasOrderly) + "!"); });
  const auto socket = connected(server, trusting(authority_.certificate()));
  ASSERT_TRUE(run(socket->send(viewOf("all of it"))));
  socket->finish();
  EXPECT_EQ(run(receive(*socket, 10)).value_or(""), "all of it!");
  EXPECT_TRUE(wasOrderly);
}

TEST_F(TLSTest, bytesChangedOnTheWayBreakTheConnection) {
  const ByteServer server({good()}, [&](BytePeer& peer) {
    peer.write("fine");
    peer.writePlain(std::string("\x17\x03\x03\x00\x20", 5) + std::string(32, 'x'));
    peer.readAll();
  });
  const auto socket = connected(server, trusting(authority_.certificate()));
  const Received received = run(receive(*socket, 5));
  ASSERT_FALSE(received);
  EXPECT_EQ(received.error().error, RTMPSocketError::connectionReset) << received.error().message;
}

}  // namespace
}  // namespace vellora::test
