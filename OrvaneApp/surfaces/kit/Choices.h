#pragma once

#include <QList>
#include <QString>
#include <QVariant>

class QComboBox;
class QWidget;

/// A choice with no label beside it, as the rows and popovers use them.
namespace Choices {

struct Entry
{
    QString label;
    QVariant value;

    friend bool operator==(const Entry &, const Entry &) = default;
};

/// A choice of a fixed width, not editable, that never grows to its entries.
[[nodiscard]] QComboBox *unlabelled(int width, QWidget *parent);

/// Shows these entries with the one of `current` chosen (none when no entry has it), touching
/// the box only where it differs: an open list, the focus and the accessible state survive a
/// rebind that changes nothing.
void show(QComboBox &box, const QList<Entry> &entries, const QVariant &current);

/// The width the box gives the title of its chosen entry.
[[nodiscard]] int titleRoom(const QComboBox &box, const QString &title);

/// `preferred` when the box shows it whole as its title, else `fallback`.
[[nodiscard]] QString fitting(const QComboBox &box, const QString &preferred,
                              const QString &fallback);

/// Names the box for a screen reader by its column and its row: "Parent, 1010 - Control".
void name(QComboBox &box, const QString &column, const QString &row);

} // namespace Choices
