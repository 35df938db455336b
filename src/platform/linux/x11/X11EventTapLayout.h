#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include <QString>

struct xkb_keymap;
struct xkb_state;
struct xcb_xkb_state_notify_event_t;

namespace vellora {

class X11Connection;

/// The keyboard layout of an X server and which of its groups is active.
class X11EventTapLayout {
 public:
  /// Nothing without XKB.
  static std::optional<X11EventTapLayout> read(X11Connection& connection);
  ~X11EventTapLayout();
  X11EventTapLayout(X11EventTapLayout&&) noexcept;
  X11EventTapLayout& operator=(X11EventTapLayout&&) noexcept;

  /// Takes over what the server tells of locks and groups.
  void update(const xcb_xkb_state_notify_event_t& state);
  /// The real modifiers in effect when the layout was read.
  std::uint32_t modifiers() const { return modifiers_; }

  /// What the key prints without modifiers, empty for keys without a character. Only Num Lock counts: it tells digits
  /// from arrows.
  QString character(std::uint32_t key) const;
  /// Whether the key only changes what others do.
  bool isModifier(std::uint32_t key) const;

 private:
  struct Unref {
    void operator()(xkb_keymap* keymap) const;
    void operator()(xkb_state* state) const;
  };
  X11EventTapLayout() = default;
  void setPlain(std::uint32_t locked, std::uint32_t group);

  std::unique_ptr<xkb_keymap, Unref> keymap_;
  std::unique_ptr<xkb_state, Unref> plain_;  ///< as if no modifier was down
  std::uint32_t modifiers_ = 0;
};

}  // namespace vellora
