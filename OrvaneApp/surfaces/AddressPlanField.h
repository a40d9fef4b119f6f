#pragma once

#include <QWidget>

#include <array>

class QLineEdit;
class QVariantAnimation;

/// The address plan in four cells, "192 . 168 . tag . N", in one rounded box: the outline in
/// the separator colour, in the accent colour while a cell has focus, in orange while the plan
/// can't be used; a bad cell filled with orange. Typing keeps up with a person: digits only,
/// three at most, capped at 255, and the focus moves on at a "." or a third digit.
class AddressPlanField : public QWidget
{
    Q_OBJECT

public:
    static constexpr int cellWidth = 42;

    /// What a cell's text becomes after a person typed into it, and whether the focus moves on.
    struct Cleaned
    {
        QString text;
        bool moveOn = false;
        friend bool operator==(const Cleaned &, const Cleaned &) = default;
    };
    [[nodiscard]] static Cleaned clean(const QString &typed);
    /// Empty is bad unless `optional`; any other value is bad unless a whole number to 255.
    [[nodiscard]] static bool isBad(const QString &value, bool optional);

    explicit AddressPlanField(QWidget *parent = nullptr);

    /// Shows the four octets and whether the plan can be used, touching only what differs.
    void showPlan(const std::array<QString, 4> &octets, bool valid);
    [[nodiscard]] QLineEdit *cell(int index) const { return m_cells.at(size_t(index)); }
    [[nodiscard]] bool isValid() const { return m_valid; }

Q_SIGNALS:
    /// A person changed a cell: the four octets as they stand now.
    void edited(const std::array<QString, 4> &octets);

protected:
    void paintEvent(QPaintEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void cellEdited(int index, const QString &text);
    void showBadCells();
    [[nodiscard]] std::array<QString, 4> octets() const;

    std::array<QLineEdit *, 4> m_cells{};
    bool m_valid = true;
    /// 0 without focus, 1 with it: the outline's change eases out over 0.12 s.
    qreal m_focus = 0;
    QVariantAnimation *m_focusAnimation = nullptr;
};
