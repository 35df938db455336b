#include "editor/canvas/CanvasModelPrivate.h"
#include "editor/canvas/DrawGestures.h"

namespace vellora {

using Key = KeyInput::Key;

void CanvasModel::Private::beginTyping(const Annotation& annotation) {
  typing.emplace(annotation, services.text);
  hovered.reset();
  cropped.reset();
  showTyping();
  setSelection({annotation.id});
}

/// Shows the text as typed so far; nothing changes where only the cursor did.
void CanvasModel::Private::showTyping() {
  const Annotation& text = typing->annotation();
  const AnnotationPtr shownText = document().annotation(text.id);
  if (shownText && *shownText == text) return;
  const AnnotationPtr before = history.current().annotation(text.id);
  if (before && *before == text) {
    showHistory();
    return;
  }
  ImageDocument next = history.current();
  place(next, text);
  show(std::move(next));
}

void CanvasModel::Private::endTyping() {
  if (!typing) return;
  const Annotation text = typing->annotation();
  typing.reset();
  selectingText = false;
  ImageDocument next = history.current();
  if (!text.text.trimmed().isEmpty()) {
    place(next, text);
  } else {
    std::erase_if(next.annotations, [&](const AnnotationPtr& annotation) { return annotation->id == text.id; });
  }
  history.endCoalescing();
  commit(std::move(next));
  setSelection(selection);
  if (tool == Tool::Text && !locked) tool = Tool::Select;
}

bool CanvasModel::Private::keyWhileTyping(const KeyInput& key) {
  const bool ends = key.key == Key::Escape || key.key == Key::Tab || key.key == Key::Backtab ||
                    (key.key == Key::Return && key.modifiers.control);
  if (ends) {
    endTyping();
    return true;
  }
  if (!typing->key(key)) return false;
  showTyping();
  return true;
}

std::optional<CanvasModel::TextEdit> CanvasModel::textEdit() const {
  if (!d_->typing) return std::nullopt;
  const TextEditor& editor = *d_->typing;
  return TextEdit{editor.annotation().id, editor.cursor(),         editor.anchor(),       editor.composing(),
                  editor.cursorRect(),    editor.selectionRects(), editor.composedRects()};
}

void CanvasModel::editText(AnnotationId id) {
  const Private::Call call(*d_);
  d_->settle();
  const AnnotationPtr annotation = document().annotation(id);
  if (annotation && annotation->kind == Annotation::Kind::Text) d_->beginTyping(*annotation);
}

void CanvasModel::insertText(const QString& text) {
  if (!d_->typing) return;
  const Private::Call call(*d_);
  d_->typing->insert(text);
  d_->showTyping();
}

void CanvasModel::setComposing(const QString& text, int cursor) {
  if (!d_->typing) return;
  const Private::Call call(*d_);
  d_->typing->setComposing(text, cursor);
}

QString CanvasModel::selectedText() const {
  return d_->typing ? d_->typing->selectedText() : QString();
}

void CanvasModel::endTextEdit() {
  const Private::Call call(*d_);
  d_->endTyping();
}

}  // namespace vellora
