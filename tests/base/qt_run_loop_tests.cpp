#include <gtest/gtest.h>

#include <QCoreApplication>

#include <atomic>
#include <memory>
#include <thread>

#include "base/QtRunLoop.h"

namespace vellora {
namespace {

// What a task holds may be a thread's owner, which that thread must not destroy.
TEST(QtRunLoop, LetsGoOfTasksOnTheMainThread) {
  QtRunLoop loop;
  const auto mainThread = std::this_thread::get_id();
  constexpr int count = 5000;
  std::atomic<int> gone = 0, elsewhere = 0;
  std::thread poster([&] {
    for (int i = 0; i < count; ++i) {
      const auto note = [&](const int* value) {
        if (std::this_thread::get_id() != mainThread) ++elsewhere;
        ++gone;
        delete value;
      };
      loop.post([held = std::shared_ptr<int>(new int(i), note)] { (void)held; });
    }
  });
  while (gone < count) QCoreApplication::processEvents();
  poster.join();
  EXPECT_EQ(elsewhere, 0);
}

}  // namespace
}  // namespace vellora
