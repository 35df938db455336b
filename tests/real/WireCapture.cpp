#include "real/WireCapture.h"

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <signal.h>
#include <sys/socket.h>
#include <unistd.h>

#include <sstream>

#include "support/XServer.h"

namespace vellora::test {

std::unique_ptr<WireCapture> WireCapture::start(std::uint16_t port) {
  std::unique_ptr<WireCapture> capture(new WireCapture);
  capture->port_ = port;
  capture->process_ =
      ChildProcess::start({"dumpcap", "-q", "-i", "lo", "-B", "16", "-f", "port " + std::to_string(port), "-w",
                           (capture->folder_ / "packets").string()},
                          {});
  // A datagram to the port, sent until it is found, shows that packets are really being written.
  const bool runs = waitFor([&] {
    capture->sendMarker("capture-begins");
    return !capture->process_->isRunning() || capture->isCaptured("capture-begins");
  });
  if (runs && capture->process_->isRunning()) return capture;
  ADD_FAILURE() << "packets of the loopback device cannot be captured; that takes root or the capability CAP_NET_RAW";
  return nullptr;
}

void WireCapture::stop() {
  // Packets are written in their order, so what was sent before this is in the file too.
  sendMarker("capture-ends");
  EXPECT_TRUE(waitFor([&] { return isCaptured("capture-ends"); }));
  process_->signal(SIGINT);
  EXPECT_EQ(process_->wait(10), 0);
}

std::vector<std::string> WireCapture::lines(const std::string& filter, const std::vector<std::string>& fields) const {
  std::vector<std::string> command{"tshark", "-n",
                                   "-r",     (folder_ / "packets").string(),
                                   "-d",     "tcp.port==" + std::to_string(port_) + ",rtmpt",
                                   "-Y",     filter,
                                   "-T",     "fields"};
  for (const std::string& field : fields) {
    command.push_back("-e");
    command.push_back(field);
  }
  const Finished analysis = runProgram(command, {"HOME=" + (folder_ / "").string()}, {}, 30);
  EXPECT_EQ(analysis.exitCode, 0) << analysis.errors;
  std::vector<std::string> result;
  std::istringstream stream(analysis.output);
  for (std::string line; std::getline(stream, line);) result.push_back(line);
  return result;
}

bool WireCapture::isCaptured(const std::string& text) const {
  return contentsOf(folder_ / "packets").find(text) != std::string::npos;
}

void WireCapture::sendMarker(const std::string& text) const {
  const int descriptor = socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_port = htons(port_);
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  sendto(descriptor, text.data(), text.size(), 0, reinterpret_cast<const sockaddr*>(&address), sizeof address);
  close(descriptor);
}

}  // namespace vellora::test
