#pragma once

#include <utility>

// Sets a flag for the life of this scope and then restores its former value, so that one scope may stand inside
// another of the same flag. The flag must outlive the scope.
class CFlagScope
{
public:
    explicit CFlagScope(bool& bFlag) noexcept : m_bFlag(bFlag), m_bFormer(std::exchange(bFlag, true)) {}
    ~CFlagScope() { m_bFlag = m_bFormer; }
    CFlagScope(const CFlagScope&) = delete;
    CFlagScope& operator=(const CFlagScope&) = delete;

private:
    bool& m_bFlag;
    bool m_bFormer;
};
