#pragma once

#include <gtest/gtest.h>

#include <memory>

#include <QApplication>
#include <QImage>
#include <QKeyEvent>
#include <QMouseEvent>

#include "editor/canvas/CanvasModel.h"
#include "editor/painting/TextLayout.h"
#include "editor/ui/canvas/CanvasView.h"
#include "kit/WidgetEvents.h"
#include "support/FakePreferences.h"

namespace vellora::test {

/// A picture whose pixels differ from place to place, so that anything drawn in the wrong place shows.
inline Bitmap motleyBitmap(PixelSize size) {
  auto bitmap = MutableBitmap::create(size, PixelAlpha::Opaque);
  for (int y = 0; y < size.height; ++y) {
    auto* row = reinterpret_cast<QRgb*>(bitmap->row(y));
    for (int x = 0; x < size.width; ++x) {
      const bool square = (x / 16 + y / 16) % 2 == 0;
      row[x] = qRgb(x * 255 / size.width, y * 255 / size.height, square ? 200 : 120);
    }
  }
  return std::move(*bitmap).finish();
}

inline ImageDocument documentOf(const Bitmap& bitmap, double scale = 1) {
  ImageDocument document;
  document.pieces.push_back(makePiece(bitmap, scale));
  return document;
}

/// A canvas on screen, with everything a model needs behind it.
struct CanvasHarness {
  explicit CanvasHarness(ImageDocument document, QSize size = {800, 600})
      : styles(preferences),
        settings(preferences),
        text(makeTextMeasurer()),
        model(std::move(document), {*text, styles, settings}),
        view(model) {
    view.resize(size);
    view.show();
    view.activateWindow();
    view.setFocus();
    settle();
  }

  void settle() {
    QApplication::processEvents();
    EXPECT_TRUE(runUntil([&] { return view.isSettled(); }));
  }

  void mouse(QEvent::Type type, QPointF inView, Qt::MouseButton button = Qt::LeftButton,
             Qt::KeyboardModifiers modifiers = {}) {
    const Qt::MouseButtons held = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::MouseButtons(button);
    QMouseEvent event(type, inView, view.mapToGlobal(inView), type == QEvent::MouseMove ? Qt::NoButton : button, held,
                      modifiers);
    QApplication::sendEvent(&view, &event);
  }

  /// Presses at a document point, moves there in steps, and lets go.
  void drag(Point from, Point to, Qt::KeyboardModifiers modifiers = {}) {
    const QPointF start = view.viewPoint(from);
    const QPointF end = view.viewPoint(to);
    mouse(QEvent::MouseMove, start, Qt::NoButton);
    mouse(QEvent::MouseButtonPress, start, Qt::LeftButton, modifiers);
    for (int i = 1; i <= 5; ++i) mouse(QEvent::MouseMove, start + (end - start) * i / 5, Qt::LeftButton, modifiers);
    mouse(QEvent::MouseButtonRelease, end, Qt::LeftButton, modifiers);
  }

  void click(Point at) { drag(at, at); }

  void key(int key, const QString& typed = {}, Qt::KeyboardModifiers modifiers = {}) {
    QKeyEvent press(QEvent::KeyPress, key, modifiers, typed);
    QApplication::sendEvent(&view, &press);
    QKeyEvent release(QEvent::KeyRelease, key, modifiers, typed);
    QApplication::sendEvent(&view, &release);
  }

  /// The pointer comes over the view.
  void enter() { view.setAttribute(Qt::WA_UnderMouse); }
  /// The pointer goes away, and with it the outline of what is below it.
  void leave() {
    view.setAttribute(Qt::WA_UnderMouse, false);
    QEvent event(QEvent::Leave);
    QApplication::sendEvent(&view, &event);
  }

  /// What is on the screen, in device pixels.
  QImage shown() {
    settle();
    return view.grab().toImage().convertToFormat(QImage::Format_RGB32);
  }
  /// The colour shown at a document point.
  QColor colorAt(Point place) {
    leave();
    const QImage image = shown();
    return image.pixelColor((view.viewPoint(place) * image.devicePixelRatio()).toPoint());
  }

  ThemeForTest theme;
  FakePreferences preferences;
  ToolStylePreferences styles;
  EditorSettings settings;
  std::unique_ptr<TextMeasurer> text;
  CanvasModel model;
  CanvasView view;
};

}  // namespace vellora::test
