#!/bin/bash
# An installed game, moved to another prefix: what it lays into its players' folders, and what an update changes there.
# Usage: installed_game.sh BUILD_FOLDER ICON
set -euo pipefail
scratch=$(mktemp -d --tmpdir installedXXXXXX)
trap 'rm -rf "$scratch"' EXIT
cd "$scratch"
cmake --install "$1" --prefix first >log
cmake --install "$1" --prefix portable --component folder >log
mv first prefix
shared=prefix/share/games/quillets

# Starts a program for a player. The folder is laid before the desktop is asked for, so one that is not there ends
# the game right behind it.
Start() {
    XDG_DATA_HOME=$PWD/$2 QT_QPA_PLATFORM=none "$1/quillets" || true
} &>log

# Stops unless the shipped files that a player has in another form, or not at all, are the named ones.
ExpectOwn() {
    local player=$1 own
    shift
    own=$(cd $shared && find . -type f -printf '%P\n' | sort | while read -r name; do
        cmp -s "$name" "$OLDPWD/$player/quillets/$name" || echo "$name"
    done)
    [[ $(echo $own) == "$*" ]] || { echo "$player has changed: $own; expected: $*"; exit 1; }
}

before=$(find prefix -type f -exec sha256sum {} + | sort)
mkdir -p cleo/quillets
echo mine >cleo/quillets/QUILLET.qui
for player in ann bob cleo; do Start prefix/games $player; done
ExpectOwn ann
ExpectOwn cleo QUILLET.qui
[[ $(find prefix -type f -exec sha256sum {} + | sort) == "$before" ]]

# Ann plays; two updates come.
echo more >>ann/quillets/QUILLET.qui
rm ann/quillets/Click.wav ann/quillets/help/panel.png
for update in 1 2; do
    for name in QUILLET.qui Slide.wav help/panel.png fresh.wav; do echo $update >>$shared/$name; done
    for player in ann cleo; do Start prefix/games $player; done
    ExpectOwn ann QUILLET.qui
    ExpectOwn cleo QUILLET.qui
    ExpectOwn bob QUILLET.qui Slide.wav fresh.wav help/panel.png
done
Start prefix/games bob
ExpectOwn bob

# The program's folder as an archive has it: nothing is laid anywhere else.
Start portable dora
[[ ! -e dora ]]

# The desktop finds what the entry names.
entry=prefix/share/applications/quillets.desktop icons=prefix/share/icons/hicolor
[[ -x prefix/games/$(sed -n 's/^Exec=//p' $entry) ]]
icon=$(sed -n 's/^Icon=//p' $entry)
cmp $icons/scalable/apps/$icon.svg "$2"
[[ $(find $icons -name "$icon.png" | wc -l) == 8 ]]
