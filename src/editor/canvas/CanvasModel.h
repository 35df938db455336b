#pragma once

#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "editor/CustomColors.h"
#include "editor/EditHistory.h"
#include "editor/EditorSettings.h"
#include "editor/TextMeasurer.h"
#include "editor/ToolStylePreferences.h"
#include "editor/canvas/CanvasInput.h"

namespace vellora {

/// What of an editor changed.
enum class CanvasChange {
  Document,   ///< what is drawn
  Selection,  ///< the selected things or their handles
  Tool,
  Style,  ///< what the style controls show
  Text,   ///< the text cursor, its selection or the composed text
};

/// What the controls beside the canvas show and set. An absent value: the selected things differ in it, or have none.
struct StyleState {
  std::optional<ColorComponents> color;
  std::optional<double> lineWidth;
  std::optional<bool> textBackground;
  std::optional<bool> textHandwritten;
  std::optional<bool> sketch;
  std::optional<bool> shapeFill;
  std::optional<BlurStyle> blurStyle;
  std::optional<double> blurStrength;
  std::optional<ColorComponents> eraseFillColor;
  std::optional<double> magnification;
  std::optional<MagnifierShape> magnifierShape;
  /// The kinds the controls are for: those selected, else the tool's own; empty for an idle selection tool.
  std::set<Annotation::Kind> kinds;
};

/// Where several selected things are lined up.
enum class Alignment { Left, CenterX, Right, Top, CenterY, Bottom };

/// A picture or annotations on their way through the clipboard.
struct CanvasClip {
  QByteArray annotations;  ///< "application/x-vellora-annotations": JSON
};

/// The small square or dot at which a thing is taken hold of.
struct Handle {
  enum class Role {
    TopLeft,
    Top,
    TopRight,
    Right,
    BottomRight,
    Bottom,
    BottomLeft,
    Left,  ///< of rectangles and crops
    Start,
    End,
    Bend,       ///< of arrows and lines
    Tail,       ///< of a counter
    TextWidth,  ///< where a text wraps
    Source,     ///< of a lens: what it shows
  };
  Role role;
  Point position;  ///< document points, before the backdrop's placement
};

/// What the pointer and the keys do to a document: tools, hit-testing, handles, selection, text editing, cropping,
/// undo. Every change is one undoable step, whole or not at all. Knows no window: it takes positions in document points
/// and says what changed. Main thread.
class CanvasModel {
 public:
  struct Services {
    TextMeasurer& text;
    ToolStylePreferences& styles;
    EditorSettings& settings;
  };

  CanvasModel(ImageDocument document, Services services);
  ~CanvasModel();

  /// Called after each change, once per kind of change.
  void onChange(std::function<void(CanvasChange)> changed);

  /// The document with what is being drawn or dragged at the moment.
  const ImageDocument& document() const;
  /// Tells two states of the document apart; equal revisions are equal documents.
  std::uint64_t revision() const;

  // Tools and styles
  Tool tool() const;
  bool isToolLocked() const;  ///< a locked tool stays after drawing; an unlocked one makes room for Select
  void setTool(Tool tool, bool locked = false);
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
  void selectAll();
  void selectNext(int direction);  ///< by Tab, in z-order
  std::vector<Handle> handles() const;
  std::optional<Rect> marquee() const;
  /// The outline to draw around a selected or hovered thing.
  std::optional<Rect> outlineOf(AnnotationId id) const;
  std::optional<AnnotationId> hovered() const;

  // Commands on the selection
  bool canDelete() const;
  void deleteSelection();
  void duplicateSelection();
  void nudge(double dx, double dy);
  void align(Alignment alignment);
  void bringForward();
  void sendBackward();
  void bringToFront();
  void sendToBack();
  std::optional<CanvasClip> copySelection() const;
  /// Pastes annotations near `place`; false when the bytes are none of ours.
  bool paste(const CanvasClip& clip, std::optional<Point> place);

  // Pieces
  void addPiece(CapturePiece piece);
  /// Puts a pasted or dropped picture in the middle of `place`.
  void addPiece(CapturePiece piece, Point center);
  void beginCrop(std::optional<std::uint64_t> piece = std::nullopt);  ///< the selected piece, else the first
  bool isCropping() const;
  std::optional<std::uint64_t> croppedPiece() const;
  void resetCrop();
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
    int cursor = 0;              ///< UTF-16 offset
    int anchor = 0;              ///< the other end of the text selection
    QString composing;           ///< of the input method, shown at the cursor and part of no step
    Rect cursorRect;             ///< document points
    std::vector<Rect> selected;  ///< document points
  };
  std::optional<TextEdit> textEdit() const;
  void editText(AnnotationId id);
  void insertText(const QString& text);
  void setComposing(const QString& text);
  QString selectedText() const;
  void endTextEdit();

 private:
  struct Private;
  std::unique_ptr<Private> d_;
};

}  // namespace vellora
