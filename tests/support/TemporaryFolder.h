#pragma once

#include <QString>
#include <QTemporaryDir>

/// A fresh folder for one test, removed with it. Tests never touch the user's own files.
class TemporaryFolder
{
public:
    /// Where the folder lies: on the disk, as the user's files do, or in memory, for tests that
    /// write thousands of times and whose processes are killed, never the machine: those need no
    /// flush to reach a disk, and would spend minutes in them. Memory is the disk where Linux
    /// has no such folder.
    enum class Medium { disk, memory };
    explicit TemporaryFolder(Medium medium = Medium::disk);

    [[nodiscard]] QString path() const { return m_dir.path(); }
    [[nodiscard]] QString filePath(const QString &name) const { return m_dir.filePath(name); }

    /// Copies a folder of the repository (such as "examples/show-mac") into this one, under
    /// `name`, and answers the copy's path.
    [[nodiscard]] QString copyOf(const QString &repositoryFolder, const QString &name) const;

    /// Writes a file in the folder and answers its path.
    QString write(const QString &name, const QByteArray &bytes) const;

    /// The path of a file or folder of the repository.
    [[nodiscard]] static QString repositoryPath(const QString &relative);

private:
    QTemporaryDir m_dir;
};
