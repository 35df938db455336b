#include <QGuiApplication>
#include <QScreen>

#include <cstdio>

/// Prints every screen's name and device pixel ratio, one a line: what a program with windows sees on this display.
int main(int argc, char** argv) {
  const QGuiApplication application(argc, argv);
  for (const QScreen* screen : QGuiApplication::screens()) {
    std::printf("%s %.6f\n", qPrintable(screen->name()), screen->devicePixelRatio());
  }
  return 0;
}
