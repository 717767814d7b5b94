# What ./run and ./check share: the Debian packages they need, and how to get those that are missing.
# Sourced with bash, in the root of the project.

RunPackages=(g++ cmake ninja-build qt6-base-dev qt6-svg-dev libcanberra-dev fonts-liberation)
CheckPackages=(clang libclang-rt-14-dev clang-format clang-tidy libgtest-dev libbenchmark-dev libxtst-dev libcanberra-pulse xvfb openbox
               strace python3 locales desktop-file-utils appstream)

Stop() {
    printf '\n%s: %s\n' "$(basename "$0")" "$*" >&2
    exit 1
}

Missing() {
    local installed package
    installed=$(dpkg-query -W -f ' ${Package} ${db:Status-Status}\n' "$@" 2>/dev/null || true)
    for package in "$@"; do
        [[ $installed == *" $package installed"* ]] || echo "$package"
    done
}

# The sound library plays through a sound server only with this plug-in. Where there is no server it does
# without, and the plug-in would bring a server along.
if [[ -z $(Missing pulseaudio) || -z $(Missing pipewire-pulse) ]]; then
    RunPackages+=(libcanberra-pulse)
fi

AsRoot() {
    if [[ $(id -u) == 0 ]]; then
        "$@"
    else
        sudo "$@"
    fi
}

Apt() {
    AsRoot env DEBIAN_FRONTEND=noninteractive apt-get -qq -o Dpkg::Use-Pty=0 -o DPkg::Lock::Timeout=300 "$@" </dev/null
}

# Installs those of the packages that are missing; asks nothing.
NeedPackages() {
    command -v dpkg-query >/dev/null || Stop "this is no Debian system; build with cmake --preset release, see README.md"
    local missing
    mapfile -t missing < <(Missing "$@")
    [[ ${#missing[@]} == 0 ]] && return
    [[ $(id -u) == 0 ]] || command -v sudo >/dev/null \
        || Stop "packages are missing and there is no sudo; as root: apt-get install ${missing[*]}"
    echo "Installing ${missing[*]}"
    # One source out of reach, of many, is no reason to stop here: what is needed may come from the others.
    Apt update || true
    Apt install --no-install-recommends --yes "${missing[@]}" \
        || Stop "packages could not be installed (is there a network?): ${missing[*]}"
}
