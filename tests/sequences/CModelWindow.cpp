#include "tests/sequences/CModelWindow.h"

#include <utility>

CModelWindow::CModelWindow(CFault fault) : m_Fault(std::move(fault)) {}

void CModelWindow::Open()
{
    ++m_iOpened;
    m_Model = CWindowModel(c_Screen);
    m_Facts = m_Model.GetFacts();
}

void CModelWindow::Perform(const std::vector<CTakenStep>& group)
{
    for (const CTakenStep& taken : group)
    {
        m_Model.Take(taken.step);
    }
    m_Facts = m_Model.GetFacts();
    m_Fault(group, m_Facts);
}
