#include "support/FreePort.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

namespace vellora::test {

std::uint16_t freePort() {
  const int descriptor = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t size = sizeof address;
  auto* generic = reinterpret_cast<sockaddr*>(&address);
  const bool found = bind(descriptor, generic, size) == 0 && getsockname(descriptor, generic, &size) == 0;
  close(descriptor);
  return found ? ntohs(address.sin_port) : std::uint16_t{0};
}

}  // namespace vellora::test
