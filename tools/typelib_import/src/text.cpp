#include "text.h"

#include "automation/utf8.h"

namespace typelib_import {

std::string utf8(const wchar_t* text)
{
    return text ? automation_text::toUtf8(text) : std::string();
}

std::string hex(unsigned long value, int digits)
{
    static const char kDigits[] = "0123456789abcdef";
    std::string number;
    do {
        number.insert(number.begin(), kDigits[value & 0xF]);
        value >>= 4;
    } while (value != 0);
    if (static_cast<int>(number.size()) < digits)
        number.insert(0, digits - number.size(), '0');
    return "0x" + number;
}

std::string guidText(const GUID& id)
{
    auto digits = [](unsigned long value, int count) { return hex(value, count).substr(2); };
    std::string text =
        "{" + digits(id.Data1, 8) + "-" + digits(id.Data2, 4) + "-" + digits(id.Data3, 4) + "-";
    for (int i = 0; i < 8; ++i) {
        if (i == 2)
            text += '-';
        text += digits(id.Data4[i], 2);
    }
    return text + "}";
}

std::vector<std::string> lines(const std::string& text)
{
    std::vector<std::string> found;
    std::string::size_type start = 0;
    while (start <= text.size()) {
        const std::string::size_type end = text.find('\n', start);
        std::string line = text.substr(start, end == std::string::npos ? std::string::npos : end - start);
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
        found.push_back(line);
        if (end == std::string::npos)
            break;
        start = end + 1;
    }
    return found;
}

}  // namespace typelib_import
