#!/usr/bin/env bash
# Exit code 0 if the installed Wine shows what Direct2D draws into a child window, such as the world; 1 if it does not or
# if there is no Wine. No other script looks at the version.
#
# Tried: Wine 8.0 shows nothing of it and draws a hundred times slower than GDI; Wine 10.0 shows it.
set -u

first=10
version=$(wine --version 2>/dev/null) || exit 1
[[ $version =~ ^wine-([0-9]+) ]] && [ "${BASH_REMATCH[1]}" -ge "$first" ]
