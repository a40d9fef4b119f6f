#include "OrvaneApp/surfaces/PlanSheet.h"

#include "OrvaneApp/model/Theme.h"
#include "OrvaneApp/surfaces/kit/ConfirmParts.h"
#include "OrvaneApp/surfaces/kit/LineList.h"
#include "OrvaneApp/surfaces/kit/Roles.h"
#include "OrvaneApp/surfaces/kit/Symbols.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr int padding = 20;

/// One symbol for each case of a change, in the order the cases are declared.
constexpr std::array<const char16_t *, 15> caseSymbols{
    u"plus.circle.fill",       // createVLAN
    u"arrow.triangle.swap",    // reparent
    u"network",                // retag
    u"power",                  // setEnabled
    u"trash",                  // removeVLAN
    u"character.cursor.ibeam", // rename
    u"plus.circle",            // addService
    u"network",                // setServiceIP
    u"power",                  // setServiceEnabled
    u"network",                // setIPv6
    u"network",                // setDNS
    u"character.cursor.ibeam", // renameAdapter
    u"plus.circle",            // addAdapterService
    u"trash",                  // removeService
    u"cable.connector",        // setHardware
};
static_assert(std::variant_size_v<VLANKit::PlannedChange::Case> == caseSymbols.size());

QLabel *secondaryLabel(const QString &text, int size, QWidget *parent)
{
    auto *label = new QLabel(text, parent);
    label->setFont(Theme::font(size));
    label->setWordWrap(true);
    Roles::useSecondaryText(*label);
    return label;
}

} // namespace

QString PlanSheet::introduction(const VLANKit::Plan &plan)
{
    const qsizetype count = plan.changes.size();
    return u"Nothing has been changed yet. These "_s + QString::number(count)
           + (count == 1 ? u" change"_s : u" changes"_s) + u" will be applied to "_s
           + plan.adapterBSD + u" as a single transaction."_s;
}

QString PlanSheet::symbolFor(const VLANKit::PlannedChange &change)
{
    return QString::fromUtf16(caseSymbols.at(change.change.index()));
}

PlanSheet::PlanSheet(const VLANKit::Plan &plan, std::function<void()> confirm,
                     std::function<void()> cancel, QWidget *parent)
    : QDialog(parent)
    , m_confirm(std::move(confirm))
    , m_cancel(std::move(cancel))
{
    setFixedWidth(sheetWidth);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(padding, padding, padding, padding);
    layout->setSpacing(0);

    auto *head = new QLabel(u"Review changes"_s, this);
    head->setFont(Theme::font(17, QFont::DemiBold));
    layout->addWidget(head);
    layout->addSpacing(6);
    layout->addWidget(secondaryLabel(introduction(plan), 12, this));
    layout->addSpacing(12);
    layout->addWidget(ConfirmParts::divider(this));

    QList<LineList::Line> lines;
    lines.reserve(plan.changes.size());
    for (const VLANKit::PlannedChange &change : plan.changes)
        lines.append({change.summary(), symbolFor(change)});
    layout->addWidget(new LineList(lines, 12, listLimit, 0, this));
    layout->addWidget(ConfirmParts::divider(this));
    layout->addSpacing(12);

    auto *foot = new QHBoxLayout;
    auto *lock = new QLabel(this);
    lock->setPixmap(Symbols::icon(u"lock.fill"_s, Roles::Role::secondaryText).pixmap(11, 11));
    foot->addWidget(lock);
    foot->addWidget(
        secondaryLabel(
            u"You'll be asked for an admin password if macOS hasn't already cached it."_s, 11,
            this),
        1);
    QPushButton *cancelButton = ConfirmParts::plainButton(u"Cancel"_s, this);
    QPushButton *buildButton = ConfirmParts::confirmButton(u"Build"_s, false, this);
    buildButton->setDefault(true);
    foot->addWidget(cancelButton);
    foot->addWidget(buildButton);
    layout->addLayout(foot);

    connect(cancelButton, &QPushButton::clicked, this, &QDialog::reject);
    connect(buildButton, &QPushButton::clicked, this, [this] {
        // The sheet goes first; then the build, whose failure shows in the result sheet.
        m_confirmed = true;
        accept();
        if (m_confirm)
            m_confirm();
    });
    connect(this, &QDialog::finished, this, [this] {
        if (!m_confirmed && m_cancel)
            m_cancel();
    });
}
