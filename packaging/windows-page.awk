# Makes a page of the package, which speaks to users of Windows, from a page of the repository:
#
#   awk -f windows-page.awk PAGE.md
#
# What stands between the lines "<!-- not in the package -->" and "<!-- end -->" is left out. What stands between the lines
# "<!-- only in the package" and "-->", where the page of the repository hides it, is shown. Every other block of shell
# commands becomes one for PowerShell. It may consist of
#
#   kinetarium-headless ARGUMENT...   with "\" at the end of a line, and then with "| tail -N", "| head -N" or ">FILE"
#   cmp FILE FILE && echo "TEXT"
#   ls PATTERN
#
# Anything else is an error: such a block needs a form for PowerShell of its own, between the lines above.

function fail(message) {
    if (!failed) printf "error: %s, line %d: %s\n", FILENAME, FNR, message >"/dev/stderr"
    failed = 1
    exit 1
}

# PowerShell takes 250,250 for two arguments.
function argument(text) {
    if (text !~ /^[-A-Za-z0-9._,:%=\/]+$/) fail("no form for PowerShell is known for: " text)
    return text ~ /,/ ? "\"" text "\"" : text
}

# The arguments from number FROM of a command on, and what is done with its output.
function rest_of_command(from, n, words,    i, text) {
    text = ""
    for (i = from; i <= n; ++i) {
        if (words[i] == "\\" && i == n) {
            continued = 1
            text = text " `"
        } else if (words[i] == "|" && i + 2 == n && words[i + 1] ~ /^(head|tail)$/ && words[n] ~ /^-[0-9]+$/) {
            text = text " | Select-Object " (words[i + 1] == "head" ? "-First " : "-Last ") substr(words[n], 2)
            break
        } else if (words[i] ~ /^>[^>&]/ && i == n) {
            text = text " | Set-Content -Encoding ascii " argument(substr(words[i], 2))
        } else {
            text = text " " argument(words[i])
        }
    }
    return text
}

function translate(line,    n, words, indent) {
    n = split(line, words, " ")
    if (continued) {
        continued = 0
        match(line, /^ */)
        indent = substr(line, 1, RLENGTH - 1)
        return indent rest_of_command(1, n, words)
    }
    if (words[1] == "kinetarium-headless") return ".\\kinetarium-headless.exe" rest_of_command(2, n, words)
    if (line ~ /^cmp [^ "]+ [^ "]+ && echo "[^"$`]+"$/) {
        sub(/^[^"]*/, "", line)
        return "if ((Get-FileHash " argument(words[2]) ").Hash -eq (Get-FileHash " argument(words[3]) ").Hash) { " line " }"
    }
    if (line ~ /^ls [A-Za-z0-9.*_-]+$/) return "Get-ChildItem " words[2]
    fail("no form for PowerShell is known for: " line)
}

leaving_out && $0 == "<!-- end -->" { leaving_out = 0; next }
leaving_out { next }
$0 == "<!-- not in the package -->" { leaving_out = 1; next }
showing && $0 == "-->" { showing = 0; next }
$0 == "<!-- only in the package" { showing = 1; next }
/^<!--/ || /^-->/ { fail("this comment means nothing here") }
in_commands && /^```/ { in_commands = 0; print; next }
in_commands { print translate($0); next }
/^```sh$/ { in_commands = 1; print "```powershell"; next }
{ print }

END {
    if (leaving_out || showing || in_commands || continued) fail("the page ends in the middle of a part")
}
