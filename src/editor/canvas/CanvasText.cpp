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

bool CanvasModel::escape() {
  const Private::Call call(*d_);
  if (d_->gesture) {
    d_->dropGesture();
  } else if (d_->typing) {
    d_->endTyping();
  } else if (d_->cropped) {
    d_->cropped.reset();
  } else if (!d_->selection.empty() || d_->piece) {
    d_->setSelection({});
  } else if (d_->tool != Tool::Select) {
    setTool(Tool::Select);
  } else {
    return false;
  }
  return true;
}

bool CanvasModel::keyPress(const KeyInput& key) {
  const Private::Call call(*d_);
  if (d_->typing && !d_->gesture) return d_->keyWhileTyping(key);
  if (key.key == Key::Escape) return escape();
  if (d_->gesture) return false;
  const double step = key.modifiers.shift ? 10 : 1;
  const bool canNudge = !d_->cropped && !key.modifiers.control && (!d_->selection.empty() || d_->piece);
  switch (key.key) {
    case Key::Left:
      if (canNudge) nudge(-step, 0);
      return canNudge;
    case Key::Right:
      if (canNudge) nudge(step, 0);
      return canNudge;
    case Key::Up:
      if (canNudge) nudge(0, -step);
      return canNudge;
    case Key::Down:
      if (canNudge) nudge(0, step);
      return canNudge;
    case Key::Delete:
    case Key::Backspace: {
      const bool deletes = canDelete();
      if (deletes) deleteSelection();
      return deletes;
    }
    case Key::Return: {
      const bool endsCrop = d_->cropped.has_value();
      if (endsCrop) endCrop();
      if (endsCrop || d_->selection.size() != 1) return endsCrop;
      editText(*d_->selection.begin());
      if (d_->typing) d_->typing->selectAll();
      return d_->typing.has_value();
    }
    case Key::Tab:
    case Key::Backtab:
      return d_->selectByTab(key.key == Key::Tab && !key.modifiers.shift ? 1 : -1);
    case Key::SelectAll:
      selectAll();
      return true;
    case Key::Home:
    case Key::End:
    case Key::Escape:
    case Key::Space:
    case Key::Other:
      break;
  }
  return false;
}

}  // namespace vellora
