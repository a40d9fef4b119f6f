#pragma once

#include "VLANKit/Platform.h"
#include "VLANKit/store/NetworkAuthorization.h"
#include "VLANKit/store/VLANStore.h"
#include "tests/support/QtPrinters.h"
#include "tests/support/TemporaryFolder.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVariantMap>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <optional>

/// Stores over the document backend on a temporary copy of a machine: an example of the
/// repository, or one made for the test. Nothing in the repository is ever written.
class StoreTest : public ::testing::Test
{
protected:
    // Every kept table of every store is checked against a fresh computation at each use.
    StoreTest() { VLANKit::VLANStore::setVerifyingTables(true); }
    ~StoreTest() override { VLANKit::VLANStore::setVerifyingTables(false); }

    /// Copies a folder of the repository and chooses the document backend over the copy.
    void openCopyOf(const QString &repositoryFolder = QStringLiteral("examples/show-mac"));
    /// Writes a machine with `count` VLANs on en5, each with a manual service in the one
    /// Location, and chooses the document backend over it.
    void openSynthetic(int count);
    /// A platform over the same folder, as another process would have.
    [[nodiscard]] VLANKit::Platform another() const;

    [[nodiscard]] std::unique_ptr<VLANKit::VLANStore> readStore() const;
    /// A writable store on a right acquired as the description allows it.
    [[nodiscard]] std::unique_ptr<VLANKit::VLANStore> writeStore() const;

    [[nodiscard]] QByteArray preferencesBytes() const;
    /// The dictionary at a path of keys in a document; empty where the path leads nowhere.
    [[nodiscard]] static QVariantMap valueAt(const QVariantMap &map, const QStringList &path);
    /// Sets the value at a path of keys, making the dictionaries on the way.
    static void putAt(QVariantMap &map, const QStringList &path, const QVariant &value);
    /// Writes the copy's preferences file as these bytes, and chooses the backend over it again.
    void writePreferences(const QByteArray &bytes);
    /// Changes the copy's preferences file by hand, as a person with an editor would, and
    /// chooses the backend over it again.
    void editPreferences(const std::function<void(QVariantMap &)> &edit);
    /// Sets how the machine answers a request for the administrator right: the lines that
    /// stand in its description's [administrator] table, such as `answer = "deny"`.
    void answerAdministrator(const QString &lines);
    /// The record of the VLAN with this tag in `vlans`, which must exist.
    [[nodiscard]] static VLANKit::VLANRecord vlanTagged(const VLANKit::VLANStore &store,
                                                        qint64 tag);
    /// The record of the service with this name in `services`, which must exist.
    [[nodiscard]] static VLANKit::ServiceRecord serviceNamed(const VLANKit::VLANStore &store,
                                                             const QString &name);

    TemporaryFolder temporary;
    QString folder;
    std::optional<VLANKit::Platform> platform;
};
