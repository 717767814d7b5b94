// The ways from the game to the page.
#include "platform/desktop.h"
#include "platform_web/web_desktop.h"

#include <emscripten.h>

// clang-format off
EM_JS(void, CallPage, (const char* name, const char* list), {
    Page[UTF8ToString(name)](...JSON.parse(UTF8ToString(list)));
})
EM_JS(double, SecondsOfDay, (), { const now = new Date(); return (now - new Date(now).setHours(0, 0, 0, 0)) / 1000; })
// clang-format on

void TellPage(const char* function, const std::string& arguments) {
    CallPage(function, ('[' + arguments + ']').c_str());
}

float Timer() {
    return static_cast<float>(SecondsOfDay());
}
