#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <random>

#include <QGuiApplication>

#include "base/Json.h"
#include "editor/SessionDocument.h"
#include "editor/rendering/DocumentRenderer.h"

using namespace vellora;

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maximum);

namespace {

constexpr double longestEdge = 96;  // of the drawn picture, in pixels

Bitmap pattern(PixelSize size) {
  auto bitmap = MutableBitmap::create(size, PixelAlpha::Opaque);
  if (!bitmap) std::abort();
  for (int y = 0; y < size.height; ++y) {
    for (int x = 0; x < size.width; ++x) {
      const std::uint32_t color = 0xFF000000U | static_cast<std::uint32_t>(x * 5) << 16 |
                                  static_cast<std::uint32_t>(y * 7) << 8 | static_cast<std::uint32_t>((x ^ y) & 0xFF);
      std::memcpy(bitmap->row(y) + x * 4, &color, 4);
    }
  }
  return std::move(*bitmap).finish();
}

/// A whole piece and a cropped one of another scale beside it.
std::vector<CapturePiece> pieces() {
  CapturePiece first = makePiece(pattern({48, 32}), 1);
  CapturePiece second = makePiece(pattern({40, 40}), 2);
  second.origin = {60, 0};
  second.visibleRect = {{2, 4}, {10, 12}};
  second.pointSize = second.visibleRect.size;
  return {first, second};
}

/// Changes one value somewhere in a document, so that what comes out is a document again.
class Mutator {
 public:
  explicit Mutator(unsigned seed) : random_(seed) {}

  void change(Json& value) {
    if ((value.is_array() || value.is_object()) && !value.empty() && below(8) != 0) {
      return change(*std::next(value.begin(), static_cast<std::ptrdiff_t>(below(value.size()))));
    }
    if (value.is_array()) return changeArray(value);
    if (value.is_number_integer()) {
      value = static_cast<int>(below(12)) - 1;
    } else if (value.is_number()) {
      value = number(value.get<double>());
    } else if (value.is_boolean()) {
      value = !value.get<bool>();
    } else if (value.is_string()) {
      value = value.get<std::string>() + texts[below(texts.size())];
    } else if (value.is_object() && !value.empty() && below(4) == 0) {
      value.erase(std::next(value.begin(), static_cast<std::ptrdiff_t>(below(value.size()))));
    }
  }

 private:
  std::size_t below(std::size_t count) { return std::uniform_int_distribution<std::size_t>(0, count - 1)(random_); }

  double number(double old) {
    static constexpr std::array<double, 16> odd{0,      1,     -1,   0.5,   1e-9, -1e-9,   1e7,   -1e7,
                                                1e-300, 1e300, 1000, 65536, 0.1,  3.14159, 99999, 45};
    switch (below(4)) {
      case 0:
        return odd[below(odd.size())];
      case 1:
        return -old;
      case 2:
        return old * std::uniform_real_distribution<double>(0, 4)(random_);
      default:
        return old + std::uniform_real_distribution<double>(-20, 20)(random_);
    }
  }

  void changeArray(Json& array) {
    if (array.empty()) return;
    const std::size_t from = below(array.size());
    switch (below(3)) {
      case 0:
        array.erase(from);
        break;
      case 1: {
        const Json copy = array[from];
        array.insert(array.begin() + static_cast<std::ptrdiff_t>(below(array.size() + 1)), copy);
        break;
      }
      default:
        std::swap(array[from], array[below(array.size())]);
    }
  }

  static constexpr std::array<const char*, 8> texts{"\n",
                                                    "wide words of text",
                                                    "\u202E\u05D0\u05D1",
                                                    "\U0001F469\u200D\U0001F680",
                                                    "e\u0301\u0302\u0303",
                                                    "\t",
                                                    "\u0000",
                                                    "/"};
  std::mt19937 random_;
};

}  // namespace

/// fontconfig keeps what it has matched until its end, which nobody asks for.
extern "C" const char* __lsan_default_suppressions() {
  return "leak:libfontconfig";
}

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
  static QGuiApplication application(*argc, *argv);
  return 0;
}

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maximum,
                                               unsigned seed) {
  auto document = json::parse(QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
  if (!document || seed % 16 == 0) return LLVMFuzzerMutate(data, size, maximum);
  Mutator mutator(seed);
  for (unsigned i = 0; i <= seed % 5; ++i) mutator.change(*document);
  const QByteArray text = json::serialize(*document);
  if (static_cast<std::size_t>(text.size()) > maximum) return LLVMFuzzerMutate(data, size, maximum);
  std::memcpy(data, text.constData(), static_cast<std::size_t>(text.size()));
  return static_cast<std::size_t>(text.size());
}

/// Whatever document is read can be drawn.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const std::vector<CapturePiece> twoPieces = pieces();
  auto layers = decodeDocumentLayers({reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)});
  if (!layers) return 0;
  const ImageDocument document{twoPieces, std::move(layers->annotations), std::move(layers->backdrop)};
  const PixelSize natural = renderedSize(document, 1);
  const double scale = std::min(2.0, longestEdge / std::max({natural.width, natural.height, 1}));
  static_cast<void>(renderDocument(document, scale));
  return 0;
}
