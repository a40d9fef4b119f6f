#include "OrvaneApp/surfaces/ServiceOrderRows.h"

#include "OrvaneApp/model/AppModel.h"
#include "OrvaneApp/surfaces/ServiceOrderLayout.h"

#include <QDataStream>
#include <QIODevice>
#include <QMimeData>

#include <set>

using namespace Qt::StringLiterals;
using VLANKit::ServiceRecord;

const QString ServiceOrderRows::offsetsType = u"application/x-orvane-service-offsets"_s;
const QString ServiceOrderRows::tickHelp = u"Tick if this service reaches the internet"_s;

namespace {

using Column = ServiceOrderLayout::Column;

/// A run of rows dropped into its own place stays where it is.
bool movesAnything(const QList<qsizetype> &sources, qsizetype target)
{
    const qsizetype first = sources.first();
    const qsizetype last = sources.last();
    const bool run = last - first + 1 == sources.size();
    return !run || target < first || target > last + 1;
}

} // namespace

ServiceOrderRows::ServiceOrderRows(AppModel &model, Tick tick, Move move, QObject *parent)
    : QAbstractTableModel(parent)
    , m_model(model)
    , m_tick(std::move(tick))
    , m_move(std::move(move))
{
    connect(&m_model, &AppModel::serviceOrderChanged, this, [this] {
        beginResetModel();
        endResetModel();
    });
    for (const auto signal : {&AppModel::internetServiceIDsChanged, &AppModel::riskyVLANIDsChanged})
        connect(&m_model, signal, this, [this] {
            if (rowCount({}) > 0)
                Q_EMIT dataChanged(index(0, 0), index(rowCount({}) - 1, columnCount({}) - 1));
        });
}

int ServiceOrderRows::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_model.serviceOrder().size());
}

int ServiceOrderRows::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ServiceOrderLayout::columnCount;
}

QVariant ServiceOrderRows::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const ServiceRecord &service = m_model.serviceOrder().at(index.row());
    const auto column = Column(index.column());
    if (column == Column::internet) {
        if (role == Qt::CheckStateRole)
            return m_model.internetServiceIDs().contains(service.serviceID) ? Qt::Checked
                                                                            : Qt::Unchecked;
        if (role == Qt::ToolTipRole)
            return tickHelp;
        return {};
    }
    if (role != Qt::DisplayRole)
        return {};
    switch (column) {
    case Column::rank:
        return QString::number(index.row() + 1);
    case Column::service:
        return service.name;
    case Column::interface:
        return service.interfaceBSD;
    case Column::address:
        return service.ip.summary();
    default:
        return {};
    }
}

bool ServiceOrderRows::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (!index.isValid() || role != Qt::CheckStateRole || index.column() != Column::internet)
        return false;
    const ServiceRecord &service = m_model.serviceOrder().at(index.row());
    const bool ticked = m_model.internetServiceIDs().contains(service.serviceID);
    if ((value.value<Qt::CheckState>() == Qt::Checked) == ticked)
        return false;
    // A copy: the tick rebuilds the order it stands in.
    const ServiceRecord ticking = service;
    m_tick(ticking);
    return true;
}

Qt::ItemFlags ServiceOrderRows::flags(const QModelIndex &index) const
{
    // Drops land between rows, never on one; a disabled service moves like any other.
    if (!index.isValid())
        return Qt::ItemIsDropEnabled;
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled;
    if (index.column() == Column::internet)
        flags |= Qt::ItemIsUserCheckable;
    return flags;
}

Qt::DropActions ServiceOrderRows::supportedDragActions() const
{
    return Qt::MoveAction;
}

Qt::DropActions ServiceOrderRows::supportedDropActions() const
{
    return Qt::MoveAction;
}

QStringList ServiceOrderRows::mimeTypes() const
{
    return {offsetsType};
}

QMimeData *ServiceOrderRows::mimeData(const QModelIndexList &indexes) const
{
    std::set<qsizetype> rows;
    for (const QModelIndex &index : indexes)
        rows.insert(index.row());
    QByteArray encoded;
    QDataStream stream(&encoded, QIODevice::WriteOnly);
    stream << QList<qsizetype>(rows.begin(), rows.end());
    auto *data = new QMimeData;
    data->setData(offsetsType, encoded);
    return data;
}

bool ServiceOrderRows::dropMimeData(const QMimeData *data, Qt::DropAction action, int row, int,
                                    const QModelIndex &parent)
{
    if (action != Qt::MoveAction || !data->hasFormat(offsetsType))
        return false;
    QList<qsizetype> sources;
    QDataStream stream(data->data(offsetsType));
    stream >> sources;
    const qsizetype count = m_model.serviceOrder().size();
    if (stream.status() != QDataStream::Ok || sources.isEmpty())
        return false;
    // Offsets as a drag of these rows writes them: in the list, each once, in order.
    qsizetype previous = -1;
    for (const qsizetype source : std::as_const(sources)) {
        if (source <= previous || source >= count)
            return false;
        previous = source;
    }
    const qsizetype target = row >= 0 ? row : parent.isValid() ? parent.row() : count;
    // Refused rather than taken: the view removes the rows of a drop it was told is a move.
    if (!movesAnything(sources, target))
        return false;
    // The order is rebuilt by the model, which resets these rows: the view has nothing
    // left to remove.
    m_move(sources, target);
    return true;
}
