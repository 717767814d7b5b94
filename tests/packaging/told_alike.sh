#!/bin/bash
# What has to be told in more than one place is told alike: the number and date of the release, and the packages to install.
# Usage: told_alike.sh BUILD_FOLDER, in the root of the project
set -euo pipefail
. scripts/set_up.sh

Expect() {
    grep -qF -- "$2" "$1" || { echo "$1 does not tell: $2"; exit 1; }
}

read -r number date < <(sed -n 's/^## \(.*\) (\(.*\))$/\1 \2/p' CHANGELOG.md)
Expect "$1/packaging/quillets.6" "\"$date\" \"Quillets $number\""
Expect "$1/packaging/example.quillets.quillets.metainfo.xml" "version=\"$number\" date=\"$date\""
cmp "$1/packaging/changelog.Debian" debian/changelog
Expect debian/changelog "quillets ($number-"
Expect debian/changelog "$(LC_ALL=C date --utc --date="$date" '+  %a, %d %b %Y')"

for line in "apt-get install ${Debian[*]}" "dnf install ${Fedora[*]}" "pacman -S --needed ${Arch[*]}" \
            "zypper install ${OpenSuse[*]}"; do
    Expect README.md "| \`$line\` |"
done
for package in $(sed -n '/^Build-Depends/,/^[^ B]/s/^ \([^ ,]*\).*/\1/p' debian/control); do
    [[ " ${Debian[*]} debhelper-compat " == *" $package "* ]] || { echo "./run does not install $package"; exit 1; }
done
