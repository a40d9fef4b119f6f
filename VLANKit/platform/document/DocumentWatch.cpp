#include "VLANKit/platform/document/DocumentWatch.h"

#include <QFileInfo>

namespace VLANKit {

DocumentWatch::DocumentWatch(QString folder, QString preferencesPath, QString statePath,
                             std::function<void()> changed)
    : m_folder(std::move(folder))
    , m_files{{std::move(preferencesPath), {}, false}, {std::move(statePath), {}, false}}
    , m_changed(std::move(changed))
{}

void DocumentWatch::subscribe(bool setupKeys, bool stateKeys)
{
    m_files[0].heard = setupKeys;
    m_files[1].heard = stateKeys;
}

bool DocumentWatch::start()
{
    if (m_watcher)
        return true;
    auto watcher = std::make_unique<QFileSystemWatcher>();
    // The folder sees files replaced by a rename, which a watch on the file itself loses.
    if (!watcher->addPath(m_folder))
        return false;
    for (Watched &file : m_files) {
        file.seen = FileSignature::ofPath(file.path);
        if (QFileInfo::exists(file.path))
            watcher->addPath(file.path);
    }
    QObject::connect(watcher.get(), &QFileSystemWatcher::directoryChanged, watcher.get(),
                     [this] { look(); });
    QObject::connect(watcher.get(), &QFileSystemWatcher::fileChanged, watcher.get(),
                     [this] { look(); });
    m_watcher = std::move(watcher);
    return true;
}

void DocumentWatch::look()
{
    bool changed = false;
    for (Watched &file : m_files) {
        const FileSignature now = FileSignature::ofPath(file.path);
        if (!now.isMissing() && !m_watcher->files().contains(file.path))
            m_watcher->addPath(file.path);
        if (now == file.seen)
            continue;
        file.seen = now;
        changed = changed || file.heard;
    }
    if (changed && m_changed)
        m_changed();
}

} // namespace VLANKit
