#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QLineEdit>
#include <QPointer>
#include <QScreen>
#include <QTimer>

#include "kit/Compositing.h"
#include "kit/Toast.h"
#include "kit/Tokens.h"
#include "kit/WidgetEvents.h"

namespace vellora {
namespace {

class ToastTest : public testing::Test {
 protected:
  ~ToastTest() override { Toast::dismiss(); }

  static Toast& showToast(const QString& text, ToastKind kind = ToastKind::Success) {
    Toast::show(QString(), text, kind, QGuiApplication::primaryScreen());
    return *Toast::current();
  }

  /// The panel on the desktop, without the room of its shadow.
  static QRect panelOnScreen(const Toast& toast) { return toast.panelRect().translated(toast.pos()); }

  test::ThemeForTest theme_;
};

TEST_F(ToastTest, ANewOneTakesThePlaceOfTheOldAtOnce) {
  const QPointer<Toast> first = &showToast(QStringLiteral("one"));
  const QPointer<Toast> second = &showToast(QStringLiteral("two"));
  EXPECT_FALSE(first->isVisible());
  EXPECT_TRUE(second->isVisible());
  EXPECT_EQ(second->accessibleName(), QStringLiteral("two"));
  EXPECT_TRUE(test::runUntil([&] { return first.isNull(); }));
  EXPECT_EQ(Toast::current(), second.data());
}

TEST_F(ToastTest, StandsAtTheBottomCentreOfTheFreeAreaAndWrapsLongTexts) {
  const QRect area = QGuiApplication::primaryScreen()->availableGeometry();
  const QRect brief = panelOnScreen(showToast(QStringLiteral("Copied")));
  const QRect lengthy = panelOnScreen(showToast(QStringLiteral("A failure that has a lot to say. ").repeated(12)));
  for (const QRect& panel : {brief, lengthy}) {
    EXPECT_TRUE(area.contains(panel));
    EXPECT_NEAR(panel.center().x(), area.center().x(), 1);
    EXPECT_GT(panel.bottom(), area.center().y());
  }
  EXPECT_EQ(brief.bottom(), lengthy.bottom());
  EXPECT_GT(lengthy.height(), 2 * brief.height());
  EXPECT_LT(lengthy.width(), area.width());
}

TEST_F(ToastTest, StandsAboveWindowsItIsNotToCover) {
  const QRect usual = panelOnScreen(showToast(QStringLiteral("Copied")));
  {
    QWidget bar(nullptr, Qt::FramelessWindowHint);
    bar.setGeometry(usual.translated(20, 10));
    Toast::keepClearOf(&bar);
    EXPECT_EQ(panelOnScreen(showToast(QStringLiteral("Copied"))), usual) << "it is not shown";
    bar.show();
    const QRect raised = panelOnScreen(showToast(QStringLiteral("Copied")));
    EXPECT_LT(raised.bottom(), bar.frameGeometry().top());
    EXPECT_EQ(raised.x(), usual.x());
  }
  EXPECT_EQ(panelOnScreen(showToast(QStringLiteral("Copied"))), usual);
}

TEST_F(ToastTest, LeavesAloneAndFailuresStayLonger) {
  const int brief = showToast(QStringLiteral("ok")).findChild<QTimer*>()->interval();
  EXPECT_EQ(brief, 2400);
  const QPointer<Toast> toast = &showToast(QStringLiteral("bad"), ToastKind::Failure);
  auto* const stay = toast->findChild<QTimer*>();
  EXPECT_GT(stay->interval(), brief);
  EXPECT_TRUE(stay->isActive());
  stay->start(0);
  EXPECT_TRUE(test::runUntil([&] { return toast.isNull(); }));
  EXPECT_EQ(Toast::current(), nullptr);
}

TEST_F(ToastTest, AClickSendsItAwayAndThePointerKeepsIt) {
  Toast& toast = showToast(QStringLiteral("ok"));
  QEnterEvent enter({}, {}, {});
  QApplication::sendEvent(&toast, &enter);
  EXPECT_FALSE(toast.findChild<QTimer*>()->isActive());
  QEvent leave(QEvent::Leave);
  QApplication::sendEvent(&toast, &leave);
  EXPECT_TRUE(toast.findChild<QTimer*>()->isActive());
  test::click(toast);
  EXPECT_EQ(Toast::current(), nullptr);
}

TEST_F(ToastTest, NeverTakesTheFocus) {
  QLineEdit other;
  other.show();
  other.activateWindow();
  other.setFocus();
  QApplication::processEvents();
  const Toast& toast = showToast(QStringLiteral("ok"));
  QApplication::processEvents();
  EXPECT_FALSE(toast.isActiveWindow());
  EXPECT_TRUE(other.hasFocus());
  EXPECT_TRUE(toast.windowFlags().testFlag(Qt::WindowDoesNotAcceptFocus));
}

TEST_F(ToastTest, AFreshToastRisesInAndAnOldOneFadesUnlessMotionIsReduced) {
  Theme::shared().setReducedMotion(false);
  const QPointer<Toast> toast = &showToast(QStringLiteral("ok"));
  const QPoint start = toast->pos();
  EXPECT_TRUE(test::runUntil([&] { return toast->pos().y() < start.y() || toast->windowOpacity() >= 1.0; }));
  toast->findChild<QTimer*>()->start(0);
  EXPECT_TRUE(test::runUntil([&] { return toast->windowOpacity() < 1.0; }));
  EXPECT_EQ(Toast::current(), toast.data());
  showToast(QStringLiteral("next"));
  EXPECT_FALSE(toast->isVisible()) << "never two at a time";
}

TEST_F(ToastTest, WithoutBlendingTheWindowIsThePanel) {
  setCompositingProbe([](const QScreen*) { return false; });
  const QRect plain = panelOnScreen(showToast(QStringLiteral("Copied")));
  EXPECT_EQ(plain, Toast::current()->frameGeometry());
  setCompositingProbe({});
  EXPECT_EQ(panelOnScreen(showToast(QStringLiteral("Copied"))), plain) << "the panel is at the same place";
}

}  // namespace
}  // namespace vellora
