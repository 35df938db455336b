#include "platform/linux/x11/X11SharedSegment.h"

#include <sys/mman.h>
#include <sys/shm.h>
#include <unistd.h>

namespace vellora {

std::unique_ptr<X11SharedSegment> X11SharedSegment::create(X11Connection& connection, std::size_t bytes) {
  if (bytes == 0 || !connection.isLocal() || !connection.hasExtension(&xcb_shm_id)) return nullptr;
  const auto version = xReply(xcb_shm_query_version_reply, connection.get(), xcb_shm_query_version(connection.get()));
  if (!version) return nullptr;
  const bool takesDescriptors = version->major_version > 1 || version->minor_version >= 2;
  std::unique_ptr<X11SharedSegment> segment(new X11SharedSegment(connection, bytes));
  if (!(takesDescriptors && segment->attachDescriptor()) && !segment->attachSystemV()) return nullptr;
  return segment;
}

X11SharedSegment::~X11SharedSegment() {
  if (memory_) xcb_shm_detach(connection_.get(), id_);
}

bool X11SharedSegment::accepted(xcb_void_cookie_t cookie) const {
  return connection_.check(cookie) == 0 && !connection_.isBroken();
}

bool X11SharedSegment::attachDescriptor() {
  const int descriptor = memfd_create("vellora-capture", MFD_CLOEXEC);
  if (descriptor < 0) return false;
  void* mapped = MAP_FAILED;
  if (ftruncate(descriptor, static_cast<off_t>(bytes_)) == 0) {
    mapped = mmap(nullptr, bytes_, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_POPULATE, descriptor, 0);
  }
  if (mapped == MAP_FAILED) {
    close(descriptor);
    return false;
  }
  std::shared_ptr<std::byte> memory(static_cast<std::byte*>(mapped),
                                    [bytes = bytes_](std::byte* at) { munmap(at, bytes); });
  id_ = xcb_generate_id(connection_.get());
  // The connection closes the descriptor once it is sent.
  if (!accepted(xcb_shm_attach_fd_checked(connection_.get(), id_, descriptor, 0))) return false;
  memory_ = std::move(memory);
  return true;
}

bool X11SharedSegment::attachSystemV() {
  const int id = shmget(IPC_PRIVATE, bytes_, IPC_CREAT | 0600);
  if (id < 0) return false;
  void* mapped = shmat(id, nullptr, 0);
  if (mapped != reinterpret_cast<void*>(-1)) {
    std::shared_ptr<std::byte> memory(static_cast<std::byte*>(mapped), [](std::byte* at) { shmdt(at); });
    id_ = xcb_generate_id(connection_.get());
    if (accepted(xcb_shm_attach_checked(connection_.get(), id_, static_cast<std::uint32_t>(id), 0))) {
      memory_ = std::move(memory);
    }
  }
  shmctl(id, IPC_RMID, nullptr);
  return memory_ != nullptr;
}

}  // namespace vellora
