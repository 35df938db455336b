#include "app/DesktopMain.h"

#include <malloc.h>

#include <optional>

#include <QApplication>

#include "app/AppDelegate.h"
#include "base/Log.h"
#include "base/TerminationSignals.h"
#include "editor/painting/Fonts.h"
#include "kit/Icons.h"
#include "kit/Theme.h"
#include "platform/linux/desktop/SessionBus.h"

namespace vellora {
namespace {

/// The words of a command given as "--capture …", "--reopen …", "--edit …" or "--compress …"; empty when the arguments
/// give none.
QStringList commandOf(QStringList arguments) {
  static const QStringList commands{QStringLiteral("--capture"), QStringLiteral("--reopen"), QStringLiteral("--edit"),
                                    QStringLiteral("--compress")};
  if (arguments.isEmpty() || !commands.contains(arguments.first())) return {};
  arguments.first().remove(0, 2);
  return arguments;
}

/// The appearance the person asks for in the environment; nothing, or a word not known, follows the desktop.
std::optional<Appearance> wantedAppearance() {
  const QString wanted = qEnvironmentVariable("VELLORA_APPEARANCE");
  if (wanted == u"light") return Appearance::Light;
  if (wanted == u"dark") return Appearance::Dark;
  return std::nullopt;
}

}  // namespace

int runDesktop(int argc, char** argv) {
  // Two arenas serve the few threads well and keep what is freed in one place, where it can be given back.
  ::mallopt(M_ARENA_MAX, 2);
  // Pictures and their encodings come and go as mappings of their own, instead of leaving holes in the heap.
  constexpr int largeAllocation = 256 << 10;
  ::mallopt(M_MMAP_THRESHOLD, largeAllocation);
  sessionBus::forbidAutolaunch();
  // Captures and hot keys go through X11, so the windows do too, also where the session offers Wayland beside it.
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM") && !qEnvironmentVariableIsEmpty("DISPLAY")) {
    qputenv("QT_QPA_PLATFORM", "xcb");
  }
  registerFonts();
  QApplication::setAttribute(Qt::AA_DontCreateNativeWidgetSiblings);
  QApplication application(argc, argv);
  QApplication::setApplicationName(QStringLiteral("Vellora"));
  QApplication::setApplicationVersion(QStringLiteral(VELLORA_VERSION));
  QGuiApplication::setDesktopFileName(QStringLiteral("dev.orlo.Vellora"));
  QApplication::setWindowIcon(icon(QStringLiteral("vellora")));
  QApplication::setQuitOnLastWindowClosed(false);
  Theme::shared().setAppearanceOverride(wantedAppearance());

  const QStringList arguments = QApplication::arguments().mid(1);
  const QStringList command = commandOf(arguments);
  AppDelegate delegate(command.isEmpty() ? AppDelegate::Mode::Resident : AppDelegate::Mode::OneShot);
  // Not quit(), which asks the windows first and stays when one is not closed at once, as pins are not.
  const TerminationSignals termination([] { QCoreApplication::exit(); });
  delegate.applicationWillFinishLaunching();
  if (command.isEmpty()) {
    if (!delegate.applicationDidFinishLaunching()) return 0;
    if (arguments.contains(QStringLiteral("--settings"))) delegate.openSettings();
  } else {
    QMetaObject::invokeMethod(
        &application, [&] { delegate.runOnce(command); }, Qt::QueuedConnection);
  }
  const int exitCode = QApplication::exec();
  delegate.applicationWillTerminate();
  return exitCode;
}

}  // namespace vellora
