// What the host's collections call their nodes when asked by name (model/name_index.h): letter
// case ignored throughout, as text::equalNoCase compares, and paths as text::samePath does.
#pragma once

#include "model/name_index.h"
#include "model/text_index.h"
#include "model/text.h"
#include "sim/model.h"

namespace sim::detail {

// A node known by one of its texts.
template <class Node, std::wstring Node::*field> struct NamedBy {
    static void keys(const Node& node, NameKeys& keys) { keys.push_back(text::foldedCase(node.*field)); }
    static NameKeys asked(const std::wstring& name) { return {text::foldedCase(name)}; }
};

using GroupName = NamedBy<MenuGroup, &MenuGroup::name>;
using MenuName = NamedBy<PopupMenu, &PopupMenu::name>;
using ItemLabel = NamedBy<PopupMenuItem, &PopupMenuItem::label>;
using ToolbarName = NamedBy<Toolbar, &Toolbar::name>;
using ButtonName = NamedBy<ToolbarButton, &ToolbarButton::name>;

// A toolbar a flyout is attached to is named by its name or by its tag.
struct ToolbarNameOrTag {
    static void keys(const Toolbar& toolbar, NameKeys& keys)
    {
        keys.push_back(text::foldedCase(toolbar.name));
        keys.push_back(text::foldedCase(toolbar.tag));
    }
    static NameKeys asked(const std::wstring& name) { return {text::foldedCase(name)}; }
};

// An open drawing as the host opens it: by its full file name.
struct DocumentPath {
    static void keys(const Document& document, NameKeys& keys)
    {
        keys.push_back(text::foldedPath(document.fullFileName));
    }
    static NameKeys asked(const std::wstring& path) { return {text::foldedPath(path)}; }
};

// An open drawing as the documents' Item knows it: by its full file name, or by its file name alone.
// A text matching the file name has no separator, so its folded form is its folded path as well.
struct DocumentName {
    static void keys(const Document& document, NameKeys& keys)
    {
        const std::wstring& full = document.fullFileName;
        keys.push_back(text::foldedPath(full));
        const size_t separator = full.find_last_of(L"\\/");
        if (separator != std::wstring::npos)
            keys.push_back(text::foldedCase(full.substr(separator + 1)));
    }
    static NameKeys asked(const std::wstring& name)
    {
        return {text::foldedPath(name), text::foldedCase(name)};
    }
};

// Entries of the state's texts (model/text_index.h).

// A system variable by its name.
struct VariableName {
    static void keys(const std::pair<const std::wstring, short>& variable, NameKeys& keys)
    {
        keys.push_back(text::foldedCase(variable.first));
    }
    static NameKeys asked(const std::wstring& name) { return {text::foldedCase(name)}; }
};

// A file on the search path by its name, or by the full path found for it: the two are told apart
// by their first letter, so that a name never matches a path.
struct SearchPathFile {
    static void keys(const std::pair<const std::wstring, std::wstring>& file, NameKeys& keys)
    {
        keys.push_back(L'n' + text::foldedCase(file.first));
        keys.push_back(L'p' + text::foldedPath(file.second));
    }
    static NameKeys asked(const std::wstring& name)
    {
        return {L'n' + text::foldedCase(name), L'p' + text::foldedPath(name)};
    }
};

// A menu file by its path.
struct MenuFilePath {
    static void keys(const std::pair<const std::wstring, std::shared_ptr<MenuGroup>>& file, NameKeys& keys)
    {
        keys.push_back(text::foldedPath(file.first));
    }
    static NameKeys asked(const std::wstring& path) { return {text::foldedPath(path)}; }
};

// A drawing on disk by its path.
struct DiskDrawingPath {
    static void keys(const std::wstring& drawing, NameKeys& keys)
    {
        keys.push_back(text::foldedPath(drawing));
    }
    static NameKeys asked(const std::wstring& path) { return {text::foldedPath(path)}; }
};

}  // namespace sim::detail
