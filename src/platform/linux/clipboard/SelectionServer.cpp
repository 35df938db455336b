#include "platform/linux/clipboard/SelectionServer.h"

#include <algorithm>
#include <cstring>

#include "platform/linux/clipboard/PngToTiff.h"
#include "platform/linux/clipboard/UriList.h"

namespace vellora {
namespace {

/// A program that stops fetching is given up after this long.
constexpr std::int64_t staleTransferMilliseconds = 10000;
constexpr std::int64_t acquireMilliseconds = 1000;
constexpr std::size_t largestPieceBytes = std::size_t{1} << 20;
constexpr std::size_t requestHeaderBytes = 256;
constexpr std::uint32_t maximumMultiplePairs = 64;

std::span<const std::byte> bytesOf(const std::string& text) {
  return std::as_bytes(std::span(text));
}

}  // namespace

SelectionServer::SelectionServer(xcb::Display display, const ClipboardParts& parts)
    : display_(std::move(display)), connection_(display_.connection.get()), parts_(parts) {
  const auto named = [this](const char* name) { return xcb::atom(connection_, name); };
  atoms_ = {.clipboard = named("CLIPBOARD"),
            .targets = named("TARGETS"),
            .timestamp = named("TIMESTAMP"),
            .multiple = named("MULTIPLE"),
            .atomPair = named("ATOM_PAIR"),
            .incr = named("INCR"),
            .png = named("image/png"),
            .tiff = named("image/tiff"),
            .uriList = named("text/uri-list"),
            .copiedFiles = named("x-special/gnome-copied-files"),
            .utf8 = named("UTF8_STRING")};
  const std::size_t requestBytes = std::size_t{xcb_get_maximum_request_length(connection_)} * 4;
  pieceBytes_ = std::min(largestPieceBytes, requestBytes - requestHeaderBytes);

  offered_ = {atoms_.targets, atoms_.timestamp, atoms_.multiple};
  if (!parts_.png.empty()) offered_.push_back(atoms_.png);
  if (!parts_.png.empty()) offered_.push_back(atoms_.tiff);
  if (parts_.filePath.empty()) return;
  const std::string address = uriList::fileAddress(parts_.filePath);
  uriListText_ = address + "\r\n";
  copiedFilesText_ = "copy\n" + address;
  offered_.insert(offered_.end(), {atoms_.uriList, atoms_.copiedFiles});
  // Beside a picture a text would be what many programs paste instead of it.
  if (parts_.png.empty()) offered_.push_back(atoms_.utf8);
}

std::unique_ptr<SelectionServer> SelectionServer::take(const ClipboardParts& parts) {
  auto display = xcb::openDisplay();
  if (!display) return nullptr;
  std::unique_ptr<SelectionServer> server(new SelectionServer(std::move(*display), parts));
  if (!server->acquire()) return nullptr;
  return server;
}

/// The server's clock, as the moment of a property change: owning "now" by it is the only way to be later than the last
/// owner and earlier than the next.
std::optional<xcb_timestamp_t> SelectionServer::serverTime() {
  xcb_change_property(connection_, XCB_PROP_MODE_APPEND, window_, atoms_.timestamp, XCB_ATOM_INTEGER, 32, 0, nullptr);
  const std::int64_t deadline = xcb::monotonicMilliseconds() + acquireMilliseconds;
  while (const auto event = xcb::waitForEvent(connection_, deadline)) {
    if (xcb::kindOf(*event) != XCB_PROPERTY_NOTIFY) continue;
    return reinterpret_cast<const xcb_property_notify_event_t*>(event.get())->time;
  }
  return std::nullopt;
}

bool SelectionServer::acquire() {
  window_ = xcb::makeExchangeWindow(display_);
  const auto now = serverTime();
  if (!now) return false;
  ownedSince_ = *now;
  xcb_set_selection_owner(connection_, window_, atoms_.clipboard, ownedSince_);
  const auto cookie = xcb_get_selection_owner(connection_, atoms_.clipboard);
  const xcb::Owned<xcb_get_selection_owner_reply_t> owner(xcb_get_selection_owner_reply(connection_, cookie, nullptr));
  return owner && owner->owner == window_;
}

void SelectionServer::serve() {
  while (!lost_ || !transfers_.empty()) {
    // Sleeps without waking while nothing is being fetched.
    const std::int64_t deadline = transfers_.empty() ? -1 : xcb::monotonicMilliseconds() + staleTransferMilliseconds;
    const auto event = xcb::waitForEvent(connection_, deadline);
    if (event) handle(*event);
    if (xcb_connection_has_error(connection_) != 0) return;
    dropStaleTransfers();
  }
}

void SelectionServer::handle(const xcb_generic_event_t& event) {
  switch (xcb::kindOf(event)) {
    case XCB_SELECTION_REQUEST:
      answerRequest(reinterpret_cast<const xcb_selection_request_event_t&>(event));
      break;
    case XCB_SELECTION_CLEAR:
      lost_ |= reinterpret_cast<const xcb_selection_clear_event_t&>(event).selection == atoms_.clipboard;
      break;
    case XCB_PROPERTY_NOTIFY: {
      const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
      if (change.state == XCB_PROPERTY_DELETE) continueTransfer({change.window, change.atom});
      break;
    }
    case XCB_DESTROY_NOTIFY:
      dropTransfers(reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window);
      break;
    default:
      break;  // errors come from windows that went while they were served
  }
}

void SelectionServer::answerRequest(const xcb_selection_request_event_t& request) {
  // Clients of the first X releases leave the property out.
  const xcb_atom_t property = request.property == XCB_ATOM_NONE ? request.target : request.property;
  const auto age = static_cast<std::int32_t>(request.time - ownedSince_);
  const bool ours = request.selection == atoms_.clipboard && (request.time == XCB_CURRENT_TIME || age >= 0);
  const bool converted =
      ours && (request.target == atoms_.multiple
                   ? request.property != XCB_ATOM_NONE && convertMultiple(request.requestor, property)
                   : convert(request.requestor, request.target, property));
  xcb_selection_notify_event_t notice{};
  notice.response_type = XCB_SELECTION_NOTIFY;
  notice.time = request.time;
  notice.requestor = request.requestor;
  notice.selection = request.selection;
  notice.target = request.target;
  notice.property = converted ? property : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
  xcb_send_event(connection_, 0, request.requestor, XCB_EVENT_MASK_NO_EVENT, reinterpret_cast<const char*>(&notice));
  xcb_flush(connection_);
}

bool SelectionServer::convert(xcb_window_t requestor, xcb_atom_t target, xcb_atom_t property) {
  const auto answer = answerFor(target);
  if (!answer) return false;
  send(requestor, property, *answer);
  return true;
}

bool SelectionServer::convertMultiple(xcb_window_t requestor, xcb_atom_t property) {
  const auto cookie =
      xcb_get_property(connection_, 0, requestor, property, XCB_GET_PROPERTY_TYPE_ANY, 0, maximumMultiplePairs * 2);
  const xcb::Owned<xcb_get_property_reply_t> reply(xcb_get_property_reply(connection_, cookie, nullptr));
  if (!reply || reply->format != 32) return false;
  const auto count = static_cast<std::size_t>(xcb_get_property_value_length(reply.get())) / sizeof(xcb_atom_t);
  const auto* first = static_cast<const xcb_atom_t*>(xcb_get_property_value(reply.get()));
  std::vector<xcb_atom_t> pairs(first, first + count / 2 * 2);
  for (std::size_t i = 0; i < pairs.size(); i += 2) {
    const bool nested = pairs[i] == atoms_.multiple;
    if (nested || !convert(requestor, pairs[i], pairs[i + 1])) pairs[i + 1] = XCB_ATOM_NONE;
  }
  xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, requestor, property, atoms_.atomPair, 32,
                      static_cast<std::uint32_t>(pairs.size()), pairs.data());
  return true;
}

std::optional<SelectionServer::Answer> SelectionServer::answerFor(xcb_atom_t target) {
  if (std::find(offered_.begin(), offered_.end(), target) == offered_.end()) return std::nullopt;
  if (target == atoms_.targets) return Answer{XCB_ATOM_ATOM, 32, std::as_bytes(std::span(offered_)), nullptr};
  if (target == atoms_.timestamp)
    return Answer{XCB_ATOM_INTEGER, 32, std::as_bytes(std::span(&ownedSince_, 1)), nullptr};
  if (target == atoms_.png) return Answer{target, 8, parts_.png, nullptr};
  if (target == atoms_.tiff) return tiffAnswer();
  if (target == atoms_.uriList) return Answer{target, 8, bytesOf(uriListText_), nullptr};
  if (target == atoms_.copiedFiles) return Answer{target, 8, bytesOf(copiedFilesText_), nullptr};
  if (target == atoms_.utf8) return Answer{target, 8, bytesOf(parts_.filePath), nullptr};
  return std::nullopt;
}

std::optional<SelectionServer::Answer> SelectionServer::tiffAnswer() {
  // Kept only while somebody fetches it: it is far larger than the PNG.
  auto made = madeTiff_.lock();
  if (!made) {
    auto tiff = tiffFromPng(parts_.png);
    if (!tiff) return std::nullopt;
    made = std::make_shared<const std::vector<std::byte>>(std::move(*tiff));
    madeTiff_ = made;
  }
  return Answer{atoms_.tiff, 8, *made, made};
}

void SelectionServer::send(xcb_window_t requestor, xcb_atom_t property, const Answer& answer) {
  if (answer.bytes.size() <= pieceBytes_) {
    const auto units = static_cast<std::uint32_t>(answer.bytes.size() / (answer.format / 8U));
    xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, requestor, property, answer.type, answer.format, units,
                        answer.bytes.data());
    return;
  }
  const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
  xcb_change_window_attributes(connection_, requestor, XCB_CW_EVENT_MASK, &events);
  const auto least = static_cast<std::uint32_t>(std::min<std::size_t>(answer.bytes.size(), UINT32_MAX));
  xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, requestor, property, atoms_.incr, 32, 1, &least);
  transfers_[{requestor, property}] = {answer.bytes, answer.keeper, answer.type, xcb::monotonicMilliseconds()};
}

void SelectionServer::continueTransfer(TransferKey key) {
  const auto found = transfers_.find(key);
  if (found == transfers_.end()) return;
  Transfer& transfer = found->second;
  const Bytes piece = transfer.rest.first(std::min(pieceBytes_, transfer.rest.size()));
  xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, key.first, key.second, transfer.type, 8,
                      static_cast<std::uint32_t>(piece.size()), piece.data());
  transfer.rest = transfer.rest.subspan(piece.size());
  transfer.lastMove = xcb::monotonicMilliseconds();
  if (piece.empty()) endTransfer(key);  // the empty piece tells the end
}

void SelectionServer::dropTransfers(xcb_window_t requestor) {
  std::erase_if(transfers_, [requestor](const auto& entry) { return entry.first.first == requestor; });
}

void SelectionServer::dropStaleTransfers() {
  const std::int64_t oldest = xcb::monotonicMilliseconds() - staleTransferMilliseconds;
  std::vector<TransferKey> stale;
  for (const auto& [key, transfer] : transfers_) {
    if (transfer.lastMove <= oldest) stale.push_back(key);
  }
  for (const TransferKey& key : stale) endTransfer(key);
}

void SelectionServer::endTransfer(TransferKey key) {
  transfers_.erase(key);
  const bool others = std::any_of(transfers_.begin(), transfers_.end(),
                                  [key](const auto& entry) { return entry.first.first == key.first; });
  if (others) return;
  const std::uint32_t events = XCB_EVENT_MASK_NO_EVENT;
  xcb_change_window_attributes(connection_, key.first, XCB_CW_EVENT_MASK, &events);
}

}  // namespace vellora
