#pragma once

#include "VLANKit/platform/document/DocumentBackend.h"
#include "tests/support/QtPrinters.h"
#include "tests/support/TemporaryFolder.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <gtest/gtest.h>

#include <memory>
#include <optional>

/// The elements of a platform list, none for nothing: safe to walk in a range-for, where a
/// dereferenced temporary optional would not live through the loop.
template <typename Handle>
[[nodiscard]] QList<Handle> all(const std::optional<QList<Handle>> &list)
{
    return list.value_or(QList<Handle>());
}

/// A document backend over a temporary copy of a folder of the repository: an example machine
/// or the reference's fixture. Nothing in the repository is ever written.
class DocumentTest : public ::testing::Test
{
protected:
    /// Copies a folder of the repository and opens the backend over the copy.
    void openCopyOf(const QString &repositoryFolder);
    /// The reference's example files, without a description.
    void openFixture() { openCopyOf(QStringLiteral("tests/document/fixtures")); }
    /// A new backend over the same folder, as another process would have.
    [[nodiscard]] std::shared_ptr<VLANKit::DocumentBackend> another() const;
    void reopen() { backend = another(); }

    [[nodiscard]] VLANKit::SessionRef readSession() const;
    /// A session opened with a granted authorization.
    [[nodiscard]] VLANKit::SessionRef writeSession() const;
    static VLANKit::SessionRef writeSession(VLANKit::DocumentBackend &on);

    [[nodiscard]] QString path(const QString &fileName) const;
    [[nodiscard]] QByteArray bytesOf(const QString &fileName) const;
    void write(const QString &fileName, const QByteArray &bytes) const;

    // Look-ups by the names that a person reads.
    [[nodiscard]] VLANKit::SetRef setNamed(const VLANKit::SessionRef &session,
                                           const QString &name) const;
    [[nodiscard]] VLANKit::ServiceRef serviceNamed(const VLANKit::SetRef &set,
                                                   const QString &name) const;
    [[nodiscard]] VLANKit::InterfaceRef vlanNamed(const VLANKit::SessionRef &session,
                                                  const QString &bsdName) const;
    [[nodiscard]] VLANKit::InterfaceRef adapterNamed(const QString &bsdName) const;
    [[nodiscard]] QStringList setNames(const VLANKit::SessionRef &session) const;
    [[nodiscard]] QStringList serviceNames(const VLANKit::SetRef &set) const;
    [[nodiscard]] QStringList vlanNames(const VLANKit::SessionRef &session) const;
    [[nodiscard]] QStringList
    bsdNames(const std::optional<QList<VLANKit::InterfaceRef>> &list) const;

    TemporaryFolder temporary;
    QString folder;
    std::shared_ptr<VLANKit::DocumentBackend> backend;
};
