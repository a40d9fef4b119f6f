#include "tests/support/CountingBackend.h"

namespace VLANKit {

void CountingBackend::reset()
{
    m_calls.clear();
    m_totalCalls = 0;
    m_elements = 0;
}

void CountingBackend::called(const char *operation, qsizetype handedOver) const
{
    ++m_calls[QString::fromLatin1(operation)];
    ++m_totalCalls;
    m_elements += handedOver;
}

} // namespace VLANKit
