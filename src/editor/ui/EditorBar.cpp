#include "editor/ui/EditorBar.h"

#include <algorithm>
#include <utility>

#include <QApplication>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>

#include "editor/canvas/CanvasModel.h"
#include "editor/ui/CommandButton.h"
#include "editor/ui/StyleSection.h"
#include "editor/ui/StyleStrip.h"
#include "kit/Button.h"
#include "kit/Menu.h"
#include "kit/Paint.h"
#include "kit/Theme.h"
#include "kit/Tokens.h"

namespace vellora {
namespace {

constexpr int pitch = 33;  // from one button to the next: their focus rings may overlap
constexpr int sidePadding = tokens::space1 + 2;
constexpr int groupGap = 11;
constexpr int styleGap = tokens::space3;
constexpr int dividerHeight = 20;
constexpr std::size_t leastTools = 4;

int widthOf(std::size_t buttons) {
  return static_cast<int>(buttons) * pitch;
}

}  // namespace

EditorBar::EditorBar(StyleContext& context, QWidget* parent) : QWidget(parent), context_(context) {
  //% "Tools and style"
  setAccessibleName(qtTrId("editor.bar"));
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  EditorCommands& commands = context.commands;
  for (const Tool tool : {Tool::Select, Tool::Arrow, Tool::Box, Tool::Ellipse, Tool::Line, Tool::Pen, Tool::Text,
                          Tool::Counter, Tool::Blur, Tool::Magnifier}) {
    IconButton* button = makeCommandButton(commands, commandOf(tool), this);
    button->installEventFilter(this);
    tools_.push_back({commandOf(tool), tool, button});
  }
  crop_ = makeCommandButton(commands, EditorCommand::Crop, this);
  //% "More tools"
  overflow_ = new IconButton(QStringLiteral("chevron"), qtTrId("editor.moreTools"), {}, this);
  overflow_->setIconSide(18);
  overflow_->setFocusPolicy(Qt::TabFocus);
  overflow_->setCheckable(true);
  connect(overflow_, &IconButton::clicked, this, &EditorBar::openOverflow);
  undo_ = makeCommandButton(commands, EditorCommand::Undo, this);
  redo_ = makeCommandButton(commands, EditorCommand::Redo, this);
  style_ = new StyleStrip(context, this);
  backdrop_ = makeCommandButton(commands, EditorCommand::Backdrop, this);
  //% "Drag the picture into another program"
  drag_ = new IconButton(QStringLiteral("drag.out"), qtTrId("editor.dragOut"), {}, this);
  drag_->setIconSide(18);
  drag_->setFocusPolicy(Qt::NoFocus);
  drag_->setCursor(Qt::OpenHandCursor);
  drag_->installEventFilter(this);
  pin_ = makeCommandButton(commands, EditorCommand::Pin, this);
  save_ = makeCommandButton(commands, EditorCommand::Save, this);
  copy_ = makeCommandButton(commands, EditorCommand::CopyPicture, this);
  more_ = makeCommandButton(commands, EditorCommand::More, this);
  repaintOnThemeChange(*this);
  connect(&Theme::shared(), &Theme::changed, this, &EditorBar::refresh);
  setCopyOutdated(false);
}

QSize EditorBar::sizeHint() const {
  return {widthOf(tools_.size() + 8) + 2 * groupGap + style_->widthIn(StyleStrip::Open), tokens::barHeight};
}

QSize EditorBar::minimumSizeHint() const {
  return {2 * sidePadding + widthOf(leastTools + 1 + 2 + 2) + 2 * groupGap + 160, tokens::barHeight};
}

void EditorBar::refresh() {
  const CanvasModel& model = context_.model;
  const bool cropping = model.isCropping();
  for (const ToolButton& entry : tools_) {
    const bool active = !cropping && model.tool() == entry.tool;
    const bool locked = active && entry.tool != Tool::Select && model.isToolLocked();
    context_.commands[entry.command].setChecked(active);
    entry.button->setDot(locked ? Theme::shared().palette().onFill : QColor());
  }
  context_.commands[EditorCommand::Crop].setChecked(cropping);
  style_->refresh();
  layOut();
}

void EditorBar::setCopyOutdated(bool outdated) {
  copyOutdated_ = outdated;
  copy_->setDot(outdated ? Theme::shared().palette().warning : QColor());
  const QString name = context_.commands[EditorCommand::CopyPicture].text();
  //% "%1: the clipboard holds an older state"
  copy_->setTitle(outdated ? qtTrId("editor.copy.outdated").arg(name) : name,
                  context_.commands.keyText(EditorCommand::CopyPicture));
}

void EditorBar::takeFocus() {
  for (const ToolButton& entry : tools_) {
    if (entry.button->isVisible() && entry.button->isChecked()) return entry.button->setFocus(Qt::TabFocusReason);
  }
  tools_.front().button->setFocus(Qt::TabFocusReason);
}

void EditorBar::resizeEvent(QResizeEvent*) {
  layOut();
}

void EditorBar::layOut() {
  const int room = width() - 2 * sidePadding;
  const std::size_t toolCount = tools_.size() + 1;  // with crop
  std::size_t shown = toolCount;
  bool wide = true;  // with the buttons whose commands the menu has as well
  bool saves = true;
  int fold = StyleStrip::Open;
  const auto offered = [this](EditorCommand command) { return context_.commands[command].isVisible(); };
  const auto needed = [&] {
    const std::size_t left = shown + (shown < toolCount ? 1 : 0) + 2;
    const std::size_t right = (saves && offered(EditorCommand::Save) ? 1u : 0u) +
                              (offered(EditorCommand::CopyPicture) ? 1u : 0u) + 1 +
                              (wide ? 2u + (offered(EditorCommand::Pin) ? 1u : 0u) : 0u);
    const int style = style_->widthIn(static_cast<StyleStrip::Fold>(fold));
    return widthOf(left + right) + (wide ? 2 : 1) * groupGap + (style > 0 ? style + 2 * styleGap : styleGap);
  };
  while (needed() > room && fold < StyleStrip::SwitchesFolded) ++fold;
  if (needed() > room) wide = false;
  while (needed() > room && shown > leastTools) --shown;
  if (needed() > room) saves = false;
  shownTools_ = shown;

  const std::vector<int> before = std::exchange(dividers_, {});
  const bool mirrored = layoutDirection() == Qt::RightToLeft;
  const auto put = [&](QWidget* widget, int x, bool visible) {
    if (visible) {
      const QSize size = widget->sizeHint();
      const int left = mirrored ? width() - x - size.width() : x;
      widget->setGeometry(left, (height() - size.height()) / 2, size.width(), size.height());
    }
    widget->setVisible(visible);
  };
  int x = sidePadding;
  const auto next = [&](QWidget* widget, bool visible) {
    put(widget, x, visible);
    if (visible) x += pitch;
  };
  const auto divide = [&] {
    dividers_.push_back(x + groupGap / 2 + 1);
    x += groupGap;
  };
  for (std::size_t i = 0; i < tools_.size(); ++i) next(tools_[i].button, i < shown);
  next(crop_, shown == toolCount);
  next(overflow_, shown < toolCount);
  bool hiddenActive = context_.model.isCropping();
  QString shownIcon = hiddenActive ? iconName(EditorCommand::Crop) : QStringLiteral("chevron");
  for (std::size_t i = shown; i < tools_.size(); ++i) {
    if (!tools_[i].button->isChecked()) continue;
    hiddenActive = true;
    shownIcon = iconName(tools_[i].command);
  }
  overflow_->setChecked(hiddenActive);
  if (overflow_->isVisible()) overflow_->setIconName(shownIcon);
  divide();
  next(undo_, true);
  next(redo_, true);
  const int leftEnd = x;

  const std::size_t lastGroup = (saves && offered(EditorCommand::Save) ? 1u : 0u) +
                                (offered(EditorCommand::CopyPicture) ? 1u : 0u) + 1 +
                                (wide && offered(EditorCommand::Pin) ? 1u : 0u) + (wide ? 1u : 0u);
  x = width() - sidePadding - widthOf(lastGroup) - 3;
  const int rightStart = wide ? x - groupGap - pitch : x;
  put(backdrop_, rightStart, wide);
  if (wide) dividers_.push_back(x - groupGap / 2);
  next(copy_, offered(EditorCommand::CopyPicture));
  next(save_, saves && offered(EditorCommand::Save));
  next(pin_, wide && offered(EditorCommand::Pin));
  next(drag_, wide);
  next(more_, true);

  const int styleWidth = style_->widthIn(static_cast<StyleStrip::Fold>(fold));
  style_->setVisible(styleWidth > 0);
  if (styleWidth > 0) {
    dividers_.push_back(leftEnd + groupGap / 2 + 1);
    // In the middle of the bar where that leaves both neighbours alone.
    const int most = std::max(leftEnd + styleGap, rightStart - styleGap - styleWidth);
    const int at = std::clamp((leftEnd + rightStart - styleWidth) / 2, leftEnd + styleGap, most);
    style_->setGeometry(mirrored ? width() - at - styleWidth : at, 0, styleWidth, height());
    style_->setFold(static_cast<StyleStrip::Fold>(fold));
  }
  if (dividers_ != before) update();
}

void EditorBar::openOverflow() {
  overflow_->setChecked(false);
  auto* menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  for (std::size_t i = shownTools_; i < tools_.size(); ++i) menu->addAction(&context_.commands[tools_[i].command]);
  menu->addAction(&context_.commands[EditorCommand::Crop]);
  styleMenu(*menu);
  connect(menu, &QMenu::aboutToHide, this, &EditorBar::refresh);
  menu->popup(overflow_->mapToGlobal(QPoint(0, overflow_->height())));
}

void EditorBar::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const ThemeColors& palette = Theme::shared().palette();
  painter.fillRect(rect(), palette.surface);
  drawHorizontalLine(painter, 0, width(), height() - 1, palette.line);
  for (const int divider : dividers_) {
    const double x = layoutDirection() == Qt::RightToLeft ? width() - divider : divider;
    QRectF line(x, (height() - dividerHeight) / 2.0, 1, dividerHeight);
    line = snapped(painter, line);
    line.setWidth(hairline(painter));
    painter.fillRect(line, palette.line);
  }
}

bool EditorBar::takesDrag(const QMouseEvent& mouse) {
  if (mouse.type() == QEvent::MouseButtonPress && mouse.button() == Qt::LeftButton) {
    dragFrom_ = mouse.position().toPoint();
    dragging_ = true;
    emit dragPressed();
    return true;
  }
  if (mouse.type() == QEvent::MouseMove && dragging_) {
    const QPoint way = mouse.position().toPoint() - dragFrom_;
    if (way.manhattanLength() < QApplication::startDragDistance()) return true;
    dragging_ = false;
    emit dragStarted();
    return true;
  }
  if (mouse.type() == QEvent::MouseButtonRelease) dragging_ = false;
  return false;
}

bool EditorBar::eventFilter(QObject* watched, QEvent* event) {
  if (watched == drag_) {
    if (const auto* mouse = dynamic_cast<QMouseEvent*>(event); mouse != nullptr && takesDrag(*mouse)) return true;
  } else if (event->type() == QEvent::MouseButtonDblClick) {
    for (const ToolButton& entry : tools_) {
      if (entry.button == watched) emit toolLocked(entry.tool);
    }
    return true;
  }
  return QWidget::eventFilter(watched, event);
}

}  // namespace vellora
