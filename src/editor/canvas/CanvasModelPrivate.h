#pragma once

#include <memory>
#include <random>

#include "editor/canvas/CanvasModel.h"
#include "editor/canvas/Gesture.h"
#include "editor/canvas/TextEditor.h"

namespace vellora {

/// What a CanvasModel keeps. Its functions are in CanvasModel.cpp (state and undo), CanvasPointer.cpp (pointer),
/// CanvasCommands.cpp (commands and pieces), CanvasStyle.cpp (tools and styles), CanvasKeys.cpp (keys) and
/// CanvasText.cpp (typing).
struct CanvasModel::Private {
  Private(ImageDocument document, Services canvasServices);

  /// Stands for one call from outside: whoever listens hears at its end what it changed.
  class Call {
   public:
    explicit Call(Private& owner);
    ~Call();
    Call(const Call&) = delete;
    Call& operator=(const Call&) = delete;

   private:
    Private& owner_;
  };

  /// What listeners are told about.
  struct Shown {
    std::uint64_t revision = 0;
    std::set<AnnotationId> selection;
    std::optional<std::uint64_t> piece;
    std::optional<std::uint64_t> cropped;
    std::optional<AnnotationId> hovered;
    std::optional<Rect> marquee;
    std::vector<Guide> guides;
    Tool tool = Tool::Select;
    bool locked = false;
    StyleState style;
    std::optional<AnnotationId> typing;
    int cursor = 0;
    int anchor = 0;
    QString composing;
  };
  Shown shown() const;
  void tell(const Shown& before);

  // State
  const ImageDocument& document() const { return working ? *working : history.current(); }
  std::uint64_t revision() const;
  void show(ImageDocument next);
  void showHistory();
  void commit(ImageDocument next, const std::string& coalescingKey = {});
  void setSelection(std::set<AnnotationId> ids, std::optional<std::uint64_t> piece = std::nullopt);
  void settle();
  void followHistory(const ImageDocument& before);
  bool hasPiece(std::uint64_t id) const;

  // Pointer
  void press(const PointerEvent& event);
  std::unique_ptr<Gesture> gestureFor(const PointerEvent& event);
  std::unique_ptr<Gesture> drawingGesture(const PointerEvent& event);
  std::unique_ptr<Gesture> selectingGesture(const PointerEvent& event);
  std::unique_ptr<Gesture> handleGesture(const Handle& handle, const PointerEvent& event);
  std::unique_ptr<Gesture> cropGesture(const PointerEvent& event);
  bool pressWhileTyping(const PointerEvent& event);
  void take(const GestureState& state);
  void finishGesture(const PointerEvent& event);
  void dropGesture();
  void endGesture();
  GestureState gestureStart() const;
  std::optional<Handle> handleUnder(const PointerEvent& event) const;
  std::optional<AnnotationId> annotationUnder(const PointerEvent& event) const;
  std::vector<Handle> handles() const;
  std::optional<AnnotationId> hoveredAt(const PointerEvent& event) const;
  PointerHint hintForTool(const PointerEvent& event) const;
  void afterDrawing();

  // Styles
  Annotation prototype(Annotation::Kind kind) const;
  Annotation newAnnotation(Annotation::Kind kind);
  StyleState style() const;
  void restyle(StyleProperty property, const std::function<void(Annotation&)>& change,
               const std::function<void(ToolStyle&)>& remember, const std::string& coalescingKey);

  // Text
  void beginTyping(const Annotation& annotation);
  void endTyping();
  void showTyping();
  bool keyWhileTyping(const KeyInput& key);

  // Keys
  bool selectByTab(int direction);
  bool arrowKey(Point direction, const Modifiers& modifiers);
  bool returnKey();
  bool drawByKey();
  void stretch(Point direction, bool wide);
  void cropByKey(Point direction, const Modifiers& modifiers);

  // Commands
  void addCopies(const std::vector<AnnotationPtr>& originals, Point by);
  void insertPiece(CapturePiece added);
  void nudge(Point by);
  void changeSelected(const std::function<ImageDocument(const ImageDocument&)>& change,
                      const std::string& coalescingKey = {});

  Services services;
  std::function<void(CanvasChange)> changed;
  int calls = 0;
  Shown beforeCalls;

  EditHistory history;
  std::optional<ImageDocument> working;  // with what is drawn, dragged or typed
  std::uint64_t workingRevision = 0;
  std::uint64_t lastWorking = 0;
  mutable AnnotationOutlines outlines;
  std::mt19937_64 random;

  Tool tool = Tool::Select;
  bool locked = false;
  std::set<AnnotationId> selection;
  std::optional<std::uint64_t> piece;
  std::optional<std::uint64_t> cropped;  // the selected piece, or none
  std::optional<AnnotationId> hovered;

  std::unique_ptr<Gesture> gesture;
  std::optional<PointerEvent> pressed;
  bool dragging = false;
  bool selectingText = false;

  std::optional<TextEditor> typing;

  QByteArray pastedLast;
  int pasteCount = 0;
};

/// How far copies lie from their originals, in document points.
inline constexpr double copyOffset = 16;

}  // namespace vellora
