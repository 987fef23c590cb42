#pragma once

class wxWindow;

/// Handles events until the whole of a window that was just shown has been painted for the first time: GTK paints when
/// its clock says so, not when asked.
void awaitFirstPaint(const wxWindow& shown);
