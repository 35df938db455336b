#include "editor/ui/EditorWindow.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QClipboard>
#include <QMenu>
#include <QMimeData>
#include <set>

#include "editor/Palette.h"
#include "editor/ui/DocumentDelivery.h"
#include "editor/ui/EditorBar.h"
#include "editor/ui/ShortcutsSheet.h"
#include "editor/ui/StatusLine.h"
#include "editor/ui/window/EditorBench.h"
#include "kit/Button.h"
#include "kit/ColorSwatch.h"
#include "kit/Popover.h"
#include "kit/SegmentedControl.h"
#include "media/SharedPng.h"

namespace vellora {
namespace {

using test::EditorBench;

QString keyOf(EditorBench& bench, EditorCommand command) {
  return bench.command(command).shortcut().toString(QKeySequence::PortableText);
}

template <class W>
QList<W*> visible(const QWidget& in) {
  QList<W*> found;
  for (W* widget : in.findChildren<W*>()) {
    if (widget->isVisible()) found << widget;
  }
  return found;
}

TEST(EditorWindow, GivesEveryToolItsKeyAndNoKeyTwice) {
  EditorBench bench;
  bench.open();
  const std::pair<const char*, Tool> tools[] = {
      {"V", Tool::Select}, {"A", Tool::Arrow}, {"R", Tool::Box},     {"E", Tool::Ellipse}, {"L", Tool::Line},
      {"T", Tool::Text},   {"B", Tool::Blur},  {"N", Tool::Counter}, {"P", Tool::Pen},     {"M", Tool::Magnifier}};
  for (const auto& [key, tool] : tools) {
    EXPECT_EQ(keyOf(bench, commandOf(tool)), QLatin1StringView(key));
    bench.run(commandOf(tool));
    EXPECT_EQ(bench.model().tool(), tool);
    EXPECT_TRUE(bench.command(commandOf(tool)).isChecked());
  }
  EXPECT_EQ(keyOf(bench, EditorCommand::Crop), QStringLiteral("C"));
  std::set<QString> keys;
  for (QAction* action : bench.window->actions()) {
    for (const QKeySequence& sequence : action->shortcuts()) {
      EXPECT_TRUE(keys.insert(sequence.toString()).second) << sequence.toString().toStdString();
    }
  }
}

TEST(EditorWindow, BringsStyleChangesToTheModelAndTheNextThingDrawn) {
  EditorBench bench;
  bench.open();
  bench.run(EditorCommand::RectangleTool);
  QAbstractButton* blue = nullptr;
  for (ColorSwatch* swatch : visible<ColorSwatch>(*bench.window)) {
    if (swatch->color().isValid() && swatch->color().blueF() == 1) blue = swatch;
  }
  ASSERT_NE(blue, nullptr);
  blue->click();
  bench.run(EditorCommand::Thicker);
  bench.run(EditorCommand::ToggleFill);
  bench.run(EditorCommand::ToggleSketch);
  EXPECT_TRUE(blue->isChecked());
  bench.draw({100, 100}, {200, 180});
  const Annotation box = bench.last();
  EXPECT_EQ(box.color, Palette::swatches[4]);
  EXPECT_EQ(box.lineWidth, 4);
  EXPECT_TRUE(box.shapeFill.value_or(false));
  EXPECT_FALSE(box.sketch);
  EXPECT_EQ(bench.styles.resolvedStyle(Tool::Box).lineWidth, 4);
  EXPECT_EQ(bench.styles.resolvedStyle(Tool::Arrow).lineWidth, 3);
}

TEST(EditorWindow, ShowsTheControlsOfWhatIsSelectedOnly) {
  EditorBench bench;
  bench.open();
  bench.run(EditorCommand::BlurTool);
  EXPECT_TRUE(visible<ColorSwatch>(*bench.window).isEmpty());
  const auto ways = visible<SegmentedControl>(*bench.window);
  ASSERT_EQ(ways.size(), 1);
  EXPECT_EQ(ways.first()->current(), static_cast<int>(BlurStyle::Mosaic));
  bench.run(EditorCommand::NextBlurStyle);
  EXPECT_EQ(bench.settings.blurStyle(), BlurStyle::Erase);
  EXPECT_EQ(ways.first()->current(), static_cast<int>(BlurStyle::Erase));
  bench.run(EditorCommand::SelectTool);
  EXPECT_TRUE(visible<SegmentedControl>(*bench.window).isEmpty());
}

TEST(EditorWindow, OffersToArrangeWhatThereIsEnoughOf) {
  EditorBench bench;
  bench.open();
  bench.model().setSketch(false);
  for (const double left : {40.0, 120.0, 420.0}) {
    bench.model().setTool(Tool::Box);
    bench.draw({left, 60}, {left + 50, 120});
  }
  const auto offered = [&](EditorCommand id) { return bench.command(id).isEnabled(); };
  EXPECT_TRUE(offered(EditorCommand::AlignLeft)) << "one lines up with the picture";
  EXPECT_FALSE(offered(EditorCommand::DistributeHorizontally));
  bench.run(EditorCommand::AlignRight);
  EXPECT_NEAR(std::max(bench.last().p1.x, bench.last().p2.x), 600, 0.5);
  bench.model().select({});
  QApplication::processEvents();
  EXPECT_FALSE(offered(EditorCommand::AlignLeft));

  bench.run(EditorCommand::SelectAll);
  ASSERT_TRUE(offered(EditorCommand::DistributeHorizontally));
  bench.run(EditorCommand::DistributeHorizontally);
  const auto left = [&](std::size_t i) { return spannedRect(*bench.model().document().annotations[i]).minX(); };
  EXPECT_NEAR(left(1) - left(0), left(2) - left(1), 0.5);
  EXPECT_NEAR(left(0), 40, 0.5);
}

TEST(EditorWindow, KeepsUpToFourColoursOfOnesOwn) {
  EditorBench bench;
  bench.open();
  bench.run(EditorCommand::ArrowTool);
  for (int i = 0; i < 5; ++i) {
    for (ColorSwatch* swatch : visible<ColorSwatch>(*bench.window)) {
      if (!swatch->color().isValid()) swatch->click();
    }
    for (Popover* popover : bench.window->findChildren<Popover*>()) popover->close();
    QApplication::processEvents();
  }
  EXPECT_EQ(bench.colors.colors().size(), 4U);
  EXPECT_EQ(visible<ColorSwatch>(*bench.window).size(), 12);
}

TEST(EditorWindow, TellsWhenTheClipboardHoldsAnOlderState) {
  EditorBench bench;
  bench.open();
  auto* bar = bench.window->findChild<EditorBar*>();
  bench.run(EditorCommand::CopyPicture);
  ASSERT_TRUE(test::runUntil([&] { return bench.outputs.size() == 1; }));
  EXPECT_TRUE(bench.outputs[0].copy);
  EXPECT_FALSE(bench.outputs[0].save);
  EXPECT_EQ(bench.outputs[0].png->image().width(), 600);
  EXPECT_FALSE(bar->isCopyOutdated());
  bench.run(EditorCommand::RectangleTool);
  bench.draw({50, 50}, {120, 120});
  EXPECT_TRUE(bar->isCopyOutdated());
  bench.run(EditorCommand::Undo);
  EXPECT_FALSE(bar->isCopyOutdated());
  bench.run(EditorCommand::Redo);
  EXPECT_TRUE(bar->isCopyOutdated());
}

TEST(EditorWindow, CopiesTheSelectionTogetherWithThePicture) {
  EditorBench bench;
  bench.open();
  bench.run(EditorCommand::RectangleTool);
  bench.draw({50, 50}, {120, 120});
  bench.run(EditorCommand::SelectTool);
  bench.run(EditorCommand::SelectAll);
  ASSERT_EQ(bench.model().selection().size(), 1U);
  bench.run(EditorCommand::Copy);
  const QClipboard& clipboard = *QGuiApplication::clipboard();
  EXPECT_TRUE(clipboard.mimeData()->hasFormat(annotationsMimeType));
  EXPECT_TRUE(test::runUntil([&] { return clipboard.mimeData()->hasFormat(QStringLiteral("image/png")); }));
  EXPECT_TRUE(bench.outputs.empty());
  bench.run(EditorCommand::Paste);
  EXPECT_EQ(bench.model().document().annotations.size(), 2U);
  bench.run(EditorCommand::Cut);
  EXPECT_EQ(bench.model().document().annotations.size(), 1U);
}

TEST(EditorWindow, HandsOverTheFinalDocumentWhenItCloses) {
  EditorBench bench;
  bench.open();
  bench.run(EditorCommand::TextTool);
  bench.model().press({{100, 100}, 1, {}});
  bench.model().release({{100, 100}, 1, {}});
  bench.model().insertText(QStringLiteral("half typ"));
  EXPECT_GT(bench.changes, 0);
  int closes = 0;
  ImageDocument left;
  QObject::connect(bench.window, &EditorWindow::closed, [&] {
    ++closes;
    left = bench.window->document();
  });
  bench.run(EditorCommand::Save);
  bench.run(EditorCommand::Close);
  EXPECT_EQ(closes, 1);
  ASSERT_EQ(left.annotations.size(), 1U);
  EXPECT_EQ(left.annotations[0]->text, QStringLiteral("half typ"));
  // The save goes on without its window.
  EXPECT_TRUE(test::runUntil([&] { return bench.window.isNull() && bench.outputs.size() == 1; }));
}

TEST(EditorWindow, BecomesAPin) {
  EditorBench bench;
  bench.open();
  bench.run(EditorCommand::Pin);
  EXPECT_EQ(bench.pins.size(), 1U);
  EXPECT_TRUE(test::runUntil([&] { return bench.window.isNull(); }));
}

TEST(EditorWindow, TellsOfFailedWorkAndLeavesTheBadgeAlone) {
  EditorBench bench;
  bench.outputSucceeds = false;
  bench.open();
  bench.run(EditorCommand::CopyPicture);
  ASSERT_TRUE(test::runUntil([&] { return bench.outputs.size() == 1; }));
  bench.run(EditorCommand::RectangleTool);
  bench.draw({50, 50}, {120, 120});
  EXPECT_FALSE(bench.window->findChild<EditorBar*>()->isCopyOutdated());
}

TEST(EditorWindow, FoldsItsBarInsteadOfCuttingIt) {
  EditorBench bench;
  bench.open();
  const auto* bar = bench.window->findChild<EditorBar*>();
  for (const Tool tool : {Tool::Select, Tool::Box, Tool::Text, Tool::Blur, Tool::Magnifier}) {
    bench.run(commandOf(tool));
    for (int width = 1500; width >= bench.window->minimumWidth(); width -= 35) {
      bench.window->resize(width, 500);
      QApplication::processEvents();
      ASSERT_EQ(bench.window->width(), width);
      QList<QRect> places;
      for (QWidget* child : bar->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (!child->isVisible()) continue;
        EXPECT_TRUE(bar->rect().contains(child->geometry())) << width;
        // Neighbours may share the room of their focus rings.
        for (const QRect& other : places) EXPECT_FALSE(other.intersects(child->geometry().adjusted(3, 3, -3, -3)));
        places << child->geometry().adjusted(3, 3, -3, -3);
      }
    }
  }
}

TEST(EditorWindow, NamesEveryButton) {
  EditorBench bench;
  bench.open();
  for (const Tool tool : allTools) {
    bench.run(commandOf(tool));
    for (const QAbstractButton* button : visible<QAbstractButton>(*bench.window)) {
      EXPECT_FALSE(button->accessibleName().isEmpty()) << button->metaObject()->className();
      EXPECT_FALSE(button->toolTip().isEmpty()) << button->accessibleName().toStdString();
      EXPECT_GE(button->height(), 26);
    }
  }
}

TEST(EditorWindow, LocksAToolByADoubleClick) {
  EditorBench bench;
  bench.open();
  for (IconButton* button : bench.window->findChildren<IconButton*>()) {
    if (button->accessibleName() != bench.command(EditorCommand::ArrowTool).text()) continue;
    QMouseEvent twice(QEvent::MouseButtonDblClick, QPointF(10, 10), button->mapToGlobal(QPointF(10, 10)),
                      Qt::LeftButton, Qt::LeftButton, {});
    QApplication::sendEvent(button, &twice);
  }
  EXPECT_EQ(bench.model().tool(), Tool::Arrow);
  EXPECT_TRUE(bench.model().isToolLocked());
}

TEST(EditorWindow, ShowsWhetherAPieceIsBeingCropped) {
  EditorBench bench;
  bench.open();
  bench.run(EditorCommand::Crop);
  EXPECT_TRUE(bench.command(EditorCommand::Crop).isChecked());
  EXPECT_FALSE(bench.command(EditorCommand::SelectTool).isChecked());
  test::type(*bench.window, Qt::Key_Escape);
  EXPECT_FALSE(bench.command(EditorCommand::Crop).isChecked());
  bench.run(EditorCommand::Crop);
  bench.run(EditorCommand::ArrowTool);
  EXPECT_FALSE(bench.model().isCropping());
  EXPECT_FALSE(bench.command(EditorCommand::Crop).isChecked());
  EXPECT_TRUE(bench.command(EditorCommand::ArrowTool).isChecked());
}

TEST(EditorWindow, OpensTheBackdropBesideTheCanvas) {
  EditorBench bench;
  EditorWindow& window = bench.open();
  const int before = window.canvas().width();
  bench.run(EditorCommand::Backdrop);
  EXPECT_LT(window.canvas().width(), before);
  EXPECT_TRUE(bench.command(EditorCommand::Backdrop).isChecked());
  bench.run(EditorCommand::NextPart);
  bench.run(EditorCommand::NextPart);
  EXPECT_FALSE(window.canvas().hasFocus());
  bench.run(EditorCommand::Backdrop);
  EXPECT_EQ(window.canvas().width(), before);
  EXPECT_EQ(window.focusWidget(), &window.canvas());
}

TEST(EditorWindow, GoesThroughItsPartsByTheKeyboard) {
  EditorBench bench;
  EditorWindow& window = bench.open();
  EXPECT_EQ(window.focusWidget(), &window.canvas());
  bench.run(EditorCommand::NextPart);
  EXPECT_TRUE(window.findChild<EditorBar*>()->isAncestorOf(window.focusWidget()));
  bench.run(EditorCommand::NextPart);
  EXPECT_TRUE(window.findChild<StatusLine*>()->isAncestorOf(window.focusWidget()));
  test::type(window, Qt::Key_Escape);
  EXPECT_EQ(window.focusWidget(), &window.canvas());
  bench.run(EditorCommand::Shortcuts);
  auto* sheet = window.findChild<ShortcutsSheet*>();
  ASSERT_NE(sheet, nullptr);
  test::type(*sheet, Qt::Key_Escape);
  EXPECT_TRUE(test::runUntil([&] { return window.findChild<ShortcutsSheet*>() == nullptr; }));
}

}  // namespace
}  // namespace vellora
