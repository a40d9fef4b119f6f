#include "OrvaneApp/drive/VolumeFacts.h"

namespace DriveCare {

bool VolumeFacts::canBeTakenAway() const
{
    if (isRoot)
        return false;
    // A network volume can go whatever it says of its medium.
    if (isLocal == false)
        return true;
    if (isRemovable == true)
        return true;
    if (isEjectable == true)
        return true;
    if (!isInternal)
        return false;
    return !*isInternal;
}

} // namespace DriveCare
