// Shows the compressor's window on the display it finds itself on, to be looked at and measured:
//   compressor_probe [--texts FILE.qm] [--window WIDTHxHEIGHT] [--set KEY=VALUE]… [--select ROW] [--compare] [--start]
//                    [--scroll] [PATH]…
// Adds the paths. With --scroll it scrolls through the list and prints the longest time the main thread was not free,
// in milliseconds: while adding, scrolling, and (with --start) running.
#include <algorithm>
#include <cstdio>
#include <ctime>

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QElapsedTimer>
#include <QScrollBar>
#include <QTimer>
#include <QTranslator>

#include "base/QtRunLoop.h"
#include "editor/ui/compressor/CompressorListView.h"
#include "editor/ui/compressor/CompressorWindow.h"
#include "kit/Theme.h"
#include "support/FakePreferences.h"

namespace {

using namespace vellora;

/// How long single events keep the main thread.
class BusyApplication final : public QApplication {
 public:
  using QApplication::QApplication;

  bool notify(QObject* receiver, QEvent* event) override {
    if (depth_++ > 0) {
      const bool done = QApplication::notify(receiver, event);
      --depth_;
      return done;
    }
    QElapsedTimer clock;
    clock.start();
    const double before = ownTime();
    const auto type = event->type();
    const bool done = QApplication::notify(receiver, event);
    longest_ = std::max(longest_, static_cast<double>(clock.nsecsElapsed()) / 1e6);
    if (const double spent = ownTime() - before; spent > longestOwn_) {
      longestOwn_ = spent;
      type_ = type;
    }
    --depth_;
    return done;
  }

  void print(const char* phase) {
    std::printf("%s: at most %.1f ms of work for one event (type %d), %.1f ms with waiting for a core\n", phase,
                longestOwn_, static_cast<int>(type_), longest_);
    std::fflush(stdout);
    longest_ = longestOwn_ = 0;
  }

 private:
  /// Milliseconds this thread has worked.
  static double ownTime() {
    timespec time{};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
  }

  int depth_ = 0;
  double longest_ = 0;
  double longestOwn_ = 0;
  QEvent::Type type_ = QEvent::None;
};

struct Script {
  CompressorWindowController& controller;
  BusyApplication& application;
  bool starts = false;
  QTimer timer{};

  void scroll() {
    QScrollBar* bar = controller.window()->list().verticalScrollBar();
    auto* stepping = new QTimer(&timer);
    QObject::connect(stepping, &QTimer::timeout, &timer, [this, bar, stepping] {
      bar->setValue(bar->value() + 37);
      if (bar->value() < bar->maximum()) return;
      stepping->stop();
      application.print("scrolling");
      if (!starts) return application.quit();
      bar->setValue(0);
      controller.window()->start();
      run();
    });
    stepping->start(8);
  }

  void run() {
    QObject::connect(&timer, &QTimer::timeout, &timer, [this] {
      if (controller.isRunning()) return;
      application.print("running");
      application.quit();
    });
    timer.start(50);
  }
};

}  // namespace

int main(int argc, char** argv) {
  BusyApplication application(argc, argv);
  QCommandLineParser parser;
  for (const char* name : {"texts", "window", "set", "select"})
    parser.addOption({QString::fromLatin1(name), {}, QStringLiteral("value")});
  for (const char* name : {"compare", "start", "scroll"}) parser.addOption({QString::fromLatin1(name), {}});
  parser.process(application);
  QTranslator texts;
  if (texts.load(parser.value(QStringLiteral("texts")))) QApplication::installTranslator(&texts);
  const QString appearance = qEnvironmentVariable("VELLORA_APPEARANCE");
  if (!appearance.isEmpty())
    Theme::shared().setAppearanceOverride(appearance == u"dark" ? Appearance::Dark : Appearance::Light);

  QtRunLoop loop;
  test::FakePreferences preferences;
  for (const QString& pair : parser.values(QStringLiteral("set")))
    preferences.values[pair.section(u'=', 0, 0)] = pair.section(u'=', 1);
  const test::FakeFileNames names(QDir::tempPath());
  Settings settings(preferences, names);
  CompressorWindowController controller(
      {loop, settings, [](const std::filesystem::path& file) { std::printf("reveal %s\n", file.c_str()); }});
  controller.show();
  const QSize size(parser.value(QStringLiteral("window")).section(u'x', 0, 0).toInt(),
                   parser.value(QStringLiteral("window")).section(u'x', 1, 1).toInt());
  if (size.isValid() && !size.isEmpty()) controller.window()->resize(size);
  std::vector<std::filesystem::path> paths;
  for (const QString& path : parser.positionalArguments()) paths.emplace_back(path.toStdString());
  controller.addFiles(std::move(paths));

  Script script{controller, application, parser.isSet(QStringLiteral("start"))};
  QTimer filled;
  QObject::connect(&filled, &QTimer::timeout, &filled, [&] {
    if (controller.run().items().empty()) return;
    filled.stop();
    auto& window = *controller.window();
    const int row = parser.value(QStringLiteral("select")).toInt();
    window.list().setCurrentIndex(window.list().model()->index(row, 0));
    if (parser.isSet(QStringLiteral("compare"))) window.setComparisonShown(true);
    if (parser.isSet(QStringLiteral("scroll"))) {
      application.print("adding");
      script.scroll();
    } else if (script.starts) {
      window.start();
    }
  });
  filled.start(20);
  return QApplication::exec();
}
