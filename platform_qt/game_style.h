// The look of the windows: fixed light colours on every desktop.
#pragma once

/// Sets style, colours and font of the application.
void SetGameStyle();
