// Texts set in a page. Every host text and report line goes through here, so that a label such as
// "<script>" reads as text, in element content and in attribute values alike.
#pragma once

#include <string>
#include <string_view>

namespace zorbsim::html {

// Escapes &, <, >, " and ' in UTF-8 text.
std::string escape(std::string_view text);
// A text of the host model, as UTF-8, escaped.
std::string escape(std::wstring_view text);

// A menu label as the host's menus show it: "&File" underlines the F, "&&" is one "&".
std::string menuLabel(std::wstring_view label);

}  // namespace zorbsim::html
