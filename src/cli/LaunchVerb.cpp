#include "cli/DesktopProgram.h"
#include "cli/Verbs.h"
#include "platform/linux/desktop/InstanceClient.h"

namespace vellora::cli {

int launch() {
  InstanceClient instance;
  if (instance.activate()) return Done;
  return becomeDesktopProgram({});
}

}  // namespace vellora::cli
