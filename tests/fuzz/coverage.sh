#!/bin/sh
# How much of the readers the inputs of a corpus reach: coverage.sh BUILD_FOLDER CORPUS...
set -eu
source=$(dirname "$(readlink -f "$0")")/../..
cmake -S "$source" -B "$1" -G Ninja -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_COMPILER=clang++ -DQUILLETS_SANITIZE=ON \
    -DBUILD_TESTING=ON -DCMAKE_CXX_FLAGS="-fprofile-instr-generate -fcoverage-mapping"
cmake --build "$1" --parallel 2 --target files_fuzz
program=$(readlink -f "$1")/tests/fuzz/files_fuzz
shift
LLVM_PROFILE_FILE=$program.raw "$program" -runs=0 -detect_leaks=0 "$@" "$source/tests/fuzz/seeds"
llvm-profdata merge -o "$program.profile" "$program.raw"
llvm-cov report "$program" -instr-profile="$program.profile" "$source/files/field_reader.cpp" \
    "$source/files/collection_reader.cpp" "$source/files/settings.cpp"
