#pragma once

#include "VLANKit/platform/ForwardingBackend.h"

#include <QHash>
#include <QString>

#include <memory>

namespace VLANKit {

/// A backend that stands between the store and a real backend and counts what crosses the
/// seam: each call by name, and the handles and list elements handed over. Performance tests
/// read the counts, so a cost that grows with the configuration shows without timing anything.
/// A test may derive from it to change one answer of the real backend.
class CountingBackend : public ForwardingBackend
{
public:
    using ForwardingBackend::ForwardingBackend;

    /// Calls of one operation, by the name of the framework call it stands for.
    [[nodiscard]] qint64 calls(const QString &operation) const { return m_calls.value(operation); }
    [[nodiscard]] qint64 totalCalls() const { return m_totalCalls; }
    /// Handles and list elements handed over, all operations together.
    [[nodiscard]] qint64 elements() const { return m_elements; }
    /// Calls plus elements: the work that crossed the seam.
    [[nodiscard]] qint64 work() const { return m_totalCalls + m_elements; }
    void reset();

protected:
    void called(const char *operation, qsizetype handedOver) const override;

private:
    mutable QHash<QString, qint64> m_calls;
    mutable qint64 m_totalCalls = 0;
    mutable qint64 m_elements = 0;
};

} // namespace VLANKit
