#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/linux/clipboard/ClipboardPayload.h"
#include "platform/linux/clipboard/XcbSupport.h"

namespace vellora {

/// Owns the X clipboard and serves it to every program that pastes (ICCCM 2.0, chapter 2): TARGETS, TIMESTAMP, MULTIPLE
/// and the parts it holds, large ones piece by piece. One thread.
class SelectionServer {
 public:
  /// Takes the clipboard over; nothing when there is no X server or another program took it in the same moment. `parts`
  /// points to memory that outlives the server.
  static std::unique_ptr<SelectionServer> take(const ClipboardParts& parts);

  /// Serves until another program takes the clipboard over or the X server goes.
  void serve();

 private:
  using Bytes = std::span<const std::byte>;
  struct Atoms {
    xcb_atom_t clipboard, targets, timestamp, multiple, atomPair, incr, png, tiff, uriList, copiedFiles, utf8;
  };
  /// One answer that is too large for one request.
  struct Transfer {
    Bytes rest;
    std::shared_ptr<const std::vector<std::byte>> keeper;
    xcb_atom_t type = XCB_ATOM_NONE;
    std::int64_t lastMove = 0;
  };
  using TransferKey = std::pair<xcb_window_t, xcb_atom_t>;
  struct Answer {
    xcb_atom_t type;
    std::uint8_t format;
    Bytes bytes;
    std::shared_ptr<const std::vector<std::byte>> keeper;
  };

  SelectionServer(xcb::Display display, const ClipboardParts& parts);

  bool acquire();
  std::optional<xcb_timestamp_t> serverTime();
  void handle(const xcb_generic_event_t& event);
  void answerRequest(const xcb_selection_request_event_t& request);
  bool convert(xcb_window_t requestor, xcb_atom_t target, xcb_atom_t property);
  bool convertMultiple(xcb_window_t requestor, xcb_atom_t property);
  std::optional<Answer> answerFor(xcb_atom_t target);
  std::optional<Answer> tiffAnswer();
  void send(xcb_window_t requestor, xcb_atom_t property, const Answer& answer);
  void continueTransfer(TransferKey key);
  void dropTransfers(xcb_window_t requestor);
  void dropStaleTransfers();
  void endTransfer(TransferKey key);

  xcb::Display display_;
  xcb_connection_t* connection_;
  const ClipboardParts& parts_;
  Atoms atoms_{};
  xcb_window_t window_ = XCB_WINDOW_NONE;
  xcb_timestamp_t ownedSince_ = XCB_CURRENT_TIME;
  bool lost_ = false;
  std::size_t pieceBytes_ = 0;
  std::vector<xcb_atom_t> offered_;
  std::string uriListText_;
  std::string copiedFilesText_;
  std::map<TransferKey, Transfer> transfers_;
  std::weak_ptr<const std::vector<std::byte>> madeTiff_;
};

}  // namespace vellora
