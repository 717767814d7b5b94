// Making the arrangement on the board the newest quillet of the collection.
#pragma once

/// Measures the arrangement, refuses what is too large, warns of what is poor, asks, and adds one record to
/// the file. The pieces stay where they are in any case.
void AppendQuillet();
