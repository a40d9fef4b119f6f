#include "OrvaneApp/surfaces/OrderConfirmation.h"

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

} // namespace

OrderConfirmation::OrderConfirmation(QWidget *anchor, const QList<OrderLine> &lines,
                                     std::function<void()> confirm, std::function<void()> cancel)
    : Popover(anchor, std::move(confirm), std::move(cancel))
{
    setMinimumWidth(leastWidth);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(padding, padding, padding, padding);
    layout->setSpacing(0);
    layout->addWidget(ConfirmParts::title(u"Apply the recommended order?"_s, this));
    layout->addSpacing(3);
    layout->addWidget(ConfirmParts::detail(u"Internet first, then the adapters, then the closed "
                                           "VLANs. Nothing has changed yet."_s,
                                           this));
    layout->addSpacing(10);
    layout->addWidget(ConfirmParts::divider(this));

    QList<LineList::Line> shown;
    shown.reserve(lines.size());
    for (const OrderLine &line : lines) {
        // Only the services that move say where they came from.
        shown.append({QString::number(line.rank) + u"  "_s + line.name, std::nullopt,
                      line.was ? u"was "_s + QString::number(*line.was) : QString()});
    }
    layout->addWidget(new LineList(shown, 12, listLimit, 0, this));
    layout->addWidget(ConfirmParts::divider(this));
    layout->addSpacing(10);

    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    QPushButton *cancelButton = ConfirmParts::plainButton(u"Cancel"_s, this);
    QPushButton *applyButton = ConfirmParts::confirmButton(u"Apply"_s, false, this);
    buttons->addWidget(cancelButton);
    buttons->addWidget(applyButton);
    layout->addLayout(buttons);
    connect(cancelButton, &QPushButton::clicked, this, &QDialog::reject);
    setConfirmButton(applyButton);
}
