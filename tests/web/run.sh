#!/bin/bash
# Builds the page, lets the scripted desktop tell its story, and plays both in Chromium. Usage: run.sh STORY
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/../.."
. scripts/set_up.sh

NeedPackages chromium chromium-driver python3-selenium fonts-liberation
./web --build

axe=build/web/axe-core
[[ -f $axe/package/axe.min.js ]] || { mkdir -p $axe; (cd $axe && npm pack --silent axe-core >/dev/null && tar xzf axe-core-*.tgz); }

"$1" build/web/story
exec /usr/bin/python3 tests/web/play.py build/web/page build/web/story $axe/package/axe.min.js
