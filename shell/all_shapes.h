// View All: a window of up to 64 quillets at a time. A click chooses one.
#pragma once

#include "shell/page_window.h"

struct AllShapesWindow : PageWindow {
    Label Label1; ///< the number of the figure under the pointer
};

extern AllShapesWindow AllShapes;

/// Sets the window back to its design.
void DesignAllShapes();

/// How a page of the window is laid out.
PageLayout AllShapesPage();

/// Draws the page that begins after ViewTop; does not clear the window.
void DrawThumbnails();

/// Opens View All as the panel's button does: beside the game, at the first page.
void OpenAllShapes();

/// Opens View All as a right click on the target does: modal, at the page where it last stood. A window that
/// is already open is redrawn and raised.
void TargetQui_MouseUp(std::int16_t Index, std::int16_t Button, std::int16_t Shift, float X, float Y);

/// The number of the quillet under a point in twips; 0 where it is none of the collection's.
int ThumbIndex(float X, float Y);
