// Writing the service order: a move from the sheet, the recommended order, and their failures.
#include "OrvaneApp/model/AppModel.h"
#include "VLANKit/core/VLANError.h"
#include "VLANKit/store/VLANStore.h"

#include <QSet>

using namespace VLANKit;

void AppModel::moveServices(const QList<qsizetype> &sourceOffsets, qsizetype targetOffset)
{
    const QSet<qsizetype> moving(sourceOffsets.begin(), sourceOffsets.end());
    QList<ServiceRecord> moved;
    QList<ServiceRecord> staying;
    qsizetype landing = 0;
    for (qsizetype offset = 0; offset < m_serviceOrder.size(); ++offset) {
        if (moving.contains(offset)) {
            moved.append(m_serviceOrder.at(offset));
        } else {
            staying.append(m_serviceOrder.at(offset));
            if (offset < targetOffset)
                ++landing;
        }
    }
    QList<ServiceRecord> order = staying.mid(0, landing);
    order.append(moved);
    order.append(staying.mid(landing));
    setServiceOrder(order);
    QStringList ids;
    for (const ServiceRecord &service : std::as_const(m_serviceOrder))
        ids.append(service.serviceID);
    writeOrder(ids);
}

void AppModel::writeOrder(const QStringList &serviceIDs)
{
    try {
        writeWithRight([&](VLANStore &store) {
            store.setServiceOrder(serviceIDs);
            store.commit();
        });
    } catch (const std::exception &failure) {
        reportOrderFailure(localizedDescription(failure));
        // Puts the true order back in place of the move on show.
        reload(false);
        return;
    }
    setOrderError(std::nullopt);
    reloadAfterSettling(false);
}

void AppModel::applyRecommendedOrder()
{
    const std::unique_ptr<VLANStore> store = openShownStore();
    if (!store)
        return;
    QStringList ids;
    for (const ServiceRecord &service : store->recommendedOrder(m_internetServiceIDs))
        ids.append(service.serviceID);
    writeOrder(ids);
}

void AppModel::reportOrderFailure(const QString &message)
{
    if (m_showingServiceOrder)
        setOrderError(message);
    else
        setResult(BuildResult{QUuid::createUuid(), false, message});
}
