#include "editor/ui/compressor/ComparisonAccessible.h"

#include <cmath>

#include <QAccessible>
#include <QAccessibleWidget>

#include "editor/ui/compressor/ComparisonView.h"

namespace vellora {
namespace {

constexpr int mostPercent = 100;
constexpr int percentStep = 1;

/// The divider in percent, from all after (0) to all before.
class ComparisonAccessible final : public QAccessibleWidget, public QAccessibleValueInterface {
 public:
  explicit ComparisonAccessible(ComparisonView& view) : QAccessibleWidget(&view, QAccessible::Slider), view_(view) {}

  void* interface_cast(QAccessible::InterfaceType type) override {
    if (type == QAccessible::ValueInterface) return static_cast<QAccessibleValueInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
  }
  QString text(QAccessible::Text kind) const override {
    if (kind != QAccessible::Value) return QAccessibleWidget::text(kind);
    //% "%1 % before"
    return qtTrId("compress.compare.value").arg(currentValue().toInt());
  }

  QVariant currentValue() const override { return static_cast<int>(std::lround(view_.divider() * mostPercent)); }
  void setCurrentValue(const QVariant& value) override { view_.setDivider(value.toDouble() / mostPercent); }
  QVariant maximumValue() const override { return mostPercent; }
  QVariant minimumValue() const override { return 0; }
  QVariant minimumStepSize() const override { return percentStep; }

 private:
  ComparisonView& view_;
};

QAccessibleInterface* make(const QString&, QObject* object) {
  auto* view = qobject_cast<ComparisonView*>(object);
  return view == nullptr ? nullptr : new ComparisonAccessible(*view);
}

}  // namespace

void installComparisonAccessible() {
  static const bool once = [] {
    QAccessible::installFactory(make);
    return true;
  }();
  static_cast<void>(once);
}

void announceComparison(ComparisonView& view) {
  QAccessibleValueChangeEvent event(&view, static_cast<int>(std::lround(view.divider() * mostPercent)));
  QAccessible::updateAccessibility(&event);
}

}  // namespace vellora
