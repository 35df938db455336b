// hot_key_latency ROUNDS
//
// How long a person waits for the running program on this display: from the hot key Alt+1 to the dimmed screen, and
// from the end of the drag to a clipboard that can be pasted. Presses keys and moves the pointer as a device would
// (XTEST), watches one pixel of the screen and the clipboard's owner. Prints the median, least and most of each in
// milliseconds.
//
// The after-capture actions must be "copy", and the screen's top left corner must not be black.

#include <time.h>
#include <xcb/xcb.h>
#include <xcb/xtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <vector>

namespace {

constexpr std::uint8_t altKey = 64, oneKey = 10;  // evdev codes and 8
constexpr double giveUpAfter = 5000;

struct Free {
  void operator()(void* memory) const { std::free(memory); }
};

double milliseconds() {
  timespec now{};
  clock_gettime(CLOCK_MONOTONIC, &now);
  return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) * 1e-6;
}

class Person {
 public:
  Person() : connection_(xcb_connect(nullptr, nullptr)) {
    if (xcb_connection_has_error(connection_) != 0) std::exit(1);
    screen_ = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data;
    const auto cookie = xcb_intern_atom(connection_, 0, 9, "CLIPBOARD");
    const std::unique_ptr<xcb_intern_atom_reply_t, Free> reply(xcb_intern_atom_reply(connection_, cookie, nullptr));
    clipboard_ = reply->atom;
  }
  ~Person() { xcb_disconnect(connection_); }
  Person(const Person&) = delete;
  Person& operator=(const Person&) = delete;

  int width() const { return screen_->width_in_pixels; }
  int height() const { return screen_->height_in_pixels; }

  void input(std::uint8_t type, std::uint8_t detail, int x = 0, int y = 0) {
    xcb_test_fake_input(connection_, type, detail, XCB_CURRENT_TIME, screen_->root, static_cast<std::int16_t>(x),
                        static_cast<std::int16_t>(y), 0);
    xcb_flush(connection_);
  }
  void pressHotKey() {
    for (const auto type : {XCB_KEY_PRESS, XCB_KEY_RELEASE}) {
      input(static_cast<std::uint8_t>(type), type == XCB_KEY_PRESS ? altKey : oneKey);
      input(static_cast<std::uint8_t>(type), type == XCB_KEY_PRESS ? oneKey : altKey);
    }
  }
  void move(int x, int y) { input(XCB_MOTION_NOTIFY, 0, x, y); }
  void button(bool down) { input(static_cast<std::uint8_t>(down ? XCB_BUTTON_PRESS : XCB_BUTTON_RELEASE), 1); }

  std::uint32_t cornerPixel() {
    const auto cookie = xcb_get_image(connection_, XCB_IMAGE_FORMAT_Z_PIXMAP, screen_->root, 4, 4, 1, 1, ~0U);
    const std::unique_ptr<xcb_get_image_reply_t, Free> reply(xcb_get_image_reply(connection_, cookie, nullptr));
    return reply ? *reinterpret_cast<std::uint32_t*>(xcb_get_image_data(reply.get())) & 0xFFFFFF : 0;
  }
  std::uint32_t clipboardOwner() {
    const auto cookie = xcb_get_selection_owner(connection_, clipboard_);
    const std::unique_ptr<xcb_get_selection_owner_reply_t, Free> reply(
        xcb_get_selection_owner_reply(connection_, cookie, nullptr));
    return reply ? reply->owner : 0;
  }

 private:
  xcb_connection_t* connection_;
  xcb_screen_t* screen_ = nullptr;
  xcb_atom_t clipboard_ = 0;
};

void pause(double ms) {
  const timespec time{static_cast<time_t>(ms / 1e3), static_cast<long>(ms * 1e6) % 1'000'000'000};
  nanosleep(&time, nullptr);
}

template <class Condition>
double waitUntil(Condition condition, double since) {
  while (!condition()) {
    pause(0.5);  // leaves the server and the program their share of a small machine
    if (milliseconds() - since > giveUpAfter) {
      std::fprintf(stderr, "hot_key_latency: nothing happened; is Vellora running here?\n");
      std::exit(1);
    }
  }
  return milliseconds() - since;
}

void report(const char* what, std::vector<double> values) {
  std::ranges::sort(values);
  std::printf("%-34s median %6.1f  least %6.1f  most %6.1f ms\n", what, values[values.size() / 2], values.front(),
              values.back());
}

}  // namespace

int main(int argc, char** argv) {
  const int rounds = argc > 1 ? std::max(1, std::atoi(argv[1])) : 20;
  Person person;
  const std::uint32_t bright = person.cornerPixel();
  std::vector<double> visible;
  std::vector<double> pasteable;
  for (int round = 0; round < rounds; ++round) {
    person.move(person.width() / 2, person.height() / 2);
    pause(700);
    const std::uint32_t owner = person.clipboardOwner();
    const double pressed = milliseconds();
    person.pressHotKey();
    visible.push_back(waitUntil([&] { return person.cornerPixel() != bright; }, pressed));
    pause(300);
    person.move(40, 40);
    person.button(true);
    pause(30);
    for (int step = 1; step <= 10; ++step) {
      person.move(40 + (person.width() - 80) * step / 10, 40 + (person.height() - 80) * step / 10);
      pause(16);
    }
    const double released = milliseconds();
    person.button(false);
    pasteable.push_back(waitUntil([&] { return person.clipboardOwner() != owner; }, released));
  }
  report("hot key to overlay visible", visible);
  report("end of drag to pasteable", pasteable);
  return 0;
}
