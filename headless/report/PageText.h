#pragma once

#include <map>
#include <string>
#include <string_view>

// Texts for a page of HTML.

// The text so that HTML shows it, between tags and in a quoted attribute. What no page can show, such as control
// characters, appears as \xNN, see EscapeUnprintable.
std::string EscapeHtml(std::string_view sText);

// RFC 4648, with padding.
std::string EncodeBase64(std::string_view sBytes);

// Replaces each {{NAME}} by the text of that name. The texts themselves are not looked through. Throws
// std::out_of_range for a name that is not there.
std::string FillTemplate(std::string_view sTemplate, const std::map<std::string, std::string>& texts);
