// A canvas in a window, for tests on a real display and for trying by hand:
//     canvas_probe PICTURE STATE [TOOL]
// STATE is a file that tells, after each change, what the canvas holds. TOOL is a tool's raw value, or "pick" for the
// eyedropper. Ctrl and a digit choose a tool, Ctrl+Z takes back.

#include <QApplication>
#include <QImage>
#include <QSaveFile>
#include <QShortcut>
#include <QTimer>

#include <cstdio>

#include "base/Json.h"
#include "editor/painting/TextLayout.h"
#include "editor/ui/canvas/CanvasView.h"
#include "support/FakePreferences.h"

namespace vellora {
namespace {

Bitmap bitmapOf(const QImage& image) {
  auto kept = std::make_shared<const QImage>(image.convertToFormat(QImage::Format_RGB32));
  const auto* pixels = reinterpret_cast<const std::byte*>(kept->constBits());
  return {pixels,
          {kept->width(), kept->height()},
          static_cast<std::size_t>(kept->bytesPerLine()),
          PixelAlpha::Opaque,
          kept};
}

Json stateOf(const CanvasView& view, const CanvasModel& model, const std::optional<ColorComponents>& picked) {
  const double ratio = view.devicePixelRatioF();
  const auto onScreen = [&](Point place) {
    const QPointF point = view.mapToGlobal(view.viewPoint(place)) * ratio;
    return json::fromPoint({point.x(), point.y()});
  };
  Json annotations = Json::array();
  for (const AnnotationPtr& annotation : model.document().annotations) {
    annotations.push_back({{"kind", static_cast<int>(annotation->kind)},
                           {"p1", json::fromPoint(annotation->p1)},
                           {"p2", json::fromPoint(annotation->p2)},
                           {"text", json::fromString(annotation->text)},
                           {"samples", annotation->penPoints ? annotation->penPoints->size() : 0}});
  }
  Json state{{"zoom", view.zoom()},       {"settled", view.isSettled()},      {"origin", onScreen({0, 0})},
             {"unit", onScreen({1, 1})},  {"picking", view.isPickingColor()}, {"editing", view.isEditingText()},
             {"annotations", annotations}};
  if (picked) state["picked"] = json::fromColor(*picked);
  return state;
}

int run(const QStringList& arguments) {
  const QImage picture(arguments.value(1));
  if (picture.isNull()) {
    std::fprintf(stderr, "usage: canvas_probe PICTURE STATE [TOOL]\n");
    return 2;
  }
  test::FakePreferences preferences;
  ToolStylePreferences styles(preferences);
  EditorSettings settings(preferences);
  const std::unique_ptr<TextMeasurer> text = makeTextMeasurer();
  ImageDocument document;
  document.pieces.push_back(makePiece(bitmapOf(picture), 1));
  CanvasModel model(std::move(document), {*text, styles, settings});
  CanvasView view(model);

  std::optional<ColorComponents> picked;
  QTimer telling;
  telling.setInterval(20);
  QByteArray told;
  QObject::connect(&telling, &QTimer::timeout, &view, [&] {
    const QByteArray state = json::serialize(stateOf(view, model, picked));
    if (state == std::exchange(told, state)) return;
    QSaveFile file(arguments.value(2));
    if (file.open(QIODevice::WriteOnly)) {
      file.write(state);
      file.commit();
    }
  });
  for (const Tool tool : allTools) {
    auto* const key =
        new QShortcut(QKeySequence(static_cast<int>(Qt::CTRL) | (Qt::Key_0 + static_cast<int>(tool))), &view);
    QObject::connect(key, &QShortcut::activated, &view, [&model, tool] { model.setTool(tool, true); });
  }
  QObject::connect(new QShortcut(QKeySequence::Undo, &view), &QShortcut::activated, &view, [&] { model.undo(); });

  view.resize(800, 600);
  view.show();
  view.setFocus();
  telling.start();
  const QString tool = arguments.value(3);
  if (tool == QLatin1String("pick")) {
    QTimer::singleShot(200, &view,
                       [&] { view.startEyedropper([&](const ColorComponents& color) { picked = color; }); });
  } else if (const auto chosen = toolFromRaw(tool.toLongLong())) {
    model.setTool(*chosen, true);
  }
  return QApplication::exec();
}

}  // namespace
}  // namespace vellora

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  return vellora::run(QApplication::arguments());
}
