#pragma once

#include "OrvaneApp/model/ServiceEdit.h"
#include "OrvaneApp/surfaces/kit/Roles.h"

#include <QLabel>
#include <QWidget>

/// The small parts that heads and rows share.
namespace SmallParts {

/// A small column label above a control ("Location", "Tag"): 11 px in the secondary colour.
[[nodiscard]] QLabel *columnLabel(const QString &text, QWidget *parent);

} // namespace SmallParts

/// A count or a short value on a rounded quaternary fill, at a size of its own.
class Pill : public QLabel
{
    Q_OBJECT

public:
    Pill(const QString &text, int pixelSize, QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;
};

/// The dot that tells how a service is: green connected, yellow self-assigned, red not
/// connected, grey inactive or not in this Location.
class StatusDot : public QWidget
{
    Q_OBJECT

public:
    static constexpr int diameter = 8;

    explicit StatusDot(QWidget *parent = nullptr);

    void setState(ServiceEdit::Liveness state);
    [[nodiscard]] ServiceEdit::Liveness state() const { return m_state; }
    [[nodiscard]] static Roles::Role roleOf(ServiceEdit::Liveness state);
    [[nodiscard]] QSize sizeHint() const override { return {diameter, diameter}; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    ServiceEdit::Liveness m_state = ServiceEdit::Liveness::inactive;
};
