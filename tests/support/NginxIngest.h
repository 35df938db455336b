#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "support/ChildProcess.h"

namespace vellora::test {

/// An ingest server others wrote: nginx with its RTMP module, in a temporary folder, on free ports of 127.0.0.1. It is
/// one process, ended by its id when the object goes. When it cannot be started, `start` fails the running test and
/// returns null.
///
/// Applications: "live" takes everything, "keyed" only the stream name `goodKey`, "closed" denies publishing.
class NginxIngest {
 public:
  static constexpr const char* goodKey = "good-key";

  struct Options {
    bool record = true;
    int chunkSize = 4096;
    std::filesystem::path certificate{};  ///< PEM; with it there is a TLS port too
    std::filesystem::path key{};
    std::string protocols = "TLSv1.2 TLSv1.3";
    std::vector<std::string> prefix{};  ///< words before the command, "ip netns exec NAME"
  };

  static std::unique_ptr<NginxIngest> start(const Options& options);
  static std::unique_ptr<NginxIngest> start() { return start(Options()); }
  ~NginxIngest();
  NginxIngest(const NginxIngest&) = delete;
  NginxIngest& operator=(const NginxIngest&) = delete;

  std::uint16_t port() const { return port_; }
  std::uint16_t securePort() const { return securePort_; }
  std::string url(const std::string& name, const std::string& application = "live") const;
  /// `host` is what the certificate has to be for.
  std::string secureUrl(const std::string& name, const std::string& host = "127.0.0.1") const;

  /// What the server says about its streams, as XML.
  std::string statistics() const;
  bool hasStream(const std::string& name) const;
  /// Bytes the server has received in all.
  std::uint64_t receivedBytes() const;
  /// Waits until nobody publishes `name` any more, and gives the file of what came.
  std::filesystem::path finishedRecording(const std::string& name) const;
  void dropPublisher(const std::string& name, const std::string& application = "live") const;

  /// Stops answering, and goes on, as a machine under load would.
  void freeze();
  void thaw();
  /// Ends as by a crash.
  void kill();
  /// What the server logged about its connections.
  std::string log() const;

 private:
  NginxIngest() = default;
  bool launch(const Options& options);
  std::string configuration(const Options& options) const;
  /// The body of the answer; empty when there is none.
  std::string ask(const std::string& path) const;

  std::filesystem::path folder_;
  std::uint16_t port_ = 0;
  std::uint16_t securePort_ = 0;
  std::uint16_t authenticationPort_ = 0;
  std::unique_ptr<ChildProcess> process_;
};

}  // namespace vellora::test
