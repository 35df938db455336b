// Shows an editor window with a sample picture on the display it finds itself on, to be looked at and measured:
//   editor_probe [--texts FILE.qm] [--picture WIDTHxHEIGHT] [--scale N] [--window WIDTHxHEIGHT] [--tool KEY]
//                [--select] [--command N]… [--annotate] [--rounds N]
// Prints how many milliseconds after the start of opening it the window was built, first painted, and settled: shown as
// it finally is. --rounds opens and closes N windows.
#include <QApplication>
#include <QCommandLineParser>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QTimer>
#include <QTranslator>
#include <cstdio>
#include <functional>

#include "base/QtRunLoop.h"
#include "editor/BackdropStyles.h"
#include "editor/CustomColors.h"
#include "editor/EditorSettings.h"
#include "editor/Palette.h"
#include "editor/ToolStylePreferences.h"
#include "editor/canvas/CanvasModel.h"
#include "editor/ui/DocumentOutput.h"
#include "editor/ui/EditorCommands.h"
#include "editor/ui/EditorWindow.h"
#include "editor/ui/canvas/CanvasView.h"
#include "editor/ui/window/SamplePicture.h"
#include "kit/Theme.h"
#include "kit/Toast.h"
#include "media/SharedPng.h"
#include "media/codecs/ImageConversion.h"
#include "support/FakePreferences.h"

namespace {

using namespace vellora;

QSize sizeOf(const QString& text) {
  return {text.section(QLatin1Char('x'), 0, 0).toInt(), text.section(QLatin1Char('x'), 1, 1).toInt()};
}

AnnotationPtr annotation(Annotation::Kind kind, Point from, Point to, const ColorComponents& color,
                         const std::function<void(Annotation&)>& refine = {}) {
  Annotation made;
  made.id = newAnnotationId();
  made.kind = kind;
  made.p1 = from;
  made.p2 = to;
  made.color = color;
  made.lineWidth = 3;
  made.sketchSeed = made.id * 7919;
  if (refine) refine(made);
  return makeAnnotation(made);
}

void annotate(ImageDocument& document) {
  using Kind = Annotation::Kind;
  const auto& colors = Palette::swatches;
  document.annotations = {
      annotation(Kind::Blur, {450, 516}, {640, 672}, colors[0]),
      annotation(Kind::Box, {226, 94}, {500, 198}, colors[0], [](Annotation& a) { a.sketch = true; }),
      annotation(Kind::Arrow, {690, 330}, {512, 160}, colors[0],
                 [](Annotation& a) {
                   a.sketch = true;
                   a.control = Point{640, 180};
                 }),
      annotation(Kind::Text, {640, 340}, {640, 340}, colors[0],
                 [](Annotation& a) {
                   a.text = QStringLiteral("Up again since May");
                   a.textHandwritten = true;
                 }),
      annotation(Kind::Ellipse, {820, 220}, {990, 300}, colors[4], [](Annotation& a) { a.sketch = true; }),
      annotation(Kind::Counter, {240, 540}, {240, 540}, colors[5], [](Annotation& a) { a.number = 1; }),
      annotation(Kind::Counter, {240, 580}, {240, 580}, colors[5], [](Annotation& a) { a.number = 2; }),
  };
}

/// Tells when a window was first painted.
class PaintWatch final : public QObject {
 public:
  explicit PaintWatch(std::function<void()> painted) : painted_(std::move(painted)) {}
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint && painted_) {
      // After the paint event itself.
      QTimer::singleShot(0, this, std::exchange(painted_, nullptr));
    }
    return false;
  }

 private:
  std::function<void()> painted_;
};

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QCommandLineParser parser;
  for (const char* name : {"texts", "picture", "scale", "window", "tool", "command", "rounds"}) {
    parser.addOption({QString::fromLatin1(name), {}, QStringLiteral("value")});
  }
  for (const char* name : {"annotate", "select"}) parser.addOption({QString::fromLatin1(name), {}});
  parser.process(application);
  const auto value = [&](const char* name, const char* fallback) {
    const QString given = parser.value(QString::fromLatin1(name));
    return given.isEmpty() ? QString::fromLatin1(fallback) : given;
  };
  QTranslator texts;
  if (texts.load(value("texts", ""))) QApplication::installTranslator(&texts);

  const QString appearance = qEnvironmentVariable("VELLORA_APPEARANCE");
  if (!appearance.isEmpty()) {
    Theme::shared().setAppearanceOverride(appearance == QLatin1StringView("dark") ? Appearance::Dark
                                                                                  : Appearance::Light);
  }
  QtRunLoop loop;
  test::FakePreferences preferences;
  ToolStylePreferences styles(preferences);
  CustomColors colors(preferences);
  EditorSettings settings(preferences);
  BackdropStyles backdrops(preferences);
  DocumentOutput output(loop);
  const EditorServices services{styles, colors, settings, backdrops, output, loop};
  colors.add({0.1, 0.7, 0.75, 1});

  EditorActions actions;
  actions.output = [&loop](const EditorOutput& picture, const std::function<void(bool)>& done) {
    const bool ok = picture.png->bytes().has_value();
    Toast::show({}, picture.copy ? QStringLiteral("Copied") : QStringLiteral("Saved"), ToastKind::Success, nullptr);
    loop.post([done, ok] { done(ok); });
  };
  actions.pin = [](const ImageDocument&, Date) {};
  actions.captureMore = [](const EditorActions::PieceReceiver& receive) { receive(std::nullopt); };
  actions.choosePicture = actions.captureMore;
  actions.loadPicture = [](const QString& path, const EditorActions::PieceReceiver& receive) {
    const QImage picture(path);
    std::printf("dropped %s %dx%d\n", qPrintable(path), picture.width(), picture.height());
    std::fflush(stdout);
    receive(picture.isNull() ? std::nullopt : std::optional(makePiece(toBitmap(picture), 1)));
  };

  const double scale = value("scale", "1").toDouble();
  ImageDocument document;
  const QImage picture = test::samplePicture(sizeOf(value("picture", "1180x720")), scale);
  document.pieces = {makePiece(toBitmap(picture), scale)};
  if (parser.isSet(QStringLiteral("annotate"))) annotate(document);

  int rounds = value("rounds", "0").toInt();
  std::function<void()> open = [&] {
    QElapsedTimer clock;
    clock.start();
    auto* window =
        new EditorWindow({document, loop.now(), QStringLiteral("Vellora 2026-11-23 at 10.12.40")}, services, actions);
    const double built = static_cast<double>(clock.nsecsElapsed()) / 1e6;
    auto* watch = new PaintWatch([&, window, clock, built] {
      const double painted = static_cast<double>(clock.nsecsElapsed()) / 1e6;
      auto* settling = new QTimer(window);
      QObject::connect(settling, &QTimer::timeout, window, [settling, window, clock, built, painted] {
        if (!window->canvas().isSettled()) return;
        settling->stop();
        std::printf("built %.1f painted %.1f settled %.1f\n", built, painted,
                    static_cast<double>(clock.nsecsElapsed()) / 1e6);
        std::fflush(stdout);
      });
      settling->start(0);
      if (rounds > 0) {
        --rounds;
        QTimer::singleShot(200, window, [&, window] {
          window->close();
          if (rounds > 0) {
            QTimer::singleShot(100, [&] { open(); });
          } else {
            QApplication::quit();
          }
        });
        return;
      }
      for (const QString& command : parser.values(QStringLiteral("command"))) {
        window->commands()[static_cast<EditorCommand>(command.toInt())].trigger();
      }
      if (parser.isSet(QStringLiteral("select"))) window->model().select({document.annotations.at(2)->id});
    });
    watch->setParent(window);
    window->canvas().installEventFilter(watch);
    window->present(nullptr);
    if (const QSize size = sizeOf(value("window", "")); size.width() > 0) window->resize(size);
    if (const QString tool = value("tool", ""); !tool.isEmpty()) {
      for (const Tool candidate : allTools) {
        if (storageKey(candidate) == tool) window->model().setTool(candidate);
      }
    }
  };
  application.setQuitOnLastWindowClosed(parser.value(QStringLiteral("rounds")).isEmpty());
  open();
  return QApplication::exec();
}
