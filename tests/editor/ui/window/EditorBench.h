#pragma once

#include <QApplication>
#include <QPointer>

#include "base/QtRunLoop.h"
#include "editor/BackdropStyles.h"
#include "editor/CustomColors.h"
#include "editor/EditorSettings.h"
#include "editor/ToolStylePreferences.h"
#include "editor/canvas/CanvasModel.h"
#include "editor/ui/DocumentOutput.h"
#include "editor/ui/EditorCommands.h"
#include "editor/ui/EditorWindow.h"
#include "editor/ui/canvas/CanvasView.h"
#include "kit/WidgetEvents.h"
#include "support/FakePreferences.h"
#include "support/TestBitmaps.h"

namespace vellora::test {

/// An editor window with everything it needs, and a record of what it asked for.
class EditorBench {
 public:
  explicit EditorBench(PixelSize size = {600, 400}, double scale = 1) {
    document.pieces = {makePiece(solidBitmap(size, 0xFF336699), scale)};
    actions.output = [this](const EditorOutput& asked, const std::function<void(bool)>& done) {
      outputs.push_back(asked);
      done(outputSucceeds);
    };
    actions.pin = [this](const ImageDocument& pinned, Date) { pins.push_back(pinned); };
    actions.documentChanged = [this](const ImageDocument&) { ++changes; };
  }
  ~EditorBench() { delete window.data(); }

  EditorWindow& open(QSize at = {1280, 760}) {
    window = new EditorWindow({document, Date{800000000}, QStringLiteral("A capture")}, services, actions);
    window->present(nullptr);
    window->resize(at);
    QApplication::processEvents();
    return *window;
  }

  CanvasModel& model() { return window->model(); }
  QAction& command(EditorCommand id) { return window->commands()[id]; }
  void run(EditorCommand id) {
    command(id).trigger();
    QApplication::processEvents();
  }
  /// Draws with the tool in use, as a hand would.
  void draw(Point from, Point to) {
    model().press({from, 1, {}});
    model().move({{(from.x + to.x) / 2, (from.y + to.y) / 2}, 1, {}});
    model().move({to, 1, {}});
    model().release({to, 1, {}});
    QApplication::processEvents();
  }
  Annotation last() { return *model().document().annotations.back(); }

  ThemeForTest theme;
  QtRunLoop loop;
  FakePreferences preferences;
  ToolStylePreferences styles{preferences};
  CustomColors colors{preferences};
  EditorSettings settings{preferences};
  BackdropStyles backdrops{preferences};
  DocumentOutput output{loop};
  EditorServices services{styles, colors, settings, backdrops, output, loop};
  EditorActions actions;
  ImageDocument document;
  QPointer<EditorWindow> window;
  std::vector<EditorOutput> outputs;
  std::vector<ImageDocument> pins;
  bool outputSucceeds = true;
  int changes = 0;
};

}  // namespace vellora::test
