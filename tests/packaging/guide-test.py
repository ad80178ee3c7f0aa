#!/usr/bin/env python3
"""Reads the pages of the package as a user of Windows does: guide-test.py PACKAGE EMULATOR SOURCES

No page may mention what only a Linux machine has. Every command of the page about experiments is started with the
arguments that PowerShell would give it: PACKAGE/kinetarium-headless.exe, through EMULATOR. There is no PowerShell here, so
what the page does with the output is not tried. SOURCES is the folder of the repository.
"""

import html
import os
import re
import subprocess
import sys
import tempfile

PROGRAM = r".\kinetarium-headless.exe"
ONLY_LINUX = re.compile(r"[\w./-]*\.sh\b|/tmp\b|/dev/|\b(?:bash|awk|nohup|sbatch)\b|build/native", re.IGNORECASE)
failures = []


class NoPowerShell(Exception):
    """The page uses something that this reader, and perhaps PowerShell, does not understand."""


def fail(message):
    failures.append(message)
    print("FAILED:", message)


def loop_values(block):
    """The first value of each loop's variable. One that a command computes is a seed."""
    values = {"seed": "7"}
    for name, first in re.findall(r"foreach \(\$(\w+) in (\d+)(?:, \d+|\.\.\d+)*\)", block):
        values[name] = first
    return values


def read_arguments(text, values):
    """The arguments at the beginning of a text, up to the end of the command."""
    token = re.compile(r'''"([^"$`]*)"|'([^']*)'|\$(\w+)|([-A-Za-z0-9._:%=\\/]+)''')
    arguments = []
    while True:
        text = re.sub(r"^(?:[ \t]|`\n)+", "", text)
        if text == "" or text[0] in "\n|)};":
            return arguments
        found = token.match(text)
        end = text[found.end():found.end() + 1] if found else ""
        if found is None or end not in ("", " ", "\n", "|", ")", "}", ";"):
            raise NoPowerShell(text.split("\n")[0])
        double, single, variable, bare = found.groups()
        if variable is not None:
            arguments.append(values[variable])
        else:
            arguments.append(next(part for part in (double, single, bare) if part is not None))
        text = text[found.end():]


def read_commands(block):
    """The arguments of every start of the program in a block."""
    if re.search(r"&&|\|\||\\$|[^-\w]2?>", block, re.MULTILINE):
        raise NoPowerShell("an operator of another shell, or a redirection in UTF-16: " + block)
    if len(re.findall("kinetarium-headless", block)) != block.count(PROGRAM):
        raise NoPowerShell("the program is called in another way: " + block)
    values = loop_values(block)
    return [read_arguments(rest, values) for rest in block.split(PROGRAM)[1:]]


def without_times(text):
    return re.sub(r"\(ms\): .*", "(ms)", text.replace("\r", ""))


class Package:
    def __init__(self, folder, emulator):
        self.folder = folder
        self.emulator = emulator

    def run(self, arguments):
        return subprocess.run([self.emulator, os.path.join(self.folder, "kinetarium-headless.exe"), *arguments],
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, check=False)

    def check_words(self):
        names = ["README.txt"] + ["guide/" + name for name in os.listdir(os.path.join(self.folder, "guide"))
                                  if name.endswith(".html")]
        for name in names:
            with open(os.path.join(self.folder, name), encoding="utf-8") as file:
                for line in file:
                    if found := ONLY_LINUX.search(html.unescape(line)):
                        fail(f"{name} mentions {found[0]}: {line.strip()}")
        return len(names)

    def check_commands(self):
        with open(os.path.join(self.folder, "guide", "experiments.html"), encoding="utf-8") as file:
            blocks = re.findall(r'<pre><code(?: class="language-(\w+)")?>(.*?)</code></pre>', file.read(), re.DOTALL)
        count = compared = 0
        output = None # of the block before, if it shows all that a single command prints
        for language, block in blocks:
            if language not in ("", "powershell", "python"):
                fail(f"a block is for {language}")
            block = html.unescape(block)
            if language == "" and output is not None:
                compared += 1
                if without_times(block) != without_times(output):
                    fail(f"the page shows another output than its command gives: {output}")
            try:
                commands = read_commands(block) if language == "powershell" else []
            except NoPowerShell as reason:
                fail(f"this is no PowerShell: {reason}")
                commands = []
            for arguments in commands:
                done = self.run(arguments)
                count += 1
                if done.returncode != 0:
                    fail(f"exit code {done.returncode} of {arguments}: {done.stdout}")
            output = done.stdout if len(commands) == 1 and "|" not in block else None
        if compared == 0:
            fail("no output of the page was compared")
        return count


def check_reader():
    """What the reader takes and what it refuses."""
    taken = {
        PROGRAM + ' --start-at "250,250" --stats a.csv | Select-Object -Last 1': [["--start-at", "250,250", "--stats", "a.csv"]],
        PROGRAM + " --seed 1 `\n    --quiet": [["--seed", "1", "--quiet"]],
        "foreach ($n in 5, 6) { " + PROGRAM + " --atoms $n }": [["--atoms", "5"]],
        "$x = (" + PROGRAM + ")\n" + PROGRAM + " --quiet": [[], ["--quiet"]],
    }
    for block, expected in taken.items():
        if (commands := read_commands(block)) != expected:
            fail(f"{block} is read as {commands}")
    for block in (PROGRAM + " --start-at 250,250", PROGRAM + " >a.csv", PROGRAM + " \\\n --quiet",
                  PROGRAM + " && ls", "kinetarium-headless --quiet", PROGRAM + " --seed $(1)"):
        try:
            fail(f"{block} is read as {read_commands(block)}")
        except NoPowerShell:
            pass


def make_page(sources, page):
    """What the package makes of a page, or None if it refuses it."""
    made = subprocess.run(["awk", "-f", os.path.join(sources, "packaging", "windows-page.awk")], input=page,
                          stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True, check=False)
    return made.stdout if made.returncode == 0 else None


def check_conversion(sources):
    """What windows-page.awk makes of commands of a shell."""
    taken = {
        "kinetarium-headless --start-at 1,2 --quiet | tail -1": PROGRAM + ' --start-at "1,2" --quiet | Select-Object -Last 1',
        "kinetarium-headless --seed 1 \\\n    --quiet >a.txt": PROGRAM + " --seed 1 `\n    --quiet | Set-Content -Encoding ascii a.txt",
        "ls b*.png": "Get-ChildItem b*.png",
        'cmp a b && echo "the same"': 'if ((Get-FileHash a).Hash -eq (Get-FileHash b).Hash) { "the same" }',
    }
    for shell, expected in taken.items():
        made = make_page(sources, f"```sh\n{shell}\n```\n")
        if made != f"```powershell\n{expected}\n```\n":
            fail(f"{shell} becomes {made}")
    for shell in ("kinetarium-headless | awk 1", "kinetarium-headless --stats - | cut -c 1", "for x in 1; do ls; done",
                  "kinetarium-headless 2>a", 'kinetarium-headless --seed "$seed"', "kinetarium-headless \\"):
        if (made := make_page(sources, f"```sh\n{shell}\n```\n")) is not None:
            fail(f"{shell} becomes {made}")
    marks = "a\n<!-- not in the package -->\nb\n<!-- end -->\n<!-- only in the package\nc\n-->\nd\n"
    if (made := make_page(sources, marks)) != "a\nc\nd\n":
        fail(f"the marks give {made}")
    for wrong in ("<!-- not in the package -->\n", "<!-- only in the package\n", "<!-- end -->\n", "<!-- other -->\n"):
        if make_page(sources, wrong) is not None:
            fail(f"{wrong} is accepted")


def main():
    folder, emulator, sources = (os.path.realpath(argument) for argument in sys.argv[1:4])
    check_reader()
    check_conversion(sources)
    package = Package(folder, emulator)
    pages = package.check_words()
    with tempfile.TemporaryDirectory() as work:
        os.chdir(work)
        # A file of the window, which the page takes for granted.
        with open("Kinetarium.ini", "w", encoding="ascii", newline="\r\n") as file:
            file.write("[Settings]\nWorld_width=600\nTot_atoms=300\nAtom_colour_2_factor=\nWndLeft=10\n")
        count = package.check_commands()
        os.chdir("/")
    if count < 15 or pages < 4:
        fail(f"there are only {count} commands and {pages} pages")
    if not failures:
        print(f"{pages} pages speak to users of Windows; {count} commands do what the page says")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
