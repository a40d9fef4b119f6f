#pragma once

#include "OrvaneApp/surfaces/ImportPreview.h"
#include "VLANKit/project/Profile.h"

#include <QDialog>

class AppModel;
class HintField;
class QLabel;
class QPushButton;

/// Opening a project on this machine: who has taken which host octet, the one question a
/// machine's identity can't settle, the octet this machine takes, and what each VLAN's address
/// becomes. "Set up this Mac" fills the build rows.
class ImportProfileSheet : public QDialog
{
    Q_OBJECT

public:
    static constexpr int sheetWidth = 620;
    static constexpr int padding = 20;
    static constexpr int octetWidth = 56;

    ImportProfileSheet(AppModel &model, VLANKit::Profile profile, QWidget *parent = nullptr);

    /// Digits only, the first three of them.
    [[nodiscard]] static QString cleanOctet(const QString &typed);
    /// The entries on Manual with an address, before and after the profile is rehosted.
    [[nodiscard]] static QList<ImportPreview::Line> preview(const VLANKit::Profile &profile,
                                                            const QString &host);

    [[nodiscard]] HintField *octetField() const { return m_octet; }
    [[nodiscard]] QWidget *roster() const { return m_roster; }
    [[nodiscard]] QWidget *question() const { return m_question; }
    [[nodiscard]] QPushButton *keepButton() const { return m_keep; }
    [[nodiscard]] QPushButton *takeButton() const { return m_take; }
    [[nodiscard]] QWidget *issue() const { return m_issue; }
    [[nodiscard]] ImportPreview *previewList() const { return m_preview; }
    [[nodiscard]] QPushButton *setUpButton() const { return m_setUp; }

private:
    QWidget *makeRoster();
    QWidget *makeQuestion();
    void showModel();

    AppModel &m_model;
    VLANKit::Profile m_profile;
    QWidget *m_roster = nullptr;
    QWidget *m_question = nullptr;
    QPushButton *m_keep = nullptr;
    QPushButton *m_take = nullptr;
    HintField *m_octet = nullptr;
    QWidget *m_issue = nullptr;
    ImportPreview *m_preview = nullptr;
    QPushButton *m_setUp = nullptr;
};
