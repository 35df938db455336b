#pragma once

#include <optional>

#include <QByteArray>
#include <QString>

#include "capture/CaptureEngine.h"
#include "capture/CaptureOrigin.h"
#include "platform/ScreenService.h"
#include "preferences/AfterCaptureActions.h"

namespace vellora {

/// A capture asked for in words: by the command line, here or in the running instance.
struct CaptureRequest {
  enum class Kind { FullScreen, Area, Window };

  Kind kind = Kind::FullScreen;
  std::optional<PixelRect> region;   ///< Area: this rectangle of the desktop instead of a dragged one
  std::optional<WindowId> window;    ///< Window: this one instead of a picked one
  std::optional<DisplayId> display;  ///< FullScreen: this one instead of the pointer's
  double delay = 0;                  ///< seconds to wait first
  bool copy = false;
  bool save = false;
  bool edit = false;
  bool pin = false;
  QString outputFile;  ///< absolute; written in addition to the actions

  /// Whether any flag says what to do with the picture; without one the stored actions apply.
  bool namesActions() const { return copy || save || edit || pin || !outputFile.isEmpty(); }
  /// Whether a person has to point at something first.
  bool isInteractive() const { return (kind == Kind::Area && !region) || (kind == Kind::Window && !window); }
  friend bool operator==(const CaptureRequest&, const CaptureRequest&) = default;
};

/// The after-capture actions a request's flags name; nothing when they name none.
std::optional<AfterCaptureActions> namedActions(const CaptureRequest& request);

/// The longest delay accepted, in seconds.
inline constexpr double maximumCaptureDelay = 3600;

/// The form in which a request crosses to the running instance.
QByteArray encode(const CaptureRequest& request);
/// Nothing when the text is no request or holds values no command line could have made.
std::optional<CaptureRequest> decodeCaptureRequest(const QByteArray& text);

/// What can be captured without asking a person: where it is and, once taken, its picture.
struct CaptureTarget {
  CaptureOrigin origin;
  double scale = 1;
  std::optional<DisplayInfo> display;  ///< a whole display
  std::optional<WindowId> window;      ///< or a window; neither: the origin's rectangle
};

/// Finds what a request that is not interactive names among what is on the desktop now; `pointer` picks the display of
/// a full screen capture that names none.
Result<CaptureTarget, CaptureError> resolveTarget(const CaptureRequest& request, const ShareableContent& content,
                                                  std::optional<PixelPoint> pointer);

/// Takes the picture and delivers it on the main thread.
void capture(CaptureEngine& engine, const CaptureTarget& target, CaptureEngine::Callback<CaptureEngine::Image> done);

}  // namespace vellora
