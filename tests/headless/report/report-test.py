#!/usr/bin/env python3
"""Looks at reports of the finished program in Chromium, as their readers do: report-test.py PROGRAM [FOLDER]

With FOLDER, the pictures of the pages stay there: wide, narrow, in the dark and printed."""

import json
import os
import subprocess
import sys
import tempfile

sys.dont_write_bytecode = True  # the folder of the sources stays as it is
from browser import Browser

program = os.path.realpath(sys.argv[1])
CHARTS = ["energy", "collisions", "course-of-speeds", "distribution"]

# The share of the pixels of a canvas that are drawn, and the number of their colours.
PIXELS = """(id => {
    const canvas = document.getElementById(id);
    const copy = new OffscreenCanvas(canvas.width, canvas.height).getContext("2d", { willReadFrequently: true });
    copy.drawImage(canvas, 0, 0);
    const pixels = new Uint32Array(copy.getImageData(0, 0, canvas.width, canvas.height).data.buffer);
    const drawn = pixels.filter(pixel => pixel !== 0);
    return { share: drawn.length / pixels.length, colours: new Set(drawn).size };
})"""

# The contrast of each text with its background, by the formula of WCAG 2: what is below 4.5 : 1.
CONTRASTS = """(() => {
    const channels = text => text.match(/[0-9.]+/g).map(Number);
    const light = ([r, g, b]) => [r, g, b].map(c => c / 255)
        .map(c => c <= 0.04045 ? c / 12.92 : ((c + 0.055) / 1.055) ** 2.4)
        .reduce((sum, c, index) => sum + c * [0.2126, 0.7152, 0.0722][index], 0);
    const background = element => {
        for (; element; element = element.parentElement) {
            const colour = channels(getComputedStyle(element).backgroundColor);
            if (colour.length < 4 || colour[3] > 0) return colour;
        }
        return [255, 255, 255];
    };
    const weak = [];
    for (const element of document.querySelectorAll("body *")) {
        if (![...element.childNodes].some(node => node.nodeType === 3 && node.data.trim()) ||
            !element.checkVisibility()) continue;
        const [a, b] = [light(channels(getComputedStyle(element).color)), light(background(element))];
        const contrast = (Math.max(a, b) + 0.05) / (Math.min(a, b) + 0.05);
        if (contrast < 4.5) weak.push([element.tagName, element.textContent, contrast]);
    }
    return weak;
})()"""

# A screen reader gets: headings without a gap, a name for each picture, chart and region, a table for each chart.
SPOKEN = """(() => {
    const faults = [];
    let before = 0;
    for (const heading of document.querySelectorAll("h1, h2, h3, h4")) {
        const level = Number(heading.tagName[1]);
        if (level > before + 1) faults.push("heading " + heading.textContent);
        before = level;
    }
    for (const element of document.querySelectorAll("canvas, [role=region]"))
        if (!element.getAttribute("aria-label")) faults.push("no name: " + element.outerHTML);
    for (const canvas of document.querySelectorAll("canvas")) {
        const figure = canvas.closest("figure");
        if (canvas.getAttribute("role") !== "img") faults.push("no role: " + canvas.id);
        if (!figure.querySelector("figcaption").textContent) faults.push("no caption: " + canvas.id);
        if (figure.querySelectorAll("details tbody tr").length < 2) faults.push("no table: " + canvas.id);
    }
    if (!document.querySelector("img").alt) faults.push("no text for the picture");
    if (document.querySelectorAll("h1").length !== 1) faults.push("not one title");
    const ids = [...document.querySelectorAll("[id]")].map(element => element.id);
    if (new Set(ids).size !== ids.length) faults.push("an id twice");
    return faults;
})()"""


def run(arguments, page):
    result = subprocess.run([program, *arguments, "--report", page, "--summary", "json"], capture_output=True,
                            text=True)
    assert result.returncode == 0, result.stderr
    text = subprocess.run([program, *arguments], capture_output=True, text=True).stdout
    return json.loads(result.stdout), dict(line.split(": ", 1) for line in text.splitlines())


def check_numbers(browser, summary, text):
    shown = browser.evaluate("""[...document.querySelectorAll("[data-key]")]
        .map(element => [element.dataset.key, element.textContent])""")
    keys = {key for key, _ in shown}
    missing = set(summary) - keys - {"version", "command", "median_time_ms", "percentile_95_time_ms",
                                     "overlaps_at_least"}
    assert not missing, f"the page lacks {missing}"
    for key, value in shown:
        if key in summary and summary[key] is not None:
            expected = summary[key]
            assert value == expected if isinstance(expected, str) else float(value) == expected, (key, value)
    assert browser.evaluate('document.querySelector("code").textContent') == summary["command"]
    # With the digits of the text form.
    assert dict(shown)["average_speed"] == text["average speed"]
    assert summary["state_hash"] in browser.evaluate('document.querySelector("header").textContent')


def check_page(browser, page, charts):
    browser.show(1280)
    browser.open(page)
    assert not browser.complaints(), browser.complaints()
    others = [url[:60] for url in browser.requests() if not url.startswith(("data:", "file://" + page))]
    assert not others, f"the page asks for {others}"
    assert browser.evaluate("[...document.querySelectorAll('canvas')].map(canvas => canvas.id)") == charts
    assert browser.evaluate("document.querySelector('img').naturalWidth") > 0
    faults = browser.evaluate(SPOKEN)
    assert not faults, faults
    for width, dark, media in ((1280, False, ""), (320, False, ""), (1280, True, ""), (320, True, ""),
                               (794, False, "print")):
        browser.show(width, dark=dark, media=media)
        case = f"{width} {'dark' if dark else 'light'} {media}"
        over = browser.evaluate("document.documentElement.scrollWidth - innerWidth")
        assert over <= 0, f"{case}: {over} pixels too wide"
        weak = browser.evaluate(CONTRASTS)
        assert not weak, (case, weak)
        for chart in charts:
            pixels = browser.evaluate(f"{PIXELS}({json.dumps(chart)})")
            assert pixels["share"] > 0.01 and pixels["colours"] > 10, (case, chart, pixels)
    assert not browser.complaints(), browser.complaints()


def check_colours_of_charts(browser):
    """They follow the reader, and paper is white."""
    read = f"Chart.getChart('energy').options.plugins.legend.labels.color"
    browser.show(1280, dark=True)
    dark = browser.evaluate(read)
    browser.evaluate("dispatchEvent(new Event('beforeprint'))")
    printed = browser.evaluate(read)
    browser.evaluate("dispatchEvent(new Event('afterprint'))")
    assert browser.evaluate(read) == dark
    browser.show(1280)
    light = browser.evaluate(read)
    assert (light, printed) == (light, light) and dark != light, (light, dark, printed)


def check_keyboard(browser):
    """The Tab key reaches every table, and Enter opens it."""
    browser.show(1280)
    browser.evaluate("document.activeElement.blur()")
    reached = set()
    for _ in range(20):
        for kind in ("keyDown", "keyUp"):
            browser.call("Input.dispatchKeyEvent", type=kind, key="Tab", code="Tab", windowsVirtualKeyCode=9)
        reached.add(browser.evaluate("document.activeElement.outerHTML.slice(0, 60)"))
        if browser.evaluate("document.activeElement.matches('details:not([open]) > summary')"):
            for kind in ("keyDown", "keyUp"):
                browser.call("Input.dispatchKeyEvent", type=kind, key="Enter", code="Enter", windowsVirtualKeyCode=13,
                             text="\r" if kind == "keyDown" else "")
    tables = browser.evaluate("document.querySelectorAll('details').length")
    assert browser.evaluate("document.querySelectorAll('details[open]').length") == tables == len(CHARTS), reached
    assert any("The command" in element for element in reached), reached


def take_pictures(browser, folder):
    for name, width, dark in (("wide", 1280, False), ("narrow", 375, False), ("dark", 1280, True)):
        browser.show(width, dark=dark)
        browser.take_picture(os.path.join(folder, name + ".png"))
    browser.print_page(os.path.join(folder, "printed.pdf"))


with tempfile.TemporaryDirectory() as folder, Browser() as browser:
    folder = os.path.realpath(folder)
    state = os.path.join(folder, "a <b>&'c.csv")
    with open(state, "w", encoding="utf-8") as file:
        file.write("x,y,vx,vy,radius\n40,50,1,0.5,5\n")
    rest = os.path.join(folder, "rest.csv")
    with open(rest, "w", encoding="utf-8") as file:
        file.write("x,y,vx,vy,radius\n40,50,0,0,5\n60,50,0,0,5\n")
    world = ["--width", "100", "--height", "100", "--seed", "1"]
    runs = [(["--seed", "42", "--iterations", "3000"], CHARTS),
            (["--seed", "1", "--iterations", "0"], ["distribution"]),
            (["--load-state", state, *world, "--iterations", "20"], CHARTS),
            (["--load-state", rest, *world, "--iterations", "0", "--no-overlaps"], []),
            (["--load-state", rest, *world, "--iterations", "10"], CHARTS[:3])]
    for index, (arguments, charts) in reversed(list(enumerate(runs))):
        page = os.path.join(folder, f"{index}.html")
        summary, text = run(arguments, page)
        check_page(browser, page, charts)
        check_numbers(browser, summary, text)
    take_pictures(browser, sys.argv[2] if len(sys.argv) > 2 else folder)
    check_colours_of_charts(browser)
    check_keyboard(browser)
print("the reports are as their readers need them")
