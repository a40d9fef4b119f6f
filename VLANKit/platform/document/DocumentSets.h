#pragma once

#include "VLANKit/platform/document/DocumentSession.h"

#include <QString>
#include <QStringList>
#include <QVariantList>

#include <optional>

namespace VLANKit {

/// The sets (Locations) of a session's document, changed as the system's set calls change them:
/// services are linked into sets, the service order lives in each set, and what a removal leaves
/// empty is pruned.
class DocumentSets
{
public:
    [[nodiscard]] static QStringList ids(const DocumentSession &session);
    [[nodiscard]] static bool exists(const DocumentSession &session, const QString &setID);
    [[nodiscard]] static std::optional<QString> current(const DocumentSession &session);
    [[nodiscard]] static std::optional<QString> name(const DocumentSession &session,
                                                     const QString &setID);
    /// The services that the set's links lead to, in the order of the links.
    [[nodiscard]] static QStringList services(const DocumentSession &session, const QString &setID);
    [[nodiscard]] static std::optional<QVariantList> order(const DocumentSession &session,
                                                           const QString &setID);

    static bool addService(DocumentSession &session, const QString &setID, const QString &serviceID,
                           int &status);
    static bool removeService(DocumentSession &session, const QString &setID,
                              const QString &serviceID, int &status);
    static bool setOrder(DocumentSession &session, const QString &setID, const QStringList &order,
                         int &status);
    [[nodiscard]] static QString create(DocumentSession &session);
    static bool setName(DocumentSession &session, const QString &setID, const QString &name,
                        int &status);
    static bool remove(DocumentSession &session, const QString &setID, int &status);
    static bool makeCurrent(DocumentSession &session, const QString &setID, int &status);

    /// A new identifier in the system's form: an upper-case UUID.
    [[nodiscard]] static QString newIdentifier();

private:
    static void insertInOrder(DocumentSession &session, const QString &setID,
                              const QString &serviceID);
};

} // namespace VLANKit
