#include "classes/core/CDateTime.h"

std::int64_t CDateTime::DiffInMicroSeconds(const CDateTime& earlier) const
{
    return std::chrono::duration_cast<std::chrono::microseconds>(m_Time - earlier.m_Time).count();
}

std::int64_t CDateTime::DiffInMilliSeconds(const CDateTime& earlier) const
{
    return std::chrono::duration_cast<std::chrono::milliseconds>(m_Time - earlier.m_Time).count();
}
