#include "OrvaneApp/surfaces/ChangeConfirmation.h"

#include "OrvaneApp/surfaces/kit/ConfirmParts.h"
#include "OrvaneApp/surfaces/kit/LineList.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int padding = 14;
constexpr int lineSpacing = 5;

} // namespace

ChangeConfirmation::ChangeConfirmation(QWidget *anchor, const Content &content,
                                       std::function<void()> confirm, std::function<void()> cancel,
                                       std::function<void()> revert)
    : Popover(anchor, std::move(confirm), std::move(cancel))
{
    setFixedWidth(popoverWidth);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(padding, padding, padding, padding);
    layout->setSpacing(0);
    layout->addWidget(ConfirmParts::title(content.title, this));
    if (!content.detail.isEmpty()) {
        layout->addSpacing(3);
        layout->addWidget(ConfirmParts::detail(content.detail, this));
    }
    layout->addSpacing(10);
    layout->addWidget(ConfirmParts::divider(this));

    QList<LineList::Line> lines;
    lines.reserve(content.changes.size());
    for (const VLANKit::PlannedChange &change : content.changes)
        lines.append({change.summary()});
    layout->addWidget(new LineList(lines, 12, listLimit, lineSpacing, this));
    layout->addWidget(ConfirmParts::divider(this));
    layout->addSpacing(10);

    auto *buttons = new QHBoxLayout;
    if (revert) {
        QPushButton *revertButton = ConfirmParts::plainButton(u"Revert"_s, this);
        buttons->addWidget(revertButton);
        // Reverting answers the question too: the popover goes first, as with a confirm.
        connect(revertButton, &QPushButton::clicked, this, [this, revert] {
            dismissQuietly();
            revert();
        });
    }
    buttons->addStretch();
    QPushButton *cancelButton = ConfirmParts::plainButton(u"Cancel"_s, this);
    QPushButton *confirmButton =
        ConfirmParts::confirmButton(content.confirmLabel, content.destructive, this);
    buttons->addWidget(cancelButton);
    buttons->addWidget(confirmButton);
    layout->addLayout(buttons);
    connect(cancelButton, &QPushButton::clicked, this, &QDialog::reject);
    setConfirmButton(confirmButton);
}
