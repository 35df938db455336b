// Texts that are looked up by a key a model names. Each stands here once with its English, for the translation tools.

#include <QtGlobal>

namespace vellora {
namespace {

[[maybe_unused]] constexpr const char* texts[] = {
    //% "Capture Area"
    QT_TRID_NOOP("menu.captureArea"),
    //% "Capture Window"
    QT_TRID_NOOP("menu.captureWindow"),
    //% "Capture Full Screen"
    QT_TRID_NOOP("menu.captureFullscreen"),
    //% "Capture Scrolling Page"
    QT_TRID_NOOP("menu.captureScrolling"),
    //% "Capture Text"
    QT_TRID_NOOP("menu.captureText"),
    //% "More Captures"
    QT_TRID_NOOP("menu.moreCaptures"),
    //% "Capture Element"
    QT_TRID_NOOP("menu.captureElement"),
    //% "Capture Fixed Size…"
    QT_TRID_NOOP("menu.captureAreaSized"),
    //% "Capture Full Screen in 3 Seconds"
    QT_TRID_NOOP("menu.captureFullscreenDelayed"),
    //% "Load from Clipboard"
    QT_TRID_NOOP("menu.loadFromClipboard"),
    //% "Load from File…"
    QT_TRID_NOOP("menu.loadFromFile"),
    //% "Reopen Last Capture"
    QT_TRID_NOOP("menu.reopen"),
    //% "Recent Captures"
    QT_TRID_NOOP("menu.reopenMore"),
    //% "Clear History…"
    QT_TRID_NOOP("menu.clearHistory"),
    //% "Let Clicks Reach the Pins Again"
    QT_TRID_NOOP("menu.endClickThrough"),
    //% "Compress Images…"
    QT_TRID_NOOP("menu.compressImages"),
    //% "Record Area"
    QT_TRID_NOOP("menu.recordRegion"),
    //% "Stop Recording"
    QT_TRID_NOOP("menu.stopRecording"),
    //% "Pause Recording"
    QT_TRID_NOOP("menu.pauseRecording"),
    //% "Resume Recording"
    QT_TRID_NOOP("menu.resumeRecording"),
    //% "Record Window"
    QT_TRID_NOOP("menu.recordWindow"),
    //% "Record Full Screen"
    QT_TRID_NOOP("menu.recordFullscreen"),
    //% "Recent Recordings"
    QT_TRID_NOOP("menu.recentRecordings"),
    //% "Open Recordings Folder"
    QT_TRID_NOOP("menu.openRecordingsFolder"),
    //% "Clean Up Recordings…"
    QT_TRID_NOOP("menu.cleanupRecordings"),
    //% "Import Video…"
    QT_TRID_NOOP("menu.importVideo"),
    //% "Go Live…"
    QT_TRID_NOOP("menu.startLive"),
    //% "Stop Live"
    QT_TRID_NOOP("menu.stopLive"),
    //% "Settings…"
    QT_TRID_NOOP("menu.settings"),
    //% "Quit Vellora"
    QT_TRID_NOOP("menu.quit"),
    //% "Copied and saved to %1"
    QT_TRID_NOOP("toast.copiedAndSavedTo"),
    //% "Copied"
    QT_TRID_NOOP("toast.copied"),
    //% "Saved to %1"
    QT_TRID_NOOP("toast.savedTo"),
    //% "Copying or saving failed; the capture is kept in the history"
    QT_TRID_NOOP("toast.captureOutputFailed"),
    //% "Saving to %1 failed; the capture is kept in the history"
    QT_TRID_NOOP("toast.saveFailed"),
    //% "The window is gone"
    QT_TRID_NOOP("capture.error.windowGone"),
    //% "Nothing of that area is on the screen any more"
    QT_TRID_NOOP("capture.error.cropFailed"),
    //% "The screen is not there any more"
    QT_TRID_NOOP("capture.error.noDisplay"),
    //% "The screen cannot be captured"
    QT_TRID_NOOP("capture.error.failed"),
};

}  // namespace
}  // namespace vellora
