#include "OrvaneApp/surfaces/RenameAdapterSheet.h"

#include "OrvaneApp/model/AppModel.h"
#include "OrvaneApp/model/Theme.h"
#include "OrvaneApp/surfaces/kit/HintField.h"
#include "OrvaneApp/surfaces/kit/Roles.h"
#include "OrvaneApp/surfaces/kit/SmallParts.h"
#include "OrvaneApp/surfaces/kit/Symbols.h"
#include "OrvaneApp/surfaces/kit/WaitCursor.h"
#include "VLANKit/core/TextRules.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;
using namespace VLANKit;

namespace {

/// "Applies in every Location", with its symbol, at the left of the buttons.
QWidget *everyLocationNote(QWidget *parent)
{
    auto *note = new QWidget(parent);
    auto *layout = new QHBoxLayout(note);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    auto *symbol = new QLabel(note);
    symbol->setPixmap(Symbols::icon(u"info.circle"_s, Roles::Role::secondaryText)
                          .pixmap(QSize(12, 12), note->devicePixelRatioF()));
    auto *words = new QLabel(u"Applies in every Location"_s, note);
    words->setFont(Theme::font(12));
    Roles::useSecondaryText(*words);
    layout->addWidget(symbol);
    layout->addWidget(words);
    return note;
}

} // namespace

RenameAdapterSheet::RenameAdapterSheet(AppModel &model, QString bsdName, QWidget *parent)
    : NameSheet(
        sheetWidth, [&model] { return model.canRenameAdapter(); },
        [&model] {
            const WaitCursor busy;
            model.commitAdapterRename();
        },
        [&model] { model.setRenamingAdapter(std::nullopt); }, parent)
    , m_model(model)
    , m_bsdName(std::move(bsdName))
{
    const AdapterRecord *record = nullptr;
    for (const AdapterRecord &adapter : m_model.adapters()) {
        if (adapter.bsdName == m_bsdName)
            record = &adapter;
    }
    const bool named = record && record->isNamed();
    setHead(named ? u"Rename this adapter"_s : u"Name this adapter"_s,
            {(record ? record->displayName : m_bsdName) + u" \u2014 "_s + m_bsdName,
             u"Two identical adapters report the same hardware name, so a name of your own is "
             "the only way to tell the dock from the dongle. Keep it short \u2014 this name shows "
             "in VLAN names, in the picker above, and in System Settings' own list."_s});

    m_name = new HintField(u"DONGLE"_s, this);
    m_name->setAccessibleName(u"Adapter name"_s);
    connect(m_name, &QLineEdit::textEdited, this,
            [this](const QString &text) { m_model.setAdapterNewName(text); });
    actOnReturn(m_name);
    form()->addWidget(m_name);
    m_issue = SheetParts::issueLine(this);
    form()->addWidget(m_issue);
    auto *previewLine = new QHBoxLayout;
    previewLine->setSpacing(8);
    auto *reads = new QLabel(u"VLANs will read"_s, this);
    reads->setFont(Theme::font(12));
    Roles::useSecondaryText(*reads);
    m_preview = new Pill(QString(), 12, this);
    previewLine->addWidget(reads);
    previewLine->addWidget(m_preview);
    previewLine->addStretch(1);
    form()->addSpacing(4);
    form()->addLayout(previewLine);
    setButtons(u"Name adapter"_s, everyLocationNote(this));

    connect(&m_model, &AppModel::adapterNewNameChanged, this, &RenameAdapterSheet::showModel);
    showModel();
}

QString RenameAdapterSheet::previewLabel(const QString &typed)
{
    const QString trimmed = trimWhitespaceAndNewlines(typed);
    if (trimmed.isEmpty())
        return {};
    return splitAtBlanks(trimmed).value(0);
}

void RenameAdapterSheet::showModel()
{
    m_name->setTextIfDifferent(m_model.adapterNewName());
    SheetParts::setIssue(*m_issue, m_model.adapterNameIssue());
    m_preview->setText(u"1010 - Control ("_s + previewLabel(m_model.adapterNewName()) + u")"_s);
    showAllowed();
}
