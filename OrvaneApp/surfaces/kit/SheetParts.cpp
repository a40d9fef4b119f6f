#include "OrvaneApp/surfaces/kit/SheetParts.h"

#include "OrvaneApp/model/Theme.h"
#include "OrvaneApp/surfaces/kit/ConfirmParts.h"
#include "OrvaneApp/surfaces/kit/HintField.h"
#include "OrvaneApp/surfaces/kit/Roles.h"
#include "OrvaneApp/surfaces/kit/Symbols.h"

#include <QFontMetrics>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

QVBoxLayout *block(QVBoxLayout *sheet, int spacing)
{
    auto *layout = new QVBoxLayout;
    layout->setContentsMargins(NameSheet::padding, NameSheet::padding, NameSheet::padding,
                               NameSheet::padding);
    layout->setSpacing(spacing);
    sheet->addLayout(layout);
    return layout;
}

} // namespace

NameSheet::NameSheet(int width, std::function<bool()> allowed, std::function<void()> act,
                     std::function<void()> cancel, QWidget *parent)
    : QDialog(parent)
    , m_allowed(std::move(allowed))
    , m_action(std::move(act))
    , m_cancel(std::move(cancel))
{
    setFixedWidth(width);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    m_head = block(layout, 4);
    m_title = new QLabel(this);
    m_title->setFont(Theme::font(15, QFont::DemiBold));
    m_title->setTextFormat(Qt::PlainText);
    m_head->addWidget(m_title);
    layout->addWidget(ConfirmParts::divider(this));
    m_form = block(layout, 5);
    layout->addWidget(ConfirmParts::divider(this));
    auto *foot = block(layout, 8);
    m_buttons = new QHBoxLayout;
    m_buttons->setSpacing(8);
    foot->addLayout(m_buttons);
    // Escape and the close box reject: that is the sheet's cancel.
    connect(this, &QDialog::rejected, this, [this] {
        if (m_cancel)
            m_cancel();
    });
}

void NameSheet::setHead(const QString &title, const QStringList &lines)
{
    m_title->setText(title);
    for (const QString &line : lines) {
        auto *text = new QLabel(line, this);
        text->setTextFormat(Qt::PlainText);
        text->setWordWrap(true);
        text->setFont(Theme::font(12));
        Roles::useSecondaryText(*text);
        m_head->addWidget(text);
    }
}

void NameSheet::setButtons(const QString &actLabel, QWidget *left)
{
    if (left)
        m_buttons->addWidget(left);
    m_buttons->addStretch(1);
    QPushButton *cancel = ConfirmParts::plainButton(u"Cancel"_s, this);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    m_act = ConfirmParts::confirmButton(actLabel, false, this);
    m_act->setAutoDefault(false);
    connect(m_act, &QPushButton::clicked, this, &NameSheet::tryToAct);
    m_buttons->addWidget(cancel);
    m_buttons->addWidget(m_act);
    showAllowed();
}

void NameSheet::actOnReturn(HintField *field)
{
    connect(field, &QLineEdit::returnPressed, this, &NameSheet::tryToAct);
}

void NameSheet::showAllowed()
{
    if (m_act)
        m_act->setEnabled(m_allowed());
}

void NameSheet::tryToAct()
{
    // The model closes the sheet when the action is done; a failure keeps it open with its
    // words under the field.
    if (m_allowed())
        m_action();
}

namespace SheetParts {

QLabel *label(const QString &text, QWidget *parent)
{
    auto *label = new QLabel(text, parent);
    label->setFont(Theme::font(13));
    return label;
}

QWidget *issueLine(QWidget *parent)
{
    auto *line = new QWidget(parent);
    auto *layout = new QHBoxLayout(line);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    auto *symbol = new QLabel(line);
    symbol->setObjectName(u"issueSymbol"_s);
    symbol->setPixmap(Symbols::icon(u"exclamationmark.circle.fill"_s, Roles::Role::orange)
                          .pixmap(QSize(12, 12), line->devicePixelRatioF()));
    auto *words = new QLabel(line);
    words->setObjectName(u"issueWords"_s);
    words->setTextFormat(Qt::PlainText);
    words->setWordWrap(true);
    words->setFont(Theme::font(12));
    QPalette orange = words->palette();
    orange.setColor(QPalette::WindowText, Roles::color(Roles::Role::orange, orange));
    words->setPalette(orange);
    layout->addWidget(symbol, 0, Qt::AlignTop);
    layout->addWidget(words, 1);
    line->setMinimumHeight(QFontMetrics(words->font()).lineSpacing());
    setIssue(*line, std::nullopt);
    return line;
}

void setIssue(QWidget &line, const std::optional<QString> &issue)
{
    auto *words = line.findChild<QLabel *>(u"issueWords"_s);
    auto *symbol = line.findChild<QLabel *>(u"issueSymbol"_s);
    const QString text = issue.value_or(QString());
    if (words->text() != text)
        words->setText(text);
    words->setVisible(issue.has_value());
    symbol->setVisible(issue.has_value());
}

QLabel *steadyNote(const QStringList &texts, int width, QWidget *parent)
{
    auto *note = new QLabel(parent);
    note->setTextFormat(Qt::PlainText);
    note->setWordWrap(true);
    note->setFont(Theme::font(12));
    Roles::useSecondaryText(*note);
    int tallest = 0;
    const QFontMetrics metrics(note->font());
    for (const QString &text : texts) {
        tallest = std::max(
            tallest,
            metrics.boundingRect(QRect(0, 0, width, 10000), Qt::TextWordWrap, text).height());
    }
    note->setMinimumHeight(tallest);
    note->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    return note;
}

} // namespace SheetParts
