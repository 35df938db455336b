#include "editor/canvas/CanvasModel.h"

#include <algorithm>
#include <utility>

#include "editor/canvas/AnnotationGeometry.h"
#include "editor/canvas/CanvasModelPrivate.h"
#include "editor/canvas/PlaneGeometry.h"

namespace vellora {

using namespace geometry;

namespace {

/// Revisions of documents that are no step yet.
constexpr std::uint64_t workingMark = std::uint64_t{1} << 63;

/// Gives what has none, or another's, an identity of its own.
ImageDocument withIdentities(ImageDocument document) {
  std::set<AnnotationId> seen;
  std::erase(document.annotations, nullptr);
  for (AnnotationPtr& annotation : document.annotations) {
    if (annotation->id != 0 && seen.insert(annotation->id).second) continue;
    Annotation copy = *annotation;
    copy.id = newAnnotationId();
    annotation = makeAnnotation(std::move(copy));
  }
  return document;
}

}  // namespace

CanvasModel::Private::Private(ImageDocument document, Services canvasServices)
    : services(canvasServices),
      history(withIdentities(std::move(document))),
      outlines(services.text),
      random(std::random_device{}()) {}

CanvasModel::Private::Call::Call(Private& owner) : owner_(owner) {
  if (owner_.calls++ == 0 && owner_.changed) owner_.beforeCalls = owner_.shown();
}

CanvasModel::Private::Call::~Call() {
  if (--owner_.calls == 0 && owner_.changed) owner_.tell(std::exchange(owner_.beforeCalls, {}));
}

CanvasModel::Private::Shown CanvasModel::Private::shown() const {
  Shown now;
  now.revision = revision();
  now.selection = selection;
  now.piece = piece;
  now.cropped = cropped;
  now.hovered = hovered;
  now.tool = tool;
  now.locked = locked;
  now.style = style();
  if (gesture && dragging) {
    now.marquee = gesture->state().marquee;
    now.guides = gesture->state().guides;
  }
  if (typing) {
    now.typing = typing->annotation().id;
    now.cursor = typing->cursor();
    now.anchor = typing->anchor();
    now.composing = typing->composing();
  }
  return now;
}

void CanvasModel::Private::tell(const Shown& before) {
  const Shown now = shown();
  const bool documentChanged = now.revision != before.revision;
  const bool selectionChanged = now.selection != before.selection || now.piece != before.piece ||
                                now.cropped != before.cropped || now.hovered != before.hovered ||
                                now.marquee != before.marquee || now.guides != before.guides;
  const bool textChanged = now.typing != before.typing || now.cursor != before.cursor || now.anchor != before.anchor ||
                           now.composing != before.composing;
  const bool movesHandles = documentChanged && (!now.selection.empty() || now.piece || now.cropped);
  const std::pair<bool, CanvasChange> changes[] = {
      {documentChanged, CanvasChange::Document},
      {selectionChanged || movesHandles, CanvasChange::Selection},
      {now.tool != before.tool || now.locked != before.locked, CanvasChange::Tool},
      {now.style != before.style, CanvasChange::Style},
      {textChanged || (documentChanged && now.typing), CanvasChange::Text}};
  // Whoever listens may change the model, and the listener with it.
  for (const auto& [happened, change] : changes) {
    if (!happened || !changed) continue;
    const auto listener = changed;
    listener(change);
  }
}

std::uint64_t CanvasModel::Private::revision() const {
  return working ? workingRevision : history.revision();
}

/// Shows a document that is no step yet.
void CanvasModel::Private::show(ImageDocument next) {
  working = std::move(next);
  workingRevision = workingMark | ++lastWorking;
}

void CanvasModel::Private::showHistory() {
  working.reset();
}

void CanvasModel::Private::commit(ImageDocument next, const std::string& coalescingKey) {
  working.reset();
  history.apply(std::move(next), coalescingKey);
}

void CanvasModel::Private::setSelection(std::set<AnnotationId> ids, std::optional<std::uint64_t> selectedPiece) {
  std::erase_if(ids, [this](AnnotationId id) { return !document().indexOf(id); });
  if (selectedPiece && !hasPiece(*selectedPiece)) selectedPiece.reset();
  if (cropped != selectedPiece) cropped.reset();
  if (ids == selection && selectedPiece == piece) return;
  history.endCoalescing();
  selection = std::move(ids);
  piece = selectedPiece;
}

/// Ends what is under way and keeps what has come of it.
void CanvasModel::Private::settle() {
  endGesture();
  endTyping();
}

bool CanvasModel::Private::hasPiece(std::uint64_t id) const {
  const auto& pieces = document().pieces;
  return std::ranges::find(pieces, id, &CapturePiece::id) != pieces.end();
}

/// After a step back or forward: what is gone is no longer selected, what came back is.
void CanvasModel::Private::followHistory(const ImageDocument& before) {
  const ImageDocument& now = history.current();
  std::set<AnnotationId> ids = selection;
  if (tool == Tool::Select) {
    std::set<AnnotationId> returned;
    for (const AnnotationPtr& annotation : now.annotations) {
      if (!before.indexOf(annotation->id)) returned.insert(annotation->id);
    }
    if (!returned.empty()) ids = std::move(returned);
  }
  setSelection(std::move(ids), piece);
  hovered.reset();
}

CanvasModel::CanvasModel(ImageDocument document, Services services)
    : d_(std::make_unique<Private>(std::move(document), services)) {}

CanvasModel::~CanvasModel() = default;

void CanvasModel::onChange(std::function<void(CanvasChange)> changed) {
  d_->changed = std::move(changed);
}

const ImageDocument& CanvasModel::document() const {
  return d_->document();
}

std::uint64_t CanvasModel::revision() const {
  return d_->revision();
}

// Selection

const std::set<AnnotationId>& CanvasModel::selection() const {
  return d_->selection;
}

std::optional<std::uint64_t> CanvasModel::selectedPiece() const {
  return d_->piece;
}

void CanvasModel::select(std::set<AnnotationId> ids) {
  const Private::Call call(*d_);
  d_->settle();
  d_->setSelection(std::move(ids));
}

void CanvasModel::selectPiece(std::optional<std::uint64_t> piece) {
  const Private::Call call(*d_);
  d_->settle();
  d_->setSelection({}, piece);
}

void CanvasModel::selectAll() {
  const Private::Call call(*d_);
  if (d_->typing) {
    d_->typing->selectAll();
    return;
  }
  d_->settle();
  std::set<AnnotationId> all;
  for (const AnnotationPtr& annotation : document().annotations) all.insert(annotation->id);
  d_->setSelection(std::move(all));
}

void CanvasModel::selectNext(int direction) {
  const Private::Call call(*d_);
  d_->settle();
  if (d_->selectByTab(direction)) return;
  d_->selectByTab(direction);
}

/// Selects the annotation above or below the selected one; beyond the last one nothing, and false.
bool CanvasModel::Private::selectByTab(int direction) {
  const auto& annotations = document().annotations;
  const auto count = static_cast<std::ptrdiff_t>(annotations.size());
  std::ptrdiff_t next = direction > 0 ? 0 : count - 1;
  if (!selection.empty()) {
    const auto isSelected = [this](const AnnotationPtr& annotation) { return selection.contains(annotation->id); };
    const auto current = std::ranges::find_if(annotations, isSelected) - annotations.begin();
    next = current + (direction > 0 ? 1 : -1);
  }
  const bool isThere = next >= 0 && next < count;
  setSelection(isThere ? std::set{annotations[static_cast<std::size_t>(next)]->id} : std::set<AnnotationId>{});
  return isThere;
}

std::vector<Handle> CanvasModel::handles() const {
  return d_->handles();
}

std::optional<Rect> CanvasModel::marquee() const {
  return d_->gesture && d_->dragging ? d_->gesture->state().marquee : std::nullopt;
}

const std::vector<Guide>& CanvasModel::guides() const {
  static const std::vector<Guide> none;
  return d_->gesture && d_->dragging ? d_->gesture->state().guides : none;
}

std::optional<Rect> CanvasModel::outlineOf(AnnotationId id) const {
  const AnnotationPtr annotation = document().annotation(id);
  if (annotation == nullptr) return std::nullopt;
  const bool isComposing = d_->typing && d_->typing->annotation().id == id && !d_->typing->composing().isEmpty();
  const Rect outline =
      isComposing ? outlineRect(d_->typing->composed(), d_->services.text) : d_->outlines.of(annotation);
  return isFinite(outline) ? std::optional(outline) : std::nullopt;
}

std::optional<AnnotationId> CanvasModel::hovered() const {
  return d_->hovered;
}

// Undo

bool CanvasModel::canUndo() const {
  return d_->typing || d_->history.canUndo();
}

bool CanvasModel::canRedo() const {
  return d_->typing ? d_->typing->canRedo() : d_->history.canRedo();
}

void CanvasModel::undo() {
  const Private::Call call(*d_);
  if (d_->gesture) {
    d_->dropGesture();
  } else if (d_->typing && d_->typing->canUndo()) {
    d_->typing->undo();
    d_->showTyping();
  } else if (d_->typing) {
    d_->endTyping();
  } else {
    const ImageDocument before = document();
    if (d_->history.undo()) d_->followHistory(before);
  }
}

void CanvasModel::redo() {
  const Private::Call call(*d_);
  if (d_->gesture) return;
  if (d_->typing) {
    d_->typing->redo();
    d_->showTyping();
    return;
  }
  const ImageDocument before = document();
  if (d_->history.redo()) d_->followHistory(before);
}

void CanvasModel::endCoalescing() {
  d_->history.endCoalescing();
}

}  // namespace vellora
