#include "classes/core/ExceptionText.h"

#include "classes/core/Utf8.h"

#include <cstdlib>
#include <cxxabi.h>
#include <exception>
#include <memory>
#include <string_view>
#include <typeinfo>

namespace
{

std::string DemangleType(const std::type_info& type)
{
    int iStatus = 0;
    const std::unique_ptr<char, decltype(&std::free)> sName(
        abi::__cxa_demangle(type.name(), nullptr, nullptr, &iStatus), &std::free);
    return sName ? sName.get() : type.name();
}

} // namespace

std::wstring DescribeCurrentException()
{
    if (!std::current_exception())
    {
        return L"no exception";
    }
    const std::type_info* pType = abi::__cxa_current_exception_type();
    std::wstring sText = pType != nullptr ? WideFromUtf8(DemangleType(*pType)) : L"exception of a foreign runtime";
    try
    {
        throw;
    }
    catch (const std::exception& exception)
    {
        const char* sWhat = exception.what();
        if (sWhat != nullptr)
        {
            sText += L" \"" + WideFromUtf8(sWhat) + L"\"";
        }
    }
    catch (...)
    {
        // An exception of any other type has no text; its type is all there is to report.
        return sText;
    }
    return sText;
}
