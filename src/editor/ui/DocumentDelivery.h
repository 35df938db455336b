#pragma once

#include <memory>
#include <optional>

#include <QObject>

#include "base/Lifetime.h"
#include "editor/ui/DocumentOutput.h"
#include "editor/ui/EditorWindow.h"

class QTimer;

namespace vellora {

class StatusLine;

/// "application/x-vellora-annotations": annotations on their way through the clipboard, as JSON.
inline const QString annotationsMimeType = QStringLiteral("application/x-vellora-annotations");

/// What becomes of an editor's picture: clipboard, files, printer, other programs' windows. The pictures are made on
/// the worker queue; what was asked for is carried out even when the window closes meanwhile. Belongs to the window.
class DocumentDelivery final : public QObject {
  Q_OBJECT

 public:
  DocumentDelivery(QWidget& window, CanvasModel& model, const EditorServices& services, const EditorActions& actions,
                   Date capturedAt, StatusLine& status);
  ~DocumentDelivery() override;

  /// Puts the whole picture on the clipboard, or saves it under its automatic name.
  void copy() { output(true, false); }
  void save() { output(false, true); }
  /// Puts the selected annotations on the clipboard; programs that do not know them get the whole picture.
  void copySelection();
  /// Asks for name and format.
  void saveAs();
  /// Writes the picture to a file; a toast tells how it went.
  void saveTo(const QString& path, PictureFormat format);
  void print();

  /// Begins to make the picture for a drag that is likely to follow.
  void prepareDrag();
  /// Carries the picture out of the window; returns when it was dropped. `ghost` goes with the pointer.
  void drag(QWidget& source, const QPixmap& ghost);
  bool isDragging() const { return dragging_; }

  /// The clipboard holds an older state of the document.
  bool isCopyOutdated() const;

 signals:
  void copyStateChanged();

 private:
  struct Drag;

  void output(bool copy, bool save);
  void begin(const DocumentOutput::JobPtr& job, const QString& text);
  void end();
  void noteCopied(std::uint64_t revision);
  void clipboardChanged();
  QString pictureName(const QString& extension) const;

  QWidget& window_;
  CanvasModel& model_;
  EditorServices services_;
  const EditorActions& actions_;
  const Date capturedAt_;
  StatusLine& status_;
  std::optional<std::uint64_t> copiedRevision_;
  double copiedAt_ = 0;  // RunLoop::hostTime()
  int jobs_ = 0;         // under way
  std::weak_ptr<DocumentOutput::Job> lastJob_;
  QString lastText_;
  QTimer* progressDelay_;  // owned by this as a child
  std::shared_ptr<Drag> drag_;
  bool dragging_ = false;
  Lifetime lifetime_;
};

}  // namespace vellora
