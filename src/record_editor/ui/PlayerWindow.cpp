#include "record_editor/ui/PlayerWindow.h"

#include <algorithm>
#include <utility>

#include <QCloseEvent>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QScreen>
#include <QVBoxLayout>

#include "kit/Button.h"
#include "kit/Icons.h"
#include "kit/Paint.h"
#include "kit/TextLabel.h"
#include "kit/Theme.h"
#include "kit/TimeText.h"
#include "kit/Tokens.h"
#include "record_editor/RecordPauseMarks.h"
#include "record_editor/ui/PictureView.h"
#include "record_editor/ui/WaveformScrubber.h"

namespace vellora {
namespace {

constexpr QSize leastSize{520, 360};
constexpr int transportHeight = 60;
constexpr double shortJump = 1, longJump = 5;  // seconds
/// Of the screen, at most this part is taken by a window that opens.
constexpr double mostOfScreen = 0.75;

QString timeText(double position, double duration) {
  return QStringLiteral("%1 / %2").arg(elapsedText(position), elapsedText(duration));
}

}  // namespace

PlayerWindow::PlayerWindow(RecordProjectBundle bundle, Services services)
    : QWidget(nullptr, Qt::Window), bundle_(std::move(bundle)), services_(std::move(services)) {
  setWindowTitle(bundle_.directoryName());
  setWindowIcon(icon(QStringLiteral("vellora")));
  setAttribute(Qt::WA_QuitOnClose, false);
  setMinimumSize(leastSize);
  followTheme(*this);
  repaintOnThemeChange(*this);

  view_ = new PictureView;
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(view_, 1);
  column->addWidget(makeTransport());
  connect(view_, &PictureView::sizesWanted, this, [this](QSize screen, QSize camera) {
    if (!player_) return;
    player_->setScreenSize(screen.width(), screen.height());
    player_->setCameraSize(camera.width(), camera.height());
  });
  connect(view_, &PictureView::clicked, this, [this] {
    if (player_) player_->toggle();
  });
  connect(view_, &PictureView::doubleClicked, this, [this] { toggleFullScreen(); });
  // Buttons would let arrow keys move the focus; here they move through the movie.
  for (auto* button : findChildren<IconButton*>()) button->installEventFilter(this);
  setPlayable(false);
  open();
}

PlayerWindow::~PlayerWindow() {
  isEnding_ = true;
}

QWidget* PlayerWindow::makeTransport() {
  auto* bar = new QWidget;
  bar->setFixedHeight(transportHeight);
  //% "Play"
  playButton_ = new IconButton(QStringLiteral("play"), qtTrId("player.play"), QStringLiteral("Space"));
  connect(playButton_, &IconButton::clicked, this, [this] { player_->toggle(); });
  time_ = new TextLabel(TextLabel::Role::Body);
  time_->setFont(tabularFont());
  scrubber_ = new WaveformScrubber;
  connect(scrubber_, &WaveformScrubber::sought, this, [this](double seconds) {
    if (player_) player_->seek(seconds);
  });
  //% "Sound"
  soundButton_ = new IconButton(QStringLiteral("speaker"), qtTrId("player.sound"), QStringLiteral("M"));
  connect(soundButton_, &IconButton::clicked, this, [this] { player_->setMuted(!player_->isMuted()); });
  //% "Show in Folder"
  auto* folder = new IconButton(QStringLiteral("folder"), qtTrId("player.reveal"));
  connect(folder, &IconButton::clicked, this, [this] { services_.reveal(bundle_.path()); });

  auto* row = new QHBoxLayout(bar);
  row->setContentsMargins(tokens::space3, 0, tokens::space3, 0);
  row->setSpacing(tokens::space2);
  row->addWidget(playButton_);
  row->addWidget(time_);
  row->addWidget(scrubber_, 1);
  row->addWidget(soundButton_);
  row->addWidget(folder);
  return bar;
}

void PlayerWindow::setPlayable(bool playable) {
  playButton_->setEnabled(playable);
  scrubber_->setEnabled(playable);
  soundButton_->setEnabled(playable && player_->hasSound());
}

void PlayerWindow::open() {
  auto deliver = lifetime_.guard([this](std::shared_ptr<Result<MoviePlayer::Footage, MediaFailure>> footage,
                                        const RecordProjectState& state) { opened(std::move(*footage), state); });
  opening_.async([this, deliver = std::move(deliver)]() mutable {
    auto footage =
        std::make_shared<Result<MoviePlayer::Footage, MediaFailure>>(MoviePlayer::open(services_.movies, bundle_));
    services_.runLoop.post([deliver = std::move(deliver), footage = std::move(footage),
                            state = bundle_.load()]() mutable { deliver(std::move(footage), state); });
  });
}

void PlayerWindow::opened(Result<MoviePlayer::Footage, MediaFailure> footage, const RecordProjectState& state) {
  setWindowTitle(state.name);
  if (!footage) {
    //% "The movie of this recording cannot be played. Its folder may still hold what was recorded."
    view_->setMessage(qtTrId("player.notPlayable"));
    return;
  }
  player_ = std::make_unique<MoviePlayer>(
      services_.runLoop, services_.playback, std::move(*footage),
      MoviePlayer::Callbacks{.onScreen = [this](const ShownPicturePtr& picture) { view_->showScreen(picture); },
                             .onCamera = [this](const ShownPicturePtr& picture) { view_->showCamera(picture); },
                             .onChanged = [this] { refresh(); }});
  scrubber_->setDuration(player_->duration());
  scrubber_->setMarks(RecordPauseMarks::load(bundle_.path()));
  view_->setCameraMirrored(state.camera.mirrored);
  setPlayable(true);
  scrubber_->setFocus();
  refresh();
  fitToMovie();
  view_->setMovie({player_->width(), player_->height()}, {player_->cameraWidth(), player_->cameraHeight()});

  if (!player_->hasSound()) return;
  auto deliver = lifetime_.guard([this](std::vector<float> levels) { scrubber_->setLevels(std::move(levels)); });
  measuring_.async([this, deliver = std::move(deliver)]() mutable {
    auto levels = services_.loudness(bundle_, [this] { return !isEnding_; });
    services_.runLoop.post(
        [deliver = std::move(deliver), levels = std::move(levels)]() mutable { deliver(std::move(levels)); });
  });
}

void PlayerWindow::fitToMovie() {
  if (isMaximized() || isFullScreen()) return;
  const QSizeF room = QSizeF(screen()->availableGeometry().size()) * mostOfScreen - QSizeF(0, transportHeight);
  const QSizeF movie = QSizeF(player_->width(), player_->height()) / devicePixelRatioF();
  const bool fits = movie.width() <= room.width() && movie.height() <= room.height();
  const QSizeF size = fits ? movie : movie.scaled(room, Qt::KeepAspectRatio);
  resize(size.toSize() + QSize(0, transportHeight));
}

void PlayerWindow::refresh() {
  if (!player_) return;
  if (!scrubber_->isSliderDown()) scrubber_->setPosition(player_->position());
  time_->setText(timeText(player_->position(), player_->duration()));
  if (std::exchange(isShownPlaying_, player_->isPlaying()) != player_->isPlaying()) {
    playButton_->setIconName(player_->isPlaying() ? QStringLiteral("pause") : QStringLiteral("play"));
    //% "Pause"
    playButton_->setTitle(player_->isPlaying() ? qtTrId("player.pause") : qtTrId("player.play"),
                          QStringLiteral("Space"));
  }
  soundButton_->setIconName(player_->isMuted() ? QStringLiteral("speaker.slash") : QStringLiteral("speaker"));
}

void PlayerWindow::toggleFullScreen() {
  setWindowState(windowState() ^ Qt::WindowFullScreen);
}

void PlayerWindow::present() {
  if (isMinimized()) {
    showNormal();
  } else {
    show();
  }
  raise();
  activateWindow();
}

void PlayerWindow::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const ThemeColors& palette = Theme::shared().palette();
  painter.fillRect(rect(), palette.surface);
  drawHorizontalLine(painter, 0, width(), height() - transportHeight, palette.line);
}

bool PlayerWindow::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    auto& key = static_cast<QKeyEvent&>(*event);
    if (key.key() == Qt::Key_Left || key.key() == Qt::Key_Right) {
      keyPressEvent(&key);
      return true;
    }
  }
  return QWidget::eventFilter(watched, event);
}

void PlayerWindow::keyPressEvent(QKeyEvent* event) {
  const bool isClosing = event->matches(QKeySequence::Close) || (event->key() == Qt::Key_Escape && !isFullScreen());
  if (isClosing) {
    close();
    return;
  }
  if (event->key() == Qt::Key_F || event->key() == Qt::Key_F11 || event->key() == Qt::Key_Escape) {
    return toggleFullScreen();
  }
  if (!player_) return QWidget::keyPressEvent(event);
  const double jump = event->modifiers().testFlag(Qt::ShiftModifier) ? longJump : shortJump;
  switch (event->key()) {
    case Qt::Key_Space:
    case Qt::Key_K:
      return player_->toggle();
    case Qt::Key_J:
    case Qt::Key_Left:
      return player_->seek(player_->position() - jump);
    case Qt::Key_L:
    case Qt::Key_Right:
      return player_->seek(player_->position() + jump);
    case Qt::Key_Comma:
      return player_->step(-1);
    case Qt::Key_Period:
      return player_->step(1);
    case Qt::Key_Home:
      return player_->seek(0);
    case Qt::Key_End:
      return player_->seek(player_->duration());
    case Qt::Key_M:
      return player_->setMuted(!player_->isMuted());
    default:
      return QWidget::keyPressEvent(event);
  }
}

void PlayerWindow::closeEvent(QCloseEvent* event) {
  if (player_) player_->pause();
  event->accept();
  emit closed();
}

}  // namespace vellora
