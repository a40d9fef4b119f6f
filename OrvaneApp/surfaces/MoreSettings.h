#pragma once

#include "OrvaneApp/model/AppModel.h"
#include "OrvaneApp/surfaces/kit/Popover.h"

#include <functional>
#include <optional>

class HintField;
class QComboBox;
class QGridLayout;
class QLabel;
class QPushButton;
class QStackedWidget;

/// What doesn't fit in a row of the Current tab: DNS servers and search domains, the hardware
/// settings, and the removal of the service. What is typed here edits the same row, found by its
/// identity at every keystroke, and is saved by the row's "Save"; only the removal acts from
/// here, after its own question.
class MoreSettings : public Popover
{
    Q_OBJECT

public:
    static constexpr int padding = 14;
    static constexpr int leastValueWidth = 300;
    static constexpr int mtuWidth = 84;
    static constexpr int footHeight = 48;

    using Delete = std::function<void(const VLANKit::PlannedChange &)>;

    MoreSettings(QWidget *anchor, AppModel &model, QString id, QString location, Delete remove);

    // What the popover derives from a row.
    [[nodiscard]] static std::optional<VLANKit::PlannedChange> removal(const ServiceEdit &row);
    [[nodiscard]] static bool showsHardware(const ServiceEdit &row);
    [[nodiscard]] static bool hasSpeeds(const ServiceEdit &row);
    /// The option sets offered for the chosen speed, and the row's own when it isn't one.
    [[nodiscard]] static QList<QStringList> duplexChoices(const ServiceEdit &row);
    [[nodiscard]] static QString frameSizeNote(const ServiceEdit &row);
    [[nodiscard]] static QString hardwareNote(const ServiceEdit &row);
    /// The note under the DNS fields.
    [[nodiscard]] static QString dnsNote(const ServiceEdit &row, const QString &location);
    /// An entry of the duplex choice: the options joined by ", ".
    [[nodiscard]] static QString duplexLabel(const QStringList &options);

    // What a test looks at.
    [[nodiscard]] bool confirmingDelete() const { return m_confirmingDelete; }
    [[nodiscard]] HintField *dnsField() const { return m_dns; }
    [[nodiscard]] HintField *searchField() const { return m_search; }
    [[nodiscard]] HintField *mtuField() const { return m_mtu; }
    [[nodiscard]] QComboBox *speedChoice() const { return m_speed; }
    [[nodiscard]] QComboBox *duplexChoice() const { return m_duplex; }
    [[nodiscard]] QLabel *hardwareNoteLabel() const { return m_hardwareNote; }
    [[nodiscard]] QLabel *dnsNoteLabel() const { return m_dnsNote; }
    [[nodiscard]] QPushButton *deleteButton() const { return m_delete; }
    [[nodiscard]] QPushButton *confirmDeleteButton() const { return m_confirmDelete; }
    [[nodiscard]] int valueWidth() const { return m_valueWidth; }

private:
    void build();
    void buildFoot(QWidget *foot);
    /// Shows the row as it stands; closes when the row is gone.
    void refresh();
    void setConfirmingDelete(bool confirming);
    [[nodiscard]] int measureValueWidth(const ServiceEdit &row) const;
    [[nodiscard]] AppModel::Row row() const { return m_model.rowWithID(m_id); }

    AppModel &m_model;
    QString m_id;
    QString m_location;
    Delete m_remove;
    bool m_confirmingDelete = false;
    int m_valueWidth = leastValueWidth;

    QLabel *m_title = nullptr;
    QGridLayout *m_grid = nullptr;
    HintField *m_dns = nullptr;
    HintField *m_search = nullptr;
    QLabel *m_dnsNote = nullptr;
    QList<QWidget *> m_hardwareRows;
    QList<QWidget *> m_speedRows;
    HintField *m_mtu = nullptr;
    QLabel *m_frameNote = nullptr;
    QComboBox *m_speed = nullptr;
    QComboBox *m_duplex = nullptr;
    QLabel *m_hardwareNote = nullptr;
    QStackedWidget *m_foot = nullptr;
    QPushButton *m_delete = nullptr;
    QLabel *m_question = nullptr;
    QPushButton *m_confirmDelete = nullptr;
    QPushButton *m_done = nullptr;
};
