#pragma once

#include "OrvaneApp/surfaces/ServiceOrderLayout.h"
#include "OrvaneApp/surfaces/ServiceOrderRows.h"
#include "OrvaneApp/surfaces/kit/RenderTextReport.h"

#include <QTableView>

#include <memory>

class AppModel;
class ServiceOrderCells;

/// The service order as a list: one row a service, highest first, with its rank, its tick, its
/// name (a VLAN's tag in a pill, a mark when it is at risk), its interface and its address. A
/// tick and a drag are handed to the caller, which writes them; the rows follow the model, and
/// Qt never inserts or removes one itself.
class ServiceOrderTable : public QTableView, public RenderTextReport
{
    Q_OBJECT

public:
    static const QString riskHelp;

    using Tick = ServiceOrderRows::Tick;
    using Move = ServiceOrderRows::Move;

    ServiceOrderTable(AppModel &model, Tick tick, Move move, QWidget *parent = nullptr);
    ~ServiceOrderTable() override;

    /// Sets the columns' widths and the list's height.
    void showLayout(const ServiceOrderLayout &layout);
    [[nodiscard]] const ServiceOrderLayout &columns() const { return m_layout; }

    /// The strength a service's row is drawn at: full when it is enabled, half when it isn't.
    [[nodiscard]] static qreal strength(const VLANKit::ServiceRecord &service);
    /// The help of what stands at a point of the viewport: the tick's, the risk mark's, or none.
    [[nodiscard]] QString helpAt(const QPoint &point) const;
    /// The text of the pill after a VLAN's name: its tag, or "VLAN" when no tag is known.
    [[nodiscard]] static QString pillText(const VLANKit::ServiceRecord &service);

    [[nodiscard]] QList<Text> visibleTexts() const override;

protected:
    bool viewportEvent(QEvent *event) override;

private:
    AppModel &m_model;
    ServiceOrderLayout m_layout;
    std::unique_ptr<ServiceOrderCells> m_cells;
};
