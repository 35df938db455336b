#include "platform/linux/x11/X11HotKeys.h"

// The generated header names a field "explicit".
#define explicit explicit_
#include <xcb/xkb.h>
#undef explicit

#include <QObject>
#include <QSocketNotifier>
#include <QTimer>

#include <algorithm>
#include <map>
#include <set>
#include <vector>

#include "base/Log.h"
#include "platform/KeyCodes.h"
#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11Keyboard.h"

namespace vellora {
namespace {

/// How often a pressed hot key is looked at until it is up, at first and at most.
constexpr int firstLook = 20;
constexpr int slowestLook = 320;

/// A key and modifiers as the server counts them.
struct Combination {
  xcb_keycode_t keyCode = 0;
  std::uint16_t modifiers = 0;
  friend bool operator==(const Combination&, const Combination&) = default;
};

}  // namespace

class X11HotKeys::Grabber {
 public:
  explicit Grabber(const std::string& display) : connection_(X11Connection::open(display)) {
    if (!connection_) return;
    selectKeyboardEvents();
    keyboard_ = X11Keyboard::read(*connection_);
    notifier_ = std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(connection_->get()), QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, &context_, [this] { readEvents(); });
    look_.setSingleShot(true);
    QObject::connect(&look_, &QTimer::timeout, &context_, [this] { lookForReleases(); });
  }

  std::optional<Registration> add(std::uint32_t keyCode, std::uint32_t carbonModifiers, Handler handler) {
    if (!connection_ || connection_->isBroken() || (carbonModifiers & ~carbonModifier::all) != 0) return std::nullopt;
    const bool known = std::ranges::any_of(entries_, [&](const auto& item) {
      return item.second.keyCode == keyCode && item.second.carbonModifiers == carbonModifiers;
    });
    if (known) return std::nullopt;
    Entry entry{keyCode, carbonModifiers, std::move(handler), std::nullopt};
    entry.grabbed = grab(keyCode, carbonModifiers);
    readEventsLater();
    if (!entry.grabbed) return std::nullopt;
    const Registration registration = next_++;
    entries_.emplace(registration, std::move(entry));
    return registration;
  }

  void remove(Registration registration) {
    const auto entry = entries_.find(registration);
    if (entry == entries_.end()) return;
    if (entry->second.grabbed && connection_) release(*entry->second.grabbed);
    entries_.erase(entry);
    if (connection_) xcb_flush(connection_->get());
  }

 private:
  struct Entry {
    std::uint32_t keyCode;
    std::uint32_t carbonModifiers;
    Handler handler;
    std::optional<Combination> grabbed;  ///< nothing while the keyboard lacks the key or somebody else holds it
  };

  void selectKeyboardEvents() {
    xcb_connection_t* c = connection_->get();
    if (!connection_->hasExtension(&xcb_xkb_id)) return;
    xReply(xcb_xkb_use_extension_reply, c, xcb_xkb_use_extension(c, XCB_XKB_MAJOR_VERSION, XCB_XKB_MINOR_VERSION));
    constexpr std::uint16_t events = XCB_XKB_EVENT_TYPE_NEW_KEYBOARD_NOTIFY | XCB_XKB_EVENT_TYPE_MAP_NOTIFY;
    constexpr std::uint16_t parts = XCB_XKB_MAP_PART_KEY_TYPES | XCB_XKB_MAP_PART_KEY_SYMS |
                                    XCB_XKB_MAP_PART_MODIFIER_MAP | XCB_XKB_MAP_PART_VIRTUAL_MODS;
    xcb_xkb_select_events(c, XCB_XKB_ID_USE_CORE_KBD, events, 0, events, parts, parts, nullptr);
    xkbEvent_ = connection_->firstEvent(&xcb_xkb_id);
  }

  /// Grabs with every lock state, or not at all.
  std::optional<Combination> grab(std::uint32_t keyCode, std::uint32_t carbonModifiers) {
    const auto code = keyboard_.keyCode(keyCode);
    if (!code) return std::nullopt;
    const Combination combination{*code, keyboard_.realModifiers(carbonModifiers)};
    std::vector<xcb_void_cookie_t> cookies;
    for (const std::uint16_t locks : keyboard_.lockStates()) {
      cookies.push_back(xcb_grab_key_checked(connection_->get(), 0, connection_->root(), combination.modifiers | locks,
                                             combination.keyCode, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC));
    }
    bool refused = false;
    for (const xcb_void_cookie_t cookie : cookies) refused = connection_->check(cookie) != 0 || refused;
    if (!refused && !connection_->isBroken()) return combination;
    release(combination);
    waitForServer();
    return std::nullopt;
  }

  void release(const Combination& combination) {
    for (const std::uint16_t locks : keyboard_.lockStates()) {
      xcb_ungrab_key(connection_->get(), combination.keyCode, connection_->root(), combination.modifiers | locks);
    }
  }

  /// Returns when everything asked for so far has happened.
  void waitForServer() {
    xReply(xcb_get_input_focus_reply, connection_->get(), xcb_get_input_focus(connection_->get()));
  }

  /// A request that waits for its answer may leave events in the queue, which the notifier does not see.
  void readEventsLater() {
    QMetaObject::invokeMethod(
        &context_, [this] { readEvents(); }, Qt::QueuedConnection);
  }

  void readEvents() {
    bool keyboardChanged = false;
    std::vector<Combination> pressed;
    while (const XReply<xcb_generic_event_t> event{xcb_poll_for_event(connection_->get())}) {
      constexpr std::uint8_t sentFlag = 0x80;
      const std::uint8_t type = event->response_type & static_cast<std::uint8_t>(~sentFlag);
      if (type == XCB_KEY_PRESS) {
        const auto* press = reinterpret_cast<const xcb_key_press_event_t*>(event.get());
        pressed.push_back({press->detail, press->state});
      } else if (type == XCB_MAPPING_NOTIFY) {
        const auto* mapping = reinterpret_cast<const xcb_mapping_notify_event_t*>(event.get());
        keyboardChanged = keyboardChanged || mapping->request != XCB_MAPPING_POINTER;
      } else if (xkbEvent_ != 0 && type == xkbEvent_) {
        keyboardChanged = true;
      }
    }
    if (connection_->isBroken()) {
      notifier_->setEnabled(false);
      look_.stop();
      log::warning(QStringLiteral("hot keys ended: the display is gone"));
      return;
    }
    std::vector<Registration> fired;
    for (const Combination& press : pressed) {
      if (const auto registration = accept(press)) fired.push_back(*registration);
    }
    if (keyboardChanged) grabAnew();
    call(fired);
  }

  /// The registration a press stands for; nothing for the repetitions of a key that is still down.
  std::optional<Registration> accept(const Combination& press) {
    // The server gives this client the whole keyboard until the key is up. Given back at once, a window can take it
    // now.
    xcb_ungrab_keyboard(connection_->get(), XCB_CURRENT_TIME);
    waitForServer();
    readEventsLater();
    if (!down_.insert(press.keyCode).second) return std::nullopt;
    look_.start(firstLook);
    const auto own =
        static_cast<std::uint16_t>(XCB_MOD_MASK_SHIFT | XCB_MOD_MASK_CONTROL | keyboard_.alt | keyboard_.super);
    const Combination plain{press.keyCode, static_cast<std::uint16_t>(press.modifiers & own)};
    const auto found = std::ranges::find_if(entries_, [&](const auto& item) { return item.second.grabbed == plain; });
    return found != entries_.end() ? std::optional(found->first) : std::nullopt;
  }

  void call(const std::vector<Registration>& fired) {
    const std::weak_ptr<int> alive = alive_;
    for (const Registration registration : fired) {
      const auto entry = entries_.find(registration);
      if (entry == entries_.end()) continue;
      const Handler handler = entry->second.handler;  // it may unregister itself, or end this service
      handler();
      if (alive.expired()) return;
    }
  }

  /// The release of a key goes to whoever has the keyboard by then, so the keyboard is asked. Only while a hot key is
  /// down.
  void lookForReleases() {
    const auto state = xReply(xcb_query_keymap_reply, connection_->get(), xcb_query_keymap(connection_->get()));
    if (!state) return;
    const std::size_t before = down_.size();
    std::erase_if(down_, [&](xcb_keycode_t key) { return (state->keys[key / 8] & (1 << key % 8)) == 0; });
    if (!down_.empty()) look_.start(down_.size() == before ? std::min(look_.interval() * 2, slowestLook) : firstLook);
    readEventsLater();
  }

  void grabAnew() {
    const X11Keyboard changed = X11Keyboard::read(*connection_);
    readEventsLater();
    if (changed == keyboard_) return;
    for (auto& [registration, entry] : entries_) {
      if (entry.grabbed) release(*entry.grabbed);
      entry.grabbed.reset();
    }
    keyboard_ = changed;
    for (auto& [registration, entry] : entries_) {
      entry.grabbed = grab(entry.keyCode, entry.carbonModifiers);
      if (!entry.grabbed) {
        log::warning(QStringLiteral("hot key lost with the new keyboard layout: key %1").arg(entry.keyCode));
      }
    }
  }

  std::unique_ptr<X11Connection> connection_;
  X11Keyboard keyboard_;
  std::uint8_t xkbEvent_ = 0;
  std::map<Registration, Entry> entries_;
  Registration next_ = 1;
  std::set<xcb_keycode_t> down_;
  std::shared_ptr<int> alive_ = std::make_shared<int>();
  std::unique_ptr<QSocketNotifier> notifier_;
  QTimer look_;
  QObject context_;
};

X11HotKeys::X11HotKeys(const std::string& display) : grabber_(std::make_unique<Grabber>(display)) {}
X11HotKeys::~X11HotKeys() = default;

std::optional<HotKeyService::Registration> X11HotKeys::registerHotKey(std::uint32_t keyCode,
                                                                      std::uint32_t carbonModifiers, Handler handler) {
  return grabber_->add(keyCode, carbonModifiers, std::move(handler));
}

void X11HotKeys::unregisterHotKey(Registration registration) {
  grabber_->remove(registration);
}

}  // namespace vellora
