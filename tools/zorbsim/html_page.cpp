#include "html_page.h"

#include "html_text.h"

namespace zorbsim::html {
namespace {

constexpr const char* kStyle = R"css(
:root {
  --added: #1a7f37; --added-bg: #dafbe1; --removed: #cf222e; --removed-bg: #ffebe9;
  --changed: #9a6700; --changed-bg: #fff1b8; --line: #d0d7de; --muted: #57606a;
  font: 14px/1.35 system-ui, "Segoe UI", "DejaVu Sans", sans-serif; color: #1f2328;
}
body { margin: 16px 20px; background: #f6f8fa; }
h1 { font-size: 20px; margin: 0 0 6px; }
h2 { font-size: 16px; margin: 22px 0 8px; }
h3 { font-size: 15px; margin: 16px 0 6px; }
h4 { font-size: 14px; margin: 8px 0 6px; }
p { margin: 4px 0; }
code, pre, .mono { font-family: "DejaVu Sans Mono", Consolas, monospace; font-size: 12px; }
.muted { color: var(--muted); }
.legend span { display: inline-block; padding: 0 6px; margin-right: 6px; border-radius: 3px; }

.added { background: var(--added-bg); box-shadow: inset 3px 0 var(--added); }
.removed { background: var(--removed-bg); box-shadow: inset 3px 0 var(--removed); text-decoration: line-through; }
.changed { background: var(--changed-bg); box-shadow: inset 3px 0 var(--changed); }

.window { border: 1px solid #8c959f; border-radius: 6px; background: #e6e9ed; box-shadow: 0 2px 8px rgba(0,0,0,.12); }
.titlebar { background: #2f3b52; color: #fff; padding: 4px 10px; border-radius: 6px 6px 0 0; font-size: 13px; }
.menubar { display: flex; flex-wrap: wrap; gap: 2px; padding: 2px 6px; background: #f3f4f6; border-bottom: 1px solid var(--line); }
.menus { display: flex; flex-wrap: wrap; gap: 6px; }
.menus > details.menu > summary { border: 1px solid var(--line); background: #fff; }

details.menu { position: relative; }
details.menu > summary { list-style: none; cursor: default; padding: 2px 9px; border-radius: 3px; white-space: nowrap; }
details.menu > summary::-webkit-details-marker { display: none; }
details.menu[open] > summary { background: #0969da; color: #fff; }
details.menu > ul { position: absolute; left: 0; top: 100%; z-index: 20; min-width: 220px; margin: 0; padding: 3px 0;
  list-style: none; background: #fff; border: 1px solid #8c959f; box-shadow: 2px 4px 12px rgba(0,0,0,.28); }
li.item { white-space: nowrap; padding: 3px 28px 3px 22px; }
li.item:hover { background: #ddf4ff; }
li.item.disabled { color: #8c959f; }
li.item.submenu { padding: 0; }
li.item.submenu > details > summary { padding: 3px 28px 3px 22px; border-radius: 0; }
li.item.submenu > details > summary::after { content: "\25B8"; position: absolute; right: 8px; }
li.item > details.menu > ul { left: 100%; top: -4px; }
li.separator { border-top: 1px solid var(--line); margin: 3px 6px; height: 0; }
li.separator.added, li.separator.removed { border-top-width: 3px; }
.empty { color: #8c959f; font-style: italic; padding: 3px 22px; }

.dock { display: flex; flex-wrap: wrap; gap: 4px; padding: 3px; min-height: 6px; align-items: flex-start; }
.dock-left, .dock-right { flex-direction: column; flex-wrap: nowrap; }
.middle { display: flex; }
.drawing { flex: 1; min-width: 0; background: #fff; border: 1px solid var(--line); }
.tabs { display: flex; flex-wrap: wrap; background: #eef1f4; border-bottom: 1px solid var(--line); font-size: 12px; }
.tab { padding: 3px 10px; border-right: 1px solid var(--line); }
.tab.active { background: #fff; font-weight: 600; }
.canvas { position: relative; height: 340px; overflow: auto; }
.canvas-note { position: absolute; right: 8px; bottom: 6px; font-size: 11px; color: #8c959f; }

.toolbar { display: inline-flex; align-items: center; gap: 2px; padding: 2px 4px; background: #f3f4f6;
  border: 1px solid #afb8c1; border-radius: 3px; font-size: 12px; }
.toolbar > .grip { color: var(--muted); padding-right: 4px; margin-right: 2px; border-right: 1px solid var(--line); white-space: nowrap; }
.dock-left .toolbar, .dock-right .toolbar { flex-direction: column; align-items: stretch; }
.dock-left .toolbar > .grip, .dock-right .toolbar > .grip { border-right: 0; border-bottom: 1px solid var(--line); padding: 0 0 2px; }
.toolbar.floating { position: absolute; display: grid; grid-auto-flow: column; align-items: stretch;
  grid-template-rows: auto repeat(var(--rows), auto); box-shadow: 2px 3px 8px rgba(0,0,0,.2); }
.toolbar.floating > .grip { grid-row: 1; grid-column: 1 / -1; border-right: 0; border-bottom: 1px solid var(--line); }
.toolbar.hidden { border-style: dashed; color: #8c959f; }
.toolbar.floating:hover { z-index: 5; }
.parked { border-top: 1px solid var(--line); background: #f6f8fa; font-size: 12px; align-items: center; }
.parked .toolbar.floating { position: static; }
.badge { display: inline-block; font-size: 10px; padding: 0 4px; border-radius: 3px; background: #57606a; color: #fff; margin-left: 4px; }
.button { display: inline-block; border: 1px solid var(--line); background: #fff; padding: 1px 6px; border-radius: 3px; white-space: nowrap; }
.button .flyout-to { color: #0969da; font-size: 10px; margin-left: 3px; }

table { border-collapse: collapse; background: #fff; margin: 4px 0; }
th, td { border: 1px solid var(--line); padding: 2px 8px; text-align: left; vertical-align: top; font-size: 13px; }
th { background: #eef1f4; font-weight: 600; }
.group { background: #fff; border: 1px solid var(--line); border-radius: 6px; padding: 4px 12px 10px; margin: 8px 0; }
.toolbar-entry { margin: 8px 0 0; }
.toolbar-entry > p { margin: 2px 0; }

.step { background: #fff; border: 1px solid var(--line); border-left: 4px solid var(--added); border-radius: 4px;
  margin: 10px 0; padding: 6px 12px; }
.step.failed { border-left-color: var(--removed); }
.step h3 { margin: 2px 0 4px; }
.step pre { margin: 1px 0; white-space: pre-wrap; word-break: break-word; }
.pass { color: var(--added); }
.fail { color: var(--removed); font-weight: 600; }
details.fold > summary { cursor: pointer; color: var(--muted); margin: 4px 0; }
details.fold > ol { margin: 2px 0; padding-left: 42px; }
)css";

// Menus open on a click, one at a time in each bar or menu, as a host's do; "#open=PATH" opens the
// menu PATH names (entries' names joined by "/", from a view's name: "after/menubar/&File"), with
// whatever folds hold it, and brings it into sight.
constexpr const char* kScript = R"js(
(function () {
  'use strict';
  function isMenu(element) { return element.tagName === 'DETAILS' && element.classList.contains('menu'); }

  document.addEventListener('toggle', function (event) {
    var menu = event.target;
    if (!isMenu(menu) || !menu.open) return;
    var bar = menu.parentElement.closest('ul, nav, .menus');
    if (!bar) return;
    bar.querySelectorAll('details.menu[open]').forEach(function (other) {
      if (other !== menu && !other.contains(menu) && !menu.contains(other)) other.open = false;
    });
  }, true);

  document.addEventListener('click', function (event) {
    if (event.target.closest('details.menu')) return;
    document.querySelectorAll('details.menu[open]').forEach(function (menu) { menu.open = false; });
  });

  function child(scope, name) {
    var found = null;
    scope.querySelectorAll('[data-name]').forEach(function (element) {
      var owner = element.parentElement.closest('[data-name]');
      if ((owner || document) !== scope || element.getAttribute('data-name') !== name) return;
      if (!found || (found.classList.contains('removed') && !element.classList.contains('removed'))) found = element;
    });
    return found;
  }

  function openFromLocation() {
    var match = /^#open=(.*)$/.exec(location.hash);
    if (!match) return;
    var target = document;
    decodeURIComponent(match[1]).split('/').forEach(function (name) { if (target) target = child(target, name); });
    if (!target) return;
    for (var element = target; element; element = element.parentElement)
      if (element.tagName === 'DETAILS') element.open = true;
    // A step is brought to the top; a view only when the menu would open out of sight.
    var step = target.closest('.step');
    if (step) step.scrollIntoView();
    else if (target.getBoundingClientRect().top > window.innerHeight / 3) (target.closest('.host') || target).scrollIntoView();
  }

  window.addEventListener('hashchange', openFromLocation);
  openFromLocation();
})();
)js";

}  // namespace

void writePageStart(std::ostream& out, const std::string& title)
{
    out << "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
        << "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
        << "<title>" << escape(title) << "</title>\n<style>" << kStyle << "</style>\n</head>\n<body>\n";
}

void writePageEnd(std::ostream& out)
{
    out << "<script>" << kScript << "</script>\n</body>\n</html>\n";
}

}  // namespace zorbsim::html
