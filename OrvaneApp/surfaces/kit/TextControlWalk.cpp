#include "OrvaneApp/surfaces/kit/TextControlWalk.h"

#include "OrvaneApp/surfaces/kit/Choices.h"
#include "OrvaneApp/surfaces/kit/RenderTextReport.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QCheckBox>
#include <QComboBox>
#include <QFontMetricsF>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QStyleOptionButton>
#include <QStyleOptionFrame>
#include <QTextDocument>
#include <QToolButton>

#include <algorithm>

namespace {

/// How near the root's side a text may stand, and how much a text may overrun its room.
constexpr int edgeMargin = 4;
constexpr qreal tolerance = 1.0;
/// What Qt's line edit keeps free on each side of its text, inside its contents rectangle.
constexpr qreal lineEditInnerMargin = 2.0;
/// Between a button's icon and its text.
constexpr qreal iconSpacing = 4.0;

/// The widest line of a text in a font.
qreal textWidth(const QFont &font, const QString &text)
{
    const QFontMetricsF metrics(font);
    qreal widest = 0;
    for (const QString &line : text.split(u'\n'))
        widest = std::max(widest, metrics.horizontalAdvance(line));
    return widest;
}

QString plainText(const QLabel &label)
{
    const bool rich = label.textFormat() == Qt::RichText
                      || (label.textFormat() == Qt::AutoText && Qt::mightBeRichText(label.text()));
    if (!rich)
        return label.text();
    QTextDocument document;
    document.setHtml(label.text());
    return document.toPlainText();
}

bool hasMenu(const QAbstractButton &button)
{
    if (const auto *push = qobject_cast<const QPushButton *>(&button))
        return push->menu() != nullptr;
    if (const auto *tool = qobject_cast<const QToolButton *>(&button))
        return tool->menu() != nullptr || tool->popupMode() == QToolButton::InstantPopup;
    return false;
}

/// The room a button's style gives its icon and text.
qreal buttonRoom(const QAbstractButton &button)
{
    QStyleOptionButton option;
    option.initFrom(&button);
    option.text = button.text();
    option.icon = button.icon();
    option.iconSize = button.iconSize();
    QStyle::SubElement element = QStyle::SE_PushButtonContents;
    if (qobject_cast<const QCheckBox *>(&button))
        element = QStyle::SE_CheckBoxContents;
    else if (qobject_cast<const QRadioButton *>(&button))
        element = QStyle::SE_RadioButtonContents;
    else if (!qobject_cast<const QPushButton *>(&button))
        return button.contentsRect().width();
    return button.style()->subElementRect(element, &option, &button).width();
}

qreal buttonNeeds(const QAbstractButton &button, const QString &text)
{
    qreal needs = textWidth(button.font(), text);
    if (!button.icon().isNull())
        needs += button.iconSize().width() + iconSpacing;
    return needs;
}

class Walk
{
public:
    explicit Walk(const QWidget &root)
        : m_root(root)
    {}

    void visitChildren(const QWidget &parent)
    {
        for (QObject *child : parent.children()) {
            const auto *widget = qobject_cast<const QWidget *>(child);
            if (!widget || widget->isWindow() || !widget->isVisibleTo(&m_root))
                continue;
            visit(*widget);
        }
    }

    TextControlCount count;

private:
    void visit(const QWidget &widget)
    {
        if (qobject_cast<const QScrollBar *>(&widget))
            return;
        if (const auto *edit = qobject_cast<const QLineEdit *>(&widget)) {
            field(widget, widget.rect(), edit->text(), lineEditRoom(*edit));
            return; // its clear button and the like are its own parts
        }
        if (const auto *combo = qobject_cast<const QComboBox *>(&widget)) {
            popup(*combo);
            return;
        }
        if (qobject_cast<const QAbstractSpinBox *>(&widget))
            return;
        if (const auto *label = qobject_cast<const QLabel *>(&widget))
            this->label(*label);
        else if (const auto *button = qobject_cast<const QAbstractButton *>(&widget))
            this->button(*button);
        if (const auto *report = dynamic_cast<const RenderTextReport *>(&widget)) {
            for (const RenderTextReport::Text &text : report->visibleTexts())
                field(widget, text.rect, text.text,
                      text.availableWidth - textWidth(widget.font(), text.text));
        }
        visitChildren(widget);
    }

    /// A text field: counted, judged cut short when `room` (what is left beside the text) is
    /// below -1 px, and judged at the edge from its rectangle in the root's coordinates.
    void field(const QWidget &widget, const QRect &rect, const QString &text, qreal room)
    {
        if (text.isEmpty())
            return;
        ++count.fields;
        if (room < -tolerance)
            count.cutShort.append(text);
        judgeEdge(widget, rect, text);
    }

    void judgeEdge(const QWidget &widget, const QRect &rect, const QString &text)
    {
        const QPoint topLeft = widget.mapTo(&m_root, rect.topLeft());
        if (topLeft.x() < edgeMargin || topLeft.x() + rect.width() > m_root.width() - edgeMargin)
            count.atEdge.append(text);
    }

    static qreal lineEditRoom(const QLineEdit &edit)
    {
        QStyleOptionFrame option;
        option.initFrom(&edit);
        option.lineWidth = edit.hasFrame() ? edit.style()->pixelMetric(QStyle::PM_DefaultFrameWidth,
                                                                       &option, &edit)
                                           : 0;
        const QRect contents =
            edit.style()->subElementRect(QStyle::SE_LineEditContents, &option, &edit);
        const QMargins margins = edit.textMargins();
        const qreal available =
            contents.width() - margins.left() - margins.right() - 2 * lineEditInnerMargin;
        return available - textWidth(edit.font(), edit.text());
    }

    void label(const QLabel &label)
    {
        const QString text = plainText(label);
        if (text.isEmpty())
            return;
        if (label.wordWrap()) {
            const int needs = label.heightForWidth(label.width());
            field(label, label.rect(), text, label.height() - needs);
            return;
        }
        const qreal available =
            label.contentsRect().width() - 2 * label.margin() - std::max(label.indent(), 0);
        field(label, label.rect(), text, available - textWidth(label.font(), text));
    }

    void button(const QAbstractButton &button)
    {
        const QString text = button.text();
        const qreal room = buttonRoom(button) - buttonNeeds(button, text);
        if (!hasMenu(button)) {
            field(button, button.rect(), text, room);
            return;
        }
        ++count.popups;
        if (text.isEmpty())
            return;
        if (room < -tolerance)
            count.cutShort.append(text);
        judgeEdge(button, button.rect(), text);
    }

    void popup(const QComboBox &combo)
    {
        if (combo.currentIndex() < 0)
            return;
        ++count.popups;
        const QString text = combo.currentText();
        if (text.isEmpty())
            return;
        qreal needs = textWidth(combo.font(), text);
        if (!combo.itemIcon(combo.currentIndex()).isNull())
            needs += combo.iconSize().width() + iconSpacing;
        if (needs - Choices::titleRoom(combo, text) > tolerance)
            count.cutShort.append(text);
        judgeEdge(combo, combo.rect(), text);
    }

    const QWidget &m_root;
};

} // namespace

TextControlCount walkTextControls(const QWidget &root)
{
    Walk walk(root);
    walk.visitChildren(root);
    return walk.count;
}
