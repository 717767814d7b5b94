// The ways from the game to the page.
#include "platform_web/page.h"

#include <emscripten.h>

// clang-format off
EM_JS(void, PageShow, (const char* description), { Page.show(JSON.parse(UTF8ToString(description))); })
EM_JS(void, PagePaint, (const Surface* surface, int first, int last), { Page.paint(surface, first, last); })
EM_JS(void, PageRaise, (const Form* form), { Page.raise(form); })
EM_JS(void, PageFocus, (const Form* form), { Page.focus(form); })
EM_JS(void, PageAsk, (const char* question), { Page.ask(JSON.parse(UTF8ToString(question))); })
EM_JS(void, PageSay, (const char* words), { Page.say(UTF8ToString(words)); })
EM_JS(void, PagePlay, (const char* file), { Page.play(UTF8ToString(file)); })
EM_JS(void, PageSilence, (), { Page.silence(); })
EM_JS(void, PagePrint, (const Form* form), { Page.print(form); })
EM_JS(void, PageGoTo, (const WebBrowser* browser, const char* address), { Page.goTo(browser, UTF8ToString(address)); })
EM_JS(void, PageStore, (const char* name, const char* content, int length), {
    Page.store(UTF8ToString(name), HEAPU8.slice(content, content + length));
})
EM_JS(void, PageHandOut, (const char* name, const char* content, int length), {
    Page.handOut(UTF8ToString(name), HEAPU8.slice(content, content + length));
})
EM_JS(void, PageEnd, (), { Page.end(); })
EM_JS(double, PageClock, (), { const now = new Date(); return (now - new Date(now).setHours(0, 0, 0, 0)) / 1000; })
// clang-format on
