#pragma once

#include "OrvaneApp/model/ServiceEdit.h"
#include "OrvaneApp/surfaces/kit/Roles.h"

#include <QLabel>
#include <QWidget>

/// The small parts that heads and rows share.
namespace SmallParts {

/// A small column label above a control ("Location", "Tag"): 11 px in the secondary colour.
[[nodiscard]] QLabel *columnLabel(const QString &text, QWidget *parent);
/// A column's head over a table: upper case, 10 px semibold, letters spaced 0.6, in the
/// secondary colour.
[[nodiscard]] QLabel *headLabel(const QString &text, QWidget *parent);
/// A warning on one line: the symbol "exclamationmark.triangle.fill" and the words, in orange.
/// It gives way in width rather than widening what holds it.
[[nodiscard]] QWidget *warning(const QString &text, QWidget *parent);
/// Sets the words of a `warning`.
void setWarningText(QWidget &warning, const QString &text);

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
