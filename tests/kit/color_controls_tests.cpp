#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QLineEdit>
#include <QPointer>
#include <QVBoxLayout>

#include "kit/Button.h"
#include "kit/ColorPicker.h"
#include "kit/ColorSwatch.h"
#include "kit/Popover.h"
#include "kit/SegmentedControl.h"
#include "kit/WidgetEvents.h"

namespace vellora {
namespace {

TEST(ColorPicker, ReadsAndWritesHexadecimalColours) {
  EXPECT_EQ(colorFromHex(QStringLiteral("#2f6FED")), QColor(0x2F, 0x6F, 0xED));
  EXPECT_EQ(colorFromHex(QStringLiteral(" abc ")), QColor(0xAA, 0xBB, 0xCC));
  EXPECT_EQ(colorFromHex(QStringLiteral("11223380")), QColor(0x11, 0x22, 0x33, 0x80));
  for (const char* wrong : {"", "#", "12", "12345", "#12345g", "red", "1234567", "123456789", "+12345"}) {
    EXPECT_FALSE(colorFromHex(QString::fromLatin1(wrong)).isValid()) << wrong;
  }
  EXPECT_EQ(hexOfColor(QColor(0x11, 0x22, 0x33, 0x80)), QStringLiteral("#11223380"));
  EXPECT_EQ(hexOfColor(QColor(0xAA, 0xBB, 0xCC)), QStringLiteral("#AABBCC"));
}

TEST(ColorPicker, KeepsTheHueThroughBlack) {
  test::ThemeForTest theme;
  ColorPicker picker(QColor::fromHsv(200, 255, 255));
  QColor last;
  int settled = 0;
  QObject::connect(&picker, &ColorPicker::colorChanged, [&](const QColor& color) { last = color; });
  QObject::connect(&picker, &ColorPicker::settled, [&] { ++settled; });
  picker.resize(picker.sizeHint());
  picker.show();
  QWidget* plane = nullptr;
  for (QWidget* child : picker.findChildren<QWidget*>()) {
    if (child->height() > 100) plane = child;
  }
  ASSERT_NE(plane, nullptr);
  test::click(*plane, {plane->width() - 1, plane->height() - 1});
  EXPECT_LT(last.value(), 3);
  picker.setColor(last);
  test::click(*plane, {plane->width() - 1, 1});
  EXPECT_NEAR(last.hsvHue(), 200, 2);
  EXPECT_EQ(settled, 2);
}

TEST(ColorPicker, TakesWhatIsTypedOnceItIsAColour) {
  test::ThemeForTest theme;
  ColorPicker picker(Qt::red);
  picker.show();
  auto* field = picker.findChild<QLineEdit*>();
  ASSERT_NE(field, nullptr);
  int changes = 0;
  QObject::connect(&picker, &ColorPicker::colorChanged, [&] { ++changes; });
  field->setFocus();
  emit field->textEdited(QStringLiteral("#00F"));
  EXPECT_EQ(changes, 1);
  EXPECT_EQ(picker.color().rgb(), QColor(Qt::blue).rgb());
  emit field->textEdited(QStringLiteral("#00"));
  EXPECT_EQ(changes, 1);
}

TEST(SegmentedControl, TellsOfAnotherChoiceOnly) {
  test::ThemeForTest theme;
  SegmentedControl control({{{}, QStringLiteral("One"), {}}, {{}, QStringLiteral("Two"), {}}});
  control.show();
  QList<int> chosen;
  QObject::connect(&control, &SegmentedControl::chosen, [&](int index) { chosen << index; });
  const auto buttons = control.findChildren<QAbstractButton*>();
  ASSERT_EQ(buttons.size(), 2);
  control.setCurrent(1);
  EXPECT_TRUE(chosen.isEmpty());
  buttons[1]->click();
  EXPECT_TRUE(chosen.isEmpty());
  buttons[0]->click();
  EXPECT_EQ(chosen, QList<int>{0});
  control.setCurrent(-1);
  EXPECT_FALSE(buttons[0]->isChecked());
  EXPECT_FALSE(buttons[1]->isChecked());
}

TEST(Popover, StaysOnTheScreenAndGoesOnEscape) {
  test::ThemeForTest theme;
  QWidget window;
  auto* owner = new SecondaryButton(QStringLiteral("Open"), &window);
  const QRect area = window.screen()->availableGeometry();
  window.setGeometry(area.right() - 80, area.bottom() - 60, 80, 60);
  window.show();
  QPointer<Popover> popover = new Popover(QStringLiteral("Panel"), owner);
  auto* column = new QVBoxLayout(popover);
  column->addWidget(new SecondaryButton(QStringLiteral("Inside"), popover));
  int closes = 0;
  QObject::connect(popover, &Popover::closed, [&] { ++closes; });
  popover->open();
  EXPECT_TRUE(area.contains(popover->panelRect().translated(popover->pos())));
  test::type(*popover, Qt::Key_Escape);
  EXPECT_TRUE(test::runUntil([&] { return popover.isNull(); }));
  EXPECT_EQ(closes, 1);
}

}  // namespace
}  // namespace vellora
