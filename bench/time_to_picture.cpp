// time_to_picture RRGGBB COMMAND [ARGUMENT…]
//
// How long a person waits from starting COMMAND to seeing a picture on this display. The picture holds a band of
// the colour RRGGBB from top to bottom that is nowhere else on the screen; the middle row of the screen is watched for
// it. Prints the milliseconds and the process id of the command, which goes on running. Ends with 1 when nothing shows.

#include <fcntl.h>
#include <time.h>
#include <unistd.h>
#include <xcb/xcb.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>

namespace {

constexpr double giveUpAfter = 20000;
constexpr int patchLeast = 24;  // pixels in a row

struct Free {
  void operator()(void* memory) const { std::free(memory); }
};

double milliseconds() {
  timespec now{};
  clock_gettime(CLOCK_MONOTONIC, &now);
  return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) * 1e-6;
}

/// Scaled pictures may be off by a level or two.
bool isNear(std::uint32_t a, std::uint32_t b) {
  for (int shift = 0; shift < 24; shift += 8) {
    const int difference = static_cast<int>((a >> shift) & 0xFF) - static_cast<int>((b >> shift) & 0xFF);
    if (difference < -3 || difference > 3) return false;
  }
  return true;
}

bool showsPatch(xcb_connection_t* connection, const xcb_screen_t& screen, std::uint32_t color) {
  const auto cookie =
      xcb_get_image(connection, XCB_IMAGE_FORMAT_Z_PIXMAP, screen.root, 0,
                    static_cast<std::int16_t>(screen.height_in_pixels / 2), screen.width_in_pixels, 1, ~0U);
  const std::unique_ptr<xcb_get_image_reply_t, Free> image(xcb_get_image_reply(connection, cookie, nullptr));
  if (!image) return false;
  const auto* pixels = reinterpret_cast<const std::uint32_t*>(xcb_get_image_data(image.get()));
  int run = 0;
  for (int x = 0; x < screen.width_in_pixels; ++x) {
    run = isNear(pixels[x], color) ? run + 1 : 0;
    if (run >= patchLeast) return true;
  }
  return false;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 3) {
    std::fprintf(stderr, "usage: time_to_picture RRGGBB COMMAND [ARGUMENT...]\n");
    return 2;
  }
  const auto color = static_cast<std::uint32_t>(std::strtoul(argv[1], nullptr, 16));
  xcb_connection_t* const connection = xcb_connect(nullptr, nullptr);
  if (xcb_connection_has_error(connection) != 0) return 1;
  const xcb_screen_t& screen = *xcb_setup_roots_iterator(xcb_get_setup(connection)).data;
  if (showsPatch(connection, screen, color)) {
    std::fprintf(stderr, "the colour is on the screen already\n");
    return 1;
  }
  const double start = milliseconds();
  const pid_t child = ::fork();
  if (child == 0) {
    // Whoever reads our output must not wait for the end of the command.
    const int nowhere = ::open("/dev/null", O_WRONLY);
    ::dup2(nowhere, STDOUT_FILENO);
    ::dup2(nowhere, STDERR_FILENO);
    ::execvp(argv[2], argv + 2);
    ::_exit(127);
  }
  while (milliseconds() - start < giveUpAfter) {
    if (showsPatch(connection, screen, color)) {
      std::printf("%.1f %d\n", milliseconds() - start, child);
      return 0;
    }
    ::usleep(500);
  }
  return 1;
}
