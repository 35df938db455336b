#include <openssl/evp.h>

#include <map>

#include "rtmp/RTMPTest.h"

namespace vellora::test {
namespace {

class AuthenticationTest : public RTMPTest {};

const std::string needed = "[ AccessManager.Reject ] : [ code=403 need auth; authmod=adobe ] : ";
const std::string prefix = "[ AccessManager.Reject ] : [ authmod=adobe ] : ";

std::string base64OfMd5(const std::string& text) {
  unsigned char hash[EVP_MAX_MD_SIZE];
  unsigned int length = 0;
  EVP_Digest(text.data(), text.size(), hash, &length, EVP_md5(), nullptr);
  unsigned char encoded[64];
  EVP_EncodeBlock(encoded, hash, static_cast<int>(length));
  return reinterpret_cast<const char*>(encoded);
}

/// A server that lets "anna" in with "secret", or turns everybody away with `verdict`.
struct Door {
  std::string salt = "c2FsdA==";
  std::string challenge = "Y2hhbGxlbmdl";
  std::string opaque = "b3BhcXVl";
  std::string verdict;
  std::vector<std::string> apps{};  ///< of all attempts

  static std::map<std::string, std::string> queryOf(const std::string& app) {
    std::map<std::string, std::string> query;
    std::size_t at = app.find('?');
    while (at != std::string::npos) {
      const std::size_t end = app.find('&', at + 1);
      const std::string pair = app.substr(at + 1, end == std::string::npos ? end : end - at - 1);
      const std::size_t equals = pair.find('=');
      query[pair.substr(0, equals)] = pair.substr(equals + 1);
      at = end;
    }
    return query;
  }

  void operator()(IngestPeer& peer) {
    const WireMessage connect = peer.expect("connect");
    const std::string app = connect.values.at(2).find("app")->text;
    const std::string tcUrl = connect.values.at(2).find("tcUrl")->text;
    apps.push_back(app);
    // What the address says has to be the same in both.
    if (!tcUrl.ends_with(app)) apps.push_back("another address: " + tcUrl);
    auto query = queryOf(app);
    const auto reject = [&](const std::string& description) {
      peer.refuse(connect, "NetConnection.Connect.Rejected", description);
    };
    if (query["authmod"] != "adobe") return reject(needed);
    if (query["user"] != "anna") return reject(prefix + "?reason=nosuchuser&opaque=" + opaque);
    if (!query.contains("response")) {
      return reject(prefix + "?reason=needauth&user=anna&salt=" + salt + "&challenge=" + challenge +
                    (opaque.empty() ? "" : "&opaque=" + opaque));
    }
    const std::string secret = base64OfMd5("anna" + salt + "secret");
    const std::string expected = base64OfMd5(secret + (opaque.empty() ? challenge : opaque) + query["challenge"]);
    if (query["challenge"].size() != 8 || query["opaque"] != opaque || query["response"] != expected) {
      return reject(prefix + "?reason=authfailed&opaque=" + opaque);
    }
    if (!verdict.empty()) return reject(verdict);
    peer.answer(connect);
    peer.serve();
  }
};

TEST_F(AuthenticationTest, LogsIn) {
  for (const bool hasOpaque : {true, false}) {
    for (const bool inAddress : {true, false}) {
      Door door;
      if (!hasOpaque) door.opaque.clear();
      ScriptedIngest ingest([&](IngestPeer& peer) { door(peer); });
      RTMPConnection::Options options;
      options.user = inAddress ? "ignored" : "anna";
      options.password = inAddress ? "" : "secret";
      const std::string host = "127.0.0.1:" + std::to_string(ingest.port()) + "/live?token=1";
      const auto connection = make(options);
      const auto response = run(connection->connect((inAddress ? "rtmp://anna:secret@" : "rtmp://") + host));
      ASSERT_TRUE(response) << response.error().message;
      ASSERT_EQ(door.apps.size(), 3U);
      EXPECT_EQ(door.apps[0], "live?token=1");
      EXPECT_EQ(door.apps[1], "live?token=1&authmod=adobe&user=anna");
      EXPECT_TRUE(door.apps[2].starts_with("live?token=1&authmod=adobe&user=anna&challenge=")) << door.apps[2];
      // The connection that got through works like any other.
      const auto stream = publishing(connection);
      run(stream->close());
      run(connection->close());
      EXPECT_EQ(ingest.complaints(), std::vector<std::string>());
    }
  }
}

struct Attempt {
  const char* user;
  const char* password;
  std::string verdict;
  std::size_t connections;
};

TEST_F(AuthenticationTest, GivesUpWhenTurnedAway) {
  const Attempt attempts[] = {
      {"", "", "", 1},                // nothing to log in with
      {"bert", "secret", "", 2},      // nobody knows this user
      {"anna", "wrong", "", 3},       // wrong password
      {"anna", "secret", needed, 3},  // asked for ever again
      {"anna", "secret", prefix + "?reason=needauth&user=anna&salt=s&challenge=c&opaque=o", 3},
      {"anna", "secret", "not you", 3},
  };
  for (const Attempt& attempt : attempts) {
    Door door;
    door.verdict = attempt.verdict;
    ScriptedIngest ingest([&](IngestPeer& peer) { door(peer); });
    RTMPConnection::Options options;
    options.user = attempt.user;
    options.password = attempt.password;
    const auto connection = make(options);
    const auto response = run(connection->connect(ingest.url()));
    ASSERT_FALSE(response) << attempt.user << " " << attempt.verdict;
    EXPECT_EQ(response.error().error, Error::requestFailed);
    ASSERT_TRUE(response.error().status);
    EXPECT_EQ(response.error().status->code, "NetConnection.Connect.Rejected");
    EXPECT_EQ(response.error().message.find("secret"), std::string::npos);
    EXPECT_EQ(static_cast<std::size_t>(ingest.connections()), attempt.connections) << attempt.verdict;
    EXPECT_FALSE(connection->connected());
  }
}

TEST_F(AuthenticationTest, KeepsNamesWithSpecialCharactersApart) {
  std::string app;
  ScriptedIngest ingest([&](IngestPeer& peer) {
    const WireMessage connect = peer.expect("connect");
    app = connect.values.at(2).find("app")->text;
    if (app.find("authmod") == std::string::npos) peer.refuse(connect, "NetConnection.Connect.Rejected", needed);
    peer.refuse(connect, "NetConnection.Connect.Rejected", prefix + "?reason=nosuchuser");
  });
  RTMPConnection::Options options;
  options.user = "a&response=x ?é";
  options.password = "p";
  EXPECT_FALSE(run(make(options)->connect(ingest.url())));
  EXPECT_EQ(app, "live?authmod=adobe&user=a%26response=x%20%3F%C3%A9");
}

TEST_F(AuthenticationTest, CanBeCutAtEveryAttempt) {
  for (const int silentFrom : {1, 2}) {
    Door door;
    std::vector<ScriptedIngest::Script> scripts(static_cast<std::size_t>(silentFrom), [&](IngestPeer& p) { door(p); });
    scripts.push_back([](IngestPeer& peer) {
      peer.expect("connect");
      peer.readOnly();
    });
    ScriptedIngest ingest(scripts, {});
    RTMPConnection::Options options;
    options.user = "anna";
    options.password = "secret";
    const auto connection = make(options);
    auto response = start(connection->connect(ingest.url()));
    ASSERT_TRUE(ingest.waitForMessages(wire::command, static_cast<std::size_t>(silentFrom) + 1));
    const auto before = Clock::now();
    run(connection->close());
    const auto outcome = response.get();
    ASSERT_FALSE(outcome);
    EXPECT_EQ(outcome.error().error, Error::invalidState);
    EXPECT_LT(Clock::now() - before, 1s);
  }
}

}  // namespace
}  // namespace vellora::test
