// A window with a line for a name and one for a password. A line on standard input moves the focus: "name",
// "password"; "end" ends it.

#include <QApplication>
#include <QLineEdit>
#include <QSocketNotifier>
#include <QTextStream>
#include <QVBoxLayout>

#include <cstdio>

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QWidget window;
  window.setWindowTitle(QStringLiteral("Form"));
  QVBoxLayout layout(&window);
  QLineEdit name;
  QLineEdit password;
  password.setEchoMode(QLineEdit::Password);
  layout.addWidget(&name);
  layout.addWidget(&password);
  if (application.arguments().contains(QStringLiteral("--password"))) password.setFocus();
  window.show();
  QTextStream input(stdin);
  QSocketNotifier notifier(fileno(stdin), QSocketNotifier::Read);
  QObject::connect(&notifier, &QSocketNotifier::activated, &window, [&] {
    const QString line = input.readLine();
    if (line == QLatin1String("name")) name.setFocus();
    if (line == QLatin1String("password")) password.setFocus();
    if (line.isNull() || line == QLatin1String("end")) QApplication::quit();
  });
  return QApplication::exec();
}
