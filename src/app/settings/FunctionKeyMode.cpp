#include "app/settings/FunctionKeyMode.h"

#include <QFile>

namespace vellora {

bool functionKeysNeedFn(const QString& modeFile) {
  QFile file(modeFile);
  if (!file.open(QIODevice::ReadOnly)) return false;
  const QByteArray mode = file.read(8).trimmed();
  return mode == "1" || mode == "3";
}

}  // namespace vellora
