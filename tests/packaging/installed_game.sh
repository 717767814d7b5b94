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
shared=prefix/share/quillets

# Starts a program for a player. The folder is laid before the desktop is asked for, so one that is not there ends
# the game right behind it. Taking its desktop from the command line, the game would go on.
Start() {
    local code=0
    XDG_DATA_HOME=$PWD/$2 QT_QPA_PLATFORM=none timeout 20 "$1/quillets" -platform offscreen || code=$?
    [[ $code != 124 ]]
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

echo private >$shared/stray.wav
before=$(find prefix -type f -exec sha256sum {} + | sort)
mkdir -p cleo/quillets
echo mine >cleo/quillets/QUILLET.qui
for player in ann bob cleo; do Start prefix/bin $player; done
ExpectOwn ann stray.wav
ExpectOwn cleo QUILLET.qui stray.wav
[[ $(find prefix -type f -exec sha256sum {} + | sort) == "$before" ]]

# Ann plays; two updates come. Deleted settings stay away, for the start to make new ones with its defaults.
echo more >>ann/quillets/QUILLET.qui
rm ann/quillets/{Click.wav,help/panel.png,Quillets.cfg}
echo "1 a name of old.wav" >>bob/quillets/.shipped
for update in 1 2; do
    for name in QUILLET.qui Slide.wav help/panel.png; do echo $update >>$shared/$name; done
    for player in ann cleo; do Start prefix/bin $player; done
    ExpectOwn ann QUILLET.qui Quillets.cfg stray.wav
    ExpectOwn cleo QUILLET.qui stray.wav
    ExpectOwn bob QUILLET.qui Slide.wav help/panel.png stray.wav
done
Start prefix/bin bob
ExpectOwn bob stray.wav

# The usual player has a home and no variable for data. The game works in the folder, where Remove leaves its file; on a
# full disk, which holds no collection, in the shipped one.
WorksIn() {
    HOME=$PWD/$1 QT_QPA_PLATFORM=none env -u XDG_DATA_HOME strace -o calls -e chdir prefix/bin/quillets &>log || true
    grep -q "^chdir(\"$PWD/$2\")" calls
}
eves=eve/home/.local/share/quillets
WorksIn eve/home $eves
cmp $eves/QUILLET.qui $shared/QUILLET.qui
(trap '' XFSZ; ulimit -f 8; WorksIn frank $shared)

# The program's folder as an archive has it: nothing is laid anywhere else.
Start portable dora
[[ ! -e dora ]]

# The desktop finds what the entry names.
entry=prefix/share/applications/quillets.desktop icons=prefix/share/icons/hicolor
[[ -x prefix/bin/$(sed -n 's/^Exec=//p' $entry) ]]
icon=$(sed -n 's/^Icon=//p' $entry)
cmp $icons/scalable/apps/$icon.svg "$2"
update-mime-database prefix/share/mime 2>log
type=$(sed -n 's/^[0-9]*:\(.*\):\*\.qui$/\1/p' prefix/share/mime/globs2)
for picture in "apps/$icon" "mimetypes/${type/\//-}"; do
    [[ -s $icons/scalable/$picture.svg && $(find $icons -path "*/$picture.png" | wc -l) == 8 ]]
done
