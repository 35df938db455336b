#pragma once

#include <QObject>

#include "base/RunLoop.h"

namespace vellora {

/// RunLoop over Qt's event loop. Made on the main thread, after the application object, and destroyed before it.
class QtRunLoop final : public RunLoop {
 public:
  void post(Task task) override;
  TimerHandle after(double seconds, Task task) override;
  TimerHandle every(double seconds, Task task) override;
  Date now() const override;
  double hostTime() const override;

 private:
  QObject context_;
};

}  // namespace vellora
