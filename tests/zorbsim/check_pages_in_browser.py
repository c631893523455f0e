#!/usr/bin/env python3
"""zorbsim's pages as a browser shows them: renders the demo's run report and the view of a host
whose texts are markup, opens them in headless Chromium and checks what it lays out: the menu
bar's entries, an opened menu's items (shown, and marked as the step changed them), a hidden
floating toolbar in the row of hidden ones, the marks of changed steps, and host texts that read as text. Takes
the screenshot the documentation shows.

  check_pages_in_browser.py --zorbsim ZORBSIM --chromium CHROMIUM --hostile-host FILE
                            --folder FOLDER --screenshot PNG
"""

import argparse
import os
import struct
import subprocess
import sys
import urllib.parse
import zlib

from chromium_driver import BrowserError, Chromium

WIDTH, HEIGHT = 1280, 900

# Run inside the page before each probe.
HELPERS = r"""
const text = element => element.textContent.replace(/\s+/g, ' ').trim();
const shown = element => {
  const box = element.getBoundingClientRect();
  return box.width > 0 && box.height > 0 && element.checkVisibility({visibilityProperty: true});
};
const mark = element => ['added', 'removed', 'changed'].find(name => element.classList.contains(name)) || '';
const view = name => document.querySelector(`section.host[data-name="${name}"]`);
const menuBar = name => [...view(name).querySelector('nav.menubar').children]
  .map(menu => [text(menu.querySelector('summary')), mark(menu)]);
const items = menu => [...menu.querySelector(':scope > ul').children].map(item => [
  item.classList.contains('separator') ? '---' : text(item.querySelector(':scope > details > summary') || item),
  mark(item), shown(item)]);
const stepNamed = title => [...document.querySelectorAll('section.step')]
  .find(step => step.querySelector('h3').textContent.includes(title));
const stepView = title => stepNamed(title).querySelector('section.host');
"""

failures = []


def expect(subject, actual, expected):
    if actual != expected:
        failures.append(f"{subject}:\n    expected {expected!r}\n    got      {actual!r}")


def probe(browser, body):
    return browser.evaluate("(() => {" + HELPERS + body + "})()")


def page_url(path, open_path=None):
    url = "file://" + urllib.parse.quote(os.path.abspath(path))
    return url + "#open=" + urllib.parse.quote(open_path, safe="") if open_path else url


def run(command):
    result = subprocess.run(command, capture_output=True, text=True)
    if result.returncode != 0:
        sys.exit(f"{' '.join(command)} exited with {result.returncode}:\n{result.stderr}")


SNAP_TITLE = "It adds three snap entries"
SNAP_ITEMS = [["Endpoint", "", True], ["Midpoint", "", True], ["Intersection", "", True], ["---", "", True],
              ["Center", "", True], ["Perpendicular", "", True], ["Nearest", "", True], ["---", "", True],
              ["None", "", True], ["Osnap Settings...", "", True],
              ["---", "added", True], ["Tangent", "added", True], ["Quadrant", "added", True],
              ["Node", "added", True], ["MX Beams...", "", True], ["MX Settings...", "", True]]
HOST_MENUS = [["File", ""], ["Edit", ""], ["View", ""], ["Draw", ""], ["Modify", ""]]


def check_report(browser, report, screenshot):
    browser.open(page_url(report))
    step = probe(browser, f"return stepNamed({SNAP_TITLE!r}).id;")
    # The step's host view is folded; the link unfolds it and opens the snap menu on its menu bar.
    browser.open(page_url(report, f"{step}/menubar/MX Object Snap"))
    browser.screenshot(screenshot)

    expect("the menu bar before the first step", probe(browser, "return menuBar('before');"),
           HOST_MENUS + [["Help", ""]])
    expect("the menu bar after the last step, against the first", probe(browser, "return menuBar('after');"),
           HOST_MENUS + [["MX All", "added"], ["Help", ""]])
    expect("the open menus of the snap step's view",
           probe(browser, f"return [...stepView({SNAP_TITLE!r}).querySelectorAll('details.menu[open]')]"
                          ".map(menu => menu.dataset.name);"),
           ["MX Object Snap"])
    expect("the opened snap menu's items: text, mark, shown",
           probe(browser, f"return items(stepView({SNAP_TITLE!r}).querySelector("
                          "'nav.menubar > details[data-name=\"MX Object Snap\"]'));"),
           SNAP_ITEMS)
    expect("the closed File menu's items are not shown",
           probe(browser, f"return items(stepView({SNAP_TITLE!r}).querySelector('nav.menubar > details'))"
                          ".some(item => item[2]);"),
           False)
    expect("the hidden Zoom toolbar before the first step: classes, badge, in the hidden ones' row of the drawing area",
           probe(browser, """
             const area = view('before').querySelector('.drawing').getBoundingClientRect();
             const toolbar = view('before').querySelector('.parked .toolbar[data-name="Zoom"]');
             const inside = toolbar.getBoundingClientRect();
             return [toolbar.className, text(toolbar.querySelector('.badge')), shown(toolbar),
                     inside.left >= area.left && inside.top >= area.top];"""),
           ["toolbar floating hidden", "hidden", True, True])
    expect("the step that hides MX Main: the toolbar docked at the top, hidden and changed",
           probe(browser, """
             const toolbar = stepView('Hiding it answers false').querySelector('.dock-top .toolbar[data-name="MX Main"]');
             return toolbar.className;"""),
           "toolbar hidden changed")
    expect("the step that replaces the Plate button: MX Main's buttons and their marks",
           probe(browser, """
             const toolbar = stepView('The Plate button is replaced').querySelector('.dock-top .toolbar[data-name="MX Main"]');
             return [mark(toolbar), ...[...toolbar.querySelectorAll('.button')].map(b => [b.dataset.name, mark(b)])];"""),
           ["changed", ["Beam", ""], ["Column", ""], ["Plate", "removed"], ["Plate+", "added"],
            ["Connections", ""], ["Settings", ""]])
    expect("a step that changes nothing shows no host",
           probe(browser, "return stepNamed('The host\\'s six menus and the MX one').querySelector('section.host');"),
           None)
    expect("script elements in the report", probe(browser, "return document.scripts.length;"), 1)


def check_hostile_view(browser, page):
    browser.open(page_url(page, "host/menubar/&Tools <i>/<svg onload=alert(4)>"))
    expect("the menu bar of the hostile host", probe(browser, "return menuBar('host');"), [["Tools <i>", ""]])
    expect("the items of its menu and its opened submenu", probe(browser, """
             const menu = view('host').querySelector('nav.menubar > details');
             return [...items(menu), ...items(menu.querySelector('li details'))];"""),
           [["<script>alert(1)</script>", "", True], ["---", "", True], ["Tom & \"Jerry's\" <&>", "", True],
            ["<svg onload=alert(4)>", "", True], ["</ul></details><script>alert(5)</script>", "", True]])
    expect("the hover text of the first item",
           probe(browser, "return view('host').querySelector('li.item').title;"),
           "tag: ID_'quoted'\nmacro: ^C^C_<img src=x onerror=alert(3)>")
    expect("the texts of the group, the toolbar, its button, the document, a variable, a plot job, a preference",
           probe(browser, """
             const host = view('host');
             return [text(host.querySelector('.group h4')),
                     host.querySelector('.parked .toolbar').dataset.name,
                     text(host.querySelector('.parked .toolbar .button')),
                     text(host.querySelector('tr.document td')),
                     text(host.querySelector('tr.variable td')),
                     text(host.querySelector('tr.plot-job td:nth-child(2)')),
                     text(host.querySelector('tr.preference td:nth-child(2)'))];"""),
           ["<b>Group</b> & \"Co\"", "</div><script>alert(6)</script>", "<img src=x onerror=alert(7)>\u25b8 <t>",
            "C:\\<script>alert(9)</script>.dwg active", "<VAR onclick=alert(10)>", "<dev>", "C:\\<p>;C:\\&amp;"])
    expect("elements or handlers a host text could have made",
           probe(browser, """
             return [document.scripts.length, document.querySelectorAll('b, i, img, svg').length,
                     [...document.querySelectorAll('*')].filter(e => [...e.attributes].some(a => a.name.startsWith('on'))).length];"""),
           [1, 0, 0])


def check_screenshot(path):
    with open(path, "rb") as file:
        png = file.read()
    if png[:8] != b"\x89PNG\r\n\x1a\n":
        failures.append(f"{path} is not a PNG image")
        return
    expect("the screenshot's size", struct.unpack(">II", png[16:24]), (WIDTH, HEIGHT))
    # A page that did not paint is one colour, whose filtered rows are all but zero bytes (a painted
    # page has some 3% of bytes that are not zero, a blank one 0.03%).
    pixels, at = b"", 8
    while at < len(png):
        length, kind = struct.unpack(">I4s", png[at:at + 8])
        if kind == b"IDAT":
            pixels += png[at + 8:at + 8 + length]
        at += 12 + length
    raw = zlib.decompress(pixels)
    painted = sum(1 for byte in raw if byte) / len(raw)
    if painted < 0.01:
        failures.append(f"the screenshot looks blank ({painted:.1%} of its bytes are not zero)")


def main():
    parser = argparse.ArgumentParser()
    for option in ("--zorbsim", "--chromium", "--hostile-host", "--folder", "--screenshot"):
        parser.add_argument(option, required=True)
    arguments = parser.parse_args()
    if not os.access(arguments.chromium, os.X_OK):
        sys.exit(f"Chromium was not found ({arguments.chromium!r}): scripts/ensure-deps.sh installs the Debian "
                 "package chromium; configure the build again afterwards")

    os.makedirs(arguments.folder, exist_ok=True)
    report = os.path.join(arguments.folder, "demo-report.html")
    hostile = os.path.join(arguments.folder, "hostile-view.html")
    run([arguments.zorbsim, "demo", "--html", report])
    run([arguments.zorbsim, "view", "--host", arguments.hostile_host, "-o", hostile])
    try:
        with Chromium(arguments.chromium, WIDTH, HEIGHT) as browser:
            check_report(browser, report, arguments.screenshot)
            check_hostile_view(browser, hostile)
            for error in browser.script_errors():
                failures.append("script error: " + error)
    except BrowserError as error:
        failures.append(str(error))
    if os.path.exists(arguments.screenshot):
        check_screenshot(arguments.screenshot)
    for failure in failures:
        print("FAIL", failure)
    if failures:
        sys.exit(1)
    print(f"all checks passed; screenshot: {arguments.screenshot}")


if __name__ == "__main__":
    main()
