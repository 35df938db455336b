#include "platform/linux/x11/X11ScreenStill.h"

#include <xcb/render.h>
#include <xcb/xcbext.h>

#include <QObject>
#include <QSocketNotifier>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <deque>
#include <optional>
#include <thread>

#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11Image.h"

namespace vellora {
namespace {

/// A window made over another connection of this process may not have reached the server yet.
constexpr int attempts = 10;
constexpr int attemptInterval = 5;

xcb_render_pictformat_t pictureFormatOf(const X11Connection& connection, xcb_visualid_t visual) {
  xcb_connection_t* c = connection.get();
  if (!connection.hasExtension(&xcb_render_id)) return XCB_NONE;
  const auto versionCookie = xcb_render_query_version(c, 0, 11);
  const auto formatsCookie = xcb_render_query_pict_formats(c);
  xReply(xcb_render_query_version_reply, c, versionCookie);
  const auto formats = xReply(xcb_render_query_pict_formats_reply, c, formatsCookie);
  if (!formats) return XCB_NONE;
  for (auto s = xcb_render_query_pict_formats_screens_iterator(formats.get()); s.rem > 0;
       xcb_render_pictscreen_next(&s)) {
    for (auto d = xcb_render_pictscreen_depths_iterator(s.data); d.rem > 0; xcb_render_pictdepth_next(&d)) {
      for (auto v = xcb_render_pictdepth_visuals_iterator(d.data); v.rem > 0; xcb_render_pictvisual_next(&v)) {
        if (v.data->visual == visual) return v.data->format;
      }
    }
  }
  return XCB_NONE;
}

/// X positions and sizes have 16 bits.
constexpr PixelRect reachable{0, 0, 32767, 32767};

}  // namespace

/// The connection the stills are made over, and the answers that are still to come. Nothing here waits for the server:
/// on one that draws in software a large display takes tens of milliseconds.
class X11ScreenStills::Server : public std::enable_shared_from_this<Server> {
 public:
  static std::shared_ptr<Server> open(const std::string& display) {
    auto connection = X11Connection::open(display);
    if (!connection) return nullptr;
    const xcb_render_pictformat_t format = pictureFormatOf(*connection, connection->screen()->root_visual);
    if (format == XCB_NONE) return nullptr;
    return std::make_shared<Server>(display, std::move(connection), format);
  }

  Server(std::string display, std::unique_ptr<X11Connection> connection, xcb_render_pictformat_t format)
      : display_(std::move(display)),
        connection_(std::move(connection)),
        format_(format),
        notifier_(xcb_get_file_descriptor(connection_->get()), QSocketNotifier::Read) {
    QObject::connect(&notifier_, &QSocketNotifier::activated, &context_, [this] { readAnswers(); });
  }

  X11Connection& connection() { return *connection_; }
  const std::string& display() const { return display_; }
  xcb_render_pictformat_t format() const { return format_; }
  QObject* context() { return &context_; }

  /// Calls `answered` with the error code of `request` (0: none) once the server has done it.
  void await(xcb_void_cookie_t request, std::function<void(std::uint8_t)> answered) {
    waiting_.push_back({request, xcb_get_input_focus(connection_->get()), std::move(answered)});
    xcb_flush(connection_->get());
    QMetaObject::invokeMethod(
        &context_, [this] { readAnswers(); }, Qt::QueuedConnection);
  }

 private:
  struct Waiting {
    xcb_void_cookie_t request;
    xcb_get_input_focus_cookie_t barrier;
    std::function<void(std::uint8_t)> answered;
  };

  void readAnswers() {
    const auto self = shared_from_this();  // an answer may end the last still
    xcb_connection_t* c = connection_->get();
    while (XReply<xcb_generic_event_t>(xcb_poll_for_event(c))) {
    }
    std::vector<std::function<void()>> answers;
    while (!waiting_.empty()) {
      Waiting& next = waiting_.front();
      void* reply = nullptr;
      xcb_generic_error_t* error = nullptr;
      const bool lost = connection_->isBroken();
      if (!lost && xcb_poll_for_reply(c, next.barrier.sequence, &reply, &error) == 0) break;
      std::free(reply);
      std::free(error);
      constexpr std::uint8_t lostCode = 0xFF;
      const std::uint8_t code = lost ? lostCode : connection_->check(next.request);
      answers.emplace_back([answered = std::move(next.answered), code] { answered(code); });
      waiting_.pop_front();
    }
    if (connection_->isBroken()) notifier_.setEnabled(false);
    for (const auto& answer : answers) answer();
  }

  const std::string display_;
  std::unique_ptr<X11Connection> connection_;
  xcb_render_pictformat_t format_;
  std::deque<Waiting> waiting_;
  QSocketNotifier notifier_;
  QObject context_;
};

class X11ScreenStills::Still final : public ScreenStill, public std::enable_shared_from_this<Still> {
 public:
  Still(std::shared_ptr<Server> server, const std::vector<DisplayInfo>& displays) : server_(std::move(server)) {
    X11Connection& connection = server_->connection();
    xcb_connection_t* c = connection.get();
    gc_ = xcb_generate_id(c);
    const std::uint32_t values[] = {XCB_SUBWINDOW_MODE_INCLUDE_INFERIORS, 0};
    xcb_create_gc(c, gc_, connection.root(), XCB_GC_SUBWINDOW_MODE | XCB_GC_GRAPHICS_EXPOSURES, values);
    X11ServerGrab held(connection);
    for (const DisplayInfo& display : displays) {
      const PixelRect frame = display.frame.intersected(reachable);
      if (frame.isEmpty()) continue;
      const Frozen frozen{display.id, frame, xcb_generate_id(c)};
      makePixmap(frozen.pixmap, frame.size());
      copy(connection.root(), frozen.pixmap, {frame.x, frame.y}, frame.size());
      frozen_.push_back(frozen);
    }
    // Requests are carried out in order: where this pixmap exists, the copies are made.
    marker_ = xcb_generate_id(c);
    makePixmap(marker_, {1, 1});
    held.release();
  }

  ~Still() override {
    xcb_connection_t* c = server_->connection().get();
    for (const Frozen& frozen : frozen_) xcb_free_pixmap(c, frozen.pixmap);
    xcb_free_pixmap(c, marker_);
    xcb_free_gc(c, gc_);
    xcb_flush(c);
  }

  void paintBehind(std::uint64_t nativeWindow, DisplayId display, double brightness,
                   std::function<void(bool)> done) override {
    const auto frozen = std::ranges::find(frozen_, display, &Frozen::display);
    if (frozen == frozen_.end() || nativeWindow > UINT32_MAX) {
      QMetaObject::invokeMethod(
          server_->context(),
          [weak = weak_from_this(), done = std::move(done)] {
            if (const auto self = weak.lock()) done(false);
          },
          Qt::QueuedConnection);
      return;
    }
    const xcb_pixmap_t ground = dimmed(*frozen, brightness);
    setGround(static_cast<xcb_window_t>(nativeWindow), ground, attempts, std::move(done));
  }

  Result<Bitmap, ScreenCaptureError> image(DisplayId display) const override {
    const auto frozen = std::ranges::find(frozen_, display, &Frozen::display);
    if (frozen == frozen_.end()) return failure(ScreenCaptureError::NoDisplay);
    // The main thread's connection stays out of this: its answers wake the event loop.
    const auto connection = X11Connection::open(server_->display());
    if (!connection || !waitForCopies(*connection)) return failure(ScreenCaptureError::NotAvailable);
    const auto format =
        x11PixelFormat(*connection, connection->screen()->root_depth, connection->screen()->root_visual);
    auto bitmap = MutableBitmap::create(frozen->frame.size(), PixelAlpha::Opaque);
    if (!format || !bitmap) return failure(ScreenCaptureError::Failed);
    X11ImageReader reader(*connection);
    const PixelRect whole{0, 0, frozen->frame.width, frozen->frame.height};
    if (!reader.read(frozen->pixmap, *format, whole, *bitmap, {0, 0}, X11ImageReader::ServerGrab::NotNeeded)) {
      return failure(connection->isBroken() ? ScreenCaptureError::NotAvailable : ScreenCaptureError::Failed);
    }
    return std::move(*bitmap).finish();
  }

 private:
  struct Frozen {
    DisplayId display;
    PixelRect frame;
    xcb_pixmap_t pixmap;
  };

  void makePixmap(xcb_pixmap_t pixmap, PixelSize size) {
    const X11Connection& connection = server_->connection();
    xcb_create_pixmap(connection.get(), connection.screen()->root_depth, pixmap, connection.root(),
                      static_cast<std::uint16_t>(size.width), static_cast<std::uint16_t>(size.height));
  }

  void copy(xcb_drawable_t from, xcb_drawable_t to, PixelPoint origin, PixelSize size) {
    xcb_copy_area(server_->connection().get(), from, to, gc_, static_cast<std::int16_t>(origin.x),
                  static_cast<std::int16_t>(origin.y), 0, 0, static_cast<std::uint16_t>(size.width),
                  static_cast<std::uint16_t>(size.height));
  }

  /// A darker copy. Black laid over it costs half of a multiplication by a mask where the server draws in software.
  xcb_pixmap_t dimmed(const Frozen& frozen, double brightness) {
    xcb_connection_t* c = server_->connection().get();
    const PixelSize size = frozen.frame.size();
    const xcb_pixmap_t ground = xcb_generate_id(c);
    makePixmap(ground, size);
    copy(frozen.pixmap, ground, {0, 0}, size);
    const xcb_render_picture_t picture = xcb_generate_id(c);
    xcb_render_create_picture(c, picture, ground, server_->format(), 0, nullptr);
    constexpr double full = 0xFFFF;
    const auto shade = static_cast<std::uint16_t>(std::lround((1 - std::clamp(brightness, 0.0, 1.0)) * full));
    const xcb_rectangle_t area{0, 0, static_cast<std::uint16_t>(size.width), static_cast<std::uint16_t>(size.height)};
    xcb_render_fill_rectangles(c, XCB_RENDER_PICT_OP_OVER, picture, {0, 0, 0, shade}, 1, &area);
    xcb_render_free_picture(c, picture);
    return ground;
  }

  void setGround(xcb_window_t window, xcb_pixmap_t ground, int attemptsLeft, std::function<void(bool)> done) {
    xcb_connection_t* c = server_->connection().get();
    const auto cookie = xcb_change_window_attributes_checked(c, window, XCB_CW_BACK_PIXMAP, &ground);
    server_->await(cookie, [weak = weak_from_this(), server = server_.get(), window, ground, attemptsLeft,
                            done = std::move(done)](std::uint8_t error) mutable {
      constexpr std::uint8_t badWindow = 3;
      const auto self = weak.lock();
      if (self && error == badWindow && attemptsLeft > 1) {
        QTimer::singleShot(attemptInterval, server->context(),
                           [weak, server, window, ground, attemptsLeft, done = std::move(done)]() mutable {
                             if (const auto still = weak.lock()) {
                               still->setGround(window, ground, attemptsLeft - 1, std::move(done));
                             } else {
                               xcb_free_pixmap(server->connection().get(), ground);
                             }
                           });
        return;
      }
      // The window keeps its ground alive.
      xcb_free_pixmap(server->connection().get(), ground);
      xcb_flush(server->connection().get());
      if (self) done(error == 0);
    });
  }

  bool waitForCopies(X11Connection& connection) const {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(3);
    while (std::chrono::steady_clock::now() < deadline && !connection.isBroken()) {
      if (xReply(xcb_get_geometry_reply, connection.get(), xcb_get_geometry(connection.get(), marker_))) return true;
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return false;
  }

  std::shared_ptr<Server> server_;
  xcb_gcontext_t gc_ = 0;
  xcb_pixmap_t marker_ = 0;
  std::vector<Frozen> frozen_;
};

X11ScreenStills::X11ScreenStills(std::string display) : display_(std::move(display)) {}
X11ScreenStills::~X11ScreenStills() = default;

std::shared_ptr<ScreenStill> X11ScreenStills::freeze(const std::vector<DisplayInfo>& displays) {
  if (!tried_) {
    tried_ = true;
    server_ = Server::open(display_);
  }
  if (!server_ || server_->connection().isBroken()) return nullptr;
  return std::make_shared<Still>(server_, displays);
}

}  // namespace vellora
