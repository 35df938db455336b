#pragma once

#include <functional>
#include <memory>
#include <optional>

#include <QWidget>

#include "base/Date.h"
#include "editor/ImageDocument.h"

class QScreen;

namespace vellora {

class BackdropStyles;
class CanvasModel;
class CanvasView;
class CustomColors;
class DocumentDelivery;
class DocumentOutput;
class EditorCommands;
class EditorSettings;
class RunLoop;
class SharedPng;
class ToolStylePreferences;

/// What every editor window of the program shares; all of it outlives the windows.
struct EditorServices {
  ToolStylePreferences& toolStyles;
  CustomColors& customColors;
  EditorSettings& editorSettings;
  BackdropStyles& backdropStyles;
  DocumentOutput& documentOutput;
  RunLoop& runLoop;
};

/// What an editor opens with.
struct EditorContent {
  ImageDocument document;
  Date capturedAt;
  QString title;
};

/// A finished picture on its way to the clipboard or into the folder of automatic saves.
struct EditorOutput {
  std::shared_ptr<SharedPng> png;  ///< encoded when first asked for
  Date capturedAt;
  bool copy = false;
  bool save = false;
};

/// What an editor asks of the rest of the program. Each may be empty; its controls are then left out. All are called on
/// the main thread, and answer on it at once or later; an answer that comes after the window is gone is dropped.
struct EditorActions {
  /// Gets a picture that was asked for, or nothing when there is none: the failure was told to the person already.
  using PieceReceiver = std::function<void(std::optional<CapturePiece>)>;

  /// Copies or saves, and tells the person about it. Called also after the window was closed, when the picture was not
  /// finished before.
  std::function<void(const EditorOutput&, std::function<void(bool ok)> done)> output;
  /// Opens the document as a pin; the window closes after it.
  std::function<void(const ImageDocument&, Date capturedAt)> pin;
  /// Takes another capture of the desktop, with the window out of the way.
  std::function<void(PieceReceiver)> captureMore;
  /// Lets the person choose a picture file.
  std::function<void(PieceReceiver)> choosePicture;
  /// Loads a file that was dropped.
  std::function<void(const QString& path, PieceReceiver)> loadPicture;
  /// Reads the picture on the clipboard.
  std::function<void(PieceReceiver)> pastePicture;
  /// Takes the document's picture into the compressor.
  std::function<void(const ImageDocument&, Date capturedAt)> compress;
  /// The folder in which saving under another name begins.
  std::function<QString()> saveFolder;
  /// After each change of the document.
  std::function<void(const ImageDocument&)> documentChanged;
};

/// The annotation editor: tools, the style of what they draw, the canvas, the backdrop, and what becomes of the
/// picture. Deletes itself when it is closed, which never asks. Main thread.
class EditorWindow final : public QWidget {
  Q_OBJECT

 public:
  EditorWindow(EditorContent content, const EditorServices& services, EditorActions actions);
  ~EditorWindow() override;

  /// Shows the window with the picture at its size and its middle at `center` (the screen's own coordinates), as far as
  /// the screen has room; without one in the middle of the screen. A null screen is the primary one.
  void present(QScreen* screen, const QPoint* center = nullptr);

  /// The document as it is now, what is being drawn or typed included.
  const ImageDocument& document() const;
  Date capturedAt() const;
  /// The document went on to be a pin: whoever keeps it now is not this window.
  bool becamePin() const;

  /// Puts a picture beside what is there, as one undoable step.
  void addPiece(CapturePiece piece);

  CanvasModel& model();
  CanvasView& canvas();
  EditorCommands& commands();
  DocumentDelivery& delivery();

 signals:
  /// The window is closing; document() is what it leaves. Sent once, before it is deleted.
  void closed();

 protected:
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  struct Private;
  std::unique_ptr<Private> d_;
};

}  // namespace vellora
