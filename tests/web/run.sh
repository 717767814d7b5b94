#!/bin/bash
# Builds the page, lets the scripted desktop tell its story, and plays both in Chromium. Usage: run.sh STORY [TALE...]
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/../.."
. scripts/set_up.sh

NeedPackages chromium chromium-driver python3-selenium fonts-liberation
# A node that is not Debian's brings its own npm.
Has npm || NeedPackages npm
./web --build

axe=build/web/package/axe.min.js
[[ -f $axe ]] || (cd build/web && tar xzf "$(npm pack --loglevel=error axe-core@4.14.1)")

"$1" build/web/story
exec /usr/bin/python3 tests/web/play.py build/web/page build/web/story $axe "${@:2}"
