// Reading JSON input with messages that point into the file.
#pragma once

#include <nlohmann/json.hpp>

#include <string>

namespace zorbsim {

// Malformed text gives an InputError "source:line:column: message".
nlohmann::json parseJsonText(const std::string& text, const std::string& source);

// An unreadable file gives an InputError "path: cannot read (reason)".
nlohmann::json readJsonFile(const std::string& path);

}  // namespace zorbsim
