#include "cli/publish/PublishProgram.h"

int main(int argc, char** argv) {
  return vellora::runPublish(argc, argv);
}
