#!/usr/bin/env bash
# The rules of the house, one line each: OK or FAIL with the places. Ends with 1 where one fails.
#   scripts/lint.sh [CHECK ...]     all checks, or the ones named: see `checks` below
set -uo pipefail
cd "$(dirname "$0")/.." || exit 1
# shellcheck source=/dev/null
. scripts/packages.sh

checks=(floors circles tables qt sqlite platform headers length functions format)

# Floors, lowest first; folders of one number may see each other. A file includes from its own floor or lower ones.
floors() {
    cat <<'END'
0 common
1 sql
2 db
3 report
4 calc
5 hospice
5 structure
6 print
6 editchecks
7 ecr
7 import
8 screens
9 .
10 screens/view
11 screens/edit
12 shell
12 cli
END
}

# Over 500 lines, with the reason.
long_files() {
    cat <<'END'
END
}

if git rev-parse --is-inside-work-tree >/dev/null 2>&1; then
    mapfile -t files < <(git ls-files --cached --others --exclude-standard | while read -r f; do [ -f "$f" ] && echo "$f"; done)
else
    mapfile -t files < <(find . -name build -prune -o -name '.git' -prune -o -type f -printf '%P\n' | sort)
fi
# of REGEX: the files whose path it matches.
of() { printf '%s\n' "${files[@]}" | grep -E "$1"; }
# lines_with REGEX [FILE ...]: "file:line:text" of every match; comments of a line's end do not count.
lines_with() {
    local regex=$1
    shift
    [ $# -eq 0 ] && return 0
    awk -v regex="$regex" '{ code = $0; sub(/(^|[^:])\/\/.*/, "", code); if (code ~ regex) print FILENAME ":" FNR ":" $0 }' "$@"
}
code=$(mktemp -d)
trap 'rm -rf "$code"' EXIT

# Each check prints the places that break it, and nothing where all is well.
check_floors() {
    mapfile -t sources < <(of '^src/.*\.(h|cpp)$')
    floors >"$code/floors"
    awk -v table="$code/floors" '
        function folder(path) { return sub(/\/[^\/]*$/, "", path) ? path : "." }
        BEGIN { while ((getline line < table) > 0) { split(line, part, " "); rank[part[2]] = part[1] } }
        /^[ \t]*#[ \t]*include[ \t]*"/ {
            name = $0; sub(/^[^"]*"/, "", name); sub(/".*/, "", name)
            own = FILENAME; sub(/^src\//, "", own); own = folder(own); other = folder(name)
            if (!(own in rank)) print FILENAME ": folder of no floor"
            else if (!(other in rank)) print FILENAME ":" FNR ": \"" name "\" is on no floor"
            else if (rank[other] + 0 > rank[own] + 0) print FILENAME ":" FNR ": \"" name "\" is on a higher floor"
        }' "${sources[@]}"
}

# A source and its header are one file here. Each include that a way of other includes leads back from.
check_circles() {
    mapfile -t sources < <(of '^src/.*\.(h|cpp)$')
    awk '
        function stem(path) { sub(/^src\//, "", path); sub(/\.[a-z]+$/, "", path); return path }
        # True where includes lead from `at` to `goal`.
        function leads(at, goal,    next_, i, n) {
            if (at == goal) return 1
            if (at in seen) return 0
            seen[at] = 1
            n = split(includes[at], next_, " ")
            for (i = 1; i <= n; i++) if (leads(next_[i], goal)) return 1
            return 0
        }
        /^[ \t]*#[ \t]*include[ \t]*"/ {
            name = $0; sub(/^[^"]*"/, "", name); sub(/".*/, "", name)
            from = stem(FILENAME); to = stem(name)
            if (from != to && !((from, to) in edge)) { edge[from, to] = 1; includes[from] = includes[from] " " to }
        }
        END {
            for (each in edge) {
                split(each, end, SUBSEP)
                delete seen
                if (leads(end[2], end[1])) print end[1] " includes " end[2] ", which leads back"
            }
        }' "${sources[@]}" | sort
}

# Below the calculation no statement names a worksheet's table, so that the report does not know what stands above it.
# The names are those of the catalogue, its wild cards as in a pattern: # a digit, ? a character, * any rest.
check_tables() {
    local names
    names=$(sed -n 's/^ *WorksheetFamily{"\([^"]*\)".*/\1/p' src/catalogue.cpp |
        sed 's/#/[0-9]/g; s/?/[A-Za-z0-9]/g; s/\*/[A-Za-z0-9]*/g' | paste -sd '|')
    if [ -z "$names" ]; then
        echo "src/catalogue.cpp: no family is found"
        return
    fi
    mapfile -t sources < <(of '^src/(common|sql|db|report)/.*\.(h|cpp)$')
    lines_with "\"(.*[^A-Za-z])?([Ff][Rr][Oo][Mm]|[Ii][Nn][Tt][Oo]|[Jj][Oo][Ii][Nn]|[Tt][Aa][Bb][Ll][Ee]|[Uu][Pp][Dd][Aa][Tt][Ee]) +[[]?($names)([^A-Za-z0-9'.]|\$)" "${sources[@]}"
}

# Qt on its three floors, and there without style sheets: they break dark and high-contrast palettes.
check_qt() {
    local desktop='^src/(screens/(edit|view)|shell)/'
    mapfile -t sources < <(of '^src/.*\.(h|cpp)$' | grep -Ev "$desktop")
    lines_with '#[ \t]*include[ \t]*<Q(t|[A-Z])' "${sources[@]}"
    mapfile -t sources < <(of "$desktop")
    lines_with 'setStyleSheet' "${sources[@]}"
}

check_sqlite() {
    mapfile -t sources < <(of '^(src|tests|bench)/.*\.(h|cpp)$' | grep -Ev '^(src|tests)/db/')
    lines_with '#[ \t]*include[ \t]*[<"]sqlite3' "${sources[@]}"
}

# Only a Platform asks the time, reads a setting or the environment, or shows a box; the desktop's tests answer boxes, and
# the fault library, which no test links, is told by the environment what to do.
check_platform() {
    mapfile -t sources < <(of '^(src|tests)/.*\.(h|cpp)$' | grep -Ev '^(src/(shell|cli)/[a-z_]*platform[a-z_]*|tests/support/desktop/[a-z_]*|tests/faults/fault_library)\.(h|cpp)$')
    lines_with '(^|[^A-Za-z0-9_])((std::)?time\((NULL|nullptr|0|&)|system_clock|(secure_)?getenv|gettimeofday|clock_gettime|localtime|QSettings|QMessageBox|QDateTime::current|QDate::current|QTime::current)' \
        "${sources[@]}"
}

# A header that its own source includes first is proved by the build; the others are compiled here, each alone.
unproved_headers() {
    local header first
    while read -r header; do
        first=$(sed -n 's/^#include //p' "${header%.h}.cpp" 2>/dev/null | head -n 1)
        [ "$first" = "\"${header#*/}\"" ] || printf '%s\n' "$header"
    done < <(of '^(src|tests)/.*\.h$')
}
check_headers() {
    local qt flags=() headers folder
    mapfile -t headers < <(unproved_headers)
    if qt=$(qmake6 -query QT_INSTALL_HEADERS 2>/dev/null); then
        flags=(-fPIC -DQT_GUI_LIB -DQT_WIDGETS_LIB -isystem "$qt")
        for folder in QtCore QtGui QtWidgets QtTest; do flags+=(-isystem "$qt/$folder"); done
    else
        mapfile -t headers < <(printf '%s\n' "${headers[@]}" | grep -Ev '/(screens/(edit|view)|shell|desktop|shots)/')
    fi
    printf '%s\n' "${headers[@]}" |
        xargs -P "$(nproc)" -I{} sh -c 'header=$1; shift
            g++ -std=c++20 -fsyntax-only -Wall -Wextra -Isrc -Itests "$@" -include "$header" -x c++ /dev/null 2>&1 |
                grep -E "error|warning" | head -n 3' -- {} "${flags[@]}"
}

check_length() {
    mapfile -t sources < <(of '^(src|tests|bench|scripts|cmake)/.*\.(h|cpp|sh|cmake)$')
    wc -l "${sources[@]}" | awk '$1 > 500 && $2 != "total" { print $2 ": " $1 " lines" }' |
        grep -vFf <(long_files | awk '{ print $1 ":" }')
}

# No function over 60 lines, none over 15 in cyclomatic complexity (a switch counts as one).
check_functions() {
    mapfile -t sources < <(of '^src/.*\.(h|cpp)$')
    pmccabe "${sources[@]}" 2>/dev/null | awk '
        $1 > 15 { print $6 " " $7 " " $8 " " $9 ": complexity " $1 }
        $5 > 60 { print $6 " " $7 " " $8 " " $9 ": " $5 " lines" }'
}

check_format() {
    mapfile -t sources < <(of '^(src|tests|bench)/.*\.(h|cpp)$')
    clang-format --dry-run -Werror "${sources[@]}" 2>&1 | awk -F: '/ error: / && !seen[$1]++ { print $1 ": not formatted" }'
}

need_packages g++ clang-format git pmccabe || exit 1
failed=0
for check in "${@:-${checks[@]}}"; do
    if ! declare -F "check_$check" >/dev/null; then
        echo "There is no check $check. There are: ${checks[*]}" >&2
        exit 2
    fi
    places=$("check_$check")
    if [ -z "$places" ]; then
        echo "OK   $check"
    else
        echo "FAIL $check"
        sed 's/^/     /' <<<"$places"
        failed=1
    fi
done
exit $failed
