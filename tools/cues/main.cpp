// Makes the game's sound cues: make_cues FOLDER writes every cue into the folder, which must exist.
// The bytes are the same on every run; a file that cannot be written ends the program with an error.
#include "cues.h"
#include "mastering.h"
#include "wave_file.h"

#include <fstream>
#include <iostream>

namespace {
bool Write(const std::string& path, const std::string& bytes) {
    std::ofstream file(path, std::ios::binary);
    file << bytes << std::flush;
    return file.good();
}
} // namespace

int main(int argumentCount, char** arguments) {
    if (argumentCount != 2) {
        std::cerr << "usage: make_cues FOLDER\n";
        return 2;
    }
    for (const Cue& cue : Cues) {
        const std::string path = std::string(arguments[1]) + "/" + cue.File;
        if (!Write(path, WaveFile(Mastered(cue.Make(), cue.Level)))) {
            std::cerr << "cannot write " << path << "\n";
            return 1;
        }
    }
}
