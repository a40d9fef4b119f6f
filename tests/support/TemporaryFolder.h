#pragma once

#include <QString>
#include <QTemporaryDir>

/// A fresh folder for one test, removed with it. Tests never touch the user's own files.
class TemporaryFolder
{
public:
    TemporaryFolder();

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
