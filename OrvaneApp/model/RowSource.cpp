#include "OrvaneApp/model/RowSource.h"

bool RowSource::sameSettings(const RowSource &other) const
{
    RowSource alike = other;
    alike.attached = attached;
    alike.vlan = vlan;
    return alike == *this;
}
