#pragma once

#include <span>

#include <QTransform>

#include "editor/BackdropSettings.h"
#include "editor/ImageDocument.h"

namespace vellora {

/// Where the parts of a document lie. Document space has the coordinates of the pieces and annotations; the backdrop
/// grows it around the content.
struct BackdropLayout {
  Rect content;          ///< the union of the pieces
  Rect framed;           ///< the content with its device frame; the content without one
  Rect document;         ///< what is exported: `framed` centred in the document's size
  QTransform placement;  ///< from content to document: scale, offset, rotation and tilt; the identity by default
  bool isFlat = true;    ///< `placement` is the identity
};

/// The layout of a document; with the backdrop off `document` is the content and the placement the identity.
BackdropLayout backdropLayout(const ImageDocument& document);

}  // namespace vellora
