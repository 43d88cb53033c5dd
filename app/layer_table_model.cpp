#include "app/layer_table_model.h"

#include <array>

#include "document/document.h"
#include "document/korvexed_general.h"

namespace korvexed {

namespace {

constexpr std::array<const char*, 4> column_titles = {"Z", "dZ", "Records", "Moves"};

QString Number(double value) { return QString::fromStdString(FormatNumber(value, false)); }

}  // namespace

void LayerTableModel::Reload() {
  beginResetModel();
  endResetModel();
}

int LayerTableModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() || !IsDocumentLoaded() ? 0 : doc.layer_count;
}

int LayerTableModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(column_titles.size());
}

QVariant LayerTableModel::data(const QModelIndex& index, int role) const {
  // A load in progress may have emptied the document under the view.
  if (!index.isValid() || index.row() >= doc.layer_count) return {};
  if (role == Qt::TextAlignmentRole) return QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
  if (role != Qt::DisplayRole) return {};
  const layer_data& layer = doc.layer(index.row());
  switch (index.column()) {
    case 0: return Number(layer.z);
    case 1: return Number(layer.dz);
    case 2: return layer.g_count;
    case 3: return layer.coor_count;
    default: return {};
  }
}

QVariant LayerTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (role != Qt::DisplayRole) return {};
  // Layers are numbered from 0, as everywhere in the editor.
  if (orientation == Qt::Vertical) return section;
  return column_titles[static_cast<size_t>(section)];
}

}  // namespace korvexed
