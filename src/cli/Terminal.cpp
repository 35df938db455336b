#include "cli/Terminal.h"

#include <cstdio>

namespace vellora::cli {
namespace {

void write(std::FILE* stream, QByteArray line) {
  line.append('\n');
  std::fwrite(line.constData(), 1, static_cast<std::size_t>(line.size()), stream);
  std::fflush(stream);
}

}  // namespace

void printLine(const QString& text) {
  write(stdout, text.toUtf8());
}
void printJson(const Json& object) {
  write(stdout, json::serialize(object));
}
void printError(const QString& text) {
  write(stderr, ("vellora: " + text).toUtf8());
}

}  // namespace vellora::cli
