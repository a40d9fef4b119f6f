#include "OrvaneApp/surfaces/RenameLocationSheet.h"

#include "OrvaneApp/model/AppModel.h"
#include "OrvaneApp/surfaces/kit/HintField.h"
#include "OrvaneApp/surfaces/kit/WaitCursor.h"

#include <QLabel>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

RenameLocationSheet::RenameLocationSheet(AppModel &model, QWidget *parent)
    : NameSheet(
        sheetWidth, [&model] { return model.canRenameLocation(); },
        [&model] {
            const WaitCursor busy;
            model.commitLocationRename();
        },
        [&model] { model.setRenamingLocation(false); }, parent)
    , m_model(model)
{
    setHead(u"Rename \u201c"_s + m_model.locationBeingRenamed() + u"\u201d"_s,
            {u"Only the name changes. The services in it, and the Internet ticks in the service "
             "order, stay as they are."_s});
    form()->addWidget(SheetParts::label(u"Name"_s, this));
    m_name = new HintField(QString(), this);
    m_name->setAccessibleName(u"Name"_s);
    connect(m_name, &QLineEdit::textEdited, this,
            [this](const QString &text) { m_model.setLocationNewName(text); });
    actOnReturn(m_name);
    form()->addWidget(m_name);
    m_issue = SheetParts::issueLine(this);
    form()->addWidget(m_issue);
    setButtons(u"Rename"_s);

    for (const auto signal : {&AppModel::locationNewNameChanged,
                              &AppModel::locationRenameErrorChanged, &AppModel::locationsChanged})
        connect(&m_model, signal, this, &RenameLocationSheet::showModel);
    showModel();
}

void RenameLocationSheet::showModel()
{
    m_name->setTextIfDifferent(m_model.locationNewName());
    SheetParts::setIssue(*m_issue, m_model.locationRenameError() ? m_model.locationRenameError()
                                                                 : m_model.locationRenameIssue());
    showAllowed();
}
