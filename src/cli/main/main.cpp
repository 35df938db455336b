#include "cli/Program.h"

int main(int argc, char** argv) {
  return vellora::cli::run(argc, argv);
}
