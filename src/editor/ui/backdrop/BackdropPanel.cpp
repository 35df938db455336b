#include "editor/ui/backdrop/BackdropPanel.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QScrollArea>

#include "editor/BackdropStyles.h"
#include "editor/backdrop/DeviceFrames.h"
#include "editor/ui/backdrop/BackdropState.h"
#include "editor/ui/backdrop/BackgroundSection.h"
#include "editor/ui/backdrop/NumberRow.h"
#include "editor/ui/backdrop/PointPad.h"
#include "editor/ui/backdrop/StylesSection.h"
#include "editor/ui/backdrop/TileButton.h"
#include "editor/ui/backdrop/TileGrid.h"
#include "kit/Button.h"
#include "kit/Paint.h"
#include "kit/ScrollBars.h"
#include "kit/SegmentedControl.h"
#include "kit/Switch.h"
#include "kit/TextLabel.h"
#include "kit/Theme.h"
#include "kit/Tokens.h"

namespace vellora {
namespace {

using Aspect = BackdropSettings::Aspect;
using Direction = BackdropSettings::EdgeBlurDirection;

constexpr QSize frameTile(40, 46);

constexpr std::pair<DeviceFrame, const char*> frames[] = {
    //% "Browser window, light"
    {DeviceFrame::BrowserLight, QT_TRID_NOOP("backdrop.frame.browserLight")},
    //% "Laptop, light"
    {DeviceFrame::LaptopLight, QT_TRID_NOOP("backdrop.frame.laptopLight")},
    //% "Phone, light"
    {DeviceFrame::PhoneLight, QT_TRID_NOOP("backdrop.frame.phoneLight")},
    //% "Browser window, dark"
    {DeviceFrame::BrowserDark, QT_TRID_NOOP("backdrop.frame.browserDark")},
    //% "Laptop, dark"
    {DeviceFrame::LaptopDark, QT_TRID_NOOP("backdrop.frame.laptopDark")},
    //% "Phone, dark"
    {DeviceFrame::PhoneDark, QT_TRID_NOOP("backdrop.frame.phoneDark")},
};

/// A frame around an empty screen, as large as fits.
void paintFrame(QPainter& painter, const QRectF& rect, DeviceFrame frame) {
  const bool isDarkTheme = Theme::shared().appearance() == Appearance::Dark;
  painter.fillRect(rect, isDarkTheme ? QColor(0x626B7A) : QColor(0xC5CFDF));
  const bool phone = frame == DeviceFrame::PhoneLight || frame == DeviceFrame::PhoneDark;
  const bool dark =
      frame == DeviceFrame::BrowserDark || frame == DeviceFrame::LaptopDark || frame == DeviceFrame::PhoneDark;
  // Frames are drawn for small contents, so that their parts can be told at this size.
  const Size content = phone ? Size{90, 150} : Size{250, 150};
  const FrameInsets insets = frameInsets(frame, content);
  const QSizeF whole(content.width + insets.left + insets.right, content.height + insets.top + insets.bottom);
  const double scale = std::min((rect.width() - 12) / whole.width(), (rect.height() - 12) / whole.height());
  painter.save();
  painter.translate(rect.center());
  painter.scale(scale, scale);
  painter.translate(-whole.width() / 2 + insets.left, -whole.height() / 2 + insets.top);
  const DeviceFramePainter device(frame, QRectF(0, 0, content.width, content.height), 12);
  device.paint(painter);
  painter.fillPath(device.screen(), dark ? QColor(0x2A2D33) : QColor(0xF4F6FA));
  device.paintOver(painter);
  painter.restore();
}

SegmentedControl* makeChoice(const QList<SegmentedControl::Segment>& segments, const QString& title, QWidget* parent) {
  auto* choice = new SegmentedControl(segments, parent);
  choice->setAccessibleName(title);
  return choice;
}

}  // namespace

BackdropPanel::BackdropPanel(BackdropStyles& styles, QWidget* parent)
    : QWidget(parent), styles_(styles), state_(new BackdropState(this)), scroll_(new QScrollArea(this)) {
  //% "Backdrop"
  setAccessibleName(qtTrId("backdrop.title"));
  setFixedWidth(panelWidth);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(makeHeader());
  auto* contents = new QWidget;
  auto* sections = new QVBoxLayout(contents);
  sections->setContentsMargins(0, 0, 0, 0);
  sections->setSpacing(0);
  sections->addWidget(new BackgroundSection(*state_, sampler_, contents));
  sections->addWidget(makeLayoutSection());
  sections->addWidget(makeFrameSection());
  sections->addWidget(makePlacementSection());
  sections->addWidget(makeEffectsSection());
  sections->addWidget(new StylesSection(*state_, styles_, contents));
  sections->addStretch(1);
  scroll_->setWidget(contents);
  contents->setAutoFillBackground(false);  // the panel's ground shows through
  scroll_->setWidgetResizable(true);
  scroll_->setFrameShape(QFrame::NoFrame);
  scroll_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  scroll_->setFocusPolicy(Qt::NoFocus);
  scroll_->viewport()->setAutoFillBackground(false);
  column->addWidget(scroll_, 1);

  connect(state_, &BackdropState::changed, this, [this](const BackdropSettings& settings, const QString& key) {
    emit changed(settings, key);
    if (key.isEmpty()) {
      styles_.remember(settings);
      emit editingFinished();
    }
  });
  connect(state_, &BackdropState::finished, this, [this] {
    styles_.remember(state_->settings());
    emit editingFinished();
  });
  styleScrollBars(*scroll_, panelScrollBarWidth);
  connect(&Theme::shared(), &Theme::changed, this, qOverload<>(&QWidget::update));
}

BackdropPanel::~BackdropPanel() = default;

void BackdropPanel::setSettings(const BackdropSettings& settings) {
  if (settings != state_->settings()) state_->show(settings);
}

QWidget* BackdropPanel::makeHeader() {
  auto* header = new QWidget(this);
  auto* row = new QHBoxLayout(header);
  row->setContentsMargins(tokens::space4, tokens::space2, tokens::space3, tokens::space2);
  row->setSpacing(tokens::space1);
  row->addWidget(new TextLabel(TextLabel::Role::Heading, accessibleName(), header), 1);
  //% "Back to the default backdrop"
  auto* reset = new IconButton(QStringLiteral("reset"), qtTrId("backdrop.reset"), {}, header);
  reset->setIconSide(16);
  row->addWidget(reset);
  auto* enabled = new Switch(header);
  //% "Show the backdrop"
  enabled->setAccessibleName(qtTrId("backdrop.enabled"));
  enabled->setToolTip(enabled->accessibleName());
  row->addWidget(enabled);
  connect(reset, &QAbstractButton::clicked, state_, [this] {
    BackdropSettings settings;
    settings.enabled = state_->settings().enabled;
    state_->replace(settings);
  });
  connect(enabled, &Switch::toggleRequested, state_, [this](bool on) {
    BackdropSettings settings = state_->settings();
    settings.enabled = false;
    state_->replace(on ? styles_.turnedOn(settings) : settings);
  });
  connect(state_, &BackdropState::shown, enabled, [this, enabled] { enabled->setChecked(state_->settings().enabled); });
  return header;
}

QWidget* BackdropPanel::makeLayoutSection() {
  //% "Layout"
  auto* section = new PanelSection(qtTrId("backdrop.layout"), this);
  const auto number = [&](const QString& title, const QString& key, double most, double step, const QString& unit,
                          double& (*field)(BackdropSettings&)) {
    section->add(new NumberRow(*state_, {title, key, 0, most, step, unit, field}, section));
  };
  //% "Margin"
  number(qtTrId("backdrop.layout.margin"), QStringLiteral("backdrop.margin"), 0.4, 0.005, QStringLiteral("%"),
         [](BackdropSettings& s) -> double& { return s.insetFraction; });
  //% "Corner radius"
  number(qtTrId("backdrop.layout.radius"), QStringLiteral("backdrop.radius"), 80, 1, QStringLiteral("pt"),
         [](BackdropSettings& s) -> double& { return s.innerRadius; });
  //% "Shadow"
  number(qtTrId("backdrop.layout.shadow"), QStringLiteral("backdrop.shadow"), 1, 0.01, QStringLiteral("%"),
         [](BackdropSettings& s) -> double& { return s.shadow; });
  //% "Aspect ratio"
  section->addCaption(qtTrId("backdrop.aspect"));
  //% "Auto"
  const QString automatic = qtTrId("backdrop.aspect.auto");
  auto* aspect = makeChoice({{{}, automatic, {}},
                             {{}, QStringLiteral("1:1"), {}},
                             {{}, QStringLiteral("3:4"), {}},
                             {{}, QStringLiteral("4:3"), {}},
                             {{}, QStringLiteral("16:9"), {}}},
                            qtTrId("backdrop.aspect"), section);
  section->add(aspect);
  connect(aspect, &SegmentedControl::chosen, state_, [this](int index) {
    state_->change({}, [index](BackdropSettings& s) { s.aspect = static_cast<Aspect>(index); });
  });
  connect(state_, &BackdropState::shown, aspect,
          [this, aspect] { aspect->setCurrent(static_cast<int>(state_->settings().aspect)); });
  aspect->setCurrent(static_cast<int>(state_->settings().aspect));
  return section;
}

QWidget* BackdropPanel::makeFrameSection() {
  //% "Frame"
  auto* section = new PanelSection(qtTrId("backdrop.frame"), this);
  auto* grid = new TileGrid(4, frameTile, section);
  QList<std::optional<DeviceFrame>> offered;
  const auto offer = [&](std::optional<DeviceFrame> frame, const QString& title) {
    TileButton* const tile = grid->addTile(title);
    offered << frame;
    if (frame) {
      tile->setPreview([frame = *frame](QPainter& painter, const QRectF& rect) { paintFrame(painter, rect, frame); });
    } else {
      tile->setIconName(QStringLiteral("close"));
    }
  };
  //% "No frame"
  offer(std::nullopt, qtTrId("backdrop.frame.none"));
  for (const auto& [frame, key] : frames) offer(frame, qtTrId(key));
  section->add(grid);
  const auto refresh = [this, grid, offered] {
    for (qsizetype i = 0; i < offered.size(); ++i) {
      grid->tiles()[i]->setChecked(offered[i] == state_->settings().deviceFrame);
    }
  };
  for (qsizetype i = 0; i < offered.size(); ++i) {
    connect(grid->tiles()[i], &QAbstractButton::clicked, state_, [this, frame = offered[i], refresh] {
      state_->change({}, [frame](BackdropSettings& s) { s.deviceFrame = frame; });
      refresh();
    });
  }
  connect(state_, &BackdropState::shown, grid, refresh);
  refresh();
  return section;
}

QWidget* BackdropPanel::makePlacementSection() {
  //% "Placement"
  auto* section = new PanelSection(qtTrId("backdrop.placement"), this);
  const auto angle = [&](const QString& title, const QString& key, double most, double& (*field)(BackdropSettings&)) {
    section->add(new NumberRow(*state_, {title, key, -most, most, 1, QStringLiteral("°"), field}, section));
  };
  //% "Tilt sideways"
  angle(qtTrId("backdrop.tiltX"), QStringLiteral("backdrop.tiltX"), backdropLimits::tilt,
        [](BackdropSettings& s) -> double& { return s.tiltX; });
  //% "Tilt up and down"
  angle(qtTrId("backdrop.tiltY"), QStringLiteral("backdrop.tiltY"), backdropLimits::tilt,
        [](BackdropSettings& s) -> double& { return s.tiltY; });
  //% "Rotation"
  angle(qtTrId("backdrop.rotation"), QStringLiteral("backdrop.rotation"), backdropLimits::rotation,
        [](BackdropSettings& s) -> double& { return s.rotation; });
  //% "Size"
  section->add(new NumberRow(*state_,
                             {qtTrId("backdrop.contentScale"), QStringLiteral("backdrop.contentScale"), 0.3, 2, 0.01,
                              QStringLiteral("%"), [](BackdropSettings& s) -> double& { return s.contentScale; }},
                             section));
  //% "Position"
  section->addCaption(qtTrId("backdrop.contentOffset"));
  auto* pad = new PointPad({-0.5, -0.5}, {0.5, 0.5}, {0, 0}, qtTrId("backdrop.contentOffset"), section);
  section->add(pad);
  connect(pad, &PointPad::placeChanged, state_, [this](Point place) {
    state_->change(QStringLiteral("backdrop.contentOffset"), [place](BackdropSettings& s) { s.contentOffset = place; });
  });
  connect(pad, &PointPad::editingFinished, state_, &BackdropState::finish);
  connect(state_, &BackdropState::shown, pad, [this, pad] { pad->setPlace(state_->settings().contentOffset); });
  return section;
}

QWidget* BackdropPanel::makeEffectsSection() {
  //% "Effects"
  auto* section = new PanelSection(qtTrId("backdrop.effects"), this);
  const auto strength = [&](const QString& title, const QString& key, double& (*field)(BackdropSettings&)) {
    section->add(new NumberRow(*state_, {title, key, 0, 1, 0.01, QStringLiteral("%"), field}, section));
  };
  //% "Glow"
  strength(qtTrId("backdrop.glow"), QStringLiteral("backdrop.glow"),
           [](BackdropSettings& s) -> double& { return s.glowIntensity; });
  //% "Center of the glow"
  const QString title = qtTrId("backdrop.glowCenter");
  auto* pad = new PointPad({0, 0}, {1, 1}, BackdropSettings().glowCenter, title, section);
  section->add(pad);
  connect(pad, &PointPad::placeChanged, state_, [this](Point place) {
    state_->change(QStringLiteral("backdrop.glowCenter"), [place](BackdropSettings& s) { s.glowCenter = place; });
  });
  connect(pad, &PointPad::editingFinished, state_, &BackdropState::finish);
  //% "Grain"
  strength(qtTrId("backdrop.grain"), QStringLiteral("backdrop.grain"),
           [](BackdropSettings& s) -> double& { return s.noiseIntensity; });
  //% "Edge blur"
  strength(qtTrId("backdrop.edgeBlur"), QStringLiteral("backdrop.edgeBlur"),
           [](BackdropSettings& s) -> double& { return s.edgeBlurStrength; });
  auto* direction = makeChoice(
      {//% "No edge blur"
       {QStringLiteral("edgeblur.none"), qtTrId("backdrop.edgeBlur.none"), {}},
       //% "Blur the bottom"
       {QStringLiteral("edgeblur.bottom"), qtTrId("backdrop.edgeBlur.bottom"), {}},
       //% "Blur the left"
       {QStringLiteral("edgeblur.left"), qtTrId("backdrop.edgeBlur.left"), {}},
       //% "Blur the right"
       {QStringLiteral("edgeblur.right"), qtTrId("backdrop.edgeBlur.right"), {}},
       //% "Blur all edges"
       {QStringLiteral("edgeblur.all"), qtTrId("backdrop.edgeBlur.all"), {}}},
      qtTrId("backdrop.edgeBlur"), section);
  section->add(direction);
  connect(direction, &SegmentedControl::chosen, state_, [this](int index) {
    state_->change({}, [index](BackdropSettings& s) {
      s.edgeBlurDirection = static_cast<Direction>(index);
      // A direction alone would change nothing to be seen.
      if (s.edgeBlurDirection != Direction::None && s.edgeBlurStrength == 0) s.edgeBlurStrength = 0.5;
    });
  });
  const auto refresh = [this, pad, direction] {
    pad->setPlace(state_->settings().glowCenter);
    direction->setCurrent(static_cast<int>(state_->settings().edgeBlurDirection));
  };
  connect(state_, &BackdropState::shown, section, refresh);
  refresh();
  return section;
}

void BackdropPanel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const ThemeColors& palette = Theme::shared().palette();
  painter.fillRect(rect(), palette.surface);
  const double line = hairline(painter);
  const bool mirrored = layoutDirection() == Qt::RightToLeft;
  painter.fillRect(QRectF(mirrored ? width() - line : 0, 0, line, height()), palette.line);
}

}  // namespace vellora
