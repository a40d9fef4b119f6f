#pragma once

#include <QAbstractButton>

/// The platform's small on-off switch: a checkable button drawn as a rounded track with a knob,
/// the track in the accent colour while on.
class Switch : public QAbstractButton
{
    Q_OBJECT

public:
    explicit Switch(QWidget *parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override { return {26, 15}; }

protected:
    void paintEvent(QPaintEvent *event) override;
};
