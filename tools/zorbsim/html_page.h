// The page around a host view or a run report: one self-contained HTML document whose style and
// script are part of it, so that it opens from a file without a server or a network.
#pragma once

#include <ostream>
#include <string>

namespace zorbsim::html {

// Opens the document and its body; `title` is UTF-8 text (escaped here).
void writePageStart(std::ostream& out, const std::string& title);
void writePageEnd(std::ostream& out);

}  // namespace zorbsim::html
