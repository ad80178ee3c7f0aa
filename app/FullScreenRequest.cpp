#include "app/FullScreenRequest.h"

namespace
{
EnumFullScreenRequest CombineWithToggle(EnumFullScreenRequest eFirst)
{
    switch (eFirst)
    {
    case EnumFullScreenRequest::None:
        return EnumFullScreenRequest::Toggle;
    case EnumFullScreenRequest::Toggle:
        return EnumFullScreenRequest::None;
    case EnumFullScreenRequest::Maximise:
        return EnumFullScreenRequest::Leave;
    case EnumFullScreenRequest::Leave:
    case EnumFullScreenRequest::Restore:
        break;
    }
    return EnumFullScreenRequest::Maximise;
}
} // namespace

EnumFullScreenRequest Combine(EnumFullScreenRequest eFirst, EnumFullScreenRequest eSecond)
{
    if (eSecond == EnumFullScreenRequest::None)
    {
        return eFirst;
    }
    if (eSecond == EnumFullScreenRequest::Toggle)
    {
        return CombineWithToggle(eFirst);
    }
    // After a restore there is nothing to leave.
    const bool bLeft = eFirst == EnumFullScreenRequest::Restore && eSecond == EnumFullScreenRequest::Leave;
    return bLeft ? eFirst : eSecond;
}

bool HasEffect(EnumFullScreenRequest eRequest, bool bFullScreen)
{
    switch (eRequest)
    {
    case EnumFullScreenRequest::None:
        return false;
    case EnumFullScreenRequest::Leave:
        return bFullScreen;
    case EnumFullScreenRequest::Maximise:
        return !bFullScreen;
    case EnumFullScreenRequest::Toggle:
    case EnumFullScreenRequest::Restore:
        break;
    }
    return true;
}
