#include "support/NginxIngest.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <utility>

#include "support/FreePort.h"
#include "support/XServer.h"

namespace vellora::test {
namespace {

namespace fs = std::filesystem;

// One process, so that it can be stopped and ended whole.
constexpr const char* baseConfiguration = R"(
load_module /usr/lib/nginx/modules/ngx_rtmp_module.so;
load_module /usr/lib/nginx/modules/ngx_stream_module.so;
daemon off; master_process off; pid nginx.pid; error_log error.log info;
events { worker_connections 256; }
rtmp {
  access_log rtmp.log;
  server {
    listen @ingest@; chunk_size @chunk@; timeout 10s;
    application live { live on; @record@ }
    application keyed { live on; on_publish http://@keys@/key; notify_method get; @record@ }
    application closed { live on; deny publish all; }
  }
}
http {
  access_log off;
  client_body_temp_path body; proxy_temp_path proxy; fastcgi_temp_path fastcgi;
  scgi_temp_path scgi; uwsgi_temp_path uwsgi;
  server {
    listen unix:@folder@/http.sock;
    location /stat { rtmp_stat all; }
    location /control { rtmp_control all; }
  }
  server {
    listen @keys@;
    location /key { if ($arg_name = "@goodKey@") { return 200; } return 403; }
  }
}
)";

constexpr const char* secureConfiguration = R"(stream {
  server {
    listen @secure@ ssl; proxy_pass @ingest@;
    ssl_certificate @certificate@; ssl_certificate_key @key@; ssl_protocols @protocols@;
  }
}
)";

std::string contentsOf(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

/// Everything that can be read from a socket in the file system after sending `request`.
std::string exchange(const fs::path& socketFile, const std::string& request) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  if (socketFile.native().size() >= sizeof address.sun_path) return {};
  std::strcpy(address.sun_path, socketFile.c_str());
  const int descriptor = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  const timeval limit{2, 0};
  setsockopt(descriptor, SOL_SOCKET, SO_RCVTIMEO, &limit, sizeof limit);
  std::string answer;
  if (connect(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0 &&
      send(descriptor, request.data(), request.size(), MSG_NOSIGNAL) == static_cast<ssize_t>(request.size())) {
    std::array<char, 4096> block;
    ssize_t count = 0;
    while ((count = recv(descriptor, block.data(), block.size(), 0)) > 0) {
      answer.append(block.data(), static_cast<std::size_t>(count));
    }
  }
  close(descriptor);
  return answer;
}

/// The text of the first element `name` in `xml`.
std::string element(const std::string& xml, const std::string& name) {
  const std::size_t start = xml.find("<" + name + ">");
  if (start == std::string::npos) return {};
  const std::size_t from = start + name.size() + 2;
  return xml.substr(from, xml.find('<', from) - from);
}

}  // namespace

std::unique_ptr<NginxIngest> NginxIngest::start(const Options& options) {
  std::string folder = (fs::temp_directory_path() / "vellora-nginx-XXXXXX").string();
  if (mkdtemp(folder.data()) == nullptr) {
    ADD_FAILURE() << "no temporary folder";
    return nullptr;
  }
  std::unique_ptr<NginxIngest> server(new NginxIngest);
  server->folder_ = folder;
  fs::create_directory(server->folder_ / "recordings");
  // Another program may take a port between looking for it and listening on it.
  for (int attempt = 0; attempt < 5; ++attempt) {
    if (server->launch(options)) return server;
  }
  ADD_FAILURE() << "nginx did not start: " << server->log();
  return nullptr;
}

NginxIngest::~NginxIngest() {
  if (process_) thaw();
  process_.reset();
  std::error_code ignored;
  fs::remove_all(folder_, ignored);
}

bool NginxIngest::launch(const Options& options) {
  port_ = freePort();
  authenticationPort_ = freePort();
  securePort_ = options.certificate.empty() ? std::uint16_t{0} : freePort();
  fs::remove(folder_ / "http.sock");
  const fs::path file = folder_ / "nginx.conf";
  std::ofstream(file) << configuration(options);
  std::vector<std::string> command = options.prefix;
  for (const std::string& word : {std::string("nginx"), std::string("-p"), folder_.string(), std::string("-c"),
                                  file.string(), std::string("-e"), (folder_ / "boot.log").string()}) {
    command.push_back(word);
  }
  process_ = ChildProcess::start(command, {});
  bool ready = false;
  const auto decided = [&] {
    ready = !statistics().empty();
    return ready || !process_ || !process_->isRunning();
  };
  waitFor(decided);
  return ready;
}

std::string NginxIngest::configuration(const Options& options) const {
  const auto port = [](std::uint16_t number) { return "127.0.0.1:" + std::to_string(number); };
  std::string text = baseConfiguration;
  if (securePort_ != 0) text += secureConfiguration;
  const std::array<std::pair<std::string, std::string>, 10> values{{
      {"@ingest@", port(port_)},
      {"@secure@", port(securePort_)},
      {"@keys@", port(authenticationPort_)},
      {"@chunk@", std::to_string(options.chunkSize)},
      {"@record@", options.record ? "record all; record_path @folder@/recordings; record_suffix .flv;" : "record off;"},
      {"@folder@", folder_.string()},
      {"@goodKey@", goodKey},
      {"@certificate@", options.certificate.string()},
      {"@key@", options.key.string()},
      {"@protocols@", options.protocols},
  }};
  for (const auto& [name, value] : values) {
    for (std::size_t at = 0; (at = text.find(name, at)) != std::string::npos; at += value.size()) {
      text.replace(at, name.size(), value);
    }
  }
  return text;
}

std::string NginxIngest::url(const std::string& name, const std::string& application) const {
  return "rtmp://127.0.0.1:" + std::to_string(port_) + "/" + application + "/" + name;
}

std::string NginxIngest::secureUrl(const std::string& name, const std::string& host) const {
  return "rtmps://" + host + ":" + std::to_string(securePort_) + "/live/" + name;
}

std::string NginxIngest::ask(const std::string& path) const {
  const std::string answer = exchange(folder_ / "http.sock", "GET " + path + " HTTP/1.0\r\n\r\n");
  const std::size_t body = answer.find("\r\n\r\n");
  return body == std::string::npos ? std::string() : answer.substr(body + 4);
}

std::string NginxIngest::statistics() const {
  return ask("/stat");
}

bool NginxIngest::hasStream(const std::string& name) const {
  return statistics().find("<name>" + name + "</name>") != std::string::npos;
}

std::uint64_t NginxIngest::receivedBytes() const {
  return std::strtoull(element(statistics(), "bytes_in").c_str(), nullptr, 10);
}

fs::path NginxIngest::finishedRecording(const std::string& name) const {
  EXPECT_TRUE(waitFor([&] {
    const std::string text = statistics();
    return !text.empty() && text.find("<name>" + name + "</name>") == std::string::npos;
  })) << "somebody still publishes "
      << name;
  return folder_ / "recordings" / (name + ".flv");
}

void NginxIngest::dropPublisher(const std::string& name, const std::string& application) const {
  ask("/control/drop/publisher?app=" + application + "&name=" + name);
}

void NginxIngest::freeze() {
  process_->signal(SIGSTOP);
}

void NginxIngest::thaw() {
  process_->signal(SIGCONT);
}

void NginxIngest::kill() {
  process_->signal(SIGKILL);
  process_->wait(5);
}

std::string NginxIngest::log() const {
  return contentsOf(folder_ / "boot.log") + contentsOf(folder_ / "error.log") + contentsOf(folder_ / "rtmp.log");
}

}  // namespace vellora::test
