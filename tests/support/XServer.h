#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Geometry.h"
#include "support/ChildProcess.h"

namespace vellora::test {

/// A private virtual X display, with the parts a desktop has where they are asked for. Everything started here is ended
/// by its process id when the object goes. Nothing is skipped: when a part is missing, `start` fails the running test
/// and returns null.
///
///     auto server = XServer::start({.size = {3840, 2160}, .windowManager = true, .bus = true});
///     ASSERT_TRUE(server);
///     server->check({"xdotool", "key", "alt+1"});   // any program, with this DISPLAY and bus
///     XClient client(*server);                       // an xcb connection of the test's own (support/XClient.h)
///     TestWindow window(*server, {.colour = 0xFF0000});
///     std::vector<std::uint32_t> pixels = server->pixels({0, 0, 100, 100});   // read by a program others wrote
///
/// A program started elsewhere gets `server->environment()`; ScopedDisplay points the test program itself at the
/// display.
class XServer {
 public:
  struct Options {
    PixelSize size{1920, 1080};
    int depth = 24;
    bool windowManager = false;               ///< openbox, ready when `start` returns
    bool tray = false;                        ///< trayer at the top right, ready when `start` returns
    bool bus = false;                         ///< a D-Bus session of its own; without it programs see "disabled:"
    int display = -1;                         ///< the display number; -1 takes a free one
    std::vector<std::string> arguments = {};  ///< further arguments for the server
  };
  struct Monitor {
    std::string name;
    PixelRect frame;
  };

  static std::unique_ptr<XServer> start(Options options);
  static std::unique_ptr<XServer> start() { return start(Options()); }
  ~XServer();

  /// ":73"
  const std::string& display() const { return display_; }
  /// DISPLAY, DBUS_SESSION_BUS_ADDRESS and an empty HOME and XDG_RUNTIME_DIR, for programs on this display.
  const Environment& environment() const { return environment_; }
  /// The private home folder, empty at first, removed at the end.
  const std::string& home() const { return home_; }
  pid_t pid() const { return server_->pid(); }

  /// Runs a program to its end on this display.
  Finished run(const std::vector<std::string>& command, std::string_view input = {},
               const Environment& extra = {}) const;
  /// As `run`, failing the running test when the program does not end with 0.
  std::string check(const std::vector<std::string>& command, std::string_view input = {}) const;
  /// Starts a program that goes on running on this display.
  std::unique_ptr<ChildProcess> spawn(const std::vector<std::string>& command, const Environment& extra = {}) const;

  /// Splits the screen into named monitors, the first one primary (replaces those set before).
  void setMonitors(const std::vector<Monitor>& monitors);
  void removeMonitor(const std::string& name);
  /// Changes the size of the only output, and with it of the root window, while everything runs.
  void setMode(PixelSize size);

  /// What is on the screen, row by row as 0xRRGGBB.
  std::vector<std::uint32_t> pixels(const PixelRect& region) const;
  /// The same, read by a program others wrote. Windows must not come or go meanwhile: xwd fails then.
  std::vector<std::uint32_t> pixelsByXwd(const PixelRect& region) const;

  /// Kills the server as a crash would.
  void crash();

 private:
  XServer() = default;
  bool startServer(const Options& options);
  bool startBus();
  bool startWindowManager();
  bool startTray();

  std::string home_;
  std::string display_;
  Environment environment_;
  std::vector<std::string> monitorNames_;
  std::unique_ptr<ChildProcess> server_;
  std::unique_ptr<ChildProcess> bus_;
  std::unique_ptr<ChildProcess> windowManager_;
  std::unique_ptr<ChildProcess> tray_;
};

/// Puts DISPLAY into the test program's own environment while it lives.
class ScopedDisplay {
 public:
  explicit ScopedDisplay(const XServer& server);
  ~ScopedDisplay();
  ScopedDisplay(const ScopedDisplay&) = delete;
  ScopedDisplay& operator=(const ScopedDisplay&) = delete;

 private:
  std::optional<std::string> before_;
};

/// Asks `condition` every few milliseconds until it holds; false after `seconds`.
template <class Condition>
bool waitFor(Condition condition, double seconds = 10);

}  // namespace vellora::test

#include <chrono>
#include <thread>

template <class Condition>
bool vellora::test::waitFor(Condition condition, double seconds) {
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::duration<double>(seconds);
  while (!condition()) {
    if (std::chrono::steady_clock::now() > deadline) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
  return true;
}
