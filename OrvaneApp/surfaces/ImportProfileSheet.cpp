#include "OrvaneApp/surfaces/ImportProfileSheet.h"

#include "OrvaneApp/model/AppModel.h"
#include "OrvaneApp/model/Theme.h"
#include "OrvaneApp/surfaces/kit/ConfirmParts.h"
#include "OrvaneApp/surfaces/kit/HintField.h"
#include "OrvaneApp/surfaces/kit/Roles.h"
#include "OrvaneApp/surfaces/kit/SheetParts.h"
#include "OrvaneApp/surfaces/kit/SmallParts.h"
#include "OrvaneApp/surfaces/kit/WaitCursor.h"
#include "VLANKit/core/TextRules.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

constexpr int hostWidth = 40;

QLabel *secondary(const QString &text, QWidget *parent)
{
    auto *label = new QLabel(text, parent);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    Roles::useSecondaryText(*label);
    return label;
}

QVBoxLayout *block(QVBoxLayout *sheet, int spacing)
{
    auto *layout = new QVBoxLayout;
    layout->setContentsMargins(ImportProfileSheet::padding, ImportProfileSheet::padding,
                               ImportProfileSheet::padding, ImportProfileSheet::padding);
    layout->setSpacing(spacing);
    sheet->addLayout(layout);
    return layout;
}

} // namespace

ImportProfileSheet::ImportProfileSheet(AppModel &model, Profile profile, QWidget *parent)
    : QDialog(parent)
    , m_model(model)
    , m_profile(std::move(profile))
{
    setFixedWidth(sheetWidth);
    setFont(Theme::font(13));
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);

    QVBoxLayout *head = block(layout, 4);
    auto *title = new QLabel(u"Set up this Mac for \u201c"_s + m_profile.name + u"\u201d"_s, this);
    title->setFont(Theme::font(15, QFont::DemiBold));
    title->setTextFormat(Qt::PlainText);
    head->addWidget(title);
    head->addWidget(secondary(u"Every machine on this project shares the same VLANs and differs "
                              "only by its last octet. Give this one an octet nobody else has "
                              "taken."_s,
                              this));
    layout->addWidget(ConfirmParts::divider(this));

    QVBoxLayout *form = block(layout, 10);
    m_roster = makeRoster();
    form->addWidget(m_roster);
    m_question = makeQuestion();
    form->addWidget(m_question);

    auto *octetLine = new QHBoxLayout;
    octetLine->setSpacing(4);
    octetLine->addWidget(
        new QLabel(u"This Mac ("_s + m_model.thisMac().name + u") is host"_s, this));
    octetLine->addWidget(new QLabel(u"."_s, this));
    m_octet = new HintField(u"N"_s, this);
    m_octet->setFixedWidth(octetWidth);
    m_octet->setAccessibleName(u"Host octet"_s);
    connect(m_octet, &QLineEdit::textEdited, this, [this](const QString &text) {
        const QString cleaned = cleanOctet(text);
        if (cleaned != text)
            m_octet->setText(cleaned);
        m_model.setImportHostOctet(cleaned);
    });
    octetLine->addWidget(m_octet);
    octetLine->addStretch(1);
    form->addLayout(octetLine);
    m_issue = SheetParts::issueLine(this);
    form->addWidget(m_issue);
    m_preview = new ImportPreview(this);
    form->addWidget(m_preview);
    layout->addWidget(ConfirmParts::divider(this));

    QVBoxLayout *foot = block(layout, 0);
    auto *buttons = new QHBoxLayout;
    buttons->setSpacing(8);
    buttons->addWidget(secondary(QString::number(m_profile.entries.size()) + u" VLANs"_s, this));
    buttons->addStretch(1);
    QPushButton *cancel = ConfirmParts::plainButton(u"Cancel"_s, this);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    m_setUp = ConfirmParts::confirmButton(u"Set up this Mac"_s, false, this);
    m_setUp->setDefault(true);
    connect(m_setUp, &QPushButton::clicked, this, [this] {
        if (!m_model.canConfirmImport())
            return;
        const WaitCursor busy;
        m_model.confirmImport();
    });
    buttons->addWidget(cancel);
    buttons->addWidget(m_setUp);
    foot->addLayout(buttons);

    // Escape and the close box cancel: nothing is loaded.
    connect(this, &QDialog::rejected, this, [this] {
        m_model.setPendingImport(std::nullopt);
        m_model.setPendingImportURL(std::nullopt);
    });
    connect(&m_model, &AppModel::importHostOctetChanged, this, &ImportProfileSheet::showModel);
    showModel();
}

QString ImportProfileSheet::cleanOctet(const QString &typed)
{
    QString digits;
    for (const QChar character : typed) {
        if (character >= u'0' && character <= u'9' && digits.size() < 3)
            digits.append(character);
    }
    return digits;
}

QList<ImportPreview::Line> ImportProfileSheet::preview(const Profile &profile, const QString &host)
{
    const Profile rehosted = profile.rehosted(trimSpacesAndTabs(host));
    QList<ImportPreview::Line> lines;
    for (qsizetype index = 0; index < profile.entries.size(); ++index) {
        const ProfileEntry &entry = profile.entries.at(index);
        if (entry.ip.mode != IPMode::manual || !entry.ip.address)
            continue;
        const ProfileEntry &after = rehosted.entries.value(index, entry);
        lines.append({entry.name, *entry.ip.address, after.ip.address.value_or(QString())});
    }
    return lines;
}

QWidget *ImportProfileSheet::makeRoster()
{
    auto *roster = new QWidget(this);
    auto *layout = new QVBoxLayout(roster);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    const QList<HostAssignment> assignments = m_profile.roster();
    roster->setVisible(!assignments.isEmpty());
    layout->addWidget(SmallParts::columnLabel(u"Already set up"_s, roster));
    const MachineIdentity &thisMac = m_model.thisMac();
    for (const HostAssignment &assignment : assignments) {
        auto *line = new QHBoxLayout;
        line->setSpacing(8);
        auto *host = new QLabel(u"."_s + assignment.host, roster);
        host->setFixedWidth(hostWidth);
        const bool mine = thisMac.made(assignment);
        QPalette colours = host->palette();
        colours.setColor(
            QPalette::WindowText,
            Roles::color(mine ? Roles::Role::accent : Roles::Role::secondaryText, colours));
        host->setPalette(colours);
        QString who = assignment.machine;
        if (mine)
            who += u" \u2014 this Mac"_s;
        else if (!assignment.machineID && assignment.machine == thisMac.name)
            who += u" \u2014 this Mac, or another with its name"_s;
        auto *machine = new QLabel(who, roster);
        machine->setTextFormat(Qt::PlainText);
        line->addWidget(host);
        line->addWidget(machine, 1);
        layout->addLayout(line);
    }
    return roster;
}

QWidget *ImportProfileSheet::makeQuestion()
{
    auto *question = new QWidget(this);
    auto *layout = new QVBoxLayout(question);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(8);
    const Profile::Claim claim = m_profile.claim(m_model.thisMac());
    const bool asks = claim.kind == Profile::Claim::Kind::sameName && claim.assignment;
    question->setVisible(asks);
    if (!asks)
        return question;
    const HostAssignment &assignment = *claim.assignment;
    auto *words = new QLabel(u"A Mac named "_s + assignment.machine + u" already has ."_s
                                 + assignment.host + u" in this project. Is that this Mac?"_s,
                             question);
    words->setWordWrap(true);
    words->setTextFormat(Qt::PlainText);
    layout->addWidget(words);
    auto *buttons = new QHBoxLayout;
    buttons->setSpacing(8);
    m_keep = ConfirmParts::plainButton(u"Yes, this Mac: keep ."_s + assignment.host, question);
    connect(m_keep, &QPushButton::clicked, this,
            [this, host = assignment.host] { m_model.setImportHostOctet(host); });
    const QString suggestion = m_profile.suggestedHost();
    m_take = ConfirmParts::plainButton(u"No, another Mac: take ."_s + suggestion, question);
    connect(m_take, &QPushButton::clicked, this,
            [this, suggestion] { m_model.setImportHostOctet(suggestion); });
    buttons->addWidget(m_keep);
    buttons->addWidget(m_take);
    buttons->addStretch(1);
    layout->addLayout(buttons);
    return question;
}

void ImportProfileSheet::showModel()
{
    m_octet->setTextIfDifferent(m_model.importHostOctet());
    SheetParts::setIssue(*m_issue, m_model.importHostIssue());
    const bool hostChosen = !trimSpacesAndTabs(m_model.importHostOctet()).isEmpty();
    m_preview->setLines(preview(m_profile, m_model.importHostOctet()), hostChosen);
    m_preview->setVisible(!m_preview->lines().isEmpty());
    m_setUp->setEnabled(hostChosen && !m_model.importHostIssue());
    if (isVisible())
        adjustSize();
}
