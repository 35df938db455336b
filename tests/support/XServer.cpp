#include "support/XServer.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>
#include <xcb/xcb.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>

#include "support/XClient.h"

namespace vellora::test {
namespace {

/// Reads one line from `descriptor`, empty after `seconds` without one.
std::string readLine(int descriptor, double seconds) {
  std::string line;
  char letter = 0;
  pollfd watched{descriptor, POLLIN, 0};
  while (poll(&watched, 1, static_cast<int>(seconds * 1000)) > 0 && read(descriptor, &letter, 1) == 1) {
    if (letter == '\n') return line;
    line += letter;
  }
  return {};
}

std::uint32_t bigEndian(const std::string& bytes, std::size_t offset) {
  std::uint32_t value = 0;
  for (std::size_t i = 0; i < 4; ++i) value = value << 8 | static_cast<std::uint8_t>(bytes[offset + i]);
  return value;
}

std::string geometryText(const PixelRect& r) {
  return std::to_string(r.width) + "/" + std::to_string(r.width * 254 / 960) + "x" + std::to_string(r.height) + "/" +
         std::to_string(r.height * 254 / 960) + "+" + std::to_string(r.x) + "+" + std::to_string(r.y);
}

}  // namespace

std::unique_ptr<XServer> XServer::start(Options options) {
  std::unique_ptr<XServer> server(new XServer);
  std::string folder = (std::filesystem::temp_directory_path() / "vellora-x-XXXXXX").string();
  if (mkdtemp(folder.data()) == nullptr) {
    ADD_FAILURE() << "no temporary folder";
    return nullptr;
  }
  server->home_ = folder;
  mkdir((folder + "/run").c_str(), 0700);
  server->environment_ = {"HOME=" + folder,
                          "XDG_RUNTIME_DIR=" + folder + "/run",
                          "XDG_CONFIG_HOME=" + folder + "/.config",
                          "XDG_DATA_HOME=" + folder + "/.local/share",
                          "XDG_CACHE_HOME=" + folder + "/.cache",
                          "DBUS_SESSION_BUS_ADDRESS=disabled:",
                          "XAUTHORITY=" + folder + "/.Xauthority",
                          "WAYLAND_DISPLAY=",
                          "QT_QPA_PLATFORM=xcb"};
  if (!server->startServer(options)) return nullptr;
  if (options.bus && !server->startBus()) return nullptr;
  if (options.windowManager && !server->startWindowManager()) return nullptr;
  if (options.tray && !server->startTray()) return nullptr;
  return server;
}

XServer::~XServer() {
  tray_.reset();
  windowManager_.reset();
  bus_.reset();
  server_.reset();
  std::error_code ignored;
  if (!home_.empty()) std::filesystem::remove_all(home_, ignored);
}

bool XServer::startServer(const Options& options) {
  std::array<int, 2> ready{};
  if (pipe2(ready.data(), O_CLOEXEC) != 0) return false;
  std::vector<std::string> command{"Xvfb"};
  if (options.display >= 0) command.push_back(":" + std::to_string(options.display));
  const std::string screen = std::to_string(options.size.width) + "x" + std::to_string(options.size.height) + "x" +
                             std::to_string(options.depth);
  for (const std::string& argument :
       {std::string("-displayfd"), std::to_string(ready[1]), std::string("-screen"), std::string("0"), screen,
        std::string("-nolisten"), std::string("tcp"), std::string("-noreset")}) {
    command.push_back(argument);
  }
  command.insert(command.end(), options.arguments.begin(), options.arguments.end());
  server_ = ChildProcess::start(command, environment_, ChildProcess::Output::Discard, ready[1]);
  close(ready[1]);
  const std::string number = readLine(ready[0], 15);
  close(ready[0]);
  if (number.empty()) {
    ADD_FAILURE() << "Xvfb did not start";
    return false;
  }
  display_ = ":" + number;
  environment_.push_back("DISPLAY=" + display_);
  return true;
}

bool XServer::startBus() {
  std::array<int, 2> ready{};
  if (pipe2(ready.data(), O_CLOEXEC) != 0) return false;
  bus_ = ChildProcess::start(
      {"dbus-daemon", "--session", "--nofork", "--nopidfile", "--print-address=" + std::to_string(ready[1])},
      environment_, ChildProcess::Output::Discard, ready[1]);
  close(ready[1]);
  const std::string address = readLine(ready[0], 15);
  close(ready[0]);
  if (address.empty()) {
    ADD_FAILURE() << "dbus-daemon did not start";
    return false;
  }
  std::erase(environment_, "DBUS_SESSION_BUS_ADDRESS=disabled:");
  environment_.push_back("DBUS_SESSION_BUS_ADDRESS=" + address);
  return true;
}

bool XServer::startWindowManager() {
  windowManager_ = spawn({"openbox"});
  const XClient client(*this);
  const auto announced = [&] { return !client.property(client.root(), "_NET_SUPPORTING_WM_CHECK").empty(); };
  // It announces itself before it listens, and a window shown in between would stay hidden for ever: it is ready once
  // it has put a frame around a window.
  const auto frames = [&] {
    TestWindow probe(*this, {.frame = {0, 0, 20, 20}, .mapped = false});
    xcb_map_window(client.connection(), probe.id());
    client.sync();
    return waitFor([&] { return probe.topLevel() != probe.id(); }, 0.2);
  };
  const bool ready = waitFor(announced) && waitFor(frames) &&
                     waitFor([&] { return client.property(client.root(), "_NET_CLIENT_LIST").empty(); });
  if (!ready) ADD_FAILURE() << "openbox did not start";
  return ready;
}

bool XServer::startTray() {
  tray_ = spawn({"trayer", "--edge", "top", "--align", "right", "--widthtype", "request", "--height", "32",
                 "--SetDockType", "true", "--expand", "true"});
  const XClient client(*this);
  const xcb_atom_t selection = client.atom("_NET_SYSTEM_TRAY_S0");
  const bool ready = waitFor([&] {
    const auto cookie = xcb_get_selection_owner(client.connection(), selection);
    xcb_get_selection_owner_reply_t* reply = xcb_get_selection_owner_reply(client.connection(), cookie, nullptr);
    const bool owned = reply != nullptr && reply->owner != XCB_NONE;
    std::free(reply);
    return owned;
  });
  if (!ready) ADD_FAILURE() << "trayer did not start";
  return ready;
}

Finished XServer::run(const std::vector<std::string>& command, std::string_view input, const Environment& extra) const {
  Environment all = extra;
  all.insert(all.end(), environment_.begin(), environment_.end());
  return runProgram(command, all, input);
}

std::string XServer::check(const std::vector<std::string>& command, std::string_view input) const {
  Finished finished = run(command, input);
  EXPECT_EQ(finished.exitCode, 0) << command.front() << ": " << finished.errors;
  return std::move(finished.output);
}

std::unique_ptr<ChildProcess> XServer::spawn(const std::vector<std::string>& command, const Environment& extra) const {
  Environment all = extra;
  all.insert(all.end(), environment_.begin(), environment_.end());
  return ChildProcess::start(command, all);
}

void XServer::setMonitors(const std::vector<Monitor>& monitors) {
  for (const std::string& name : std::vector<std::string>(monitorNames_)) removeMonitor(name);
  bool first = true;
  for (const Monitor& monitor : monitors) {
    // The one real output goes to the first monitor; without that the server would keep a monitor of its own for it.
    const std::string name = (first ? "*" : "") + monitor.name;
    check({"xrandr", "--setmonitor", name, geometryText(monitor.frame), first ? "screen" : "none"});
    monitorNames_.push_back(monitor.name);
    first = false;
  }
}

void XServer::removeMonitor(const std::string& name) {
  check({"xrandr", "--delmonitor", name});
  std::erase(monitorNames_, name);
}

void XServer::setMode(PixelSize size) {
  const std::string name = std::to_string(size.width) + "x" + std::to_string(size.height);
  const std::string width = std::to_string(size.width);
  const std::string height = std::to_string(size.height);
  run({"xrandr", "--newmode", name, "0", width, "0", "0", width, height, "0", "0", height});
  run({"xrandr", "--addmode", "screen", name});
  check({"xrandr", "--output", "screen", "--mode", name});
}

std::vector<std::uint32_t> XServer::pixels(const PixelRect& region) const {
  const XClient client(*this);
  const auto cookie =
      xcb_get_image(client.connection(), XCB_IMAGE_FORMAT_Z_PIXMAP, client.root(), static_cast<std::int16_t>(region.x),
                    static_cast<std::int16_t>(region.y), static_cast<std::uint16_t>(region.width),
                    static_cast<std::uint16_t>(region.height), ~0U);
  const std::unique_ptr<xcb_get_image_reply_t, decltype(&std::free)> reply(
      xcb_get_image_reply(client.connection(), cookie, nullptr), &std::free);
  const auto count = static_cast<std::size_t>(region.width) * static_cast<std::size_t>(region.height);
  std::vector<std::uint32_t> result(count);
  if (!reply || static_cast<std::size_t>(xcb_get_image_data_length(reply.get())) < count * 4) {
    ADD_FAILURE() << "the display cannot be read";
    return result;
  }
  std::memcpy(result.data(), xcb_get_image_data(reply.get()), count * 4);
  for (std::uint32_t& pixel : result) pixel &= 0xFFFFFF;
  return result;
}

std::vector<std::uint32_t> XServer::pixelsByXwd(const PixelRect& region) const {
  // The file: a header of 32-bit numbers in network order, the name, the colour table, then the rows (X11/XWDFile.h).
  const std::string dump = check({"xwd", "-root", "-silent"});
  constexpr std::size_t headerNumbers = 25;
  if (dump.size() < headerNumbers * 4) return {};
  const auto field = [&](std::size_t index) { return bigEndian(dump, index * 4); };
  const std::size_t start = field(0) + std::size_t{field(19)} * 12;
  const std::size_t rowBytes = field(12);
  const bool littleEndian = field(7) == 0;
  // The bits a pixel has are not to be believed: with windows of several depths on the screen xwd says 24 and
  // writes 32.
  if (rowBytes < std::size_t{field(4)} * 4 || dump.size() < start + rowBytes * field(5)) {
    ADD_FAILURE() << "xwd wrote " << rowBytes << " bytes a row, " << dump.size() << " bytes";
    return {};
  }
  std::vector<std::uint32_t> result;
  for (int y = region.y; y < region.bottom(); ++y) {
    for (int x = region.x; x < region.right(); ++x) {
      const std::size_t at = start + rowBytes * static_cast<std::size_t>(y) + static_cast<std::size_t>(x) * 4;
      const std::uint32_t value = bigEndian(dump, at);
      result.push_back((littleEndian ? __builtin_bswap32(value) : value) & 0xFFFFFF);
    }
  }
  return result;
}

void XServer::crash() {
  server_->signal(SIGKILL);
  server_->wait(5);
}

ScopedDisplay::ScopedDisplay(const XServer& server) {
  if (const char* value = std::getenv("DISPLAY")) before_ = value;
  setenv("DISPLAY", server.display().c_str(), 1);
}

ScopedDisplay::~ScopedDisplay() {
  if (before_) {
    setenv("DISPLAY", before_->c_str(), 1);
  } else {
    unsetenv("DISPLAY");
  }
}

}  // namespace vellora::test
