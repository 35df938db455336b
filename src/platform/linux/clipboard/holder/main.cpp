#include "platform/linux/clipboard/HolderLauncher.h"

int main() {
  return vellora::runClipboardHolder();
}
