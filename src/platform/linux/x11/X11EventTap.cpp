#include "platform/linux/x11/X11EventTap.h"

#include <xcb/xinput.h>

// The generated header names a field "explicit".
#define explicit explicit_
#include <xcb/xkb.h>
#undef explicit

#include <QObject>
#include <QSocketNotifier>

#include <bitset>
#include <chrono>
#include <map>

#include "base/Log.h"
#include "platform/KeyCodes.h"
#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11EventTapLayout.h"
#include "platform/linux/x11/X11Keyboard.h"

namespace vellora {
namespace {

constexpr std::uint8_t sentFlag = 0x80;
/// Keys without a virtual key code get this and their X key code.
constexpr std::uint16_t firstUnknownKey = 0x100;
constexpr int trackedButtons = 3;

/// The seconds of a moment the server counts in milliseconds, 32 bits of them: of the clock that never jumps, where it
/// runs on this machine. A moment that cannot be one of the last few seconds is now.
double hostTimeOf(xcb_timestamp_t time) {
  using namespace std::chrono;
  const auto now = steady_clock::now().time_since_epoch();
  const auto ago = static_cast<std::uint32_t>(duration_cast<milliseconds>(now).count()) - time;
  constexpr std::uint32_t sane = 5000;
  const double seconds = duration<double>(now).count();
  return ago < sane ? seconds - ago / 1000.0 : seconds;
}

class Listener final : public EventTap::Listening {
 public:
  /// Null when the display cannot be listened to.
  static std::unique_ptr<Listener> make(const std::string& display, EventTap::Callbacks callbacks) {
    std::unique_ptr<Listener> listener(new Listener(std::move(callbacks)));
    return listener->begin(display) ? std::move(listener) : nullptr;
  }

 private:
  explicit Listener(EventTap::Callbacks callbacks) : callbacks_(std::move(callbacks)) {}

  bool begin(const std::string& display) {
    connection_ = X11Connection::open(display);
    if (!connection_ || !connection_->hasExtension(&xcb_input_id) || !connection_->hasExtension(&xcb_xkb_id)) {
      return false;
    }
    xcb_connection_t* c = connection_->get();
    if (!xReply(xcb_input_xi_query_version_reply, c, xcb_input_xi_query_version(c, 2, 2))) return false;
    inputOpcode_ = xcb_get_extension_data(c, &xcb_input_id)->major_opcode;
    layout_ = X11EventTapLayout::read(*connection_);
    if (!layout_) return false;
    xkbEvent_ = connection_->firstEvent(&xcb_xkb_id);
    selectEvents();
    readKeyboard();
    if (const auto keys = xReply(xcb_query_keymap_reply, c, xcb_query_keymap(c))) {
      for (std::size_t key = 0; key < down_.size(); ++key) down_[key] = (keys->keys[key / 8] >> key % 8 & 1) != 0;
    }
    if (connection_->isBroken()) return false;
    notifier_ = std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(c), QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, &context_, [this] { readEvents(); });
    readEventsLater();
    return true;
  }

  void selectEvents() {
    xcb_connection_t* c = connection_->get();
    constexpr std::uint16_t events =
        XCB_XKB_EVENT_TYPE_NEW_KEYBOARD_NOTIFY | XCB_XKB_EVENT_TYPE_MAP_NOTIFY | XCB_XKB_EVENT_TYPE_STATE_NOTIFY;
    constexpr std::uint16_t parts = XCB_XKB_MAP_PART_KEY_TYPES | XCB_XKB_MAP_PART_KEY_SYMS |
                                    XCB_XKB_MAP_PART_MODIFIER_MAP | XCB_XKB_MAP_PART_VIRTUAL_MODS;
    xcb_xkb_select_events(c, XCB_XKB_ID_USE_CORE_KBD, events, 0, events, parts, parts, nullptr);
    struct {
      xcb_input_event_mask_t head;
      std::uint32_t mask;
    } wanted{{XCB_INPUT_DEVICE_ALL_MASTER, 1}, 0};
    if (callbacks_.onKey) {
      wanted.mask |= XCB_INPUT_XI_EVENT_MASK_RAW_KEY_PRESS | XCB_INPUT_XI_EVENT_MASK_RAW_KEY_RELEASE;
    }
    if (callbacks_.onButton) {
      wanted.mask |= XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS | XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_RELEASE;
    }
    xcb_input_xi_select_events(c, connection_->root(), 1, &wanted.head);
  }

  /// What keys are called and what modifiers mean.
  void readKeyboard() {
    keyboard_ = X11Keyboard::read(*connection_);
    virtualKeys_.clear();
    for (const KeyPlace& place : keyPlaces()) {
      const auto found = keyboard_.keyCodes.find(place.xkbName);
      if (found != keyboard_.keyCodes.end()) {
        virtualKeys_.emplace(found->second, static_cast<std::uint16_t>(place.virtualKeyCode));
      }
    }
    flags_ = flagsOf(layout_->modifiers());
  }

  void readEventsLater() {
    QMetaObject::invokeMethod(
        &context_, [this] { readEvents(); }, Qt::QueuedConnection);
  }

  void readEvents() {
    const std::weak_ptr<int> alive = alive_;
    while (const XReply<xcb_generic_event_t> event{xcb_poll_for_event(connection_->get())}) {
      receive(*event);
      if (alive.expired()) return;  // a callback ended this
    }
    if (keyboardChanged_) {
      keyboardChanged_ = false;
      if (auto layout = X11EventTapLayout::read(*connection_)) layout_ = std::move(layout);
      readKeyboard();
      readEventsLater();
    }
    if (!connection_->isBroken()) return;
    notifier_->setEnabled(false);
    log::warning(QStringLiteral("listening to input ended: the display is gone"));
  }

  void receive(const xcb_generic_event_t& event) {
    const int type = event.response_type & ~sentFlag;
    if (type == xkbEvent_) return receiveKeyboard(event);
    if (type != XCB_GE_GENERIC) return;
    const auto& generic = reinterpret_cast<const xcb_ge_generic_event_t&>(event);
    if (generic.extension != inputOpcode_) return;
    // Keys and buttons look alike.
    const auto& raw = reinterpret_cast<const xcb_input_raw_key_press_event_t&>(event);
    switch (generic.event_type) {
      case XCB_INPUT_RAW_KEY_PRESS:
        return receiveKey(raw.detail, true, hostTimeOf(raw.time));
      case XCB_INPUT_RAW_KEY_RELEASE:
        return receiveKey(raw.detail, false, hostTimeOf(raw.time));
      case XCB_INPUT_RAW_BUTTON_PRESS:
        return receiveButton(raw.detail, true, hostTimeOf(raw.time));
      case XCB_INPUT_RAW_BUTTON_RELEASE:
        return receiveButton(raw.detail, false, hostTimeOf(raw.time));
      default:
        return;
    }
  }

  /// The server tells the state of the keyboard after each key that changed it, whatever keys and settings made it so.
  void receiveKeyboard(const xcb_generic_event_t& event) {
    if (event.pad0 != XCB_XKB_STATE_NOTIFY) {
      keyboardChanged_ = true;
      return;
    }
    const auto& state = reinterpret_cast<const xcb_xkb_state_notify_event_t&>(event);
    layout_->update(state);
    const std::uint32_t flags = flagsOf(state.mods);
    if (flags == flags_) return;
    flags_ = flags;
    if (!callbacks_.onKey) return;
    callbacks_.onKey({.kind = KeyEvent::Kind::flagsChanged,
                      .keyCode = virtualKeyOf(state.keycode),
                      .flags = flags_,
                      .charactersIgnoringModifiers = {},
                      .hostTime = hostTimeOf(state.time)});
  }

  void receiveKey(std::uint32_t key, bool isDown, double time) {
    if (key >= down_.size()) return;
    // Around grabs of other programs a release comes several times.
    if (!isDown && !down_[key]) return;
    down_[key] = isDown;
    if (layout_->isModifier(key)) return;
    callbacks_.onKey({.kind = isDown ? KeyEvent::Kind::keyDown : KeyEvent::Kind::keyUp,
                      .keyCode = virtualKeyOf(key),
                      .flags = flags_,
                      .charactersIgnoringModifiers = layout_->character(key),
                      .hostTime = time});
  }

  void receiveButton(std::uint32_t detail, bool isDown, double time) {
    if (detail < 1 || detail > trackedButtons) return;
    ButtonEvent event{.isDown = isDown, .button = static_cast<int>(detail) - 1, .position = {}, .hostTime = time};
    const auto pointer =
        xReply(xcb_query_pointer_reply, connection_->get(), xcb_query_pointer(connection_->get(), connection_->root()));
    if (pointer) event.position = {pointer->root_x, pointer->root_y};
    callbacks_.onButton(event);
  }

  std::uint32_t flagsOf(std::uint32_t modifiers) const {
    std::uint32_t flags = 0;
    if ((modifiers & XCB_MOD_MASK_SHIFT) != 0) flags |= eventFlag::shift;
    if ((modifiers & XCB_MOD_MASK_CONTROL) != 0) flags |= eventFlag::control;
    if ((modifiers & keyboard_.alt) != 0) flags |= eventFlag::option;
    if ((modifiers & keyboard_.super) != 0) flags |= eventFlag::command;
    return flags;
  }

  std::uint16_t virtualKeyOf(std::uint32_t key) const {
    const auto found = virtualKeys_.find(key);
    return found != virtualKeys_.end() ? found->second : static_cast<std::uint16_t>(firstUnknownKey + key);
  }

  const EventTap::Callbacks callbacks_;
  std::unique_ptr<X11Connection> connection_;
  std::optional<X11EventTapLayout> layout_;
  X11Keyboard keyboard_;
  std::map<std::uint32_t, std::uint16_t> virtualKeys_;  ///< by X key code
  std::uint8_t inputOpcode_ = 0;
  std::uint8_t xkbEvent_ = 0;
  std::bitset<256> down_;
  std::uint32_t flags_ = 0;
  bool keyboardChanged_ = false;
  std::shared_ptr<int> alive_ = std::make_shared<int>();
  std::unique_ptr<QSocketNotifier> notifier_;
  QObject context_;
};

}  // namespace

X11EventTap::X11EventTap(std::function<bool()> isSecureInput, std::string display)
    : isSecureInput_(std::move(isSecureInput)), display_(std::move(display)) {}

std::unique_ptr<EventTap::Listening> X11EventTap::listen(Callbacks callbacks) {
  return Listener::make(display_, std::move(callbacks));
}

bool X11EventTap::isSecureInputEnabled() {
  return isSecureInput_ && isSecureInput_();
}

}  // namespace vellora
