// The commands to the media service.
#include "files/sound_cues.h"

#include "core/game_state.h"
#include "platform/desktop.h"

void PlayCue(const std::string& name) {
    if (Game.SoundOn != Game.FlagOn) return;
    std::string nothing;
    mciSendStringA("play " + Game.AppPath + name + ".wav", nothing, 0, nullptr);
}

void CloseSound() {
    for (const char* command : {"stop mp3", "close all"}) {
        std::string answer = "0";
        mciSendStringA(command, answer, 0, nullptr);
    }
}
