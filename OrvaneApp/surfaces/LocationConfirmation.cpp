#include "OrvaneApp/surfaces/LocationConfirmation.h"

#include "OrvaneApp/surfaces/kit/ConfirmParts.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int padding = 14;

} // namespace

LocationConfirmation::LocationConfirmation(QWidget *anchor, const QString &title,
                                           const QString &detail, const QString &confirmLabel,
                                           bool destructive, std::function<void()> confirm,
                                           std::function<void()> cancel)
    : Popover(anchor, std::move(confirm), std::move(cancel))
{
    setFixedWidth(popoverWidth);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(padding, padding, padding, padding);
    layout->setSpacing(0);
    layout->addWidget(ConfirmParts::title(title, this));
    QLabel *detailLine = ConfirmParts::detail(detail, this);
    if (!detail.isEmpty()) {
        layout->addSpacing(4);
        layout->addWidget(detailLine);
    }
    layout->addSpacing(10);
    layout->addWidget(ConfirmParts::divider(this));
    layout->addSpacing(10);

    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    QPushButton *cancelButton = ConfirmParts::plainButton(u"Cancel"_s, this);
    QPushButton *confirmButton = ConfirmParts::confirmButton(confirmLabel, destructive, this);
    buttons->addWidget(cancelButton);
    buttons->addWidget(confirmButton);
    layout->addLayout(buttons);
    connect(cancelButton, &QPushButton::clicked, this, &QDialog::reject);
    setConfirmButton(confirmButton);
}
