#pragma once

#include "OrvaneApp/model/ModelRecords.h"
#include "OrvaneApp/surfaces/kit/SheetParts.h"

#include <QList>

class AppModel;
class QComboBox;
class Switch;
namespace VLANKit {
struct LocationRecord;
}

/// Asks for the name of a new Location, what it starts as, and whether the Mac switches to it.
/// Every rule is the model's; the sheet shows its fields and its issue.
class NewLocationSheet : public NameSheet
{
    Q_OBJECT

public:
    static constexpr int formWidth = 440;

    explicit NewLocationSheet(AppModel &model, QWidget *parent = nullptr);

    /// The note under the start choice.
    [[nodiscard]] static QString detail(const LocationStart &start,
                                        const QList<VLANKit::LocationRecord> &locations);

    [[nodiscard]] HintField *nameField() const { return m_name; }
    [[nodiscard]] QComboBox *startChoice() const { return m_start; }
    [[nodiscard]] QLabel *startNote() const { return m_startNote; }
    [[nodiscard]] Switch *switchNow() const { return m_switch; }
    [[nodiscard]] QLabel *switchNote() const { return m_switchNote; }
    [[nodiscard]] QWidget *issue() const { return m_issue; }

private:
    void showModel();

    AppModel &m_model;
    HintField *m_name = nullptr;
    QWidget *m_issue = nullptr;
    QComboBox *m_start = nullptr;
    QLabel *m_startNote = nullptr;
    Switch *m_switch = nullptr;
    QLabel *m_switchNote = nullptr;
};
