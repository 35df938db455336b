#include "recording/ui/RecordingNotices.h"

#include <QCoreApplication>

#include "kit/AlertDialog.h"
#include "kit/Toast.h"

namespace vellora {
namespace {

const QString warningIcon = QStringLiteral("exclamationmark.triangle.fill");

void alert(const QString& title, const QString& body) {
  //% "OK"
  AlertDialog::show({title, body, {qtTrId("alert.ok")}}, [](int) {});
}

void warn(const QString& text, QScreen* screen) {
  Toast::show(warningIcon, text, ToastKind::Failure, screen);
}

void tell(const QString& icon, const QString& text, QScreen* screen) {
  Toast::show(icon, text, ToastKind::Info, screen);
}

QString sentence(RecordingError error) {
  switch (error) {
    case RecordingError::writerSetupFailed:
      //% "Failed to set up the video writer."
      return qtTrId("recording.error.writerSetupFailed");
    case RecordingError::writeFailed:
      //% "Failed to write the recording."
      return qtTrId("recording.error.writeFailed");
    case RecordingError::displayNotFound:
      //% "Could not find the display to record."
      return qtTrId("recording.error.displayNotFound");
    case RecordingError::windowNotFound:
      //% "Could not find the window to record."
      return qtTrId("recording.error.windowNotFound");
    case RecordingError::micNotFound:
      //% "Could not find the selected microphone."
      return qtTrId("recording.error.micNotFound");
    case RecordingError::cameraNotFound:
      //% "Could not find the selected camera."
      return qtTrId("recording.error.cameraNotFound");
  }
  return {};
}

}  // namespace

void showNotice(RecordingNotice notice, QScreen* screen) {
  switch (notice) {
    case RecordingNotice::recordingFailed:
      //% "The recording could not be kept"
      return warn(qtTrId("toast.recordingFailed"), screen);
    case RecordingNotice::keyboardSaveFailed:
      //% "The recording is complete, but its keystrokes could not be saved"
      return warn(qtTrId("record.keyboard.saveFailed"), screen);
    case RecordingNotice::micUnavailable:
      //% "The microphone cannot be used: recording without it"
      return warn(qtTrId("recording.mic.unavailable"), screen);
    case RecordingNotice::micLost:
      //% "The microphone is gone: the recording goes on without sound from it"
      return warn(qtTrId("recording.mic.lost"), screen);
    case RecordingNotice::micReturned:
      //% "The microphone is back and recorded again"
      return tell(QStringLiteral("mic"), qtTrId("recording.mic.returned"), screen);
    case RecordingNotice::systemSoundUnavailable:
      //% "This computer's sound cannot be recorded: the recording goes on without it"
      return warn(qtTrId("recording.systemSound.unavailable"), screen);
    case RecordingNotice::systemSoundReturned:
      //% "This computer's sound is recorded again"
      return tell(QStringLiteral("speaker"), qtTrId("recording.systemSound.returned"), screen);
    case RecordingNotice::cameraUnavailable:
      //% "The camera cannot be used: recording without it"
      return warn(qtTrId("recording.camera.unavailable"), screen);
    case RecordingNotice::cameraLost:
      //% "The camera is gone: the recording goes on without it"
      return warn(qtTrId("recording.camera.lost"), screen);
    case RecordingNotice::diskLow:
      //% "The disk has room for about five more minutes of recording"
      return warn(qtTrId("recording.disk.low"), screen);
    case RecordingNotice::diskFull:
      //% "The recording was stopped because the disk is nearly full. Everything so far is kept."
      return warn(qtTrId("recording.disk.full"), screen);
    case RecordingNotice::stoppedByItself:
      //% "What was being recorded is gone. The recording up to then is kept."
      return warn(qtTrId("recording.stopped"), screen);
    case RecordingNotice::keyboardNotPermitted:
      //% "Keystrokes cannot be recorded"
      return alert(qtTrId("record.keyboard.permission.title"),
                   //% "This desktop does not let programs see which keys are pressed. The rest is recorded as usual."
                   qtTrId("record.keyboard.permission.body"));
    case RecordingNotice::importUnreadable:
      //% "This file cannot be read as a video"
      return alert(qtTrId("alert.importVideo.unreadable.title"), {});
  }
}

void showStartFailure(RecordingError error) {
  //% "The recording could not be started"
  alert(qtTrId("recording.startFailed"), sentence(error));
}

}  // namespace vellora
