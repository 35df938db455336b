#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <vector>

#include <QPointer>

#include "app/PictureLoading.h"
#include "capture/CaptureCommands.h"
#include "capture/CaptureCompletion.h"
#include "editor/BackdropStyles.h"
#include "editor/CustomColors.h"
#include "editor/EditorSettings.h"
#include "editor/SessionStore.h"
#include "editor/ToolStylePreferences.h"
#include "editor/ui/DocumentOutput.h"
#include "editor/ui/EditorWindow.h"
#include "editor/ui/pins/PinBoard.h"

namespace vellora {

struct AppServices;

/// The editors and pins that are open, and a document's way between them, the history, the clipboard and the disk. What
/// is open is kept on disk too (OpenDocument), so that it is found again however the program ends. Main thread.
class DocumentWindows {
 public:
  struct Actions {
    /// What became of a copy or save.
    std::function<void(const CaptureOutcome&)> report;
    /// Says something in a toast; failures stay longer.
    std::function<void(const char* icon, const QString& text, bool isFailure)> tell;
    /// Takes a document's picture into the compressor.
    std::function<void(const ImageDocument&, Date capturedAt)> compress;
    /// A window came or went.
    std::function<void()> changed;
  };

  DocumentWindows(AppServices& services, CaptureCommands& captures, PictureLoading& pictures, Actions actions);
  ~DocumentWindows();

  void openEditor(const CaptureDocument& document);
  void openPin(const CaptureDocument& document);
  /// Takes the history's entry of that index into an editor; false when there is none.
  bool reopen(std::size_t index);
  /// Lets the person choose a picture file, over `parent` where there is a window.
  void choosePicture(QWidget* parent, EditorActions::PieceReceiver receive);

  /// Closes everything, which takes it into the history.
  void closeAll();
  /// Whether any is open or about to.
  bool hasOpenWindows() const;

  /// Whether clicks go through some pin to what lies below it, and the way back.
  bool hasClickThroughPins() const { return pins_ && pins_->hasClickThrough(); }
  void endClickThrough();

 private:
  using Kept = std::unique_ptr<OpenDocument>;
  using PieceReceiver = EditorActions::PieceReceiver;

  /// A document on its way into a window.
  struct Opening {
    ImageDocument document;
    Kept kept;
    Date capturedAt;
    QScreen* screen = nullptr;
    std::optional<QPoint> center;
  };

  /// Shows the document in an editor once all it needs is read.
  void open(Opening opening);
  void show(Opening opening);
  EditorActions actionsOf(const std::shared_ptr<QPointer<EditorWindow>>& editor);
  void editorClosed(EditorWindow& editor);
  void pin(Opening opening, std::shared_ptr<SharedPng> picture);
  PinBoard& pins();
  PinActions pinActions();
  bool editPin(PinWindowController& pin);
  void captureMore(EditorWindow& editor, PieceReceiver receive);
  PictureLoading::Callback pieceFor(PieceReceiver receive);
  void output(std::shared_ptr<SharedPng> png, Date capturedAt, bool copy, bool save, std::function<void(bool)> done);

  AppServices& services_;
  CaptureCommands& captures_;
  PictureLoading& pictures_;
  const Actions actions_;
  ToolStylePreferences toolStyles_;
  CustomColors customColors_;
  EditorSettings editorSettings_;
  BackdropStyles backdropStyles_;
  std::vector<QPointer<EditorWindow>> editors_;
  /// What keeps each window's document on disk, by EditorWindow or PinWindowController.
  std::map<const void*, Kept> kept_;
  std::unique_ptr<DocumentOutput> documentOutput_;
  std::unique_ptr<PinBoard> pins_;
  TimerHandle hiding_;
  int awaited_ = 0;  ///< documents on their way into a window that wait for files
  Lifetime lifetime_;
};

}  // namespace vellora
