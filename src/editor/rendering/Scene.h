#pragma once

#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

#include <QPainterPath>

#include "editor/ImageDocument.h"
#include "editor/backdrop/BackdropLayout.h"
#include "editor/rendering/DocumentRenderer.h"
#include "editor/rendering/Lens.h"
#include "editor/rendering/PieceView.h"
#include "editor/rendering/RedactionPlan.h"

namespace vellora {

/// A document made ready for drawing: what is drawn, in order, and of what each part's look depends. Never changes.
struct Scene {
  struct Piece {
    PieceView view;
    std::uint64_t key;        ///< two pieces of one key look the same
    std::uint64_t pixelsKey;  ///< of the picture alone, wherever it lies; unlike that of every other piece of the scene
  };

  struct Item {
    enum class Kind {
      Drawn,      ///< by the annotation painter
      Redaction,  ///< the cells of `grid`
      Gaussian,   ///< a blurred picture of what lies below
      Lens,       ///< draws what lies below once more, enlarged
      FlatLens,   ///< enlarges a picture of what lies below, because there are blurs, lenses or a crowd in it
    };
    Kind kind = Kind::Drawn;
    AnnotationPtr annotation;
    bool hideGlyphs = false;
    Rect bounds;  ///< what it may colour
    Rect source;  ///< blurs and lenses: what they show
    std::shared_ptr<const CellGrid> grid;
    bool keepsToPieces = false;  ///< a redaction with nothing beside the pieces to hide
    std::optional<Lens> lens;
    /// Two items of one key look the same, as long as a scene that holds either is alive: made from the annotation and
    /// from everything it shows.
    std::uint64_t key = 0;

    bool hasPicture() const { return kind == Kind::Gaussian || kind == Kind::FlatLens; }
  };

  ImageDocument asked;  ///< the document as it was given, to tell it again
  RenderOptions options;
  ImageDocument document;  ///< without pieces that cannot be drawn
  BackdropLayout layout;
  QPainterPath shape;  ///< cuts the pieces; empty: nothing does
  std::vector<Piece> pieces;
  std::vector<Item> items;
  /// Pixels per point of the pictures blurs and lenses are made of: the document's own scale, less where so many or
  /// such large ones would take more time and memory than there is.
  double effectScale = 1;

  bool shows(const ImageDocument& other, const RenderOptions& otherOptions) const;
};

/// What is remembered from scene to scene.
struct SceneMemory {
  std::unordered_map<AnnotationPtr, Rect> bounds;                 ///< how far annotations reach
  std::unordered_map<AnnotationPtr, std::optional<Lens>> lenses;  ///< of magnifiers
  RedactionPlanner redactions;
};

std::shared_ptr<const Scene> makeScene(const ImageDocument& document, const RenderOptions& options,
                                       SceneMemory& memory);

/// A document without the pieces that cannot be drawn.
ImageDocument drawablePart(const ImageDocument& document);

}  // namespace vellora
