#include "editor/ui/compressor/CompressorListModel.h"

#include <utility>

#include "editor/ui/compressor/CompressorTexts.h"
#include "editor/ui/compressor/FilePaths.h"

namespace vellora {
namespace {

/// More gaps than these are told as a whole new list.
constexpr std::size_t mostGaps = 64;

QString toolTip(const CompressionItem& item) {
  QStringList lines{item.sourceURL.empty() ? compressorText::name(item) : textFrom(item.sourceURL)};
  if (item.failure) {
    lines << compressorText::failure(*item.failure);
    if (!item.failure->detail.empty()) lines << QString::fromStdString(item.failure->detail);
  }
  //% "Nothing smaller was found in this format and size"
  if (item.state == CompressionState::unchanged) lines << qtTrId("compress.row.keptTip");
  if (item.lastOutput) {
    //% "Result: %1"
    lines << qtTrId("compress.row.resultTip").arg(textFrom(item.lastOutput->file));
    //% "This format cannot be transparent: the background became white"
    if (item.lastOutput->isFlattened) lines << qtTrId("compress.row.flattenedTip");
  }
  return lines.join(u'\n');
}

}  // namespace

CompressorListModel::CompressorListModel(const CompressionRun& run, QObject* parent)
    : QAbstractListModel(parent), run_(run) {
  listChanged();
}

void CompressorListModel::listChanged() {
  const auto& items = run_.items();
  std::vector<std::pair<int, int>> gaps;  // first and last row that have gone
  std::size_t next = 0;
  for (std::size_t row = 0; row < ids_.size(); ++row) {
    if (next < items.size() && items[next].id == ids_[row]) {
      ++next;
    } else if (!gaps.empty() && gaps.back().second == static_cast<int>(row) - 1) {
      ++gaps.back().second;
    } else {
      gaps.emplace_back(row, row);
    }
  }
  const bool anew = gaps.size() > mostGaps;
  if (anew) beginResetModel();
  if (anew) ids_.clear();
  for (auto gap = gaps.rbegin(); gap != gaps.rend() && !anew; ++gap) takeOut(gap->first, gap->second);
  const bool grows = !anew && items.size() > ids_.size();
  if (grows) beginInsertRows({}, static_cast<int>(ids_.size()), static_cast<int>(items.size()) - 1);
  for (std::size_t i = ids_.size(); i < items.size(); ++i) ids_.push_back(items[i].id);
  rows_.clear();
  for (std::size_t i = 0; i < ids_.size(); ++i) rows_[ids_[i]] = static_cast<int>(i);
  if (grows) endInsertRows();
  if (anew) endResetModel();
}

void CompressorListModel::takeOut(int first, int last) {
  beginRemoveRows({}, first, last);
  ids_.erase(ids_.begin() + first, ids_.begin() + last + 1);
  endRemoveRows();
}

void CompressorListModel::itemChanged(std::uint64_t id) {
  const QModelIndex index = indexOf(id);
  if (index.isValid()) emit dataChanged(index, index);
}

const CompressionItem* CompressorListModel::item(const QModelIndex& index) const {
  return index.isValid() ? run_.find(id(index)) : nullptr;
}

QModelIndex CompressorListModel::indexOf(std::uint64_t id) const {
  const auto found = rows_.find(id);
  return found == rows_.end() ? QModelIndex() : index(found->second);
}

int CompressorListModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(ids_.size());
}

QVariant CompressorListModel::data(const QModelIndex& index, int role) const {
  if (role != Qt::DisplayRole && role != Qt::AccessibleTextRole && role != Qt::ToolTipRole) return {};
  const CompressionItem* entry = item(index);
  if (entry == nullptr) return {};
  if (role == Qt::DisplayRole) return compressorText::name(*entry);
  return role == Qt::ToolTipRole ? toolTip(*entry) : compressorText::spoken(*entry);
}

}  // namespace vellora
