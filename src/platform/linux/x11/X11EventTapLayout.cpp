#include "platform/linux/x11/X11EventTapLayout.h"

#include <xkbcommon/xkbcommon-x11.h>
#include <xkbcommon/xkbcommon.h>

// The generated header names a field "explicit".
#define explicit explicit_
#include <xcb/xkb.h>
#undef explicit

#include "platform/linux/x11/X11Connection.h"

namespace vellora {
namespace {

struct UnrefContext {
  void operator()(xkb_context* context) const { xkb_context_unref(context); }
};

}  // namespace

void X11EventTapLayout::Unref::operator()(xkb_keymap* keymap) const {
  xkb_keymap_unref(keymap);
}
void X11EventTapLayout::Unref::operator()(xkb_state* state) const {
  xkb_state_unref(state);
}

X11EventTapLayout::~X11EventTapLayout() = default;
X11EventTapLayout::X11EventTapLayout(X11EventTapLayout&&) noexcept = default;
X11EventTapLayout& X11EventTapLayout::operator=(X11EventTapLayout&&) noexcept = default;

std::optional<X11EventTapLayout> X11EventTapLayout::read(X11Connection& connection) {
  xcb_connection_t* c = connection.get();
  if (xkb_x11_setup_xkb_extension(c, XKB_X11_MIN_MAJOR_XKB_VERSION, XKB_X11_MIN_MINOR_XKB_VERSION,
                                  XKB_X11_SETUP_XKB_EXTENSION_NO_FLAGS, nullptr, nullptr, nullptr, nullptr) == 0) {
    return std::nullopt;
  }
  const std::unique_ptr<xkb_context, UnrefContext> context(xkb_context_new(XKB_CONTEXT_NO_DEFAULT_INCLUDES));
  const std::int32_t device = xkb_x11_get_core_keyboard_device_id(c);
  if (!context || device < 0) return std::nullopt;
  X11EventTapLayout layout;
  layout.keymap_.reset(xkb_x11_keymap_new_from_device(context.get(), c, device, XKB_KEYMAP_COMPILE_NO_FLAGS));
  if (!layout.keymap_) return std::nullopt;
  const std::unique_ptr<xkb_state, Unref> now(xkb_x11_state_new_from_device(layout.keymap_.get(), c, device));
  layout.plain_.reset(xkb_state_new(layout.keymap_.get()));
  if (!now || !layout.plain_) return std::nullopt;
  layout.modifiers_ = xkb_state_serialize_mods(now.get(), XKB_STATE_MODS_EFFECTIVE);
  layout.setPlain(xkb_state_serialize_mods(now.get(), XKB_STATE_MODS_LOCKED),
                  xkb_state_serialize_layout(now.get(), XKB_STATE_LAYOUT_EFFECTIVE));
  return layout;
}

void X11EventTapLayout::update(const xcb_xkb_state_notify_event_t& state) {
  modifiers_ = state.mods;
  setPlain(state.lockedMods, state.group);
}

void X11EventTapLayout::setPlain(std::uint32_t locked, std::uint32_t group) {
  const xkb_mod_index_t numLock = xkb_keymap_mod_get_index(keymap_.get(), XKB_MOD_NAME_NUM);
  const std::uint32_t kept = numLock != XKB_MOD_INVALID ? locked & 1U << numLock : 0;
  xkb_state_update_mask(plain_.get(), 0, 0, kept, 0, 0, group);
}

QString X11EventTapLayout::character(std::uint32_t key) const {
  const char32_t character = xkb_state_key_get_utf32(plain_.get(), key);
  return character != 0 ? QString::fromUcs4(&character, 1) : QString();
}

bool X11EventTapLayout::isModifier(std::uint32_t key) const {
  const xkb_keysym_t symbol = xkb_state_key_get_one_sym(plain_.get(), key);
  return (symbol >= XKB_KEY_Shift_L && symbol <= XKB_KEY_Hyper_R) ||
         (symbol >= XKB_KEY_ISO_Lock && symbol <= XKB_KEY_ISO_Last_Group_Lock) || symbol == XKB_KEY_Mode_switch ||
         symbol == XKB_KEY_Num_Lock || symbol == XKB_KEY_Scroll_Lock || symbol == XKB_KEY_ISO_Level5_Shift ||
         symbol == XKB_KEY_ISO_Level5_Latch || symbol == XKB_KEY_ISO_Level5_Lock;
}

}  // namespace vellora
