#include "editor/ui/ShortcutsSheet.h"

#include <algorithm>

#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>
#include <QWheelEvent>

#include "editor/ui/EditorCommands.h"
#include "kit/Paint.h"
#include "kit/Theme.h"
#include "kit/Tokens.h"

namespace vellora {
namespace {

constexpr int columnWidth = 268;
constexpr int columnGap = 36;
constexpr int padding = tokens::space6;
constexpr int lineHeight = 26;
constexpr int headingHeight = 28;
constexpr int groupGap = 14;
constexpr int titleHeight = 40;
constexpr int margin = tokens::space4;
constexpr int capHeight = 19;
constexpr int capPadding = 6;
constexpr int capGap = 3;

/// "Ctrl+Shift+Z" as the keys to press.
QStringList keyCaps(const QString& text) {
  QStringList caps;
  QString rest = text;
  for (const char* modifier : {"Ctrl+", "Alt+", "Shift+", "Meta+"}) {
    if (!rest.startsWith(QLatin1StringView(modifier)) || rest.size() == static_cast<qsizetype>(qstrlen(modifier))) {
      continue;
    }
    caps << rest.left(static_cast<qsizetype>(qstrlen(modifier)) - 1);
    rest = rest.mid(static_cast<qsizetype>(qstrlen(modifier)));
  }
  return caps << rest;
}

}  // namespace

ShortcutsSheet::ShortcutsSheet(const EditorCommands& commands, QWidget* window) : QWidget(window) {
  //% "Keyboard Shortcuts"
  setAccessibleName(qtTrId("editor.shortcuts"));
  setFocusPolicy(Qt::StrongFocus);
  for (const auto group : {EditorCommandGroup::Tools, EditorCommandGroup::Style, EditorCommandGroup::Edit,
                           EditorCommandGroup::Arrange, EditorCommandGroup::Picture, EditorCommandGroup::View}) {
    lines_.append({groupTitle(group), {}});
    for (const EditorCommand command : commands.group(group)) {
      const QString keys = commands.keyText(command);
      if (!keys.isEmpty()) lines_.append({commands[command].text(), keyCaps(keys)});
    }
    const auto extra = [this](const QString& title, const QStringList& keys) { lines_.append({title, keys}); };
    switch (group) {
      case EditorCommandGroup::Tools:
        //% "Keep the Tool"
        extra(qtTrId("editor.shortcuts.lock"), {//% "double click"
                                                qtTrId("editor.shortcuts.doubleClick")});
        break;
      case EditorCommandGroup::Style:
        //% "Colors"
        extra(qtTrId("editor.shortcuts.colors"), {QStringLiteral("1"), QStringLiteral("…"), QStringLiteral("8")});
        break;
      case EditorCommandGroup::View:
        //% "Move the Picture"
        extra(qtTrId("editor.shortcuts.pan"), {//% "Space"
                                               qtTrId("editor.shortcuts.space"),
                                               //% "drag"
                                               qtTrId("editor.shortcuts.drag")});
        break;
      default:
        break;
    }
  }
  window->installEventFilter(this);
  setGeometry(window->rect());
  layOut();
}

void ShortcutsSheet::toggle(const EditorCommands& commands, QWidget* window) {
  if (auto* open = window->findChild<ShortcutsSheet*>(QString(), Qt::FindDirectChildrenOnly)) {
    open->deleteLater();
    open->hide();
    return;
  }
  auto* sheet = new ShortcutsSheet(commands, window);
  sheet->show();
  sheet->raise();
  sheet->setFocus();
}

int ShortcutsSheet::heightOf(int from, int to) const {
  int height = 0;
  for (int i = from; i < to; ++i) {
    height += lines_[i].keys.isEmpty() ? headingHeight + (i > from ? groupGap : 0) : lineHeight;
  }
  return height;
}

void ShortcutsSheet::layOut() {
  const int room = width() - 2 * (margin + padding);
  const int count = std::clamp((room + columnGap) / (columnWidth + columnGap), 1, 3);
  // The lowest columns that hold everything; groups stay whole.
  QList<int> starts;
  for (int i = 0; i < lines_.size(); ++i) {
    if (lines_[i].keys.isEmpty()) starts << i;
  }
  starts << static_cast<int>(lines_.size());
  for (int limit = heightOf(0, static_cast<int>(lines_.size())) / count;; limit += lineHeight) {
    columns_ = {{0, 0}};
    bool fits = true;
    for (int g = 0; g + 1 < starts.size(); ++g) {
      if (columns_.last().to > columns_.last().from && heightOf(columns_.last().from, starts[g + 1]) > limit) {
        if (columns_.size() == count) fits = false;
        columns_.append({starts[g], starts[g]});
      }
      columns_.last().to = starts[g + 1];
    }
    if (fits) break;
  }
  contentHeight_ = 0;
  for (const Column& column : columns_) contentHeight_ = std::max(contentHeight_, heightOf(column.from, column.to));
  scrollTo(offset_);
}

QRect ShortcutsSheet::panel() const {
  const auto count = static_cast<int>(columns_.size());
  QSize size(count * columnWidth + (count - 1) * columnGap + 2 * padding, contentHeight_ + titleHeight + 2 * padding);
  size = size.boundedTo(this->size() - QSize(2 * margin, 2 * margin));
  QRect place(QPoint(0, 0), size);
  place.moveCenter(rect().center());
  return place;
}

void ShortcutsSheet::scrollTo(int offset) {
  const int room = panel().height() - titleHeight - 2 * padding;
  offset_ = std::clamp(offset, 0, std::max(0, contentHeight_ - room));
  update();
}

void ShortcutsSheet::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const ThemeColors& palette = Theme::shared().palette();
  painter.fillRect(rect(), QColor(0, 0, 0, 90));
  const QRect place = panel();
  PanelShadow().paint(painter, place, tokens::windowRadius);
  fillRounded(painter, place, tokens::windowRadius, palette.raised);
  strokeRounded(painter, place, tokens::windowRadius, palette.line);
  painter.setPen(palette.text);
  painter.setFont(headingFont());
  painter.drawText(QRect(place.left() + padding, place.top() + padding - 4, place.width(), titleHeight - 8),
                   Qt::AlignLeft | Qt::AlignTop, accessibleName());
  const QRect content = place.adjusted(padding, padding + titleHeight - 4, -padding, -padding);
  painter.setClipRect(content.adjusted(-padding / 2, 0, padding / 2, padding / 2));
  for (int c = 0; c < columns_.size(); ++c) {
    const int x = content.left() + c * (columnWidth + columnGap);
    int y = content.top() - offset_;
    for (int i = columns_[c].from; i < columns_[c].to; ++i) {
      const Line& line = lines_[i];
      if (line.keys.isEmpty()) {
        if (i > columns_[c].from) y += groupGap;
        painter.setFont(bodyStrongFont());
        painter.setPen(palette.secondaryText);
        painter.drawText(QRect(x, y, columnWidth, headingHeight - 4), Qt::AlignLeft | Qt::AlignVCenter, line.title);
        y += headingHeight;
        continue;
      }
      const QFontMetrics metrics(badgeFont());
      int right = x + columnWidth;
      painter.setFont(badgeFont());
      for (auto key = line.keys.rbegin(); key != line.keys.rend(); ++key) {
        const int width = std::max(capHeight, metrics.horizontalAdvance(*key) + 2 * capPadding);
        const QRect cap(right - width, y + (lineHeight - capHeight) / 2, width, capHeight);
        fillRounded(painter, cap, 4, palette.sunken);
        strokeRounded(painter, cap, 4, palette.controlBorder);
        painter.setPen(palette.text);
        painter.drawText(cap, Qt::AlignCenter, *key);
        right -= width + capGap;
      }
      painter.setFont(bodyFont());
      painter.setPen(palette.text);
      const QRect room(x, y, right - x - capGap, lineHeight);
      painter.drawText(room, Qt::AlignLeft | Qt::AlignVCenter,
                       QFontMetrics(bodyFont()).elidedText(line.title, Qt::ElideRight, room.width()));
      y += lineHeight;
    }
  }
}

void ShortcutsSheet::resizeEvent(QResizeEvent*) {
  layOut();
}

void ShortcutsSheet::mousePressEvent(QMouseEvent*) {
  hide();
  deleteLater();
}

bool ShortcutsSheet::event(QEvent* event) {
  // No command may run below the sheet; its keys are only listed here.
  if (event->type() == QEvent::ShortcutOverride) {
    event->accept();
    return true;
  }
  return QWidget::event(event);
}

void ShortcutsSheet::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Up:
      return scrollTo(offset_ - lineHeight);
    case Qt::Key_Down:
      return scrollTo(offset_ + lineHeight);
    case Qt::Key_PageUp:
      return scrollTo(offset_ - height() / 2);
    case Qt::Key_PageDown:
      return scrollTo(offset_ + height() / 2);
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Alt:
    case Qt::Key_Meta:
      return;
    default:
      hide();
      deleteLater();
  }
}

void ShortcutsSheet::wheelEvent(QWheelEvent* event) {
  scrollTo(offset_ - event->angleDelta().y() / 2);
}

bool ShortcutsSheet::eventFilter(QObject* watched, QEvent* event) {
  if (watched == parentWidget() && event->type() == QEvent::Resize) setGeometry(parentWidget()->rect());
  return false;
}

}  // namespace vellora
