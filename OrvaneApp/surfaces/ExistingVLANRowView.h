#pragma once

#include "OrvaneApp/model/ModelRecords.h"

#include <QWidget>

class QGraphicsOpacityEffect;
class QLabel;

/// A VLAN this machine has now, to read under the rows to build, in the same columns.
class ExistingVLANRowView : public QWidget
{
    Q_OBJECT

public:
    static constexpr int rowHeight = 28;

    explicit ExistingVLANRowView(QWidget *parent = nullptr);

    void bind(const ExistingVLAN &vlan, const QString &location, int nameColumn);
    /// The texts shown, left to right.
    [[nodiscard]] QStringList texts() const;
    [[nodiscard]] qreal strength() const;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QList<QLabel *> m_cells;
    QLabel *m_notInLocation = nullptr;
    QGraphicsOpacityEffect *m_dimming = nullptr;
};
