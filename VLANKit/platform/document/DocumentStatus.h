#pragma once

namespace VLANKit {

/// Notes the system's code for a failure and answers false, as the framework's calls do.
inline bool failWith(int &status, int code)
{
    status = code;
    return false;
}

} // namespace VLANKit
