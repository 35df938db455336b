/// Writes pictures of every background, device frame and effect of the backdrop into a folder.
#include <cstdio>
#include <functional>

#include <QDir>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include "SampleContent.h"
#include "editor/backdrop/BackdropPainter.h"
#include "editor/rendering/DocumentRenderer.h"
#include "media/codecs/ImageConversion.h"

namespace {

using namespace vellora;

struct Picture {
  QString name;
  BackdropSettings settings;
  enum class Content { Window, DarkWindow, Phone, Two } content = Content::Window;
};

BackdropSettings on(BackdropBackground background) {
  BackdropSettings settings;
  settings.enabled = true;
  settings.background = std::move(background);
  return settings;
}

BackdropBackground curated(const char* identifier) {
  return {BackdropBackground::BuiltInImage{QString::fromLatin1(identifier)}};
}

QList<Picture> pictures() {
  QList<Picture> list;
  const auto add = [&](const QString& name, const BackdropSettings& base,
                       const std::function<void(BackdropSettings&)>& change = {},
                       Picture::Content content = Picture::Content::Window) {
    BackdropSettings settings = base;
    if (change) change(settings);
    list << Picture{name, settings, content};
  };
  for (const BackdropPreset& preset : backdropPresets) {
    add(QStringLiteral("solid-%1").arg(QString::fromLatin1(preset.name).toLower()),
        on({BackdropBackground::Solid{preset.color}}));
  }
  for (const BackdropGradientPreset& preset : backdropGradientPresets()) {
    add(QStringLiteral("gradient-%1").arg(QString::fromLatin1(preset.name).toLower()), on({preset.gradient}));
  }
  for (const char* identifier : curatedPictures) {
    add(QStringLiteral("curated-%1").arg(QString::fromLatin1(identifier)), on(curated(identifier)));
  }
  const char* const frames[] = {"browser-light", "browser-dark", "laptop-light",
                                "laptop-dark",   "phone-light",  "phone-dark"};
  for (int i = 0; i < 6; ++i) {
    add(
        QStringLiteral("frame-%1").arg(QString::fromLatin1(frames[i])),
        on(curated(curatedPictures[static_cast<std::size_t>(i)])),
        [i](BackdropSettings& s) { s.deviceFrame = static_cast<DeviceFrame>(i); },
        i >= 4       ? Picture::Content::Phone
        : i % 2 == 1 ? Picture::Content::DarkWindow
                     : Picture::Content::Window);
  }
  const BackdropSettings haze = on(curated("haze"));
  const BackdropSettings gray = on({});
  add(QStringLiteral("effect-tilt-x"), on(curated("lagoon")), [](auto& s) { s.tiltX = 24; });
  add(QStringLiteral("effect-tilt-y"), on(curated("ember")), [](auto& s) { s.tiltY = -26; });
  add(QStringLiteral("effect-tilt-frame"), on(curated("lavender")), [](auto& s) {
    s.tiltX = -20;
    s.tiltY = 12;
    s.rotation = 4;
    s.deviceFrame = DeviceFrame::BrowserLight;
  });
  add(QStringLiteral("effect-rotation"), on(curated("moss")), [](auto& s) { s.rotation = -12; });
  add(QStringLiteral("effect-edge-blur-bottom"), gray, [](auto& s) {
    s.edgeBlurDirection = BackdropSettings::EdgeBlurDirection::Bottom;
    s.edgeBlurStrength = 0.7;
  });
  add(QStringLiteral("effect-edge-blur-all"), on(curated("sky")), [](auto& s) {
    s.edgeBlurDirection = BackdropSettings::EdgeBlurDirection::All;
    s.edgeBlurStrength = 1;
  });
  add(QStringLiteral("effect-grain"),
      on(backdropGradientPresets().at(3).gradient.stops.empty()
             ? curated("haze")
             : BackdropBackground{backdropGradientPresets().at(3).gradient}),
      [](auto& s) { s.noiseIntensity = 0.5; });
  add(QStringLiteral("effect-glow"), on({BackdropBackground::Solid{backdropPresets[3].color}}),
      [](auto& s) { s.glowIntensity = 0.8; });
  add(QStringLiteral("effect-glow-white"), on({BackdropBackground::Solid{backdropPresets[0].color}}), [](auto& s) {
    s.glowIntensity = 1;
    s.glowCenter = {0.2, 0.1};
  });
  add(QStringLiteral("effect-glow-black"), on({BackdropBackground::Solid{backdropPresets[2].color}}), [](auto& s) {
    s.glowIntensity = 0.7;
    s.glowCenter = {0.5, 0};
  });
  add(QStringLiteral("effect-shadow-none"), gray, [](auto& s) { s.shadow = 0; });
  add(QStringLiteral("effect-shadow-full"), gray, [](auto& s) { s.shadow = 1; });
  add(QStringLiteral("effect-offset"), on(curated("arc")), [](auto& s) {
    s.contentScale = 1.2;
    s.contentOffset = {0, 0.18};
    s.innerRadius = 18;
  });
  add(QStringLiteral("effect-square"), haze, [](auto& s) { s.aspect = BackdropSettings::Aspect::Square; });
  add(QStringLiteral("effect-two-pieces"), on(curated("lagoon")), {}, Picture::Content::Two);
  add(QStringLiteral("effect-everything"), on(curated("ember")), [](auto& s) {
    s.aspect = BackdropSettings::Aspect::SixteenNine;
    s.insetFraction = 0.1;
    s.deviceFrame = DeviceFrame::LaptopDark;
    s.tiltX = 16;
    s.tiltY = 8;
    s.rotation = -3;
    s.edgeBlurDirection = BackdropSettings::EdgeBlurDirection::Left;
    s.edgeBlurStrength = 0.5;
    s.noiseIntensity = 0.25;
    s.glowIntensity = 0.5;
    s.shadow = 0.6;
  });
  return list;
}

ImageDocument documentFor(const Picture& picture, double scale) {
  ImageDocument document;
  document.backdrop = picture.settings;
  const Size size{900, 560};
  switch (picture.content) {
    case Picture::Content::Window:
      document.pieces = {test::sampleWindow(size, scale)};
      break;
    case Picture::Content::DarkWindow:
      document.pieces = {test::sampleWindow(size, scale, true)};
      break;
    case Picture::Content::Phone:
      document.pieces = {test::samplePhone(scale)};
      break;
    case Picture::Content::Two:
      document.pieces = {test::sampleWindow({560, 560}, scale), test::sampleWindow({420, 420}, scale, true)};
      document.pieces[1].origin = {560 + addedPieceGap, 0};
      break;
  }
  return document;
}

/// All pictures on a few sheets, to be taken in at a glance.
void writeSheets(const QDir& folder, const QList<QImage>& images) {
  constexpr int columns = 4;
  constexpr int rows = 4;
  const QSize cell(460, 320);
  for (int first = 0, sheet = 1; first < images.size(); first += columns * rows, ++sheet) {
    QImage page(cell.width() * columns, cell.height() * rows, QImage::Format_RGB32);
    page.fill(QColor(0x808080));
    QPainter painter(&page);
    for (int i = first; i < std::min<int>(first + columns * rows, static_cast<int>(images.size())); ++i) {
      const QImage small = images[i].scaled(cell - QSize(8, 8), Qt::KeepAspectRatio, Qt::SmoothTransformation);
      const QPoint corner((i - first) % columns * cell.width(), (i - first) / columns * cell.height());
      painter.drawImage(corner + QPoint((cell.width() - small.width()) / 2, (cell.height() - small.height()) / 2),
                        small);
    }
    painter.end();
    page.save(folder.filePath(QStringLiteral("sheet-%1.png").arg(sheet)));
  }
}

/// The curated pictures alone.
void writeCurated(const QDir& folder) {
  const QSize cell(800, 450);
  QImage page(cell.width() * 2, cell.height() * 4, QImage::Format_RGB32);
  page.fill(QColor(0x808080));
  QPainter painter(&page);
  BackdropPainter backdrop;
  int index = 0;
  for (const char* identifier : curatedPictures) {
    const QPoint corner(index % 2 * cell.width(), index / 2 * cell.height());
    backdrop.drawBackground(painter, QRectF(corner, cell), curated(identifier));
    ++index;
  }
  painter.end();
  page.save(folder.filePath(QStringLiteral("curated.png")));
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QGuiApplication application(argc, argv);
  if (argc < 2) {
    std::fprintf(stderr, "usage: backdrop_gallery FOLDER [SCALE]\n");
    return 2;
  }
  const double scale = argc > 2 ? std::clamp(QByteArray(argv[2]).toDouble(), 0.25, 4.0) : 1;
  const QDir folder(QString::fromLocal8Bit(argv[1]));
  if (!folder.mkpath(QStringLiteral("."))) return 1;
  QList<QImage> images;
  for (const Picture& picture : pictures()) {
    const ImageDocument document = documentFor(picture, scale);
    QElapsedTimer timer;
    timer.start();
    const auto bitmap = renderDocument(document, scale);
    if (!bitmap) return 1;
    const QImage image = toImage(*bitmap);
    std::printf("%-28s %4d x %4d  %4lld ms\n", qPrintable(picture.name), image.width(), image.height(),
                timer.elapsed());
    image.save(folder.filePath(picture.name + QStringLiteral(".png")));
    images << image;
  }
  writeSheets(folder, images);
  writeCurated(folder);
  return 0;
}
