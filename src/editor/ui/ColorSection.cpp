#include "editor/ui/ColorSection.h"

#include <algorithm>

#include <QContextMenuEvent>
#include <QHBoxLayout>
#include <QMenu>
#include <QMouseEvent>
#include <QPointer>
#include <QVBoxLayout>

#include "editor/CustomColors.h"
#include "editor/Palette.h"
#include "kit/Button.h"
#include "kit/ColorPicker.h"
#include "kit/ColorSwatch.h"
#include "kit/Icons.h"
#include "kit/Menu.h"
#include "kit/Popover.h"
#include "kit/Tokens.h"

namespace vellora {
namespace {

const std::string coalescingKey = "customColor";

QStringList paletteNames() {
  return {
      //% "Red"
      qtTrId("color.red"),
      //% "Orange"
      qtTrId("color.orange"),
      //% "Yellow"
      qtTrId("color.yellow"),
      //% "Green"
      qtTrId("color.green"),
      //% "Blue"
      qtTrId("color.blue"),
      //% "Violet"
      qtTrId("color.violet"),
      //% "Pink"
      qtTrId("color.pink"),
      //% "Slate"
      qtTrId("color.slate"),
  };
}

}  // namespace

bool hasColor(Annotation::Kind kind) {
  return kind != Annotation::Kind::Blur && kind != Annotation::Kind::Magnifier;
}

void openColorPopover(StyleContext& context, QWidget* owner, const ColorComponents& color,
                      std::function<void(const ColorComponents&)> changed, std::function<void()> settled,
                      std::function<void()> removed) {
  //% "Color"
  auto* popover = new Popover(qtTrId("editor.color"), owner);
  auto* column = new QVBoxLayout(popover);
  column->setContentsMargins({});
  auto* picker = new ColorPicker(toQColor(color), popover);
  column->addWidget(picker);
  QObject::connect(picker, &ColorPicker::colorChanged, popover,
                   [changed](const QColor& chosen) { changed(toComponents(chosen)); });
  QObject::connect(picker, &ColorPicker::settled, popover, settled);
  QObject::connect(picker, &ColorPicker::eyedropperRequested, popover, [popover, changed, settled, &context] {
    popover->close();
    context.pickColor([changed, settled](ColorComponents picked) {
      changed(picked);
      settled();
    });
  });
  if (removed) {
    //% "Delete Color"
    auto* remove = new Button(Button::Role::Quiet, qtTrId("editor.swatch.delete"), popover);
    remove->setIconName(QStringLiteral("trash"));
    QObject::connect(remove, &Button::clicked, popover, [popover, removed] {
      popover->close();
      removed();
    });
    column->addWidget(remove, 0, Qt::AlignLeft);
  }
  QObject::connect(popover, &Popover::closed, popover, settled);
  popover->open();
}

ColorSection::ColorSection(StyleContext& styleContext, QWidget* parent) : StyleSection(styleContext, parent) {
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins({});
  row->setSpacing(0);
  const QStringList names = paletteNames();
  for (std::size_t i = 0; i < Palette::swatches.size(); ++i) {
    addSwatch(Palette::swatches[i], names[static_cast<qsizetype>(i)], QString::number(i + 1));
  }
  //% "Add a color of your own"
  const QString addTitle = qtTrId("editor.swatch.add");
  add_ = new ColorSwatch({}, addTitle, this);
  connect(add_, &ColorSwatch::clicked, this, &ColorSection::addCustomColor);
  row->addWidget(add_);
  layOutCustomColors();
}

void ColorSection::addSwatch(const ColorComponents& color, const QString& title, const QString& key) {
  auto* swatch = new ColorSwatch(toQColor(color), {}, this);
  swatch->setTitle(title, key);
  swatch->setCheckable(true);
  connect(swatch, &ColorSwatch::clicked, this, [this, color] {
    model().setColor(color);
    context().refresh();
  });
  layout()->addWidget(swatch);
  palette_.push_back(swatch);
}

void ColorSection::layOutCustomColors() {
  const std::vector<ColorComponents>& colors = context().customColors.colors();
  auto* row = static_cast<QHBoxLayout*>(layout());
  while (custom_.size() > colors.size()) {
    // It may be the sender of the very click that is being carried out.
    custom_.back()->hide();
    custom_.back()->deleteLater();
    row->removeWidget(custom_.back());
    custom_.pop_back();
  }
  while (custom_.size() < colors.size()) {
    const std::size_t index = custom_.size();
    auto* swatch = new ColorSwatch({}, {}, this);
    swatch->setCheckable(true);
    swatch->installEventFilter(this);
    connect(swatch, &ColorSwatch::clicked, this, [this, index] {
      model().setColor(context().customColors.colors().at(index));
      context().refresh();
    });
    row->insertWidget(row->count() - 1, swatch);
    swatch->show();
    custom_.push_back(swatch);
  }
  for (std::size_t i = 0; i < colors.size(); ++i) {
    custom_[i]->setColor(toQColor(colors[i]));
    //% "Your color %1 (double click to edit)"
    custom_[i]->setTitle(qtTrId("editor.swatch.tooltip").arg(hexOfColor(toQColor(colors[i]))));
  }
  add_->setVisible(colors.size() < CustomColors::limit);
}

bool ColorSection::refresh(const StyleState& style) {
  current_ = style.color;
  layOutCustomColors();
  const auto show = [this](ColorSwatch& swatch, const ColorComponents& color) {
    swatch.setChecked(current_ && isSameColor(*current_, color));
  };
  for (std::size_t i = 0; i < palette_.size(); ++i) show(*palette_[i], Palette::swatches[i]);
  const auto& colors = context().customColors.colors();
  for (std::size_t i = 0; i < custom_.size(); ++i) show(*custom_[i], colors[i]);
  return std::ranges::any_of(style.kinds, hasColor);
}

void ColorSection::addCustomColor() {
  const ColorComponents start = current_.value_or(Palette::red);
  const auto index = context().customColors.add(start);
  if (!index) return;
  layOutCustomColors();
  context().refresh();
  openPicker(*index, add_->isVisible() ? static_cast<QWidget*>(add_) : custom_.back());
}

void ColorSection::openPicker(std::size_t customIndex, QWidget* owner) {
  StyleContext& shared = context();
  // The section may be gone when a picked colour comes: it stands in a popover itself where the bar is narrow.
  const auto changed = [&shared, customIndex](const ColorComponents& color) {
    if (customIndex >= shared.customColors.colors().size()) return;
    shared.customColors.update(color, customIndex);
    shared.model.setColor(color, coalescingKey);
    shared.refresh();
  };
  const auto removed = [&shared, customIndex] {
    shared.customColors.remove(customIndex);
    shared.refresh();
  };
  openColorPopover(
      shared, owner, shared.customColors.colors().at(customIndex), changed, [&shared] { shared.model.endCoalescing(); },
      removed);
}

void ColorSection::openMenu(std::size_t customIndex, const QPoint& at) {
  QMenu menu;
  //% "Edit Color…"
  QAction* edit = menu.addAction(icon(QStringLiteral("editor")), qtTrId("editor.swatch.edit"));
  QAction* remove = menu.addAction(icon(QStringLiteral("trash")), qtTrId("editor.swatch.delete"));
  styleMenu(menu);
  const QPointer<ColorSection> self = this;
  const QAction* chosen = menu.exec(at);
  if (!self || chosen == nullptr || customIndex >= custom_.size()) return;
  if (chosen == edit) openPicker(customIndex, custom_[customIndex]);
  if (chosen == remove) {
    context().customColors.remove(customIndex);
    context().refresh();
  }
}

bool ColorSection::eventFilter(QObject* watched, QEvent* event) {
  const auto at = std::ranges::find(custom_, watched);
  if (at == custom_.end()) return StyleSection::eventFilter(watched, event);
  const auto index = static_cast<std::size_t>(at - custom_.begin());
  if (event->type() == QEvent::MouseButtonDblClick) {
    openPicker(index, *at);
    return true;
  }
  if (event->type() == QEvent::ContextMenu) {
    openMenu(index, static_cast<QContextMenuEvent*>(event)->globalPos());
    return true;
  }
  return StyleSection::eventFilter(watched, event);
}

}  // namespace vellora
