#include "editor/ui/compressor/CompressorOptionsPanel.h"

#include <array>
#include <cmath>

#include <QDir>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QIntValidator>
#include <QPainter>
#include <QScrollArea>
#include <QVBoxLayout>

#include "base/FileName.h"
#include "editor/compressor/CompressSettings.h"
#include "editor/ui/compressor/ElidedLabel.h"
#include "kit/Button.h"
#include "kit/MenuButton.h"
#include "kit/Paint.h"
#include "kit/ScrollBars.h"
#include "kit/SegmentedControl.h"
#include "kit/Slider.h"
#include "kit/Switch.h"
#include "kit/TextField.h"
#include "kit/TextLabel.h"
#include "kit/Theme.h"
#include "kit/Tokens.h"
#include "media/pictures/Raster.h"

namespace vellora {
namespace {

constexpr std::array formats{CompressFormat::original, CompressFormat::jpeg, CompressFormat::png, CompressFormat::webp};
constexpr int edgeFieldWidth = 88;
/// What controls leave around themselves for their focus ring, so that their edges lie on one line with the texts.
constexpr int room = tokens::focusRingRoom;

/// Adds what has no ring of its own in line with the edges of controls.
void addInset(QVBoxLayout& column, QWidget* widget) {
  auto* row = new QHBoxLayout;
  row->setContentsMargins(room, 0, room, 0);
  row->addWidget(widget);
  column.addLayout(row);
}

void addTitle(QVBoxLayout& column, const QString& title) {
  addInset(column, new TextLabel(TextLabel::Role::Strong, title));
  column.addSpacing(tokens::space1);
}

}  // namespace

CompressorOptionsPanel::CompressorOptionsPanel(CompressSettings& settings, QWidget* parent)
    : QWidget(parent), settings_(settings) {
  setFixedWidth(panelWidth);
  //% "Settings"
  setAccessibleName(qtTrId("compress.settingsTitle"));
  auto* contents = new QWidget;
  contents->setAutoFillBackground(false);
  auto* column = new QVBoxLayout(contents);
  column->setContentsMargins(tokens::space4 - room, tokens::space4, tokens::space4 - room, tokens::space4);
  column->setSpacing(0);
  addInset(*column, new TextLabel(TextLabel::Role::Heading, accessibleName()));
  column->addSpacing(tokens::space4);
  addFormat(*column);
  addQuality(*column);
  addResize(*column);
  addOutput(*column);
  addSwitches(*column);
  column->addStretch(1);
  auto* scroll = new QScrollArea(this);
  scroll->setWidget(contents);
  scroll->setWidgetResizable(true);
  scroll->setFrameShape(QFrame::NoFrame);
  scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  scroll->setFocusPolicy(Qt::NoFocus);
  scroll->viewport()->setAutoFillBackground(false);
  styleScrollBars(*scroll);
  auto* whole = new QVBoxLayout(this);
  whole->setContentsMargins(1, 0, 0, 0);
  whole->addWidget(scroll);
  repaintOnThemeChange(*this);
  refresh();
}

void CompressorOptionsPanel::addFormat(QVBoxLayout& column) {
  //% "Format"
  const QString title = qtTrId("compress.label.format");
  addTitle(column, title);
  QList<SegmentedControl::Segment> segments{{{}, qtTrId("compress.format.original"), {}}};
  for (const char* name : {"JPEG", "PNG", "WebP"}) segments.append({{}, QString::fromLatin1(name), {}});
  //% "Every image keeps its format"
  segments[0].detail = qtTrId("compress.format.originalTip");
  //% "For photos; no transparency"
  segments[1].detail = qtTrId("compress.format.jpegTip");
  //% "Exact to the pixel; for screenshots and drawings"
  segments[2].detail = qtTrId("compress.format.pngTip");
  //% "Smallest, for the web; keeps transparency"
  segments[3].detail = qtTrId("compress.format.webpTip");
  format_ = new SegmentedControl(segments);
  format_->setAccessibleName(title);
  format_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  connect(format_, &SegmentedControl::chosen, this, [this](int index) {
    settings_.setFormat(formats[static_cast<std::size_t>(index)]);
    emit changed();
  });
  addInset(column, format_);
  column.addSpacing(tokens::space4);
}

void CompressorOptionsPanel::addQuality(QVBoxLayout& column) {
  auto* line = new QHBoxLayout;
  line->setContentsMargins(room, 0, room, 0);
  //% "Quality"
  qualityTitle_ = new TextLabel(TextLabel::Role::Strong, qtTrId("compress.label.quality"));
  qualityNumber_ = new TextLabel(TextLabel::Role::Body);
  qualityNumber_->setFont(tabularFont());
  line->addWidget(qualityTitle_, 1);
  line->addWidget(qualityNumber_);
  column.addLayout(line);
  column.addSpacing(2);
  quality_ = new Slider;
  quality_->setScale(CompressSettings::leastQuality, CompressSettings::greatestQuality, 1);
  quality_->setDefaultNumber(CompressSettings::defaultQuality);
  quality_->setAccessibleName(qtTrId("compress.label.quality"));
  connect(quality_, &Slider::numberChanged, this, [this](double number) {
    settings_.setQuality(static_cast<int>(std::lround(number)));
    qualityNumber_->setText(qtTrId("compress.quality.percent").arg(settings_.quality()));
    emit qualityMoved();
  });
  connect(quality_, &Slider::editingFinished, this, &CompressorOptionsPanel::changed);
  column.addWidget(quality_);
  //% "Nothing is lost in these formats, so quality changes nothing."
  qualityNote_ = new TextLabel(TextLabel::Role::Secondary, qtTrId("compress.quality.unused"));
  addInset(column, qualityNote_);
  column.addSpacing(tokens::space4);
}

void CompressorOptionsPanel::addResize(QVBoxLayout& column) {
  //% "Resize"
  const QString title = qtTrId("compress.label.resize");
  addTitle(column, title);
  resize_ = new MenuButton;
  resize_->setAccessibleName(title);
  resize_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  //% "%1 – at most %2 px"
  const auto fixed = [](ResizeLimit limit, const char* name) {
    return MenuButton::Choice{
        static_cast<int>(limit),
        qtTrId("compress.resize.fixed").arg(QString::fromLatin1(name)).arg(*maxEdgeOf(limit, defaultCustomEdge))};
  };
  //% "Off"
  resize_->setChoices({{static_cast<int>(ResizeLimit::off), qtTrId("compress.resize.off")},
                       fixed(ResizeLimit::k4, "4K"),
                       fixed(ResizeLimit::k2, "2K"),
                       fixed(ResizeLimit::k1, "1K"),
                       //% "Custom"
                       {static_cast<int>(ResizeLimit::custom), qtTrId("compress.resize.custom")}});
  connect(resize_, &MenuButton::chosen, this, [this](const QVariant& value) {
    settings_.setResize(static_cast<ResizeLimit>(value.toInt()));
    refresh();
    if (settings_.resize() == ResizeLimit::custom) {
      edge_->setFocus(Qt::ShortcutFocusReason);
      edge_->selectAll();
    }
    emit changed();
  });
  column.addWidget(resize_);
  edgeRow_ = new QWidget;
  auto* rows = new QVBoxLayout(edgeRow_);
  rows->setContentsMargins(room, tokens::space1 + 2, room, 0);
  rows->setSpacing(tokens::space1 + 2);
  auto* row = new QHBoxLayout;
  row->setSpacing(tokens::space2);
  edge_ = new TextField;
  edge_->setFixedWidth(edgeFieldWidth);
  edge_->setAcceptDrops(false);
  edge_->setValidator(new QIntValidator(0, 999999, edge_));
  edge_->setFont(tabularFont());
  //% "Longest edge in pixels. Smaller images stay as they are."
  const QString tip = qtTrId("compress.resize.customTip");
  edge_->setToolTip(tip);
  edge_->setAccessibleName(tip);
  connect(edge_, &QLineEdit::textEdited, this, &CompressorOptionsPanel::readEdge);
  connect(edge_, &QLineEdit::editingFinished, this,
          [this] { edge_->setText(QString::number(settings_.customEdge())); });
  connect(edge_, &QLineEdit::editingFinished, edge_, [this] { edge_->setInvalid(false); });
  row->addWidget(edge_);
  //% "pixels"
  row->addWidget(new TextLabel(TextLabel::Role::Body, qtTrId("compress.resize.pixels")), 1);
  rows->addLayout(row);
  rows->addWidget(new TextLabel(TextLabel::Role::Secondary, tip));
  column.addWidget(edgeRow_);
  column.addSpacing(tokens::space4);
}

void CompressorOptionsPanel::readEdge() {
  const int edge = edge_->text().toInt();
  edge_->setInvalid(!CompressSettings::isEdge(edge));
  if (!CompressSettings::isEdge(edge)) return;
  settings_.setCustomEdge(edge);
  emit changed();
}

void CompressorOptionsPanel::addOutput(QVBoxLayout& column) {
  //% "Save results"
  const QString title = qtTrId("compress.label.output");
  addTitle(column, title);
  output_ = new MenuButton;
  output_->setAccessibleName(title);
  output_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  //% "Beside the originals"
  output_->setChoices({{static_cast<int>(CompressOutputMode::sourceFolder), qtTrId("compress.output.source")},
                       //% "In another folder"
                       {static_cast<int>(CompressOutputMode::customFolder), qtTrId("compress.output.custom")}});
  connect(output_, &MenuButton::chosen, this, [this](const QVariant& value) { pickOutput(value.toInt()); });
  column.addWidget(output_);
  folderRow_ = new QWidget;
  auto* row = new QHBoxLayout(folderRow_);
  row->setContentsMargins(room, tokens::space1, 0, 0);
  row->setSpacing(tokens::space1);
  folder_ = new ElidedLabel;
  row->addWidget(folder_, 1);
  //% "Choose…"
  choose_ = new SecondaryButton(qtTrId("compress.output.choose"));
  connect(choose_, &QPushButton::clicked, this, &CompressorOptionsPanel::chooseFolder);
  row->addWidget(choose_);
  column.addWidget(folderRow_);
  column.addSpacing(tokens::space4);
}

void CompressorOptionsPanel::pickOutput(int mode) {
  const auto wanted = static_cast<CompressOutputMode>(mode);
  if (wanted == CompressOutputMode::customFolder && settings_.outputFolder().isEmpty()) return chooseFolder();
  settings_.setOutputMode(wanted);
  refresh();
  emit changed();
}

void CompressorOptionsPanel::chooseFolder() {
  //% "Choose a folder for the results"
  auto* dialog = new QFileDialog(this, qtTrId("compress.output.chooseTitle"), settings_.outputFolder());
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  followTheme(*dialog);  // the desktop's own dialog, where there is one, takes no notice
  dialog->setFileMode(QFileDialog::Directory);
  dialog->setOption(QFileDialog::ShowDirsOnly);
  connect(dialog, &QFileDialog::fileSelected, this, [this](const QString& path) {
    settings_.setOutputFolder(path);
    settings_.setOutputMode(CompressOutputMode::customFolder);
    refresh();
    emit changed();
  });
  dialog->open();
}

void CompressorOptionsPanel::addSwitches(QVBoxLayout& column) {
  //% "Keep metadata"
  keepMetadata_ = addSwitch(column, qtTrId("compress.keepMetadata"),
                            //% "Camera, place, author. Off: nobody learns where a photo was taken."
                            qtTrId("compress.keepMetadataHelp"), [this](bool on) { settings_.setKeepsMetadata(on); });
  column.addSpacing(tokens::space3);
  //% "Keep dates"
  keepDates_ = addSwitch(column, qtTrId("compress.keepDates"),
                         //% "Results get the file dates of their originals."
                         qtTrId("compress.keepDatesHelp"), [this](bool on) { settings_.setKeepsDates(on); });
}

Switch* CompressorOptionsPanel::addSwitch(QVBoxLayout& column, const QString& title, const QString& help,
                                          std::function<void(bool)> store) {
  auto* toggle = new Switch;
  toggle->setAccessibleName(title);
  toggle->setAccessibleDescription(help);
  toggle->setToolTip(help);
  connect(toggle, &Switch::toggleRequested, this, [this, store = std::move(store)](bool on) {
    store(on);
    refresh();
    emit changed();
  });
  auto* line = new QHBoxLayout;
  line->setContentsMargins(room, 0, 0, 0);
  line->addWidget(new TextLabel(TextLabel::Role::Strong, title), 1);
  line->addWidget(toggle);
  column.addLayout(line);
  addInset(column, new TextLabel(TextLabel::Role::Secondary, help));
  return toggle;
}

void CompressorOptionsPanel::setQualityUsed(bool used) {
  if (isQualityUsed_ == used) return;
  isQualityUsed_ = used;
  refresh();
}

void CompressorOptionsPanel::refresh() {
  for (std::size_t i = 0; i < formats.size(); ++i) {
    if (formats[i] == settings_.format()) format_->setCurrent(static_cast<int>(i));
  }
  quality_->setNumber(settings_.quality());
  quality_->setEnabled(isQualityUsed_);
  qualityTitle_->setEnabled(isQualityUsed_);
  qualityNumber_->setEnabled(isQualityUsed_);
  qualityNumber_->setText(qtTrId("compress.quality.percent").arg(settings_.quality()));
  qualityNote_->setVisible(!isQualityUsed_);
  resize_->setCurrent(static_cast<int>(settings_.resize()));
  edgeRow_->setVisible(settings_.resize() == ResizeLimit::custom);
  if (!edge_->hasFocus()) edge_->setText(QString::number(settings_.customEdge()));
  const bool isCustom = settings_.outputMode() == CompressOutputMode::customFolder;
  output_->setCurrent(static_cast<int>(settings_.outputMode()));
  folderRow_->setVisible(isCustom);
  folder_->setText(pathBelowHome(settings_.outputFolder(), QDir::homePath()));
  folder_->setToolTip(settings_.outputFolder());
  keepMetadata_->setChecked(settings_.keepsMetadata());
  keepDates_->setChecked(settings_.keepsDates());
}

void CompressorOptionsPanel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const ThemeColors& colors = Theme::shared().palette();
  painter.fillRect(rect(), colors.surface);
  const bool isMirrored = layoutDirection() == Qt::RightToLeft;
  QRectF line = snapped(painter, QRectF(isMirrored ? width() - 1 : 0, 0, 1, height()));
  line.setWidth(hairline(painter));
  painter.fillRect(line, colors.line);
}

}  // namespace vellora
