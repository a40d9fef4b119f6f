#pragma once

#include "OrvaneApp/model/Appearance.h"
#include "OrvaneApp/surfaces/ProjectPanels.h"
#include "VLANKit/files/Defaults.h"

#include <QPointer>
#include <QWidget>

#include <optional>

class AppModel;
class LocationPopUp;
class Popover;
class QButtonGroup;
class QPushButton;
class QStackedWidget;
class QToolButton;
class SheetHost;

/// The one main window's content: the bar (tabs, the Location group, the tab's project button,
/// "Refresh", "Appearance"), a rule, and under it the tab on show. Every sheet of the window
/// hangs here, raised by a value of the model.
class ContentView : public QWidget
{
    Q_OBJECT

public:
    ContentView(AppModel &model, VLANKit::Defaults defaults, bool isPicture,
                ProjectPanels panels = ProjectPanels::system(), QWidget *parent = nullptr);
    ~ContentView() override;

    /// The window's least size for a name column: the wider of 1280 and the column plus 1124,
    /// by 620.
    [[nodiscard]] static QSize minimumWindowSize(double nameColumnWidth);
    /// "Orvane Projects" beside the application, when that is a folder.
    [[nodiscard]] static std::optional<QString> projectsFolder(const QString &besideApplication);
    /// "Add VLANs", or "Add VLANs · 3" while rows wait to be built.
    [[nodiscard]] static QString addTabTitle(qsizetype buildableDrafts);
    /// The save panel's proposal: the Location's name, or "project", with ".json".
    [[nodiscard]] static QString proposedFileName(const QString &location);

    /// The Location whose deletion is being asked about.
    [[nodiscard]] const std::optional<QString> &deletingLocation() const
    {
        return m_deletingLocation;
    }

private:
    QWidget *makeBar();
    QWidget *makeLocationGroup(QWidget *bar);
    QToolButton *makeAppearanceMenu(QWidget *bar);
    void setAppearance(Appearance appearance);

    void showModel();
    void showTab();
    void styleSegments();
    void showLocations();
    void showDeleteMenu();
    void showSwitchQuestion();
    void askToDelete(const QString &location);
    void showDeleteQuestion();
    void saveProject();
    void openProject();

    AppModel &m_model;
    VLANKit::Defaults m_defaults;
    bool m_isPicture;
    ProjectPanels m_panels;
    Appearance m_appearance = Appearance::system;
    std::optional<QString> m_deletingLocation;

    QButtonGroup *m_tabs = nullptr;
    QPushButton *m_currentTab = nullptr;
    QPushButton *m_addTab = nullptr;
    LocationPopUp *m_locationPopUp = nullptr;
    QPushButton *m_rename = nullptr;
    QToolButton *m_delete = nullptr;
    QPushButton *m_saveProject = nullptr;
    QPushButton *m_openProject = nullptr;
    QToolButton *m_appearanceMenu = nullptr;
    QStackedWidget *m_tabStack = nullptr;
    SheetHost *m_sheets = nullptr;
    QPointer<Popover> m_switchPopover;
    QPointer<Popover> m_deletePopover;
};
