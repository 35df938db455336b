#include "capture/CaptureResult.h"

#include <QStringList>

namespace vellora {
namespace {

const char* name(CaptureResult::End end) {
  switch (end) {
    case CaptureResult::End::Done:
      return "done";
    case CaptureResult::End::Cancelled:
      return "cancelled";
    case CaptureResult::End::Busy:
      return "busy";
    case CaptureResult::End::NotAllowed:
      return "notAllowed";
    case CaptureResult::End::Failed:
      return "failed";
  }
  return "";
}

Json pathOrNull(bool written, const QString& path) {
  return written ? json::fromString(path) : Json(nullptr);
}

}  // namespace

Json captureResultJson(const CaptureResult& result) {
  Json object{{"result", name(result.end)}};
  if (result.error) object["error"] = description(*result.error);
  if (result.end != CaptureResult::End::Done) return object;
  const PixelRect& rect = result.origin.rect;
  object["width"] = result.size.width;
  object["height"] = result.size.height;
  object["scale"] = result.scale;
  object["region"] = {rect.x, rect.y, rect.width, rect.height};
  object["display"] = result.origin.display;
  object["output"] = pathOrNull(result.outcome.outputWritten, result.outcome.outputFile);
  object["saved"] = pathOrNull(result.outcome.saved, result.outcome.savedPath);
  object["copied"] = result.outcome.copied;
  if (const QString missing = captureResultMessage(result); !missing.isEmpty()) {
    object["result"] = name(CaptureResult::End::Failed);
    object["error"] = json::fromString(missing);
  }
  return object;
}

QString captureResultMessage(const CaptureResult& result) {
  switch (result.end) {
    case CaptureResult::End::Cancelled:
      return QStringLiteral("cancelled");
    case CaptureResult::End::Busy:
      return QStringLiteral("another capture is under way");
    case CaptureResult::End::NotAllowed:
      return QStringLiteral("the desktop does not allow it");
    case CaptureResult::End::Failed:
      return QStringLiteral("capture failed: %1")
          .arg(QLatin1StringView(result.error ? description(*result.error) : "unknown"));
    case CaptureResult::End::Done:
      break;
  }
  QStringList failures;
  const CaptureOutcome& outcome = result.outcome;
  if (!outcome.outputFile.isEmpty() && !outcome.outputWritten) {
    failures << QStringLiteral("cannot write %1").arg(outcome.outputFile);
  }
  if (outcome.saveRequested && !outcome.saved) {
    failures << QStringLiteral("cannot save to %1; the picture is in the history").arg(outcome.saveFolder);
  }
  if (outcome.copyRequested && !outcome.copied) failures << QStringLiteral("cannot copy to the clipboard");
  return failures.join(QStringLiteral("; "));
}

}  // namespace vellora
