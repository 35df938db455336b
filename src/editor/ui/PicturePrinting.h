#pragma once

#include <functional>
#include <memory>

#include "base/Bitmap.h"

class QPrinter;
class QWidget;

namespace vellora {

/// Asks which printer to use, over `window`. `chosen` is not called when the person leaves.
void choosePrinter(QWidget& window, std::function<void(std::shared_ptr<QPrinter>)> chosen);

/// Prints a picture in the middle of one page, at its size in points or as much smaller as the page needs. Any thread.
bool printPicture(QPrinter& printer, const Bitmap& picture, double scale);

}  // namespace vellora
