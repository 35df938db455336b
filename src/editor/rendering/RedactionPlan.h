#pragma once

#include <span>
#include <unordered_map>
#include <vector>

#include "editor/Annotation.h"
#include "editor/rendering/CellGrid.h"
#include "editor/rendering/PieceView.h"

namespace vellora {

/// A redaction and what is seen in its place.
struct Redaction {
  AnnotationPtr annotation;
  std::shared_ptr<const CellGrid> grid;
};

/// Says what the redactions of documents look like. Remembers the last ones, so that only those are looked at anew
/// whose surroundings changed.
///
/// An erased area is one colour: the one chosen, or the colour that prevails just outside it. Pixels inside any
/// redaction of the document, whatever lies above what, are never read for that.
///
/// A mosaic must not tell what it hides even to somebody who knows this program, the seed and everything around the
/// area, and tries candidates until one gives the same cells. Averages alone do tell: a few levels of grey for each of
/// some dozen cells single out one number of ten thousand, and known noise is simply subtracted. So the cells that are
/// seen do not come from what lies below each of them:
/// - The colours of a mosaic are those that prevail along its border, outside every redaction, spread over its cells.
/// - The hidden pixels are looked at in fields as large as the area's shorter side and at least 64 points (or the whole
///   area), never in smaller parts: whole letters stand in a field with the paper around them. As long as 45 % of a
///   field are near the colours expected from the border, nothing of it is used. Text leaves more than that, so on the
///   paper it stands on it changes nothing. Only a field of another nature (a picture, a coloured panel) shows, as one
///   of 125 tones: the average of the tone that covers most of it, quantised to 5 levels of brightness and of each
///   colour difference. Text on such a field does not cover most of it either.
/// - Noise from `sketchSeed` and the cell's number, the same whatever is hidden, makes the cells look uneven.
/// Every candidate text thus gives the same cells. What can come out at all is less than seven bits a field, and
/// candidates are told apart by them only when they differ in what covers most of a field, or when a field lies right
/// on the limit of 45 %. Who must rule out even that takes an erased area. `blurStrength` sets the size of the cells
/// seen, which carry nothing of their own. What an erased area hides is not looked at for a mosaic either.
class RedactionPlanner {
 public:
  /// The redactions among `annotations`, in z-order; those with impossible numbers are left out.
  std::vector<Redaction> plan(std::span<const PieceView> pieces, std::span<const AnnotationPtr> annotations);

 private:
  /// A grid and the redactions, itself among them, that it depends on.
  struct Known {
    std::vector<AnnotationPtr> near;
    std::shared_ptr<const CellGrid> grid;
  };

  std::vector<PieceView> pieces_;  ///< that `known_` was made from
  bool few_ = true;
  std::unordered_map<AnnotationPtr, Known> known_;
};

}  // namespace vellora
