#include "platform/linux/clipboard/SelectionReader.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>

#include "platform/linux/clipboard/UriList.h"
#include "platform/linux/clipboard/XcbSupport.h"

namespace vellora {
namespace {

constexpr std::int64_t silenceMilliseconds = 2000;
/// An owner that keeps dripping is given up after this long.
constexpr std::int64_t wholeMilliseconds = 20000;
constexpr std::size_t maximumBytes = std::size_t{512} << 20;
constexpr std::uint32_t readUnits = std::uint32_t{1} << 20;  // of 4 bytes, a request
constexpr std::array<std::string_view, 6> pictureTypes{"image/png",  "image/tiff", "image/bmp",
                                                       "image/webp", "image/jpeg", "image/gif"};

class Reader {
 public:
  Reader(xcb::Display display, int cancel)
      : display_(std::move(display)),
        connection_(display_.connection.get()),
        window_(xcb::makeExchangeWindow(display_)),
        clipboard_(xcb::atom(connection_, "CLIPBOARD")),
        incr_(xcb::atom(connection_, "INCR")),
        property_(xcb::atom(connection_, "VELLORA_CLIPBOARD")),
        end_(xcb::monotonicMilliseconds() + wholeMilliseconds),
        cancel_(cancel) {}

  std::optional<ClipboardPicture> read() {
    const auto targets = convert(xcb::atom(connection_, "TARGETS"));
    if (!targets) return std::nullopt;
    std::vector<xcb_atom_t> offered(targets->size() / sizeof(xcb_atom_t));
    std::memcpy(offered.data(), targets->data(), offered.size() * sizeof(xcb_atom_t));
    const auto fetch = [&](std::string_view type) -> std::optional<std::vector<std::byte>> {
      const xcb_atom_t target = xcb::atom(connection_, type);
      if (silent_ || std::find(offered.begin(), offered.end(), target) == offered.end()) return std::nullopt;
      return convert(target);
    };
    for (const std::string_view type : pictureTypes) {
      auto bytes = fetch(type);
      if (bytes && !bytes->empty()) return ClipboardPicture{std::move(*bytes), {}};
    }
    const auto list = fetch("text/uri-list");
    if (!list) return std::nullopt;
    auto path = uriList::firstLocalPath({reinterpret_cast<const char*>(list->data()), list->size()});
    if (!path) return std::nullopt;
    return ClipboardPicture{{}, std::move(*path)};
  }

 private:
  std::int64_t deadline() const { return std::min(end_, xcb::monotonicMilliseconds() + silenceMilliseconds); }

  std::optional<std::vector<std::byte>> convert(xcb_atom_t target) {
    xcb_delete_property(connection_, window_, property_);
    xcb_convert_selection(connection_, window_, clipboard_, target, property_, XCB_CURRENT_TIME);
    const std::int64_t until = deadline();
    while (const auto event = xcb::waitForEvent(connection_, until, cancel_)) {
      if (xcb::kindOf(*event) != XCB_SELECTION_NOTIFY) continue;
      const auto& notice = reinterpret_cast<const xcb_selection_notify_event_t&>(*event);
      if (notice.requestor != window_ || notice.target != target) continue;
      if (notice.property == XCB_ATOM_NONE) return std::nullopt;
      std::vector<std::byte> bytes;
      const auto type = takeProperty(bytes);
      if (!type) return std::nullopt;
      if (*type == incr_) return receivePieces();
      return bytes;
    }
    silent_ = true;
    return std::nullopt;
  }

  /// Appends the property to `bytes` and deletes it; its type, or nothing when it is gone or too large.
  std::optional<xcb_atom_t> takeProperty(std::vector<std::byte>& bytes) {
    std::uint32_t offset = 0;
    while (true) {
      const auto cookie =
          xcb_get_property(connection_, 1, window_, property_, XCB_GET_PROPERTY_TYPE_ANY, offset, readUnits);
      const xcb::Owned<xcb_get_property_reply_t> reply(xcb_get_property_reply(connection_, cookie, nullptr));
      if (!reply || reply->type == XCB_ATOM_NONE) return std::nullopt;
      const auto* first = static_cast<const std::byte*>(xcb_get_property_value(reply.get()));
      const auto length = static_cast<std::size_t>(xcb_get_property_value_length(reply.get()));
      if (reply->type != incr_) {
        if (bytes.size() + length + reply->bytes_after > maximumBytes) return std::nullopt;
        bytes.insert(bytes.end(), first, first + length);
      }
      if (reply->bytes_after == 0) return reply->type;
      offset += static_cast<std::uint32_t>(length / 4);
    }
  }

  std::optional<std::vector<std::byte>> receivePieces() {
    std::vector<std::byte> bytes;
    while (const auto event = xcb::waitForEvent(connection_, deadline(), cancel_)) {
      if (xcb::kindOf(*event) != XCB_PROPERTY_NOTIFY) continue;
      const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(*event);
      if (change.atom != property_ || change.state != XCB_PROPERTY_NEW_VALUE) continue;
      const std::size_t before = bytes.size();
      if (!takeProperty(bytes)) return std::nullopt;
      if (bytes.size() == before) return bytes;  // the empty piece tells the end
    }
    silent_ = true;
    return std::nullopt;
  }

  xcb::Display display_;
  xcb_connection_t* connection_;
  xcb_window_t window_;
  xcb_atom_t clipboard_;
  xcb_atom_t incr_;
  xcb_atom_t property_;
  std::int64_t end_;
  int cancel_;
  bool silent_ = false;
};

}  // namespace

std::optional<ClipboardPicture> readClipboardPicture(int cancel) {
  auto display = xcb::openDisplay();
  if (!display) return std::nullopt;
  return Reader(std::move(*display), cancel).read();
}

}  // namespace vellora
