#include "OrvaneApp/surfaces/MainWindow.h"

#include "OrvaneApp/model/AppModel.h"
#include "OrvaneApp/surfaces/ContentView.h"
#include "OrvaneApp/surfaces/HelpView.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QLineEdit>
#include <QMenuBar>
#include <QVBoxLayout>

#include <functional>

using namespace Qt::StringLiterals;

namespace {

/// Runs an edit command on the text field that has the focus, if any.
void onFocusedField(const std::function<void(QLineEdit &)> &command)
{
    if (auto *field = qobject_cast<QLineEdit *>(QApplication::focusWidget()))
        command(*field);
}

} // namespace

MainWindow::MainWindow(AppModel &model, ContentView *content, QWidget *parent)
    : QMainWindow(parent)
    , m_model(model)
{
    setWindowTitle(u"Orvane"_s);
    setCentralWidget(content);
    resize(1340, 720);
    makeMenus();
    followNameColumn();
    connect(&m_model, &AppModel::nameColumnWidthChanged, this, &MainWindow::followNameColumn);
}

void MainWindow::followNameColumn()
{
    setMinimumSize(ContentView::minimumWindowSize(m_model.nameColumnWidth()));
}

void MainWindow::makeMenus()
{
    // No "New": there is one main window.
    QMenu *edit = menuBar()->addMenu(u"Edit"_s);
    const struct
    {
        QString title;
        QKeySequence::StandardKey keys;
        std::function<void(QLineEdit &)> command;
    } editCommands[] = {
        {u"Undo"_s, QKeySequence::Undo, [](QLineEdit &field) { field.undo(); }},
        {u"Cut"_s, QKeySequence::Cut, [](QLineEdit &field) { field.cut(); }},
        {u"Copy"_s, QKeySequence::Copy, [](QLineEdit &field) { field.copy(); }},
        {u"Paste"_s, QKeySequence::Paste, [](QLineEdit &field) { field.paste(); }},
        {u"Select All"_s, QKeySequence::SelectAll, [](QLineEdit &field) { field.selectAll(); }},
    };
    for (const auto &command : editCommands) {
        QAction *action = edit->addAction(command.title);
        action->setShortcut(command.keys);
        // The field's own shortcut wins while it has the focus; the menu serves the pointer.
        action->setShortcutContext(Qt::WidgetShortcut);
        connect(action, &QAction::triggered, this,
                [command = command.command] { onFocusedField(command); });
    }

    // On macOS the application menu takes "About" and "Check for Updates…" by their roles.
    QMenu *help = menuBar()->addMenu(u"Help"_s);
    QAction *helpAction = help->addAction(u"Orvane Help"_s);
    helpAction->setShortcuts({QKeySequence(u"Ctrl+?"_s), QKeySequence(Qt::Key_F1)});
    connect(helpAction, &QAction::triggered, this, &MainWindow::showHelp);
    QAction *about = help->addAction(u"About Orvane"_s);
    about->setMenuRole(QAction::AboutRole);
    connect(about, &QAction::triggered, this, &MainWindow::showHelp);
    QAction *updates = help->addAction(u"Check for Updates\u2026"_s);
    updates->setMenuRole(QAction::ApplicationSpecificRole);
    // There is no updater in this build: the command stands, dimmed.
    updates->setEnabled(false);
}

void MainWindow::showHelp()
{
    if (!m_help)
        m_help = new HelpWindow;
    m_help->show();
    m_help->raise();
    m_help->activateWindow();
}

void MainWindow::showEvent(QShowEvent *event)
{
    QMainWindow::showEvent(event);
    if (m_started)
        return;
    m_started = true;
    m_model.reload(false);
    m_model.startWatching();
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    QMainWindow::closeEvent(event);
    // Closing the main window ends the program, the help window with it.
    if (m_help)
        m_help->close();
    QApplication::quit();
}

HelpWindow::HelpWindow(QWidget *parent)
    : QWidget(parent, Qt::Window)
{
    setWindowTitle(u"Orvane Help"_s);
    setAttribute(Qt::WA_DeleteOnClose);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(new HelpView(this));
    setMinimumSize(HelpView::leastWidth, HelpView::leastHeight);
    resize(620, 620);
}
