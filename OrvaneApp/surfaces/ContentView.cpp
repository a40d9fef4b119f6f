#include "OrvaneApp/surfaces/ContentView.h"

#include "OrvaneApp/model/AppModel.h"
#include "OrvaneApp/model/Theme.h"
#include "OrvaneApp/surfaces/AddView.h"
#include "OrvaneApp/surfaces/AppearancePalette.h"
#include "OrvaneApp/surfaces/CurrentView.h"
#include "OrvaneApp/surfaces/ImportProfileSheet.h"
#include "OrvaneApp/surfaces/LocationConfirmation.h"
#include "OrvaneApp/surfaces/LocationPopUp.h"
#include "OrvaneApp/surfaces/NewLocationSheet.h"
#include "OrvaneApp/surfaces/PlanSheet.h"
#include "OrvaneApp/surfaces/RenameAdapterSheet.h"
#include "OrvaneApp/surfaces/RenameLocationSheet.h"
#include "OrvaneApp/surfaces/ResultSheet.h"
#include "OrvaneApp/surfaces/ServiceOrderSheet.h"
#include "OrvaneApp/surfaces/kit/ConfirmParts.h"
#include "OrvaneApp/surfaces/kit/Help.h"
#include "OrvaneApp/surfaces/kit/Roles.h"
#include "OrvaneApp/surfaces/kit/SheetHost.h"
#include "OrvaneApp/surfaces/kit/SmallParts.h"
#include "OrvaneApp/surfaces/kit/Symbols.h"
#include "OrvaneApp/surfaces/kit/WaitCursor.h"

#include <QActionGroup>
#include <QApplication>
#include <QButtonGroup>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QFrame>
#include <QHBoxLayout>
#include <QMenu>
#include <QPushButton>
#include <QStackedWidget>
#include <QToolButton>
#include <QVBoxLayout>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr int barPadding = 12;
constexpr int barSpacing = 8;

struct AppearanceChoice
{
    Appearance appearance;
    QString title;
    QString symbol;
};

const QList<AppearanceChoice> &appearanceChoices()
{
    static const QList<AppearanceChoice> choices{
        {Appearance::system, u"Follow System"_s, u"circle.lefthalf.filled"_s},
        {Appearance::light, u"Light"_s, u"sun.max"_s},
        {Appearance::dark, u"Dark"_s, u"moon"_s},
    };
    return choices;
}

QPushButton *symbolButton(const QString &text, const QString &symbol, QWidget *parent)
{
    auto *button = new QPushButton(Symbols::icon(symbol), text, parent);
    button->setAutoDefault(false);
    return button;
}

} // namespace

ContentView::ContentView(AppModel &model, VLANKit::Defaults defaults, bool isPicture,
                         ProjectPanels panels, QWidget *parent)
    : QWidget(parent)
    , m_model(model)
    , m_defaults(std::move(defaults))
    , m_isPicture(isPicture)
    , m_panels(std::move(panels))
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(makeBar());
    layout->addWidget(ConfirmParts::divider(this));
    m_tabStack = new QStackedWidget(this);
    m_tabStack->addWidget(new CurrentView(m_model, m_tabStack));
    m_tabStack->addWidget(new AddView(m_model, m_tabStack));
    layout->addWidget(m_tabStack, 1);

    m_sheets = new SheetHost(
        this,
        {{[this] { return m_model.pendingPlan().has_value(); },
          [this](QWidget *window) -> QDialog * {
              return new PlanSheet(
                  m_model.pendingPlan()->plan,
                  [this] {
                      const WaitCursor busy;
                      m_model.commitPendingPlan();
                  },
                  [this] { m_model.setPendingPlan(std::nullopt); }, window);
          }},
         {[this] { return m_model.creatingLocation(); },
          [this](QWidget *window) -> QDialog * { return new NewLocationSheet(m_model, window); }},
         {[this] { return m_model.showingServiceOrder(); },
          [this](QWidget *window) -> QDialog * { return new ServiceOrderSheet(m_model, window); }},
         {[this] { return m_model.renamingLocation(); },
          [this](QWidget *window) -> QDialog * {
              return new RenameLocationSheet(m_model, window);
          }},
         {[this] { return m_model.pendingImport().has_value(); },
          [this](QWidget *window) -> QDialog * {
              return new ImportProfileSheet(m_model, *m_model.pendingImport(), window);
          }},
         {[this] { return m_model.renamingAdapter().has_value(); },
          [this](QWidget *window) -> QDialog * {
              return new RenameAdapterSheet(m_model, *m_model.renamingAdapter(), window);
          }},
         {[this] { return m_model.result().has_value(); },
          [this](QWidget *window) -> QDialog * {
              return new ResultSheet(
                  *m_model.result(), [this] { m_model.setResult(std::nullopt); }, window);
          }}});

    // A picture is drawn in the appearance it asks for; the window applies the stored one.
    m_appearance = loadAppearance(m_defaults);
    if (!m_isPicture)
        AppearancePalette::apply(m_appearance);

    for (const auto signal :
         {&AppModel::tabChanged, &AppModel::locationsChanged, &AppModel::selectedLocationChanged,
          &AppModel::existingChanged, &AppModel::draftsChanged, &AppModel::pendingPlanChanged,
          &AppModel::resultChanged, &AppModel::switchingToChanged,
          &AppModel::creatingLocationChanged, &AppModel::renamingLocationChanged,
          &AppModel::renamingAdapterChanged, &AppModel::showingServiceOrderChanged,
          &AppModel::pendingImportChanged})
        connect(&m_model, signal, this, &ContentView::showModel);
    connect(&m_model, &AppModel::draftEdited, this, &ContentView::showModel);
    showModel();
}

ContentView::~ContentView() = default;

QSize ContentView::minimumWindowSize(double nameColumnWidth)
{
    return {std::max(1280, int(std::ceil(nameColumnWidth)) + 1124), 620};
}

std::optional<QString> ContentView::projectsFolder(const QString &besideApplication)
{
    const QFileInfo folder(
        QFileInfo(besideApplication).absoluteDir().filePath(u"Orvane Projects"_s));
    if (!folder.isDir())
        return std::nullopt;
    return folder.absoluteFilePath();
}

QString ContentView::addTabTitle(qsizetype buildableDrafts)
{
    if (buildableDrafts == 0)
        return u"Add VLANs"_s;
    return u"Add VLANs \u00b7 "_s + QString::number(buildableDrafts);
}

QString ContentView::proposedFileName(const QString &location)
{
    return (location.isEmpty() ? u"project"_s : location) + u".json"_s;
}

QWidget *ContentView::makeBar()
{
    auto *bar = new QWidget(this);
    auto *layout = new QHBoxLayout(bar);
    layout->setContentsMargins(barPadding, 8, barPadding, 8);
    layout->setSpacing(barSpacing);

    auto *tabs = new QWidget(bar);
    auto *tabLayout = new QHBoxLayout(tabs);
    tabLayout->setContentsMargins(0, 0, 0, 0);
    tabLayout->setSpacing(0);
    m_currentTab = new QPushButton(u"Current"_s, tabs);
    m_addTab = new QPushButton(addTabTitle(0), tabs);
    m_tabs = new QButtonGroup(tabs);
    m_tabs->setExclusive(true);
    for (QPushButton *segment : {m_currentTab, m_addTab}) {
        segment->setCheckable(true);
        segment->setAutoDefault(false);
        tabLayout->addWidget(segment);
    }
    m_tabs->addButton(m_currentTab, int(AppTab::current));
    m_tabs->addButton(m_addTab, int(AppTab::add));
    setHelp(tabs, u"Current: what the Location holds now. Add VLANs: VLANs to build into it."_s);
    connect(m_tabs, &QButtonGroup::idClicked, this, [this](int id) { m_model.setTab(AppTab(id)); });
    layout->addWidget(tabs, 0, Qt::AlignBottom);
    layout->addSpacing(10);
    layout->addWidget(makeLocationGroup(bar));
    layout->addStretch(1);

    m_saveProject = symbolButton(u"Save Project\u2026"_s, u"square.and.arrow.up"_s, bar);
    setHelp(m_saveProject, u"Save this Mac's VLAN configuration to a file"_s);
    connect(m_saveProject, &QPushButton::clicked, this, &ContentView::saveProject);
    m_openProject = symbolButton(u"Open Project\u2026"_s, u"square.and.arrow.down"_s, bar);
    setHelp(m_openProject, u"Fill the build rows from a saved project"_s);
    connect(m_openProject, &QPushButton::clicked, this, &ContentView::openProject);
    auto *refresh = symbolButton(u"Refresh"_s, u"arrow.clockwise"_s, bar);
    connect(refresh, &QPushButton::clicked, this, [this] { m_model.reload(false); });
    for (QWidget *control :
         {static_cast<QWidget *>(m_saveProject), static_cast<QWidget *>(m_openProject),
          static_cast<QWidget *>(refresh), static_cast<QWidget *>(makeAppearanceMenu(bar))})
        layout->addWidget(control, 0, Qt::AlignBottom);
    return bar;
}

QWidget *ContentView::makeLocationGroup(QWidget *bar)
{
    auto *group = new QWidget(bar);
    auto *column = new QVBoxLayout(group);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(2);
    column->addWidget(SmallParts::columnLabel(u"Location"_s, group));
    auto *row = new QHBoxLayout;
    row->setSpacing(6);
    m_locationPopUp = new LocationPopUp([this](const QString &name) { m_model.askToSwitch(name); },
                                        [this] { m_model.beginCreatingLocation(); }, group);
    row->addWidget(m_locationPopUp);
    auto *create = new QPushButton(u"New\u2026"_s, group);
    create->setAutoDefault(false);
    setHelp(create,
            u"Make a new Location: a copy of one you have, or the attached adapters only"_s);
    connect(create, &QPushButton::clicked, this, [this] { m_model.beginCreatingLocation(); });
    m_rename = new QPushButton(u"Rename\u2026"_s, group);
    m_rename->setAutoDefault(false);
    connect(m_rename, &QPushButton::clicked, this, [this] { m_model.beginRenamingLocation(); });
    m_delete = new QToolButton(group);
    m_delete->setText(u"Delete\u2026"_s);
    m_delete->setPopupMode(QToolButton::InstantPopup);
    m_delete->setMenu(new QMenu(m_delete));
    for (QWidget *button : {static_cast<QWidget *>(create), static_cast<QWidget *>(m_rename),
                            static_cast<QWidget *>(m_delete)})
        row->addWidget(button);
    column->addLayout(row);
    return group;
}

QToolButton *ContentView::makeAppearanceMenu(QWidget *bar)
{
    m_appearanceMenu = new QToolButton(bar);
    m_appearanceMenu->setText(u"Appearance"_s);
    m_appearanceMenu->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    m_appearanceMenu->setPopupMode(QToolButton::InstantPopup);
    setHelp(m_appearanceMenu, u"Light, dark, or follow the system"_s);
    auto *menu = new QMenu(m_appearanceMenu);
    auto *choices = new QActionGroup(menu);
    for (const AppearanceChoice &choice : appearanceChoices()) {
        QAction *action = menu->addAction(Symbols::icon(choice.symbol), choice.title);
        action->setCheckable(true);
        action->setData(int(choice.appearance));
        choices->addAction(action);
        connect(action, &QAction::triggered, this,
                [this, choice] { setAppearance(choice.appearance); });
    }
    m_appearanceMenu->setMenu(menu);
    return m_appearanceMenu;
}

void ContentView::setAppearance(Appearance appearance)
{
    m_appearance = appearance;
    saveAppearance(appearance, m_defaults);
    AppearancePalette::apply(appearance);
    showModel();
}

void ContentView::showModel()
{
    styleSegments();
    showTab();
    showLocations();
    m_addTab->setText(addTabTitle(m_model.buildableDrafts().size()));
    m_saveProject->setEnabled(!m_model.existing().isEmpty());
    for (QAction *action : m_appearanceMenu->menu()->actions())
        action->setChecked(action->data().toInt() == int(m_appearance));
    for (const AppearanceChoice &choice : appearanceChoices()) {
        if (choice.appearance == m_appearance)
            m_appearanceMenu->setIcon(Symbols::icon(choice.symbol));
    }
    showSwitchQuestion();
    m_sheets->refresh();
}

void ContentView::styleSegments()
{
    // Two segments of one control: the chosen one filled with the accent, as the platform's
    // segmented control draws it. One control in the window, so a style sheet costs nothing;
    // it is set again when the appearance changes.
    const QString segmentStyle = u"QPushButton { padding: 4px 14px; border: 1px solid %1;"
                                 " background: %2; color: %3; border-%4-radius: 5px; }"
                                 " QPushButton:checked { background: %5; color: white;"
                                 " border-color: %5; }"_s;
    const QPalette colours = QApplication::palette();
    for (QPushButton *segment : {m_currentTab, m_addTab}) {
        const bool left = segment == m_currentTab;
        const QString style = segmentStyle.arg(
            colours.color(QPalette::Mid).name(), colours.color(QPalette::Button).name(),
            colours.color(QPalette::ButtonText).name(),
            left ? u"top-left-radius: 5px; border-bottom-left"_s
                 : u"top-right-radius: 5px; border-bottom-right"_s,
            Roles::color(Roles::Role::accent, colours).name());
        if (segment->styleSheet() != style)
            segment->setStyleSheet(style);
    }
}

void ContentView::showTab()
{
    const bool current = m_model.tab() == AppTab::current;
    (current ? m_currentTab : m_addTab)->setChecked(true);
    m_tabStack->setCurrentIndex(current ? 0 : 1);
    m_saveProject->setVisible(current);
    m_openProject->setVisible(!current);
}

void ContentView::showLocations()
{
    m_locationPopUp->update(m_model.locations(), m_model.selectedLocation());
    const QString &location = m_model.selectedLocation();
    m_rename->setEnabled(!location.isEmpty());
    setHelp(m_rename, u"Rename "_s + location);
    showDeleteMenu();
}

void ContentView::showDeleteMenu()
{
    QStringList deletable;
    for (const VLANKit::LocationRecord &location : m_model.deletableLocations())
        deletable.append(location.name);
    QMenu *menu = m_delete->menu();
    menu->clear();
    for (const QString &name : deletable) {
        connect(menu->addAction(name), &QAction::triggered, this,
                [this, name] { askToDelete(name); });
    }
    m_delete->setEnabled(!deletable.isEmpty());
    setHelp(m_delete, deletable.isEmpty()
                          ? u"There is no other Location to delete. The one this Mac is using "
                            "can't be."_s
                          : u"Delete one of the other Locations, and the services in it"_s);
    // A Location that went away under the question can't be confirmed.
    if (m_deletingLocation && !deletable.contains(*m_deletingLocation)) {
        m_deletingLocation.reset();
        if (m_deletePopover)
            m_deletePopover->dismissQuietly();
    }
}

void ContentView::showSwitchQuestion()
{
    const std::optional<QString> &target = m_model.switchingTo();
    if (!target) {
        if (m_switchPopover)
            m_switchPopover->dismissQuietly();
        return;
    }
    if (m_switchPopover || m_isPicture)
        return;
    m_switchPopover = new LocationConfirmation(
        m_locationPopUp, u"Switch this Mac to \u201c"_s + *target + u"\u201d?"_s,
        m_model.switchDetail(), u"Switch"_s, false,
        [this] {
            const WaitCursor busy;
            m_model.confirmSwitch();
        },
        [this] { m_model.setSwitchingTo(std::nullopt); });
    m_switchPopover->present();
}

void ContentView::askToDelete(const QString &location)
{
    m_deletingLocation = location;
    showDeleteQuestion();
}

void ContentView::showDeleteQuestion()
{
    if (!m_deletingLocation || m_deletePopover)
        return;
    const QString name = *m_deletingLocation;
    m_deletePopover = new LocationConfirmation(
        m_delete, u"Delete the Location \u201c"_s + name + u"\u201d?"_s, m_model.deleteDetail(name),
        u"Delete"_s, true,
        [this, name] {
            m_deletingLocation.reset();
            const WaitCursor busy;
            m_model.deleteLocation(name);
        },
        [this] { m_deletingLocation.reset(); });
    m_deletePopover->present();
}

void ContentView::saveProject()
{
    const std::optional<QString> folder = projectsFolder(QCoreApplication::applicationFilePath());
    const std::optional<QString> path =
        m_panels.save(window(), {folder.value_or(QString()),
                                 proposedFileName(m_model.selectedLocation()), u"Save Project"_s});
    if (path) {
        const WaitCursor busy;
        m_model.saveProfile(*path);
    }
}

void ContentView::openProject()
{
    const std::optional<QString> folder = projectsFolder(QCoreApplication::applicationFilePath());
    const std::optional<QString> path =
        m_panels.open(window(), {folder.value_or(QString()), QString(), u"Open Project"_s});
    if (path) {
        const WaitCursor busy;
        m_model.loadProfile(*path);
    }
}
