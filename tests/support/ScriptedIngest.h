#pragma once

#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <mutex>
#include <set>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "support/IngestWire.h"

namespace vellora::test {

class ScriptedIngest;

/// One accepted connection in the hands of a script, which runs in the ingest's thread. Every operation ends the script
/// (by an exception the ingest catches) once the client has gone or the ingest is to end.
class IngestPeer {
 public:
  /// How what is said leaves: each message at once, byte by byte, or all together before the next wait.
  enum class Writes { atOnce, bytewise, held };

  explicit IngestPeer(ScriptedIngest& ingest, int socket) : ingest_(ingest), socket_(socket) {}
  ~IngestPeer();
  IngestPeer(const IngestPeer&) = delete;
  IngestPeer& operator=(const IngestPeer&) = delete;

  void setWrites(Writes writes) { writes_ = writes; }

  /// C0 and C1 are read and checked, S0 to S2 said, C2 read and checked.
  void handshake();
  void readC0C1();
  void readC2();
  /// S0 and S1, which the client has to echo.
  const Octets& s0s1() const { return s0s1_; }
  /// What S2 has to be: the echo of C1.
  const Octets& s2() const { return s2_; }

  /// The next message of the client; all messages are also kept by the ingest.
  WireMessage next();
  /// Answers all requests as a well-meaning server up to the next command or data message of this name, which is handed
  /// out without an answer. Shakes hands first when that has not been done.
  WireMessage expect(std::string_view name);
  /// Answers all requests until the client goes.
  void serve();
  void answer(const WireMessage& request);
  /// Reads what comes, says nothing, until the client goes.
  void readOnly();

  /// Sends bytes as they are.
  void raw(const Octets& bytes);
  /// The same, but gives up when the client takes nothing for so long.
  bool tryRaw(const Octets& bytes, int milliseconds);
  void flush();
  void message(std::uint8_t type, const Octets& payload, std::uint32_t chunkStream = 2, std::uint32_t streamId = 0);
  void command(const std::vector<WireValue>& values, std::uint32_t streamId = 0);
  void status(std::string_view level, std::string_view code, std::uint32_t streamId,
              std::string_view description = "said by the test");
  /// "_error" with such a status.
  void refuse(const WireMessage& request, std::string_view code, std::string_view description);
  void announceChunkSize(std::uint32_t size);

  /// Ends orderly: what is still received is read and ignored until the client closes as well. Happens by itself at the
  /// end of a script.
  void close();
  /// Ends with a reset.
  void reset();
  bool isOpen() const { return socket_ >= 0; }

  /// Marks are how the test and the script wait for each other; see ScriptedIngest.
  void mark(const std::string& name);
  void waitForMark(const std::string& name);

  std::uint64_t sent() const { return sent_; }
  std::uint64_t received() const { return received_; }

 private:
  void readMore();
  void readAtLeast(std::size_t count);
  void complain(const std::string& what);
  /// False when nothing happened in time.
  bool waitFor(short events, int milliseconds);
  void put(const Octets& bytes, std::size_t piece);

  ScriptedIngest& ingest_;
  int socket_;
  Writes writes_ = Writes::atOnce;
  Octets handshake_;  ///< received and not yet looked at
  bool isShaken_ = false;
  Octets s0s1_, s2_;
  StrictChunkReader reader_;
  std::vector<WireMessage> waiting_;
  std::size_t taken_ = 0;
  Octets held_;
  std::size_t chunkSize_ = 128;
  double lastStream_ = 0;
  std::uint64_t sent_ = 0, received_ = 0;
};

/// An RTMP server for tests on 127.0.0.1 and a free port, which behaves as its script says, one connection after the
/// other, in a thread of its own.
class ScriptedIngest {
 public:
  using Script = std::function<void(IngestPeer&)>;
  struct Options {
    int receiveBuffer = 0;  ///< bytes the kernel takes for the script; 0 for as many as it likes
    bool keepMedia = true;  ///< whether the payloads of audio and video are kept
  };

  /// The first script is for the first connection and so on; the last one also for all later ones.
  explicit ScriptedIngest(std::vector<Script> scripts, Options options);
  explicit ScriptedIngest(Script script) : ScriptedIngest(std::vector{std::move(script)}, Options{}) {}
  /// A well-meaning server.
  ScriptedIngest() : ScriptedIngest([](IngestPeer& peer) { peer.serve(); }) {}
  ~ScriptedIngest();
  ScriptedIngest(const ScriptedIngest&) = delete;
  ScriptedIngest& operator=(const ScriptedIngest&) = delete;

  std::uint16_t port() const { return port_; }
  std::string url(std::string_view path = "live") const;

  /// What the server could not have been happy with; empty for a good client.
  std::vector<std::string> complaints() const;
  /// All messages of all connections so far.
  std::vector<WireMessage> messages() const;
  /// Those of one type.
  std::vector<WireMessage> messages(std::uint8_t type) const;
  /// The names of commands and data messages in their order.
  std::vector<std::string> names() const;
  int connections() const;
  /// Connections whose script has ended and that are closed.
  int ended() const;

  /// Waits, for five seconds at most, until `condition` holds; it is looked at again whenever something has happened.
  bool waitUntil(const std::function<bool()>& condition) const;
  bool waitForMessages(std::uint8_t type, std::size_t count) const;

  void mark(const std::string& name);
  bool waitForMark(const std::string& name) const;

 private:
  friend class IngestPeer;
  void run();
  void keep(const WireMessage& message);

  std::vector<Script> scripts_;
  Options options_;
  int listener_ = -1, stop_ = -1;
  std::uint16_t port_ = 0;
  mutable std::mutex mutex_;
  mutable std::condition_variable changed_;
  bool isStopping_ = false;
  std::vector<std::string> complaints_;
  std::vector<WireMessage> messages_;
  std::set<std::string> marks_;
  int connections_ = 0, ended_ = 0;
  std::thread thread_;
};

}  // namespace vellora::test
