// A made-up sound library that plays nothing, and notes every call in the file that CALL_NOTES names. It
// lacks missing.wav, loses the server at lost.wav, and with SLOW_OPENING set takes 3 seconds to open.
#include <canberra.h>
#include <cstdarg>
#include <cstdlib>
#include <fstream>
#include <string>
#include <unistd.h>

namespace {
void Note(const std::string& call) {
    std::ofstream(std::getenv("CALL_NOTES"), std::ios::app) << call << std::endl;
}
} // namespace

struct ca_context {};

int ca_context_create(ca_context** context) {
    *context = new ca_context;
    return CA_SUCCESS;
}

int ca_context_change_props(ca_context*, ...) {
    return CA_SUCCESS;
}

int ca_context_open(ca_context*) {
    if (std::getenv("SLOW_OPENING") != nullptr) sleep(3);
    Note("open");
    return CA_SUCCESS;
}

int ca_context_destroy(ca_context* context) {
    delete context;
    Note("close");
    return CA_SUCCESS;
}

int ca_context_play(ca_context*, std::uint32_t id, ...) {
    std::va_list properties;
    va_start(properties, id);
    std::string path;
    while (const char* key = va_arg(properties, const char*)) {
        const char* value = va_arg(properties, const char*);
        if (key == std::string(CA_PROP_MEDIA_FILENAME)) path = value;
    }
    va_end(properties);
    Note("play " + path);
    if (path == "missing.wav") return CA_ERROR_NOTFOUND;
    return path == "lost.wav" ? CA_ERROR_DISCONNECTED : CA_SUCCESS;
}
