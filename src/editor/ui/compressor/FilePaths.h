#pragma once

#include <filesystem>

#include <QFile>
#include <QString>

namespace vellora {

inline std::filesystem::path pathFrom(const QString& path) {
  return QFile::encodeName(path).toStdString();
}

inline QString textFrom(const std::filesystem::path& path) {
  return QFile::decodeName(path.c_str());
}

}  // namespace vellora
