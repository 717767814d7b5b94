// Which procedure answers which event.
#pragma once

/// Sets all windows back to their design and names the handler of every event in them.
void DesignWindows();
