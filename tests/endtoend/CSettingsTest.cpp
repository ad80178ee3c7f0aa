#include "tests/endtoend/CSettingsTest.h"

#include "tests/endtoend/UserInput.h"

CSettingsTest::CSettingsTest() : m_panel(m_user)
{
    BringToFront(m_user.GetMainWindow());
}
