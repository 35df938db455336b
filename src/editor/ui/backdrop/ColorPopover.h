#pragma once

#include <functional>

#include <QColor>

#include "base/Color.h"

class QWidget;

namespace vellora {

/// How a panel asks for a colour of the screen; calls back at most once, later.
using ColorSampler = std::function<void(std::function<void(const QColor&)>)>;

/// Opens a colour chooser beside `owner`. `chosen` is called with every movement, `settled` when a run of changes is
/// over.
void openColorChooser(QWidget* owner, const QString& title, const ColorComponents& color, const ColorSampler& sampler,
                      std::function<void(const ColorComponents&)> chosen, std::function<void()> settled);

QColor toColor(const ColorComponents& color);

}  // namespace vellora
