#include "classes/windows/system/RegisterOwnClass.h"

namespace
{
bool IsOwn(const WNDCLASSEXW& record)
{
    WNDCLASSEXW present{};
    present.cbSize = sizeof present;
    return GetClassInfoExW(record.hInstance, record.lpszClassName, &present) &&
           present.lpfnWndProc == record.lpfnWndProc;
}
} // namespace

bool RegisterOwnClass(const WNDCLASSEXW& record)
{
    if (RegisterClassExW(&record) != 0 || IsOwn(record))
    {
        return true;
    }
    UnregisterClassW(record.lpszClassName, record.hInstance);
    return RegisterClassExW(&record) != 0;
}
