#pragma once

#include <QCoreApplication>
#include <QEventLoop>

#include "support/XServer.h"

namespace vellora::test {

/// The one private display, bus and home of this test program; the program itself lives in it.
XServer& desktopSession();

/// Runs the event loop until `condition` holds; false after `seconds`.
template <class Condition>
bool processUntil(Condition condition, double seconds = 10) {
  return waitFor(
      [&] {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
        return condition();
      },
      seconds);
}

}  // namespace vellora::test
