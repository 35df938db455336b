#pragma once

#include <QString>

#include "base/Json.h"

/// What a verb says: results on standard output, messages on standard error.
namespace vellora::cli {

/// One line on standard output.
void printLine(const QString& text);
void printJson(const Json& object);
/// "vellora: text" on standard error.
void printError(const QString& text);

}  // namespace vellora::cli
