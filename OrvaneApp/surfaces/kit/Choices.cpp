#include "OrvaneApp/surfaces/kit/Choices.h"

#include <QComboBox>
#include <QFontMetricsF>
#include <QStyle>
#include <QStyleOptionComboBox>

using namespace Qt::StringLiterals;

namespace Choices {

QComboBox *unlabelled(int width, QWidget *parent)
{
    auto *box = new QComboBox(parent);
    box->setEditable(false);
    box->setFixedWidth(width);
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setMinimumContentsLength(1);
    return box;
}

void show(QComboBox &box, const QList<Entry> &entries, const QVariant &current)
{
    bool same = box.count() == entries.size();
    for (int index = 0; same && index < box.count(); ++index) {
        const Entry &entry = entries.at(index);
        same = box.itemText(index) == entry.label && box.itemData(index) == entry.value;
    }
    if (!same) {
        const QSignalBlocker quiet(box);
        box.clear();
        for (const Entry &entry : entries)
            box.addItem(entry.label, entry.value);
    }
    const int chosen = box.findData(current);
    if (box.currentIndex() != chosen) {
        const QSignalBlocker quiet(box);
        box.setCurrentIndex(chosen);
    }
}

int titleRoom(const QComboBox &box, const QString &title)
{
    QStyleOptionComboBox option;
    option.initFrom(&box);
    option.editable = box.isEditable();
    option.currentText = title;
    return box.style()
        ->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &box)
        .width();
}

QString fitting(const QComboBox &box, const QString &preferred, const QString &fallback)
{
    const qreal needs = QFontMetricsF(box.font()).horizontalAdvance(preferred);
    return needs <= titleRoom(box, preferred) ? preferred : fallback;
}

void name(QComboBox &box, const QString &column, const QString &row)
{
    const QString text = column + u", "_s + row;
    if (box.accessibleName() != text)
        box.setAccessibleName(text);
}

} // namespace Choices
