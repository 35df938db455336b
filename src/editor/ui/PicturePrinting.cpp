#include "editor/ui/PicturePrinting.h"

#include <algorithm>

#include <QImage>
#include <QPageLayout>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>

#include "base/Log.h"
#include "kit/Theme.h"
#include "media/codecs/ImageConversion.h"
#include "media/codecs/PdfFile.h"

namespace vellora {

void choosePrinter(QWidget& window, std::function<void(std::shared_ptr<QPrinter>)> chosen) {
  auto printer = std::make_shared<QPrinter>(QPrinter::HighResolution);
  printer->setCreator(QStringLiteral("Vellora"));
  auto* dialog = new QPrintDialog(printer.get(), &window);
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  dialog->setOption(QAbstractPrintDialog::PrintPageRange, false);
  followTheme(*dialog);
  // The printer lives as long as the dialog, which holds a plain pointer to it.
  QObject::connect(dialog, &QObject::destroyed, [printer] {});
  QObject::connect(dialog, &QDialog::accepted, &window, [printer, chosen = std::move(chosen)] { chosen(printer); });
  dialog->open();
}

bool printPicture(QPrinter& printer, const Bitmap& picture, double scale) {
  const QImage image = toImage(picture);
  if (image.isNull()) return false;
  printer.setPageOrientation(image.width() > image.height() ? QPageLayout::Landscape : QPageLayout::Portrait);
  QPainter painter;
  if (!painter.begin(&printer)) {
    log::warning(QStringLiteral("the picture cannot be printed"));
    return false;
  }
  const QRectF page = QRectF(QPointF(0, 0), printer.pageLayout().paintRectPixels(printer.resolution()).size());
  const double natural = printer.resolution() / pointsPerInch / scale;  // printer's dots for a pixel
  const double factor = std::min({natural, page.width() / image.width(), page.height() / image.height()});
  QRectF place(QPointF(0, 0), QSizeF(image.size()) * factor);
  place.moveCenter(page.center());
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawImage(place, image);
  return painter.end();
}

}  // namespace vellora
