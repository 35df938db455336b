#include "cli/render/RenderProgram.h"

int main(int argc, char** argv) {
  return vellora::runRender(argc, argv);
}
