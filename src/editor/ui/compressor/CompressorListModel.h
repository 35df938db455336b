#pragma once

#include <cstdint>
#include <unordered_map>
#include <vector>

#include <QAbstractListModel>

#include "editor/compressor/CompressionRun.h"

namespace vellora {

/// The rows of a run's list as views want them. Told of every change by listChanged() and itemChanged().
class CompressorListModel final : public QAbstractListModel {
  Q_OBJECT

 public:
  explicit CompressorListModel(const CompressionRun& run, QObject* parent = nullptr);

  void listChanged();
  void itemChanged(std::uint64_t id);

  /// Nothing for a row that is just going.
  const CompressionItem* item(const QModelIndex& index) const;
  std::uint64_t id(const QModelIndex& index) const { return ids_[static_cast<std::size_t>(index.row())]; }
  QModelIndex indexOf(std::uint64_t id) const;

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;

 private:
  void takeOut(int first, int last);

  const CompressionRun& run_;
  std::vector<std::uint64_t> ids_;
  std::unordered_map<std::uint64_t, int> rows_;
};

}  // namespace vellora
