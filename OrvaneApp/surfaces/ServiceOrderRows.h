#pragma once

#include "VLANKit/values/ServiceRecord.h"

#include <QAbstractTableModel>

#include <functional>

class AppModel;

/// The rows of the service order list, read live from the model's order: a tick or a drag
/// rebuilds the order, and the rows follow. A drag carries the rows' offsets; a drop hands them
/// on, and never inserts or removes a row itself.
class ServiceOrderRows : public QAbstractTableModel
{
    Q_OBJECT

public:
    /// The mime type of a drag of rows: their offsets, in list order.
    static const QString offsetsType;
    static const QString tickHelp;

    using Tick = std::function<void(const VLANKit::ServiceRecord &service)>;
    /// Offsets of the rows that move, and the offset they land before, both in the list as it
    /// stands before the move.
    using Move = std::function<void(const QList<qsizetype> &sources, qsizetype target)>;

    ServiceOrderRows(AppModel &model, Tick tick, Move move, QObject *parent = nullptr);

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex &index) const override;

    [[nodiscard]] Qt::DropActions supportedDragActions() const override;
    [[nodiscard]] Qt::DropActions supportedDropActions() const override;
    [[nodiscard]] QStringList mimeTypes() const override;
    [[nodiscard]] QMimeData *mimeData(const QModelIndexList &indexes) const override;
    bool dropMimeData(const QMimeData *data, Qt::DropAction action, int row, int column,
                      const QModelIndex &parent) override;

private:
    AppModel &m_model;
    Tick m_tick;
    Move m_move;
};
