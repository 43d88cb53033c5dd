#pragma once
// The layers of the loaded document as a table: Z, dZ, records and moves.
#include <QAbstractTableModel>

namespace korvexed {

class LayerTableModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  using QAbstractTableModel::QAbstractTableModel;

  // The document was loaded or emptied.
  void Reload();

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
};

}  // namespace korvexed
