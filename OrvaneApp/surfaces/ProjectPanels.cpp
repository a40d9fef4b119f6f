#include "OrvaneApp/surfaces/ProjectPanels.h"

#include <QFileDialog>

using namespace Qt::StringLiterals;

namespace {

const QString jsonFilter = u"Projects (*.json)"_s;

std::optional<QString> run(QFileDialog &dialog)
{
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return std::nullopt;
    return dialog.selectedFiles().constFirst();
}

} // namespace

ProjectPanels ProjectPanels::system()
{
    ProjectPanels panels;
    panels.save = [](QWidget *parent, const Request &request) {
        QFileDialog dialog(parent);
        dialog.setAcceptMode(QFileDialog::AcceptSave);
        dialog.setNameFilter(jsonFilter);
        dialog.setDefaultSuffix(u"json"_s);
        if (!request.folder.isEmpty())
            dialog.setDirectory(request.folder);
        dialog.selectFile(request.fileName);
        dialog.setLabelText(QFileDialog::Accept, request.acceptLabel);
        return run(dialog);
    };
    panels.open = [](QWidget *parent, const Request &request) {
        QFileDialog dialog(parent);
        dialog.setAcceptMode(QFileDialog::AcceptOpen);
        dialog.setFileMode(QFileDialog::ExistingFile);
        dialog.setNameFilter(jsonFilter);
        if (!request.folder.isEmpty())
            dialog.setDirectory(request.folder);
        dialog.setLabelText(QFileDialog::Accept, request.acceptLabel);
        return run(dialog);
    };
    return panels;
}
