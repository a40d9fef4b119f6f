#pragma once

#include <QMainWindow>
#include <QPointer>

class AppModel;
class ContentView;
class HelpWindow;

/// The one main window, "Orvane": the content view, the menus, and the window's least size,
/// which follows the name column. Its first showing starts the model's reading and watching.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    MainWindow(AppModel &model, ContentView *content, QWidget *parent = nullptr);

    /// Opens the help window, or brings it to the front.
    void showHelp();
    [[nodiscard]] HelpWindow *helpWindow() const { return m_help; }

protected:
    void showEvent(QShowEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    void makeMenus();
    void followNameColumn();

    AppModel &m_model;
    QPointer<HelpWindow> m_help;
    bool m_started = false;
};

/// The help window: one window, "Orvane Help", whose head is the application's about box.
class HelpWindow : public QWidget
{
    Q_OBJECT

public:
    explicit HelpWindow(QWidget *parent = nullptr);
};
