#pragma once

#include <xcb/shm.h>

#include <cstddef>
#include <memory>

#include "platform/linux/x11/X11Connection.h"

namespace vellora {

/// Memory that this process and the server both see. The server lets go of it with the segment; the memory itself
/// stays for as long as somebody holds it.
class X11SharedSegment {
 public:
  /// Every page is there from the beginning. Null when the server shares no memory with us (a forwarded connection).
  static std::unique_ptr<X11SharedSegment> create(X11Connection& connection, std::size_t bytes);
  ~X11SharedSegment();
  X11SharedSegment(const X11SharedSegment&) = delete;
  X11SharedSegment& operator=(const X11SharedSegment&) = delete;

  xcb_shm_seg_t id() const { return id_; }
  const std::shared_ptr<std::byte>& memory() const { return memory_; }

 private:
  X11SharedSegment(X11Connection& connection, std::size_t bytes) : connection_(connection), bytes_(bytes) {}
  bool attachDescriptor();
  bool attachSystemV();
  bool accepted(xcb_void_cookie_t cookie) const;

  X11Connection& connection_;
  const std::size_t bytes_;
  xcb_shm_seg_t id_ = 0;
  std::shared_ptr<std::byte> memory_;  ///< null until the server has attached it
};

}  // namespace vellora
