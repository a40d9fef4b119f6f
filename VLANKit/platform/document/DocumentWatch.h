#pragma once

#include "VLANKit/files/FileSignature.h"

#include <QFileSystemWatcher>
#include <QList>
#include <QString>

#include <functional>
#include <memory>

namespace VLANKit {

/// The document backend's source of network events: the folder's files watched on the main
/// loop. A new preferences file is a change of the saved setup ("Setup:" keys), a new state
/// file a change of what the kernel holds ("State:" keys); a subscriber hears the files whose
/// keys it asked for, once for each batch of changes.
class DocumentWatch
{
public:
    DocumentWatch(QString folder, QString preferencesPath, QString statePath,
                  std::function<void()> changed);

    /// Which of the two kinds of keys the subscriber asked for.
    void subscribe(bool setupKeys, bool stateKeys);
    /// Starts watching; false when the folder can't be watched.
    [[nodiscard]] bool start();

private:
    struct Watched
    {
        QString path;
        FileSignature seen;
        bool heard = false;
    };

    void look();

    QString m_folder;
    QList<Watched> m_files;
    std::function<void()> m_changed;
    std::unique_ptr<QFileSystemWatcher> m_watcher;
};

} // namespace VLANKit
