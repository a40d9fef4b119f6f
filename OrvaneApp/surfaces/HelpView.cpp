#include "OrvaneApp/surfaces/HelpView.h"

#include "OrvaneApp/model/Theme.h"
#include "OrvaneApp/surfaces/kit/Roles.h"

#include <QCoreApplication>
#include <QLabel>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int padding = 30;
constexpr int headSpacing = 6;

QLabel *line(const QString &text, const QFont &font, bool secondary, QWidget *parent)
{
    auto *label = new QLabel(text, parent);
    label->setFont(font);
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    if (secondary)
        Roles::useSecondaryText(*label);
    return label;
}

} // namespace

HelpView::HelpView(QWidget *parent)
    : QScrollArea(parent)
{
    setMinimumSize(leastWidth, leastHeight);
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);

    auto *column = new QWidget;
    auto *layout = new QVBoxLayout(column);
    layout->setContentsMargins(padding, padding, padding, padding);
    layout->setSpacing(headSpacing);
    layout->addWidget(line(u"Orvane"_s, Theme::font(26, QFont::Bold), false, column));
    layout->addWidget(line(u"Bulk VLAN management for macOS"_s, Theme::font(13), true, column));
    layout->addWidget(
        line(u"Version "_s + version() + u" \u00b7 Quill Fence"_s, Theme::font(11), true, column));
    layout->addStretch();
    setWidget(column);
}

QString HelpView::version()
{
    const QString stated = QCoreApplication::applicationVersion();
    return stated.isEmpty() ? u"\u2014"_s : stated;
}
