#include "tests/view/windows/Direct2DSpy.h"

CDirect2DSpy& GetDirect2DSpy()
{
    static CDirect2DSpy s_spy;
    return s_spy;
}
