#pragma once

#include "OrvaneApp/surfaces/CurrentView.h"
#include "OrvaneApp/surfaces/ServiceRowView.h"
#include "OrvaneApp/surfaces/kit/Popover.h"
#include "tests/model/ModelTestSupport.h"

#include <QApplication>
#include <QPushButton>

#include <memory>

/// The Current tab over a copy of the show machine (or a machine written for the test), off
/// screen, with the model's clock moved by hand.
class CurrentTest : public ModelTest
{
protected:
    void TearDown() override;

    /// A model read once, and the tab over it, shown at `size`.
    void openTab(QSize size = {1340, 640});
    /// The row view of a VLAN, scrolled into view first.
    [[nodiscard]] ServiceRowView *vlanView(qint64 tag);
    /// The row view of an adapter's service, scrolled into view first.
    [[nodiscard]] ServiceRowView *adapterView(const QString &name);
    [[nodiscard]] ServiceRowView *viewOf(const AppModel::Row &row);
    /// The popover on show, of this type; null when none is.
    template <typename T = Popover>
    [[nodiscard]] static T *shownPopover()
    {
        for (QWidget *window : QApplication::topLevelWidgets()) {
            if (auto *popover = qobject_cast<T *>(window); popover && popover->isVisible())
                return popover;
        }
        return nullptr;
    }
    /// The button of `parent` that reads `text`; a failure when there is none.
    [[nodiscard]] static QPushButton *button(const QWidget &parent, const QString &text);
    /// The title of the popover on show.
    [[nodiscard]] static QString popoverTitle();
    /// Lets the settling wait after a write run out, and its reload happen.
    void settle();
    /// Rewrites the machine description of the copy by hand.
    void editMachine(const std::function<void(QString &)> &edit);
    /// Takes the adapter's [[interface]] table out of the machine description: it is unplugged.
    void unplug(const QString &bsdName);

    std::unique_ptr<AppModel> model;
    std::unique_ptr<CurrentView> view;
};
