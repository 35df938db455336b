#include "platform/linux/x11/X11Windows.h"

#include <algorithm>
#include <array>
#include <string>

#include "platform/linux/x11/X11Connection.h"

namespace vellora {
namespace {

constexpr std::uint32_t allWorkspaces = 0xFFFFFFFF;
/// A chain of parents longer than this is none a window manager makes.
constexpr int maximumNesting = 16;

constexpr std::array<std::string_view, 14> atomNames = {"_NET_CLIENT_LIST_STACKING",
                                                        "_NET_CURRENT_DESKTOP",
                                                        "_NET_WM_DESKTOP",
                                                        "_NET_WM_STATE",
                                                        "_NET_WM_STATE_HIDDEN",
                                                        "_NET_WM_WINDOW_TYPE",
                                                        "_NET_WM_WINDOW_TYPE_DOCK",
                                                        "_NET_WM_WINDOW_TYPE_DESKTOP",
                                                        "_NET_WM_NAME",
                                                        "_NET_WM_PID",
                                                        "_GTK_FRAME_EXTENTS",
                                                        "WM_NAME",
                                                        "WM_CLASS",
                                                        "WM_STATE"};

std::vector<xcb_window_t> childrenOf(X11Connection& connection, xcb_window_t window) {
  const auto tree = xReply(xcb_query_tree_reply, connection.get(), xcb_query_tree(connection.get(), window));
  if (!tree) return {};
  const xcb_window_t* children = xcb_query_tree_children(tree.get());
  return {children, children + xcb_query_tree_children_length(tree.get())};
}

/// The program's window below a window manager's frame: the first that has WM_STATE, searched level by level.
std::optional<xcb_window_t> managedWindowIn(X11Connection& connection, xcb_window_t frame) {
  constexpr int levels = 3;
  std::vector<xcb_window_t> level{frame};
  for (int depth = 0; depth < levels && !level.empty(); ++depth) {
    std::vector<xcb_get_property_cookie_t> states;
    for (const xcb_window_t window : level) states.push_back(askProperty(connection, window, "WM_STATE"));
    std::optional<xcb_window_t> found;
    for (std::size_t i = 0; i < level.size(); ++i) {
      const auto reply = xReply(xcb_get_property_reply, connection.get(), states[i]);
      if (!found && !propertyNumbers(reply.get()).empty()) found = level[i];
    }
    if (found) return found;
    std::vector<xcb_window_t> next;
    for (const xcb_window_t window : level) {
      const std::vector<xcb_window_t> children = childrenOf(connection, window);
      next.insert(next.end(), children.begin(), children.end());
    }
    level = std::move(next);
  }
  return std::nullopt;
}

/// Without a list of a window manager's: what the tree shows, bottom first.
std::vector<xcb_window_t> windowsOfTheTree(X11Connection& connection) {
  std::vector<xcb_window_t> windows;
  for (const xcb_window_t child : childrenOf(connection, connection.root())) {
    const auto attributes =
        xReply(xcb_get_window_attributes_reply, connection.get(), xcb_get_window_attributes(connection.get(), child));
    const bool visible = attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE &&
                         attributes->_class == XCB_WINDOW_CLASS_INPUT_OUTPUT;
    if (!visible) continue;
    const auto managed = managedWindowIn(connection, child);
    if (managed) {
      windows.push_back(*managed);
    } else if (attributes->override_redirect == 0) {
      windows.push_back(child);
    }
  }
  return windows;
}

/// What of a program's window is asked for at once.
struct Question {
  xcb_window_t window;
  xcb_get_property_cookie_t desktop, state, type, name, oldName, processId, margins, classes;
};

Question ask(X11Connection& c, xcb_window_t window) {
  return {window,
          askProperty(c, window, "_NET_WM_DESKTOP"),
          askProperty(c, window, "_NET_WM_STATE"),
          askProperty(c, window, "_NET_WM_WINDOW_TYPE"),
          askProperty(c, window, "_NET_WM_NAME"),
          askProperty(c, window, "WM_NAME"),
          askProperty(c, window, "_NET_WM_PID"),
          askProperty(c, window, "_GTK_FRAME_EXTENTS"),
          askProperty(c, window, "WM_CLASS")};
}

/// The second of the two names, each ended by a zero byte; the first where a program gave only one.
QString className(const std::string& property) {
  const std::size_t middle = property.find('\0');
  if (middle == std::string::npos) return QString::fromUtf8(property);
  const std::string second = property.substr(middle + 1, property.find('\0', middle + 1) - middle - 1);
  return QString::fromUtf8(second.empty() ? property.substr(0, middle) : second);
}

QString oneLine(QString text) {
  for (QChar& letter : text) {
    if (letter < QLatin1Char(' ')) letter = QLatin1Char(' ');
  }
  return std::move(text).trimmed();
}

/// The window as a person sees it; nothing when nobody does.
std::optional<WindowInfo> answer(X11Connection& connection, const Question& question, std::uint32_t desktop) {
  const auto numbers = [&](xcb_get_property_cookie_t cookie) {
    return propertyNumbers(xReply(xcb_get_property_reply, connection.get(), cookie).get());
  };
  const auto text = [&](xcb_get_property_cookie_t cookie) {
    return propertyText(xReply(xcb_get_property_reply, connection.get(), cookie).get());
  };
  const std::vector<std::uint32_t> desktops = numbers(question.desktop);
  const std::vector<std::uint32_t> states = numbers(question.state);
  const std::vector<std::uint32_t> types = numbers(question.type);
  const std::string name = text(question.name);
  const std::string oldName = text(question.oldName);
  const std::vector<std::uint32_t> processId = numbers(question.processId);
  const ShadowMargins margins = shadowMargins(numbers(question.margins));
  const std::string classes = text(question.classes);

  const bool elsewhere =
      desktop != allWorkspaces && !desktops.empty() && desktops.front() != allWorkspaces && desktops.front() != desktop;
  const bool hidden = std::ranges::find(states, connection.atom("_NET_WM_STATE_HIDDEN")) != states.end();
  const bool furniture = !types.empty() && (types.front() == connection.atom("_NET_WM_WINDOW_TYPE_DOCK") ||
                                            types.front() == connection.atom("_NET_WM_WINDOW_TYPE_DESKTOP"));
  if (elsewhere || hidden || furniture) return std::nullopt;
  const auto top = topLevelOf(connection, question.window);
  if (!top) return std::nullopt;
  const auto attributesCookie = xcb_get_window_attributes(connection.get(), *top);
  const auto geometryCookie = xcb_get_geometry(connection.get(), *top);
  const auto attributes = xReply(xcb_get_window_attributes_reply, connection.get(), attributesCookie);
  const auto geometry = xReply(xcb_get_geometry_reply, connection.get(), geometryCookie);
  if (!attributes || !geometry || attributes->map_state != XCB_MAP_STATE_VIEWABLE) return std::nullopt;

  WindowInfo info;
  info.id = question.window;
  info.title =
      oneLine(name.empty() ? QString::fromLatin1(QByteArray::fromStdString(oldName)) : QString::fromUtf8(name));
  info.application = oneLine(className(classes));
  info.processId = processId.empty() ? 0 : processId.front();
  const int border = geometry->border_width;
  info.frame =
      withoutMargins({geometry->x, geometry->y, geometry->width + 2 * border, geometry->height + 2 * border}, margins);
  if (info.frame.width <= 1 || info.frame.height <= 1) return std::nullopt;
  return info;
}

}  // namespace

ShadowMargins shadowMargins(const std::vector<std::uint32_t>& property) {
  constexpr std::uint32_t sane = 512;
  if (property.size() < 4) return {};
  if (std::any_of(property.begin(), property.begin() + 4, [](std::uint32_t v) { return v > sane; })) return {};
  return {static_cast<int>(property[0]), static_cast<int>(property[1]), static_cast<int>(property[2]),
          static_cast<int>(property[3])};
}

PixelRect withoutMargins(const PixelRect& frame, const ShadowMargins& margins) {
  const PixelRect inner{frame.x + margins.left, frame.y + margins.top, frame.width - margins.left - margins.right,
                        frame.height - margins.top - margins.bottom};
  return inner.isEmpty() ? frame : inner;
}

std::optional<xcb_window_t> topLevelOf(X11Connection& connection, xcb_window_t window) {
  for (int level = 0; level < maximumNesting; ++level) {
    const auto tree = xReply(xcb_query_tree_reply, connection.get(), xcb_query_tree(connection.get(), window));
    if (!tree || tree->parent == XCB_NONE) return std::nullopt;
    if (tree->parent == connection.root()) return window;
    window = tree->parent;
  }
  return std::nullopt;
}

std::vector<WindowInfo> readWindows(X11Connection& connection) {
  connection.fetchAtoms(atomNames);
  std::vector<xcb_window_t> windows = connection.numbers(connection.root(), "_NET_CLIENT_LIST_STACKING");
  if (windows.empty()) windows = windowsOfTheTree(connection);
  const std::vector<std::uint32_t> current = connection.numbers(connection.root(), "_NET_CURRENT_DESKTOP");
  const std::uint32_t desktop = current.empty() ? allWorkspaces : current.front();
  std::vector<Question> questions;
  for (const xcb_window_t window : windows) questions.push_back(ask(connection, window));
  std::vector<WindowInfo> result;
  for (const Question& question : questions) {
    if (auto info = answer(connection, question, desktop)) result.push_back(std::move(*info));
  }
  std::reverse(result.begin(), result.end());
  return result;
}

}  // namespace vellora
