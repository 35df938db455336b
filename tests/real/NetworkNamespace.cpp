#include "real/NetworkNamespace.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <atomic>
#include <cstdlib>

#include "support/ChildProcess.h"

namespace vellora::test {

std::unique_ptr<NetworkNamespace> NetworkNamespace::create() {
  static std::atomic<int> count = 0;
  const std::string name = "vellora-" + std::to_string(getpid()) + "-" + std::to_string(++count);
  const Finished added = runProgram({"ip", "netns", "add", name}, {});
  if (added.exitCode != 0) {
    ADD_FAILURE() << "no network namespace can be made, which takes root: " << added.errors;
    return nullptr;
  }
  std::unique_ptr<NetworkNamespace> network(new NetworkNamespace(name));
  // Packets of the size a real link has, or most would not fit into a shaper's bucket; and buffers that do not swallow
  // seconds of video before anybody notices that the link is slow.
  const std::string smallBuffers =
      "for kind in tcp_wmem tcp_rmem; do echo 4096 16384 131072 > /proc/sys/net/ipv4/$kind; done";
  const bool isReady = network->run({"ip", "link", "set", "lo", "up"}) &&
                       network->run({"ip", "link", "set", "lo", "mtu", "1500", "gso_max_size", "1500"}) &&
                       network->run({"sh", "-c", smallBuffers});
  return isReady ? std::move(network) : nullptr;
}

NetworkNamespace::~NetworkNamespace() {
  const Finished removed = runProgram({"ip", "netns", "del", name_}, {});
  EXPECT_EQ(removed.exitCode, 0) << removed.errors;
}

void NetworkNamespace::limitRate(int kilobits) {
  run({"tc", "qdisc", isLimited_ ? "change" : "add", "dev", "lo", "root", "tbf", "rate",
       std::to_string(kilobits) + "kbit", "burst", "16kb", "latency", "300ms"});
  isLimited_ = true;
}

void NetworkNamespace::drop(int port, int ofHundred) {
  const std::string chance = ofHundred < 100 ? " numgen random mod 100 < " + std::to_string(ofHundred) : "";
  const std::string rule = "tcp dport " + std::to_string(port) + chance + " counter drop";
  run({"nft", "-f", "-"},
      "table inet lab {\n  chain in {\n    type filter hook input priority 0;\n    " + rule + "\n  }\n}\n");
}

long NetworkNamespace::droppedPackets() const {
  const std::string rules = run({"nft", "list", "table", "inet", "lab"}).value_or("");
  const std::string word = "counter packets ";
  const std::size_t at = rules.find(word);
  return at == std::string::npos ? -1 : std::strtol(rules.c_str() + at + word.size(), nullptr, 10);
}

std::optional<std::string> NetworkNamespace::run(const std::vector<std::string>& command,
                                                 const std::string& input) const {
  std::vector<std::string> whole = prefix();
  whole.insert(whole.end(), command.begin(), command.end());
  Finished finished = runProgram(whole, {}, input);
  EXPECT_EQ(finished.exitCode, 0) << command.front() << ": " << finished.errors;
  if (finished.exitCode != 0) return std::nullopt;
  return std::move(finished.output);
}

}  // namespace vellora::test
