#include "platform/linux/x11/X11Displays.h"

#include <xcb/randr.h>

#include <algorithm>
#include <map>

#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11Scale.h"

namespace vellora {
namespace {

constexpr double usualRefreshRate = 60;

struct Monitor {
  xcb_atom_t nameAtom = XCB_ATOM_NONE;
  std::string name;
  PixelRect frame;
  PixelSize millimetres;
  bool isPrimary = false;
  std::vector<xcb_randr_output_t> outputs;
};

/// Nothing when the server knows no monitors (RandR before 1.5).
std::vector<Monitor> readMonitors(X11Connection& connection) {
  if (!connection.hasExtension(&xcb_randr_id)) return {};
  xcb_connection_t* c = connection.get();
  const auto versionCookie = xcb_randr_query_version(c, 1, 5);
  const auto monitorsCookie = xcb_randr_get_monitors(c, connection.root(), 1);
  const auto version = xReply(xcb_randr_query_version_reply, c, versionCookie);
  const auto reply = xReply(xcb_randr_get_monitors_reply, c, monitorsCookie);
  const bool knowsMonitors = version && (version->major_version > 1 || version->minor_version >= 5);
  if (!knowsMonitors || !reply) return {};

  std::vector<Monitor> monitors;
  std::vector<xcb_get_atom_name_cookie_t> names;
  for (auto it = xcb_randr_get_monitors_monitors_iterator(reply.get()); it.rem > 0; xcb_randr_monitor_info_next(&it)) {
    const xcb_randr_monitor_info_t& info = *it.data;
    if (info.width == 0 || info.height == 0) continue;
    Monitor monitor;
    monitor.nameAtom = info.name;
    monitor.frame = {info.x, info.y, info.width, info.height};
    monitor.millimetres = {static_cast<int>(info.width_in_millimeters), static_cast<int>(info.height_in_millimeters)};
    monitor.isPrimary = info.primary != 0;
    const xcb_randr_output_t* outputs = xcb_randr_monitor_info_outputs(&info);
    monitor.outputs.assign(outputs, outputs + xcb_randr_monitor_info_outputs_length(&info));
    names.push_back(xcb_get_atom_name(c, info.name));
    monitors.push_back(std::move(monitor));
  }
  for (std::size_t i = 0; i < monitors.size(); ++i) {
    if (const auto name = xReply(xcb_get_atom_name_reply, c, names[i])) {
      monitors[i].name.assign(xcb_get_atom_name_name(name.get()),
                              static_cast<std::size_t>(xcb_get_atom_name_name_length(name.get())));
    }
  }
  std::stable_partition(monitors.begin(), monitors.end(), [](const Monitor& m) { return m.isPrimary; });
  return monitors;
}

/// Refresh rates by output, for the outputs that show something.
std::map<xcb_randr_output_t, double> readRefreshRates(X11Connection& connection, const std::vector<Monitor>& monitors) {
  if (std::all_of(monitors.begin(), monitors.end(), [](const Monitor& m) { return m.outputs.empty(); })) return {};
  xcb_connection_t* c = connection.get();
  const auto resources = xReply(xcb_randr_get_screen_resources_current_reply, c,
                                xcb_randr_get_screen_resources_current(c, connection.root()));
  if (!resources) return {};
  std::map<std::uint32_t, double> rateOfMode;
  const xcb_randr_mode_info_t* modes = xcb_randr_get_screen_resources_current_modes(resources.get());
  for (int i = 0; i < xcb_randr_get_screen_resources_current_modes_length(resources.get()); ++i) {
    const xcb_randr_mode_info_t& mode = modes[i];
    double lines = mode.vtotal;
    if ((mode.mode_flags & XCB_RANDR_MODE_FLAG_DOUBLE_SCAN) != 0) lines *= 2;
    if ((mode.mode_flags & XCB_RANDR_MODE_FLAG_INTERLACE) != 0) lines /= 2;
    const double dots = static_cast<double>(mode.htotal) * lines;
    if (dots > 0) rateOfMode[mode.id] = mode.dot_clock / dots;
  }
  const xcb_timestamp_t time = resources->config_timestamp;
  std::map<xcb_randr_output_t, xcb_randr_get_output_info_cookie_t> asked;
  for (const Monitor& monitor : monitors) {
    for (const auto output : monitor.outputs) asked.emplace(output, xcb_randr_get_output_info(c, output, time));
  }
  std::map<xcb_randr_output_t, xcb_randr_get_crtc_info_cookie_t> crtcs;
  for (const auto& [output, cookie] : asked) {
    const auto info = xReply(xcb_randr_get_output_info_reply, c, cookie);
    if (info && info->crtc != XCB_NONE) crtcs.emplace(output, xcb_randr_get_crtc_info(c, info->crtc, time));
  }
  std::map<xcb_randr_output_t, double> rates;
  for (const auto& [output, cookie] : crtcs) {
    const auto info = xReply(xcb_randr_get_crtc_info_reply, c, cookie);
    if (!info) continue;
    const auto rate = rateOfMode.find(info->mode);
    if (rate != rateOfMode.end() && rate->second >= 1) rates[output] = rate->second;
  }
  return rates;
}

bool holds(const PixelRect& outer, const PixelRect& inner) {
  return outer.intersected(inner) == inner;
}

}  // namespace

std::vector<DisplayInfo> readDisplays(X11Connection& connection) {
  std::vector<Monitor> monitors = readMonitors(connection);
  const PixelSize root = connection.rootSize();
  if (connection.isBroken() || root.width <= 0 || root.height <= 0) return {};
  if (monitors.empty()) {
    Monitor whole;
    whole.nameAtom = connection.root();
    whole.name = "screen";
    whole.frame = {0, 0, root.width, root.height};
    whole.millimetres = {connection.screen()->width_in_millimeters, connection.screen()->height_in_millimeters};
    monitors.push_back(std::move(whole));
  }
  const X11Scale scale = X11Scale::read(connection);
  const auto rates = readRefreshRates(connection, monitors);

  std::vector<DisplayInfo> displays;
  for (std::size_t i = 0; i < monitors.size(); ++i) {
    const Monitor& monitor = monitors[i];
    DisplayInfo display;
    display.id = monitor.nameAtom;
    display.name = QString::fromStdString(monitor.name);
    display.frame = monitor.frame.intersected({0, 0, root.width, root.height});
    display.scale = scale.factor(monitor.name, static_cast<int>(i), monitor.frame.size(), monitor.millimetres);
    display.refreshRate = 0;
    for (const auto output : monitor.outputs) {
      if (const auto rate = rates.find(output); rate != rates.end()) {
        display.refreshRate = std::max(display.refreshRate, rate->second);
      }
    }
    if (display.refreshRate <= 0) display.refreshRate = usualRefreshRate;
    display.isPrimary = displays.empty();
    if (display.frame.isEmpty()) continue;
    const bool repeats = std::any_of(displays.begin(), displays.end(),
                                     [&](const DisplayInfo& d) { return holds(d.frame, display.frame); });
    if (repeats) continue;
    // The primary one stays even when a later one shows more than it does.
    std::erase_if(displays, [&](const DisplayInfo& d) { return !d.isPrimary && holds(display.frame, d.frame); });
    displays.push_back(std::move(display));
  }
  return displays;
}

}  // namespace vellora
