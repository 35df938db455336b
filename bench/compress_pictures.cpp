// compress_pictures screenshots|photos|captures FOLDER COUNT
//
// Writes pictures to compress, the same on every run: "screenshots" are PNG files of 3000 × 2000 with windows, text,
// gradients and a photograph, "photos" JPEG files of 12 Mpx, "captures" screenshots of 12 Mpx.

#include <array>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <random>
#include <string_view>
#include <vector>

#include <QGuiApplication>
#include <QImage>
#include <QImageWriter>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

namespace {

using Random = std::mt19937;

/// Not std::uniform_int_distribution, whose numbers differ between libraries.
int upTo(Random& random, int end) {
  return static_cast<int>(random() % static_cast<unsigned int>(end));
}

/// Smooth noise: random levels on a grid, `cell` pixels apart, joined by curves. Adds to a plane of floats.
void addNoise(std::vector<float>& plane, int width, int height, int cell, float amplitude, Random& random) {
  const int columns = width / cell + 2, rows = height / cell + 2;
  std::vector<float> grid(static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows));
  for (float& level : grid) level = amplitude * (static_cast<float>(random() >> 8) / 8388608.0F - 1.0F);
  const auto eased = [cell](int at) {
    const float t = static_cast<float>(at % cell) / static_cast<float>(cell);
    return t * t * (3 - 2 * t);
  };
  std::vector<float> down(static_cast<std::size_t>(columns)), across(static_cast<std::size_t>(cell));
  for (int i = 0; i < cell; ++i) across[static_cast<std::size_t>(i)] = eased(i);
  for (int y = 0; y < height; ++y) {
    const float* above = &grid[static_cast<std::size_t>(y / cell) * static_cast<std::size_t>(columns)];
    const float t = eased(y);
    for (int i = 0; i < columns; ++i) {
      down[static_cast<std::size_t>(i)] = above[i] + (above[i + columns] - above[i]) * t;
    }
    float* row = &plane[static_cast<std::size_t>(y) * static_cast<std::size_t>(width)];
    for (int x = 0, column = 0; x < width; ++column) {
      const float left = down[static_cast<std::size_t>(column)],
                  step = down[static_cast<std::size_t>(column) + 1] - left;
      for (int i = 0; i < cell && x < width; ++i, ++x) row[x] += left + step * across[static_cast<std::size_t>(i)];
    }
  }
}

std::vector<float> cloud(int width, int height, int coarsest, int finest, float amplitude, float fade, Random& random) {
  std::vector<float> plane(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
  for (int cell = coarsest; cell >= finest; cell /= 2, amplitude *= fade) {
    addNoise(plane, width, height, cell, amplitude, random);
  }
  return plane;
}

/// Light and color in clouds of all sizes, detail in some places and blur in others, edges, and the grain of a sensor.
QImage photo(QSize size, unsigned int seed) {
  Random random(seed);
  const int width = size.width(), height = size.height();
  const auto light = cloud(width, height, 1024, 32, 70, 0.6F, random);
  const auto detail = cloud(width, height, 16, 2, 60, 0.8F, random);
  const auto focus = cloud(width, height, 512, 256, 1.2F, 0.5F, random);
  const auto red = cloud(width, height, 1024, 16, 26, 0.5F, random);
  const auto blue = cloud(width, height, 1024, 16, 26, 0.5F, random);
  QImage image(size, QImage::Format_RGB32);
  for (int y = 0; y < height; ++y) {
    auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
    for (int x = 0; x < width; ++x) {
      const std::size_t i = static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x);
      const float sharp = std::clamp(focus[i] + 0.4F, 0.0F, 1.0F);
      // Where one cloud passes another, a thing stands before it.
      const float object = red[i] > blue[i] ? 24.0F : -14.0F;
      const auto grain =
          static_cast<float>(static_cast<int>(random() >> 29) + static_cast<int>(random() >> 29) - 7) * 0.5F;
      const float level = 120 + light[i] + object + sharp * detail[i] + grain;
      const auto sample = [](float value) { return static_cast<int>(std::clamp(value, 0.0F, 255.0F)); };
      row[x] = qRgb(sample(level + red[i]), sample(level - (red[i] + blue[i]) / 3), sample(level + blue[i]));
    }
  }
  return image;
}

QString sentence(Random& random, int words) {
  static constexpr std::array list{"the",    "window",  "of",      "a",     "screen", "shows",       "Report",
                                   "2024",   "and",     "status",  "open",  "total",  "Settings",    "file",
                                   "with",   "ready",   "12.50",   "items", "build",  "in",          "for",
                                   "new",    "Preview", "error",   "log",   "(main)", "src/app.cpp", "return",
                                   "value;", "list",    "Account", "all",   "month"};
  QString text;
  for (int i = 0; i < words; ++i) {
    text += QString::fromLatin1(list[static_cast<std::size_t>(upTo(random, static_cast<int>(list.size())))]) + u' ';
  }
  return text;
}

QColor accent(Random& random) {
  return QColor::fromHsv(upTo(random, 360), 140 + upTo(random, 80), 190 + upTo(random, 60));
}

/// Text of a document, a terminal or a table, depending on `kind`.
void fillWindow(QPainter& painter, const QRect& inside, int kind, Random& random) {
  const bool isDark = kind == 1;
  painter.fillRect(inside, isDark ? QColor(30, 32, 38) : QColor(255, 255, 255));
  QFont font(QStringLiteral("DejaVu Sans"));
  if (isDark) font.setFamily(QStringLiteral("DejaVu Sans Mono"));
  if (kind == 0) font.setFamily(QStringLiteral("DejaVu Serif"));
  font.setPixelSize(kind == 2 ? 20 : 24);
  painter.setFont(font);
  const int step = kind == 2 ? 44 : 36;
  for (int y = inside.top() + 16, line = 0; y + step < inside.bottom(); y += step, ++line) {
    if (kind == 2 && line % 2 == 0) painter.fillRect(inside.left(), y - 8, inside.width(), step, QColor(244, 246, 249));
    if (kind != 2 && upTo(random, 7) == 0) continue;
    int x = inside.left() + 24 + (isDark ? upTo(random, 4) * 40 : 0);
    for (int cell = 0; cell < (kind == 2 ? 5 : 1); ++cell, x += inside.width() / 5) {
      painter.setPen(isDark ? accent(random).lighter(120) : QColor(34, 38, 46));
      const int width = kind == 2 ? inside.width() / 5 - 30 : inside.right() - x - 20;
      painter.save();
      painter.setClipRect(x, y, width, step);
      painter.drawText(x, y + font.pixelSize(), sentence(random, kind == 2 ? 3 : 6 + upTo(random, 12)));
      painter.restore();
    }
  }
}

void drawWindow(QPainter& painter, const QRect& frame, int kind, Random& random) {
  for (int i = 24; i > 0; --i) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0, 0, 0, 5));
    painter.drawRoundedRect(frame.adjusted(-i, -i + 8, i, i + 8), 14 + i, 14 + i);
  }
  QPainterPath outline;
  outline.addRoundedRect(frame, 14, 14);
  painter.save();
  painter.setClipPath(outline);
  QLinearGradient bar(frame.topLeft(), QPointF(frame.left(), frame.top() + 56));
  bar.setColorAt(0, QColor(246, 246, 248));
  bar.setColorAt(1, QColor(226, 228, 232));
  painter.fillRect(frame, bar);
  fillWindow(painter, frame.adjusted(0, 56, 0, 0), kind, random);
  painter.setPen(Qt::NoPen);
  for (int i = 0; i < 3; ++i) {
    painter.setBrush(accent(random));
    painter.drawEllipse(frame.left() + 22 + 36 * i, frame.top() + 18, 20, 20);
  }
  painter.restore();
}

QImage screenshot(QSize size, unsigned int seed) {
  Random random(seed);
  QImage image(size, seed % 3 == 0 ? QImage::Format_ARGB32 : QImage::Format_RGB32);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  QLinearGradient ground(0, 0, size.width(), size.height());
  ground.setColorAt(0, accent(random).darker(150));
  ground.setColorAt(1, accent(random));
  painter.fillRect(image.rect(), ground);
  for (int i = 0; i < 3; ++i) {
    const QPoint corner(80 + upTo(random, size.width() / 3) + i * size.width() / 8,
                        60 + upTo(random, size.height() / 4));
    const QSize extent(size.width() / 2 + upTo(random, 300), size.height() * 3 / 5 + upTo(random, 200));
    drawWindow(painter, QRect(corner, extent), (i + static_cast<int>(seed)) % 3, random);
  }
  const QSize seen = size / 4;
  painter.drawImage(upTo(random, size.width() - seen.width()), upTo(random, size.height() - seen.height()),
                    photo(seen, seed + 500));
  return image;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 4) return 2;
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  const std::string_view kind = argv[1];
  const QString folder = QString::fromLocal8Bit(argv[2]);
  for (int i = 1; i <= std::atoi(argv[3]); ++i) {
    const auto seed = static_cast<unsigned int>(i);
    const bool isPhoto = kind == "photos";
    const QImage image = isPhoto ? photo({4000, 3000}, seed)
                                 : screenshot(kind == "captures" ? QSize(4000, 3000) : QSize(3000, 2000), seed);
    QImageWriter writer(QStringLiteral("%1/%2.%3").arg(folder).arg(i, 4, 10, QChar(u'0')).arg(isPhoto ? "jpg" : "png"));
    if (isPhoto) writer.setQuality(94);
    if (!writer.write(image)) return 1;
  }
  return 0;
}
