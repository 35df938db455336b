#pragma once

#include <openssl/types.h>

#include <atomic>
#include <cstdint>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <thread>

#include "support/TestAuthority.h"

namespace vellora::test {

/// One accepted connection, in the hands of a script that runs in a thread of the server's. Every call waits.
class BytePeer {
 public:
  BytePeer(int socket, SSL* ssl) : socket_(socket), ssl_(ssl) {}

  /// The name the client asked for.
  std::string serverName() const;
  /// Exactly so many bytes; fewer when the client ended.
  std::string read(std::size_t size);
  /// Up to the client's end. `wasOrderly` tells whether TLS said it.
  std::string readAll(bool* wasOrderly = nullptr);
  bool write(std::string_view bytes);
  /// Past TLS, as somebody on the way could.
  void writePlain(std::string_view bytes);
  /// close_notify.
  void sayEnd();
  /// FIN.
  void shutDown();
  /// The end of the script resets the connection.
  void endWithReset();
  /// Has new keys of TLS 1.3 go out with the next bytes, and asks for the client's.
  void changeKeys();

 private:
  friend class ByteServer;
  int socket_;
  SSL* ssl_;
};

/// A server on 127.0.0.1 that plays one script with one client, over TCP or TLS. Ends with the object, whatever the
/// script waits for.
class ByteServer {
 public:
  using Script = std::function<void(BytePeer& peer)>;
  struct Options {
    std::optional<TestAuthority::Identity> identity{};  ///< speaks TLS when it has one
    int newestVersion = 0;                              ///< TLS1_1_VERSION …; 0 for any
    int receiveBuffer = 0;                              ///< bytes; 0 for the system's choice
    std::string address = "127.0.0.1";
  };

  ByteServer(Options options, Script script);
  explicit ByteServer(Script script) : ByteServer(Options(), std::move(script)) {}
  ~ByteServer();
  ByteServer(const ByteServer&) = delete;
  ByteServer& operator=(const ByteServer&) = delete;

  std::uint16_t port() const { return port_; }
  /// Waits for the end of the script. False when no client came, or its TLS handshake failed.
  bool wait();

 private:
  void run(const Script& script);

  Options options_;
  int listener_ = -1;
  std::mutex mutex_;
  int client_ = -1;
  std::uint16_t port_ = 0;
  std::atomic<bool> hasPlayed_ = false;
  std::thread thread_;
};

}  // namespace vellora::test
