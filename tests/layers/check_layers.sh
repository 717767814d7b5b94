#!/bin/bash
# The layers hold: includes point down only, and the logic does not name Qt, whose headers it is not given either.
# Usage: check_layers.sh ROOT
set -euo pipefail
cd "$1"

declare -A MayInclude=(
    [platform]="platform"
    [core]="platform core"
    [files]="platform core files"
    [play]="platform core files play"
    [shell]="platform core files play shell"
    [platform_scripted]="platform platform_scripted"
    [platform_qt]="platform platform_qt"
)
faults=0

Fault() {
    [[ -z $2 ]] || { printf '%s\n%s\n\n' "$1" "$2"; faults=1; }
}

for folder in "${!MayInclude[@]}"; do
    allowed=${MayInclude[$folder]// /|}
    found=$(grep -rnE '^ *# *include *"' "$folder" | grep -vE "#include \"($allowed)/" || true)
    Fault "$folder/ may include ${MayInclude[$folder]} only:" "$found"
done

found=$(grep -rnwE 'Qt[A-Za-z0-9]*|Q[A-Z][a-z][A-Za-z]*|QIODevice|qt_[a-z]+' platform core files play shell || true)
Fault "The logic names Qt:" "$found"

exit $faults
