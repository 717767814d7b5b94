// Append: the arrangement on the board becomes the newest quillet of the collection.
#pragma once

/// Measures the arrangement, refuses one that is too large, warns of a poor one, asks, and adds one record to
/// the file. The pieces stay where they are in any case.
void AppendQuillet();
