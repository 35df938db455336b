#include <QFileDialog>
#include <QMenu>
#include <QPixmap>
#include <QStandardPaths>

#include "editor/ui/compressor/CompressorListModel.h"
#include "editor/ui/compressor/CompressorListView.h"
#include "editor/ui/compressor/CompressorWindow.h"
#include "editor/ui/compressor/FilePaths.h"
#include "kit/Button.h"
#include "kit/Icons.h"
#include "kit/Menu.h"
#include "kit/Theme.h"
#include "kit/Tokens.h"

// What the window's commands do.

namespace vellora {
namespace {

constexpr QSize dialogSize(860, 540);  // where the desktop has no dialog of its own
constexpr int captureThumbnail = 48;   // points

QString namePatterns() {
  QStringList patterns;
  for (const PictureType type : allPictureTypes) {
    const std::string_view extension = fileExtension(type);
    patterns << QStringLiteral("*.") + QString::fromLatin1(extension.data(), static_cast<qsizetype>(extension.size()));
  }
  patterns << QStringLiteral("*.jpeg") << QStringLiteral("*.tif") << QStringLiteral("*.heif");
  return patterns.join(u' ');
}

QFileDialog* makeDialog(QWidget* parent, const QString& title) {
  auto* dialog = new QFileDialog(parent, title);
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  followTheme(*dialog);  // the desktop's own dialog, where there is one, takes no notice
  dialog->setDirectory(QStandardPaths::writableLocation(QStandardPaths::PicturesLocation));
  dialog->resize(dialogSize);
  return dialog;
}

QIcon thumbnailIcon(const QString& file) {
  QPixmap thumbnail(file);
  if (thumbnail.isNull()) return icon(QStringLiteral("load.file"));
  thumbnail.setDevicePixelRatio(thumbnail.width() / static_cast<qreal>(captureThumbnail));
  return QIcon(thumbnail);
}

}  // namespace

void CompressorWindow::chooseImages() {
  //% "Add images"
  QFileDialog* dialog = makeDialog(this, qtTrId("compress.addImages.title"));
  dialog->setFileMode(QFileDialog::ExistingFiles);
  //% "Images (%1)"
  dialog->setNameFilters({qtTrId("compress.addImages.filter").arg(namePatterns()),
                          //% "All files (*)"
                          qtTrId("compress.addImages.allFiles")});
  connect(dialog, &QFileDialog::filesSelected, this, [this](const QStringList& names) {
    std::vector<std::filesystem::path> files;
    for (const QString& name : names) files.push_back(pathFrom(name));
    addFiles(std::move(files));
  });
  dialog->open();
}

void CompressorWindow::chooseFolder() {
  //% "Add a folder of images"
  QFileDialog* dialog = makeDialog(this, qtTrId("compress.addFolder.title"));
  dialog->setFileMode(QFileDialog::Directory);
  dialog->setOption(QFileDialog::ShowDirsOnly);
  connect(dialog, &QFileDialog::fileSelected, this, [this](const QString& path) { addFiles({pathFrom(path)}); });
  dialog->open();
}

void CompressorWindow::openAddMenu() {
  auto* menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  menu->addActions({commands_.addImages, commands_.addFolder});
  if (services_.readClipboard) menu->addAction(commands_.paste);
  addCaptures(*menu);
  styleMenu(*menu);
  const int ring = tokens::focusRingRoom;
  menu->popup(add_->mapToGlobal(QPoint(ring, add_->height() - ring + tokens::space1)));
}

void CompressorWindow::addCaptures(QMenu& menu) {
  if (!services_.captures || !services_.readCapture) return;
  const auto captures = services_.captures();
  menu.addSeparator();
  //% "Recent Captures"
  QMenu* history = menu.addMenu(icon(QStringLiteral("history.more")), qtTrId("compress.command.captures"));
  history->setEnabled(!captures.empty());
  for (std::size_t i = 0; i < captures.size(); ++i) {
    QString title = captures[i].title;
    QAction* action =
        history->addAction(thumbnailIcon(captures[i].thumbnailFile), title.replace(u'&', QStringLiteral("&&")));
    action->setIconVisibleInMenu(true);
    connect(action, &QAction::triggered, this, [this, i] {
      services_.readCapture(i, lifetime_.guard([this](const Bitmap& picture, const QString& name) {
        if (!picture.isNull()) addPixels(picture, name);
      }));
    });
  }
}

void CompressorWindow::openRowMenu(QPoint at) {
  auto* menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  if (list_->currentId()) {
    menu->addActions({commands_.compare, commands_.reveal, commands_.retry});
    menu->addSeparator();
    menu->addAction(commands_.remove);
  }
  menu->addAction(commands_.clear);
  menu->addSeparator();
  menu->addActions({commands_.addImages, commands_.addFolder, commands_.paste});
  refreshCommands();
  styleMenu(*menu);
  menu->popup(at);
}

void CompressorWindow::perform(RowAction action, std::uint64_t id) {
  const CompressionItem* item = run_.find(id);
  if (item == nullptr) return;
  switch (action) {
    case RowAction::Retry:
      run_.retry(id, settings_.options(), destination());
      return refresh();
    case RowAction::Reveal:
      if (services_.reveal && item->lastOutput) services_.reveal(item->lastOutput->file);
      return;
    case RowAction::Remove:
      isRemoving_ = true;
      run_.remove(id);
      isRemoving_ = false;
      return;
  }
}

void CompressorWindow::retrySelected() {
  for (const std::uint64_t id : list_->selectedIds()) run_.retry(id, settings_.options(), destination());
  refresh();
}

void CompressorWindow::revealCurrent() {
  if (const auto id = list_->currentId()) perform(RowAction::Reveal, *id);
}

void CompressorWindow::removeSelected() {
  const auto ids = list_->selectedIds();
  if (ids.empty()) return;
  isRemoving_ = true;
  run_.remove(ids);
  isRemoving_ = false;
  // The row that took the place of the last one goes on with the keyboard.
  const QModelIndex current = list_->currentIndex();
  if (current.isValid()) list_->selectionModel()->select(current, QItemSelectionModel::ClearAndSelect);
}

void CompressorWindow::clearList() {
  if (run_.isRunning()) return;
  isRemoving_ = true;
  run_.clear();
  isRemoving_ = false;
  add_->setFocus(Qt::OtherFocusReason);
}

}  // namespace vellora
