#include "json/checks.h"

#include <nlohmann/json.hpp>

#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <set>
#include <string>
#include <vector>

namespace sim::detail {
namespace {

// Walks the text token by token as the parser will read it, and stops at the first thing a
// well-formed document may not hold. Anything the walk does not understand is left to the parser,
// which reports it with its own place.
class TextCheck {
public:
    explicit TextCheck(const std::string& text) : m_text(text) {}

    std::optional<TextProblem> run()
    {
        while (!m_problem && m_at < m_text.size()) {
            const char c = m_text[m_at];
            if (c == '\0')
                report("a NUL character is not allowed in the input");
            else if (c == '"')
                string();
            else if (c == '/' && m_at + 1 < m_text.size() &&
                     (m_text[m_at + 1] == '/' || m_text[m_at + 1] == '*'))
                comment();
            else if (c == '-' || (c >= '0' && c <= '9'))
                number();
            else
                punctuation(c);
        }
        return m_problem;
    }

private:
    struct Container {
        bool isObject = false;
        bool expectingKey = false;
        std::set<std::string> keys;
    };

    void report(const std::string& message)
    {
        if (!m_problem)
            m_problem = TextProblem{m_at, message};
    }

    void punctuation(char c)
    {
        if (c == '{' || c == '[') {
            if (m_open.size() == kJsonDepthLimit) {
                report("nested deeper than " + std::to_string(kJsonDepthLimit) + " levels (the limit)");
                return;
            }
            m_open.push_back({c == '{', c == '{', {}});
        }
        else if ((c == '}' || c == ']') && !m_open.empty()) {
            m_open.pop_back();
        }
        else if (c == ',' && !m_open.empty() && m_open.back().isObject) {
            m_open.back().expectingKey = true;
        }
        else if (c == ':' && !m_open.empty()) {
            m_open.back().expectingKey = false;
        }
        ++m_at;
    }

    void comment()
    {
        const bool toLineEnd = m_text[m_at + 1] == '/';
        const size_t end = m_text.find(toLineEnd ? "\n" : "*/", m_at + 2);
        const size_t afterEnd = end == std::string::npos ? m_text.size() : end + (toLineEnd ? 1 : 2);
        if (const size_t nul = m_text.find('\0', m_at); nul < afterEnd) {
            m_at = nul;
            report("a NUL character is not allowed in the input");
            return;
        }
        m_at = afterEnd;
    }

    void string()
    {
        const size_t start = m_at;
        size_t at = start + 1;
        while (at < m_text.size() && m_text[at] != '"') {
            if (m_text[at] == '\0') {
                m_at = at;
                report("a NUL character is not allowed in the input");
                return;
            }
            if (m_text[at] == '\\' && m_text.compare(at, 6, "\\u0000") == 0) {
                m_at = at;
                report("a NUL character (\\u0000) is not allowed in a text");
                return;
            }
            at += m_text[at] == '\\' ? 2 : 1;
        }
        m_at = at + 1;
        if (at >= m_text.size() || m_open.empty() || !m_open.back().expectingKey)
            return;
        // Escapes make one key of several spellings, so keys are compared as the parser reads them.
        const std::string literal = m_text.substr(start, m_at - start);
        const auto key = nlohmann::json::parse(literal, nullptr, false);
        if (!key.is_string())
            return;
        if (!m_open.back().keys.insert(key.get<std::string>()).second) {
            m_at = start;
            report("duplicate member \"" + key.get<std::string>() + "\" (each member may appear once)");
        }
    }

    void number()
    {
        const char* const start = m_text.c_str() + m_at;
        char* end = nullptr;
        errno = 0;
        const double value = std::strtod(start, &end);
        if (end == start) {
            ++m_at;
            return;
        }
        if (errno == ERANGE && (value == HUGE_VAL || value == -HUGE_VAL)) {
            report("number out of range (a number's size is at most about 1.8e308)");
            return;
        }
        m_at += static_cast<size_t>(end - start);
    }

    const std::string& m_text;
    size_t m_at = 0;
    std::vector<Container> m_open;
    std::optional<TextProblem> m_problem;
};

}  // namespace

std::optional<TextProblem> findTextProblem(const std::string& text) { return TextCheck(text).run(); }

}  // namespace sim::detail
