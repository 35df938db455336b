#include "editor/ui/backdrop/StylesSection.h"

#include <QContextMenuEvent>
#include <QGridLayout>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <QPainterPath>

#include "editor/BackdropStyles.h"
#include "editor/backdrop/BackdropPainter.h"
#include "editor/ui/backdrop/BackdropState.h"
#include "editor/ui/backdrop/TileButton.h"
#include "kit/Button.h"
#include "kit/Menu.h"
#include "kit/Popover.h"
#include "kit/TextField.h"
#include "kit/TextLabel.h"
#include "kit/Tokens.h"

namespace vellora {
namespace {

constexpr QSize styleTile(112, 60);
constexpr int columns = 2;

/// The background with a card in the place and shape of a content.
void paintStyle(QPainter& painter, const QRectF& rect, const BackdropSettings& settings) {
  BackdropPainter().drawBackground(painter, rect, settings.background);
  const double margin = rect.height() * (0.10 + std::min(settings.insetFraction, 0.3));
  QRectF card(0, 0, (rect.height() - 2 * margin) * 1.6, rect.height() - 2 * margin);
  painter.save();
  painter.translate(rect.center());
  painter.rotate(settings.rotation);
  painter.shear(-settings.tiltY / 120, settings.tiltX / 160);
  card.moveCenter({0, 0});
  const double radius = std::min(settings.innerRadius / 4, card.height() / 4);
  painter.setPen(Qt::NoPen);
  for (int i = 5; i >= 1; --i) {
    painter.setBrush(QColor::fromRgbF(0, 0, 0, static_cast<float>(settings.shadow * 0.14)));
    painter.drawRoundedRect(card.adjusted(-i, -i + 2, i, i + 2), radius + i, radius + i);
  }
  const bool dark = settings.deviceFrame == DeviceFrame::BrowserDark ||
                    settings.deviceFrame == DeviceFrame::LaptopDark || settings.deviceFrame == DeviceFrame::PhoneDark;
  painter.setBrush(dark ? QColor(0x24262B) : QColor(Qt::white));
  painter.drawRoundedRect(card, radius, radius);
  painter.setBrush(dark ? QColor(255, 255, 255, 50) : QColor(0, 0, 0, 36));
  for (int i = 0; i < 3; ++i) {
    painter.drawRoundedRect(QRectF(card.left() + 6, card.top() + 6 + 6.0 * i, card.width() * (0.55 - 0.12 * i), 2.5),
                            1.2, 1.2);
  }
  painter.restore();
}

}  // namespace

StylesSection::StylesSection(BackdropState& state, BackdropStyles& styles, QWidget* parent)
    //% "Saved styles"
    : PanelSection(qtTrId("backdrop.styles"), parent),
      state_(state),
      styles_(styles),
      shelf_(new QWidget(this)),
      grid_(new QGridLayout(shelf_)),
      //% "Save this style…"
      save_(new Button(Button::Role::Secondary, qtTrId("backdrop.styles.save"), this)) {
  grid_->setContentsMargins(0, 0, 0, 0);
  grid_->setHorizontalSpacing(tokens::space2);
  grid_->setVerticalSpacing(0);
  for (int i = 0; i < columns; ++i) grid_->setColumnStretch(i, 1);
  add(shelf_);
  save_->setIconName(QStringLiteral("add"));
  add(save_);
  connect(save_, &QAbstractButton::clicked, this, [this] {
    //% "Style %1"
    const QString suggestion = qtTrId("backdrop.styles.suggestion").arg(styles_.styles().size() + 1);
    askName(save_, save_->text(), suggestion, [this](const QString& name) {
      styles_.add(name, state_.settings());
      rebuild();
    });
  });
  connect(&state_, &BackdropState::shown, this, &StylesSection::refresh);
  rebuild();
}

void StylesSection::rebuild() {
  for (QWidget* tile : tiles_) tile->parentWidget()->deleteLater();
  tiles_.clear();
  int index = 0;
  for (const BackdropStyle& style : styles_.styles()) {
    auto* holder = new QWidget(shelf_);
    auto* column = new QVBoxLayout(holder);
    column->setContentsMargins(0, 0, 0, tokens::space1);
    column->setSpacing(2);
    auto* tile = new TileButton(styleTile, style.name, holder);
    //% "Click applies the style; a right click renames, renews or deletes it"
    tile->setToolTip(style.name + QStringLiteral("\n") + qtTrId("backdrop.styles.help"));
    tile->setPreview(
        [settings = style.settings](QPainter& painter, const QRectF& rect) { paintStyle(painter, rect, settings); });
    tile->installEventFilter(this);
    connect(tile, &QAbstractButton::clicked, this, [this, tile] {
      state_.replace(styles_.styles()[indexOf(tile)].settings);
      refresh();
    });
    column->addWidget(tile);
    auto* name = new TextLabel(TextLabel::Role::Secondary, {}, holder);
    name->setText(name->fontMetrics().elidedText(style.name, Qt::ElideRight, styleTile.width()));
    column->addWidget(name);
    grid_->addWidget(holder, index / columns, index % columns);
    holder->show();
    tiles_ << tile;
    ++index;
  }
  shelf_->setVisible(!tiles_.isEmpty());
  save_->setEnabled(styles_.styles().size() < BackdropStyles::limit);
  refresh();
}

void StylesSection::refresh() {
  for (qsizetype i = 0; i < tiles_.size(); ++i) {
    static_cast<TileButton*>(tiles_[i])->setChecked(styles_.styles()[static_cast<std::size_t>(i)].settings ==
                                                    state_.settings());
  }
}

std::size_t StylesSection::indexOf(const QObject* tile) const {
  for (qsizetype i = 0; i < tiles_.size(); ++i) {
    if (tiles_[i] == tile) return static_cast<std::size_t>(i);
  }
  return 0;
}

bool StylesSection::eventFilter(QObject* watched, QEvent* event) {
  auto* const tile = static_cast<QWidget*>(watched);
  if (event->type() == QEvent::ContextMenu) {
    openMenu(*tile, static_cast<QContextMenuEvent*>(event)->globalPos());
    return true;
  }
  if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Delete) {
    remove(indexOf(tile));
    return true;
  }
  return PanelSection::eventFilter(watched, event);
}

void StylesSection::openMenu(QWidget& tile, const QPoint& place) {
  const std::size_t index = indexOf(&tile);
  auto* menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  //% "Rename…"
  menu->addAction(qtTrId("backdrop.styles.rename"), this, [this, index, &tile] {
    //% "Rename"
    askName(&tile, qtTrId("backdrop.styles.renameAction"), styles_.styles()[index].name,
            [this, index](const QString& name) {
              styles_.rename(index, name);
              rebuild();
            });
  });
  //% "Replace with the current backdrop"
  menu->addAction(qtTrId("backdrop.styles.update"), this, [this, index] {
    styles_.update(index, state_.settings());
    rebuild();
  });
  menu->addSeparator();
  //% "Delete"
  menu->addAction(qtTrId("backdrop.styles.delete"), this, [this, index] { remove(index); });
  styleMenu(*menu);
  menu->popup(place);
}

void StylesSection::remove(std::size_t index) {
  styles_.remove(index);
  rebuild();
}

void StylesSection::askName(QWidget* owner, const QString& title, const QString& name,
                            std::function<void(const QString&)> named) {
  auto* popover = new Popover(title, owner);
  auto* row = new QHBoxLayout(popover);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(tokens::space2);
  auto* field = new TextField(popover);
  //% "Name of the style"
  field->setAccessibleName(qtTrId("backdrop.styles.name"));
  field->setMaxLength(BackdropStyles::nameLength);
  field->setText(name);
  field->selectAll();
  field->setMinimumWidth(150);
  row->addWidget(field);
  //% "Save"
  auto* accept = new PrimaryButton(qtTrId("backdrop.styles.accept"), popover);
  row->addWidget(accept);
  const auto take = [popover, field, named] {
    const QString chosen = field->text().simplified();
    field->setInvalid(chosen.isEmpty());
    if (chosen.isEmpty()) return;
    popover->close();
    named(chosen);
  };
  connect(field, &QLineEdit::returnPressed, this, take);
  connect(accept, &QAbstractButton::clicked, this, take);
  popover->open();
}

}  // namespace vellora
