// Laying the pieces into the solution.
#pragma once

/// Lays the pieces on the board in the solution of the shown quillet, as one black figure 60 pixels from the
/// corner. They can be moved on from there.
void CopyToBoard();
