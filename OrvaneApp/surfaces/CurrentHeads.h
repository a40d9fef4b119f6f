#pragma once

#include <QWidget>

#include <optional>

class Pill;
class QCheckBox;
class QHBoxLayout;
class QLabel;

/// The head of a section of the Current tab: its title, the count in a pill, the section's
/// offers, the key of the status dots (adapters only) and the load error while there is one.
class SectionHead : public QWidget
{
    Q_OBJECT

public:
    static constexpr int headHeight = 42;

    SectionHead(const QString &title, bool showsKey, QWidget *parent = nullptr);

    void setCount(qsizetype count);
    /// Where the section's offers stand, after the pill.
    [[nodiscard]] QHBoxLayout *offers() const { return m_offers; }
    void setLoadError(const std::optional<QString> &error);
    [[nodiscard]] QWidget *loadErrorLine() const { return m_loadError; }
    [[nodiscard]] Pill *pill() const { return m_pill; }

private:
    Pill *m_pill = nullptr;
    QHBoxLayout *m_offers = nullptr;
    QWidget *m_loadError = nullptr;
};

/// The column labels over a table of rows, lined up with the rows' controls, with the tick that
/// selects the whole table and the head's separator under them.
class ColumnHead : public QWidget
{
    Q_OBJECT

public:
    static constexpr int headHeight = 26;

    ColumnHead(bool vlan, QWidget *parent = nullptr);

    void setNameColumn(int nameColumn);
    [[nodiscard]] QCheckBox *tickAll() const { return m_tickAll; }
    /// The labels, left to right.
    [[nodiscard]] QStringList labels() const;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    bool m_vlan;
    QCheckBox *m_tickAll = nullptr;
    QList<QLabel *> m_labels;
};

/// What the VLAN section shows when there is no VLAN: a line and the way to the Add tab.
class EmptyNotice : public QWidget
{
    Q_OBJECT

public:
    explicit EmptyNotice(QWidget *parent = nullptr);

Q_SIGNALS:
    void addRequested();
};
