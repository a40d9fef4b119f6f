#pragma once

#include "OrvaneApp/model/AppModel.h"

#include <QHash>
#include <QPointer>
#include <QWidget>

#include <functional>
#include <optional>

class ColumnHead;
class EmptyNotice;
class QHBoxLayout;
class Popover;
class ProminentButton;
class QLabel;
class QPushButton;
class QToolButton;
class RowList;
class SectionHead;
class ServiceOrderStrip;
class ServiceRowView;

/// The Current tab: what the Location in use holds now, adapters first and VLANs under them,
/// each row a live editor of one service; the bulk verbs under the tables, and the service
/// order strip at the foot. Nothing here writes without a confirmation, and every confirmation
/// closes itself when what it asks about changes.
class CurrentView : public QWidget
{
    Q_OBJECT

public:
    /// Beside the tables: at the left, and beside the scroll bar.
    static constexpr int leftMargin = 12;
    static constexpr int rightMargin = 8;

    /// The confirmations the tab can have open, one at a time each.
    enum class Confirmation {
        reparent,
        addAll,
        nameSync,
        bulkDelete,
        turnOn,
        turnOff,
        saveAll,
        revertAll,
        addAdapter,
    };

    explicit CurrentView(AppModel &model, QWidget *parent = nullptr);
    ~CurrentView() override;

    [[nodiscard]] bool isConfirming(Confirmation which) const { return m_open.contains(which); }
    /// The adapter being added, while its confirmation is open.
    [[nodiscard]] const std::optional<VLANKit::AdapterRecord> &addingAdapter() const
    {
        return m_addingAdapter;
    }
    [[nodiscard]] Popover *openConfirmation(Confirmation which) const;

    // What a test looks at.
    [[nodiscard]] RowList *rowList() const { return m_list; }
    /// The widget showing a row now; null when it is scrolled away.
    [[nodiscard]] ServiceRowView *rowView(const QString &id) const;
    [[nodiscard]] SectionHead *adaptersHead() const { return m_adaptersHead; }
    [[nodiscard]] SectionHead *vlansHead() const { return m_vlansHead; }
    [[nodiscard]] ColumnHead *adapterColumns() const { return m_adapterColumns; }
    [[nodiscard]] ColumnHead *vlanColumns() const { return m_vlanColumns; }
    [[nodiscard]] EmptyNotice *emptyNotice() const { return m_emptyNotice; }
    [[nodiscard]] QToolButton *addAdapterMenu() const { return m_addAdapter; }
    [[nodiscard]] QWidget *orphanWarning() const { return m_orphanWarning; }
    [[nodiscard]] QPushButton *reparentButton() const { return m_reparent; }
    [[nodiscard]] QWidget *notInLocationWarning() const { return m_notInLocationWarning; }
    [[nodiscard]] QPushButton *addAllButton() const { return m_addAll; }
    [[nodiscard]] QPushButton *nameSyncButton() const { return m_nameSync; }
    [[nodiscard]] QLabel *selectedCount() const { return m_selectedCount; }
    [[nodiscard]] QPushButton *turnOnButton() const { return m_turnOn; }
    [[nodiscard]] QPushButton *turnOffButton() const { return m_turnOff; }
    [[nodiscard]] QPushButton *deleteButton() const { return m_delete; }
    [[nodiscard]] QPushButton *clearButton() const { return m_clear; }
    [[nodiscard]] QLabel *editStatusLabel() const { return m_editStatus; }
    [[nodiscard]] QLabel *editStatusSymbol() const { return m_editSymbol; }
    [[nodiscard]] QPushButton *revertAllButton() const { return m_revertAll; }
    [[nodiscard]] ProminentButton *saveAllButton() const { return m_saveAll; }
    [[nodiscard]] ServiceOrderStrip *strip() const { return m_strip; }

    /// "Delete 3 VLANs?", or for one, "Delete " and its name.
    [[nodiscard]] static QString deleteTitle(const QList<VLANKit::PlannedChange> &changes);
    /// "1 VLAN" or "3 VLANs", and the like: a count and its noun, plural unless one.
    [[nodiscard]] static QString counted(qsizetype count, const QString &noun);

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    struct Open
    {
        QPointer<Popover> popover;
        /// Whether what the confirmation asks about still stands as it did when it opened.
        std::function<bool()> stillHolds;
    };

    QWidget *makeAdapterOffers();
    QWidget *makeVLANOffers();
    QWidget *makeActionBar();
    void alignSaveAll();
    QWidget *makeRow(QWidget *viewport);
    void bindRow(QWidget *row, const QString &id);

    /// The rows and heads anew, after a read.
    void showRows();
    /// What a read changed beside the rows.
    void showRead();
    /// What an edit of a row changed in the bar and the questions.
    void showEdits();
    void showHeads();
    void showTickAll();
    void showBar();
    /// Closes every confirmation whose subject changed.
    void closeStale();

    /// Opens a confirmation of changes from `anchor`, unless one of its kind is open.
    void confirmChanges(Confirmation which, QWidget *anchor, const QString &title,
                        const QString &detail, const QList<VLANKit::PlannedChange> &changes,
                        const QString &confirmLabel, bool destructive,
                        std::function<bool()> stillHolds);
    void open(Confirmation which, Popover *popover, std::function<bool()> stillHolds);
    void closed(Confirmation which);
    /// Applies the changes of a confirmation, the tab's flag cleared first.
    void applyConfirmed(Confirmation which, const QList<VLANKit::PlannedChange> &changes);
    /// Applies one row's changes.
    void applyChanges(const QList<VLANKit::PlannedChange> &changes);

    void confirmAddAdapter(const VLANKit::AdapterRecord &adapter);
    void confirmReparent();
    void confirmAddAll();
    void confirmNameSync();
    void confirmEnabled(bool enabled);
    void confirmDelete();
    void confirmRevertAll();
    void confirmSaveAll();
    /// The ticked rows and the edited rows, as a bulk confirmation found them.
    [[nodiscard]] std::function<bool()> selectionAndEditsHold() const;

    [[nodiscard]] qsizetype orphanCount() const;
    [[nodiscard]] const VLANKit::AdapterRecord *presentAdapter() const;
    [[nodiscard]] QList<AppModel::Row> rowsNotInLocation() const;
    [[nodiscard]] QStringList dirtyIDs() const;

    AppModel &m_model;
    QHash<Confirmation, Open> m_open;
    std::optional<VLANKit::AdapterRecord> m_addingAdapter;

    RowList *m_list = nullptr;
    SectionHead *m_adaptersHead = nullptr;
    ColumnHead *m_adapterColumns = nullptr;
    SectionHead *m_vlansHead = nullptr;
    ColumnHead *m_vlanColumns = nullptr;
    EmptyNotice *m_emptyNotice = nullptr;
    QToolButton *m_addAdapter = nullptr;
    QWidget *m_orphanWarning = nullptr;
    QPushButton *m_reparent = nullptr;
    QWidget *m_notInLocationWarning = nullptr;
    QPushButton *m_addAll = nullptr;
    QPushButton *m_nameSync = nullptr;

    QHBoxLayout *m_barLayout = nullptr;
    QLabel *m_selectedCount = nullptr;
    QPushButton *m_turnOn = nullptr;
    QPushButton *m_turnOff = nullptr;
    QPushButton *m_delete = nullptr;
    QPushButton *m_clear = nullptr;
    QLabel *m_editSymbol = nullptr;
    QLabel *m_editStatus = nullptr;
    QPushButton *m_revertAll = nullptr;
    ProminentButton *m_saveAll = nullptr;
    ServiceOrderStrip *m_strip = nullptr;

    /// The identities of the rows, adapters and VLANs, as the list has them.
    QStringList m_adapterIDs;
    QStringList m_vlanIDs;
};
