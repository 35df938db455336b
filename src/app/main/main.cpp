#include "app/DesktopMain.h"

int main(int argc, char** argv) {
  return vellora::runDesktop(argc, argv);
}
