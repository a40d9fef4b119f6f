#include "OrvaneApp/surfaces/DraftRowView.h"

#include "OrvaneApp/model/Theme.h"
#include "OrvaneApp/surfaces/AddColumns.h"
#include "OrvaneApp/surfaces/kit/Choices.h"
#include "OrvaneApp/surfaces/kit/Help.h"
#include "OrvaneApp/surfaces/kit/HintField.h"
#include "OrvaneApp/surfaces/kit/Roles.h"
#include "OrvaneApp/surfaces/kit/Symbols.h"

#include <QComboBox>
#include <QGraphicsOpacityEffect>
#include <QLabel>
#include <QToolButton>

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

constexpr int controlHeight = 22;
/// A remove button that can't act is drawn this faint.
constexpr qreal faint = 0.25;

} // namespace

DraftRowView::DraftRowView(AppModel &model, QWidget *parent)
    : QWidget(parent)
    , m_model(model)
{
    setFont(Theme::font(12));
    m_tag = new HintField(u"1\u20134094"_s, this);
    m_tag->setAccessibleName(u"Tag"_s);
    connect(m_tag, &QLineEdit::textEdited, this, [this](const QString &text) {
        if (!m_draft)
            return;
        m_draft->setTag(text);
        m_draft->applyPlan(m_model.addressPlan());
    });
    m_name = new HintField(u"Name"_s, this);
    m_name->setAccessibleName(u"Name"_s);
    connect(m_name, &QLineEdit::textEdited, this, [this](const QString &text) {
        if (m_draft)
            m_draft->setName(text);
    });
    m_mode = Choices::unlabelled(AddColumns::mode, this);
    Choices::show(*m_mode, {{u"DHCP"_s, int(IPMode::dhcp)}, {u"Manual"_s, int(IPMode::manual)}},
                  int(IPMode::dhcp));
    m_mode->setAccessibleName(u"IPv4"_s);
    connect(m_mode, &QComboBox::activated, this, [this](int index) {
        if (!m_draft)
            return;
        const IPMode from = m_draft->mode();
        const IPMode chosen = IPMode(m_mode->itemData(index).toInt());
        if (chosen == from)
            return;
        m_draft->setMode(chosen);
        m_draft->modeChanged(from, m_model.addressPlan());
    });
    m_address = new HintField(u"Required"_s, this);
    m_address->setAccessibleName(u"Address"_s);
    connect(m_address, &QLineEdit::textEdited, this, [this](const QString &text) {
        if (!m_draft)
            return;
        m_draft->setAddress(text);
        m_draft->reconcileAddressOwnership(m_model.addressPlan());
    });
    m_mask = new HintField(u"255.255.255.0"_s, this);
    m_mask->setAccessibleName(u"Subnet mask"_s);
    connect(m_mask, &QLineEdit::textEdited, this, [this](const QString &text) {
        if (m_draft)
            m_draft->setSubnetMask(text);
    });
    m_router = new HintField(u"Optional"_s, this);
    m_router->setAccessibleName(u"Router"_s);
    connect(m_router, &QLineEdit::textEdited, this, [this](const QString &text) {
        if (m_draft)
            m_draft->setRouter(text);
    });
    m_dns = new HintField(u"Optional"_s, this);
    m_dns->setAccessibleName(u"DNS"_s);
    connect(m_dns, &QLineEdit::textEdited, this, [this](const QString &text) {
        if (m_draft)
            m_draft->setDNS(text);
    });
    m_remove = new QToolButton(this);
    m_remove->setAutoRaise(true);
    m_remove->setIcon(Symbols::icon(u"minus.circle.fill"_s, Roles::Role::secondaryText));
    m_remove->setAccessibleName(u"Remove this row"_s);
    auto *faintness = new QGraphicsOpacityEffect(m_remove);
    faintness->setOpacity(faint);
    faintness->setEnabled(false);
    m_remove->setGraphicsEffect(faintness);
    connect(m_remove, &QToolButton::clicked, this, [this] {
        if (m_draft)
            m_model.removeRow(m_draft);
    });

    m_issueSymbol = new QLabel(this);
    m_issueSymbol->setPixmap(Symbols::icon(u"exclamationmark.circle.fill"_s, Roles::Role::orange)
                                 .pixmap(QSize(11, 11), devicePixelRatioF()));
    m_issue = new QLabel(this);
    m_issue->setTextFormat(Qt::PlainText);
    m_issue->setFont(Theme::font(11));
    QPalette orange = m_issue->palette();
    orange.setColor(QPalette::WindowText, Roles::color(Roles::Role::orange, orange));
    m_issue->setPalette(orange);
}

void DraftRowView::bind(const AppModel::DraftRow &draft, int nameColumn,
                        const std::optional<QString> &issue, bool canRemove)
{
    if (draft != m_draft) {
        QObject::disconnect(m_draftChanged);
        m_draft = draft;
        if (m_draft)
            m_draftChanged = connect(m_draft.get(), &Draft::changed, this, &DraftRowView::show);
    }
    m_nameColumn = nameColumn;
    m_issueText = issue;
    m_canRemove = canRemove;
    show();
}

void DraftRowView::release()
{
    QObject::disconnect(m_draftChanged);
    m_draft.reset();
}

QList<QWidget *> DraftRowView::focusOrder() const
{
    return {m_tag, m_name, m_mode, m_address, m_mask, m_router, m_dns, m_remove};
}

QString DraftRowView::nameHelp(const Draft &draft)
{
    if (draft.tagValue())
        return u"Will be named \""_s + draft.effectiveName() + u"\""_s;
    return u"Names are composed as \"<tag> - <name>\""_s;
}

void DraftRowView::show()
{
    if (!m_draft)
        return;
    const AddColumns columns = AddColumns::of(m_nameColumn);
    const int y = (DraftRowView::rowHeight - controlHeight) / 2;
    const std::pair<QWidget *, std::pair<int, int>> places[] = {
        {m_tag, {columns.tagX, AddColumns::tag}},
        {m_name, {columns.nameX, columns.nameWidth}},
        {m_mode, {columns.modeX, AddColumns::mode}},
        {m_address, {columns.addressX, AddColumns::field}},
        {m_mask, {columns.maskX, AddColumns::field}},
        {m_router, {columns.routerX, AddColumns::field}},
        {m_dns, {columns.dnsX, AddColumns::dns}},
        {m_remove, {columns.removeX, AddColumns::remove}}};
    for (const auto &[widget, place] : places) {
        const QRect rect(place.first, y, place.second, controlHeight);
        if (widget->geometry() != rect)
            widget->setGeometry(rect);
    }
    m_issueSymbol->setGeometry(AddColumns::issueInset, rowHeight, 12, issueHeight - 2);
    m_issue->setGeometry(AddColumns::issueInset + 16, rowHeight - 1, columns.width - 90,
                         issueHeight);
    m_issueSymbol->setVisible(m_issueText.has_value());
    m_issue->setVisible(m_issueText.has_value());
    if (m_issue->text() != m_issueText.value_or(QString()))
        m_issue->setText(m_issueText.value_or(QString()));

    m_tag->setTextIfDifferent(m_draft->tag());
    m_name->setTextIfDifferent(m_draft->name());
    setHelp(m_name, nameHelp(*m_draft));
    Choices::show(*m_mode, {{u"DHCP"_s, int(IPMode::dhcp)}, {u"Manual"_s, int(IPMode::manual)}},
                  int(m_draft->mode()));
    const bool manual = m_draft->mode() == IPMode::manual;
    const std::pair<HintField *, QString> fields[] = {{m_address, m_draft->address()},
                                                      {m_mask, m_draft->subnetMask()},
                                                      {m_router, m_draft->router()},
                                                      {m_dns, m_draft->dns()}};
    for (const auto &[field, text] : fields) {
        if (field->isEnabled() != manual)
            field->setEnabled(manual);
        field->setTextIfDifferent(text);
    }
    m_remove->setEnabled(m_canRemove);
    m_remove->graphicsEffect()->setEnabled(!m_canRemove);
}
