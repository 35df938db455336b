#pragma once

#include <vector>

#include <QPainterPath>
#include <QRectF>

#include "editor/backdrop/SmoothGrid.h"

namespace vellora {

/// The shadow below the content: three soft layers, from a wide one far below to a narrow one close by. Kept as coarse
/// fields in document points, so it is drawn at any scale.
class ContentShadow {
 public:
  struct Layer {
    QRectF area;              ///< document points; the field's nodes lie on its edges, and it is 0 there
    SmoothGrid<float> field;  ///< how much of the light is taken, 0 to 1
  };

  /// `silhouette` and `visible`, the part that can be seen, in document points; `strength` 0 to 1; `extent`, in points,
  /// is how large the content is: larger things float higher.
  ContentShadow(const QPainterPath& silhouette, const QRectF& visible, double strength, double extent);

  const std::vector<Layer>& layers() const { return layers_; }

 private:
  std::vector<Layer> layers_;
};

}  // namespace vellora
