#include "OrvaneApp/surfaces/ResultSheet.h"

#include "OrvaneApp/model/Theme.h"
#include "OrvaneApp/surfaces/kit/ConfirmParts.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int padding = 20;

} // namespace

ResultSheet::ResultSheet(const BuildResult &result, std::function<void()> dismiss, QWidget *parent)
    : QDialog(parent)
    , m_dismiss(std::move(dismiss))
{
    setFixedWidth(sheetWidth);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(padding, padding, padding, padding);
    layout->setSpacing(8);

    auto *head = new QLabel(ResultSheet::head(result.succeeded), this);
    head->setFont(Theme::font(17, QFont::DemiBold));
    layout->addWidget(head);

    // One selectable text a line, so that a failure of several lines can be copied line by line.
    for (const QString &line : result.message.split(u'\n')) {
        auto *text = new QLabel(line, this);
        text->setFont(Theme::font(13));
        text->setTextFormat(Qt::PlainText);
        text->setWordWrap(true);
        text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
        layout->addWidget(text);
    }

    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    QPushButton *ok = ConfirmParts::confirmButton(u"OK"_s, false, this);
    ok->setDefault(true);
    buttons->addWidget(ok);
    layout->addSpacing(4);
    layout->addLayout(buttons);

    connect(ok, &QPushButton::clicked, this, &QDialog::accept);
    connect(this, &QDialog::finished, this, [this] {
        if (m_dismiss)
            m_dismiss();
    });
}

QString ResultSheet::head(bool succeeded)
{
    return succeeded ? u"Done"_s : u"Couldn't do that"_s;
}
