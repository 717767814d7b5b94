# What ./run and ./check share: the packages they need, and how to get those that are missing.
# Sourced with bash, in the root of the project.

# The names on each kind of system, for the same needs. README.md tells them too; a test holds the two together.
Debian=(g++ make cmake qt6-base-dev qt6-svg-dev libcanberra-dev)
Fedora=(gcc-c++ make cmake qt6-qtbase-devel qt6-qtsvg-devel libcanberra-devel)
Arch=(gcc make cmake qt6-base qt6-svg libcanberra)
OpenSuse=(gcc-c++ make cmake qt6-base-devel qt6-svg-devel libcanberra-devel)

RunPackages=("${Debian[@]}" ninja-build fonts-liberation)
# Lint and format are judged by one version on all systems: two disagree.
CheckPackages=(clang libclang-rt-dev clang-format-19 clang-tidy-19 libgtest-dev libbenchmark-dev libxtst-dev libcanberra-pulse xvfb openbox
               strace python3 locales desktop-file-utils appstream shared-mime-info)

Stop() {
    printf '\n%s: %s\n' "$(basename "$0")" "$*" >&2
    exit 1
}

Has() {
    command -v "$1" >/dev/null
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
if Has dpkg-query && [[ -z $(Missing pulseaudio) || -z $(Missing pipewire-pulse) ]]; then
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

# What apt is going to fetch for the packages, in megabytes; nothing where it does not know them.
Megabytes() {
    apt-get -qq --print-uris --no-install-recommends install "$@" 2>/dev/null \
        | awk '{ bytes += $3 } END { if (NR) printf " (%d packages, %.0f MB to fetch)", NR, bytes / 1e6 }'
}

# Ends with the one line that gets what is missing on this system.
StopForRoot() {
    local line
    if Has apt-get; then
        line="apt-get install --no-install-recommends $*"
        Stop "packages are missing$(Megabytes "$@"); as root: $line"
    fi
    if Has dnf; then line="dnf install ${Fedora[*]}"
    elif Has pacman; then line="pacman -S --needed ${Arch[*]}"
    elif Has zypper; then line="zypper install ${OpenSuse[*]}"
    else Stop "needed are a C++20 compiler, make, CMake 3.25, and, with their headers, Qt 6.4 or later (base and svg) and libcanberra"
    fi
    Stop "packages are missing; as root: $line"
}

# Installs those of the packages that are missing; asks nothing.
NeedPackages() {
    Has apt-get || StopForRoot
    local missing
    mapfile -t missing < <(Missing "$@")
    [[ ${#missing[@]} == 0 ]] && return
    [[ $(id -u) == 0 ]] || Has sudo || StopForRoot "${missing[@]}"
    # One source out of reach, of many, is no reason to stop here: what is needed may come from the others.
    Apt update || true
    echo "Installing ${missing[*]}$(Megabytes "${missing[@]}")"
    Apt install --no-install-recommends --yes "${missing[@]}" && return
    [[ $(id -u) == 0 ]] || StopForRoot "${missing[@]}"
    Stop "packages could not be installed (is there a network?): ${missing[*]}"
}
