// What the game tells the page; each is a function of page/quillets.js. Records go there as JSON, and are
// known by their address in both directions.
#pragma once

#include "platform/forms.h"

extern "C" {
/// Brings the pane of a form in line with its description.
void PageShow(const char* description);
/// Rows of a surface have changed.
void PagePaint(const Surface* surface, int first, int last);
void PageRaise(const Form* form);
void PageFocus(const Form* form);
/// Asks by a box or a file dialog; the page calls Answer.
void PageAsk(const char* question);
/// Speaks a text, also one that is the same as before.
void PageSay(const char* words);
void PagePlay(const char* file);
void PageSilence();
void PagePrint(const Form* form);
void PageGoTo(const WebBrowser* browser, const char* address);
/// Stores a file for good; the page calls Stored.
void PageStore(const char* name, const char* content, int length);
/// Gives the player a copy of a file.
void PageHandOut(const char* name, const char* content, int length);
void PageEnd();
/// Seconds since midnight.
double PageClock();
}
