#pragma once

#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "editor/EditHistory.h"
#include "editor/EditorSettings.h"
#include "editor/TextMeasurer.h"
#include "editor/ToolStylePreferences.h"
#include "editor/canvas/Arrangement.h"
#include "editor/canvas/CanvasInput.h"
#include "editor/canvas/Handles.h"
#include "editor/canvas/Snapping.h"
#include "editor/canvas/Styling.h"

namespace vellora {

/// What of an editor changed.
enum class CanvasChange {
  Document,   ///< what is drawn
  Selection,  ///< the selected things or their handles
  Tool,
  Style,  ///< what the style controls show
  Text,   ///< the text cursor, its selection or the composed text
};

/// Annotations on their way through the clipboard.
struct CanvasClip {
  QByteArray annotations;  ///< "application/x-vellora-annotations": JSON
};

/// What the pointer and the keys do to a document: tools, hit-testing, handles, selection, text editing, cropping,
/// undo. Every change is one undoable step, whole or not at all. Knows no window: it takes positions in document points
/// and says what changed. Main thread.
///
/// **Drawing.** What is drawn is selected, so that its handles and style are at hand, and the selection tool takes
/// over, so that it can be moved. Pen and counter stay, because one stroke or number seldom comes alone; a stroke is
/// not selected, so that its handles are not in the way of the next. A locked tool stays in any case. With a drawing
/// tool the handles of what is selected still work, the counter tool moves counters, and the text tool edits texts.
///
/// **Selecting.** A press on a thing selects and moves it, one on the bare picture draws a marquee; with several pieces
/// it moves the piece, and what is drawn on it goes along, so that no redaction is left behind (Shift draws the marquee
/// there too). A click on the bare picture ends a selection or, without one, selects the piece; a double click crops
/// it. A drag takes what is selected, even below other things; a click takes the topmost. Things line up while they are
/// moved and resized, unless Control is held. While Alt is held copies move, and the originals stay.
///
/// **Keys.** The arrows move what is selected by 1 point, with Shift by 10; with Control they drag its last corner or
/// end, or turn its tail. While cropping they show another part; with Control they drag the last corner, with Alt the
/// first. Tab goes through the annotations. Return edits a selected text, and with a drawing tool draws in the middle
/// of the picture.
///
/// **Typing.** All typing in one text is one step. While it lasts, undo takes back runs of it (see TextEditor), and
/// with none left ends it. A text that is left empty disappears.
class CanvasModel {
 public:
  struct Services {
    TextMeasurer& text;
    ToolStylePreferences& styles;
    EditorSettings& settings;
  };

  CanvasModel(ImageDocument document, Services services);
  ~CanvasModel();

  /// Called after each call that changed something, once per kind of change.
  void onChange(std::function<void(CanvasChange)> changed);

  /// The document with what is being drawn or dragged at the moment.
  const ImageDocument& document() const;
  /// Tells two states of the document apart; equal revisions are equal documents.
  std::uint64_t revision() const;

  // Tools and styles
  Tool tool() const;
  bool isToolLocked() const;  ///< a locked tool stays after drawing; an unlocked one makes room for Select
  void setTool(Tool tool, bool locked = false);
  /// Of the selected things, else of what the tool would draw.
  StyleState style() const;
  /// Each changes the selected things as one step (a run under one `coalescingKey` as one), and the tool's own style
  /// for what is drawn next.
  void setColor(const ColorComponents& color, const std::string& coalescingKey = {});
  void setLineWidth(double width, const std::string& coalescingKey = {});
  void setTextBackground(bool on);
  void setTextHandwritten(bool on);
  void setSketch(bool on);
  void setShapeFill(bool on);
  void setBlurStyle(BlurStyle style);
  void setBlurStrength(double strength, const std::string& coalescingKey = {});
  void setEraseFillColor(const std::optional<ColorComponents>& color, const std::string& coalescingKey = {});
  void setMagnification(double magnification, const std::string& coalescingKey = {});
  void setMagnifierShape(MagnifierShape shape);
  void setBackdrop(const BackdropSettings& backdrop, const std::string& coalescingKey = {});

  // Pointer: positions in document points before the backdrop's placement
  void press(const PointerEvent& event);
  void move(const PointerEvent& event);  ///< dragging or hovering
  void release(const PointerEvent& event);
  void doubleClick(const PointerEvent& event);
  /// What the pointer would do at a place, for its shape and the status line.
  PointerHint hintAt(const PointerEvent& event) const;
  /// Gives up what is being drawn or dragged.
  void cancelGesture();

  // Keys. True when the key meant something here; tool keys and shortcuts of commands are the window's business.
  bool keyPress(const KeyInput& key);
  /// One step of Escape: ends the text, else the gesture, else the crop, else the selection, else the tool. False when
  /// nothing was left.
  bool escape();

  // Selection
  const std::set<AnnotationId>& selection() const;
  std::optional<std::uint64_t> selectedPiece() const;
  void select(std::set<AnnotationId> ids);
  void selectPiece(std::optional<std::uint64_t> piece);
  void selectAll();                ///< all annotations; while typing, all of the text
  void selectNext(int direction);  ///< by Tab, in z-order
  std::vector<Handle> handles() const;
  std::optional<Rect> marquee() const;
  /// What the thing being dragged lines up with.
  const std::vector<Guide>& guides() const;
  /// The outline to draw around a selected or hovered thing.
  std::optional<Rect> outlineOf(AnnotationId id) const;
  std::optional<AnnotationId> hovered() const;

  // Commands on the selection
  bool canDelete() const;
  /// Deletes the selected annotations, or the selected piece with what is drawn on it; never the last piece.
  void deleteSelection();
  void duplicateSelection();
  /// In document points; nudges in a row are one step.
  void nudge(double dx, double dy);
  void align(Alignment alignment);
  /// Of three and more.
  void distribute(Distribution way);
  void bringForward();
  void sendBackward();
  void bringToFront();
  void sendToBack();
  std::optional<CanvasClip> copySelection() const;
  /// Pastes annotations around `place`, else where they were; each time they are pasted again a little further. False
  /// when the bytes are none of ours.
  bool paste(const CanvasClip& clip, std::optional<Point> place);

  // Pieces
  void addPiece(CapturePiece piece);
  /// Puts a pasted or dropped picture in the middle of `place`.
  void addPiece(CapturePiece piece, Point center);
  /// Shows the crop of the selected piece, else of the first. Each drag of its edges is one step, as is resetting it.
  void beginCrop(std::optional<std::uint64_t> piece = std::nullopt);
  bool isCropping() const;
  std::optional<std::uint64_t> croppedPiece() const;
  void resetCrop();  ///< of the selected piece, else of all
  void endCrop();

  // Undo
  bool canUndo() const;
  bool canRedo() const;
  void undo();
  void redo();
  /// Ends a run of coalesced changes: a slider was let go.
  void endCoalescing();

  // Text editing
  struct TextEdit {
    AnnotationId id;
    int cursor = 0;     ///< UTF-16 offset
    int anchor = 0;     ///< the other end of the text selection
    QString composing;  ///< of the input method, shown at the cursor and part of no step; document() is without
    Rect cursorRect;    ///< document points; where the text is shown with what is composed
    std::vector<Rect> selected;  ///< document points
    std::vector<Rect> composed;  ///< document points: where what is composed stands
  };
  std::optional<TextEdit> textEdit() const;
  void editText(AnnotationId id);
  void insertText(const QString& text);
  /// `cursor`: within the composed text; -1: at its end.
  void setComposing(const QString& text, int cursor = -1);
  QString selectedText() const;
  void endTextEdit();

 private:
  struct Private;
  std::unique_ptr<Private> d_;
};

}  // namespace vellora
