#include "editor/ui/backdrop/ColorPopover.h"

#include <QPointer>
#include <QVBoxLayout>

#include "kit/ColorPicker.h"
#include "kit/Popover.h"

namespace vellora {
namespace {

ColorComponents fromColor(const QColor& color) {
  return {color.redF(), color.greenF(), color.blueF(), color.alphaF()};
}

}  // namespace

QColor toColor(const ColorComponents& color) {
  return QColor::fromRgbF(static_cast<float>(color.red), static_cast<float>(color.green),
                          static_cast<float>(color.blue), static_cast<float>(color.alpha));
}

void openColorChooser(QWidget* owner, const QString& title, const ColorComponents& color, const ColorSampler& sampler,
                      std::function<void(const ColorComponents&)> chosen, std::function<void()> settled) {
  auto* popover = new Popover(title, owner);
  auto* column = new QVBoxLayout(popover);
  column->setContentsMargins(0, 0, 0, 0);
  auto* picker = new ColorPicker(toColor(color), popover);
  column->addWidget(picker);
  QObject::connect(picker, &ColorPicker::colorChanged, owner,
                   [chosen](const QColor& changed) { chosen(fromColor(changed)); });
  QObject::connect(picker, &ColorPicker::settled, owner, settled);
  QObject::connect(popover, &Popover::closed, owner, settled);
  QObject::connect(picker, &ColorPicker::eyedropperRequested, owner, [=, guard = QPointer(owner)] {
    popover->close();
    if (!sampler) return;
    sampler([=](const QColor& sampled) {
      if (guard.isNull()) return;
      chosen(fromColor(sampled));
      settled();
    });
  });
  popover->open();
}

}  // namespace vellora
